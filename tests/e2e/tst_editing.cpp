#include "ImageManagerProgram.h"
#include "pictures.h"

#include <QDir>
#include <QImageReader>
#include <QTest>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;
using State = Accessible::State;

namespace {

constexpr QSize roomy{1100, 700};
constexpr QSize pageSize{100, 80};

QImage shown_page(ImageManagerProgram &program, QSize size)
{
    return program.desktop().picture({program.canvas().topLeft(), size});
}

QImage inverted(QImage page)
{
    page.invertPixels();
    return page;
}

Accessible dialog_of(ImageManagerProgram &program, const QString &title)
{
    Accessible dialog;
    (void)QTest::qWaitFor( // a dialog that does not come is null
        [&] {
            dialog = program.application().find(Role::Dialog, title);
            return !dialog.isNull() && dialog.has(State::Showing);
        },
        Program::patienceMs);
    return dialog;
}

/// Inverts the page by the menu, and accepts the preview.
bool invert(ImageManagerProgram &program)
{
    return program.choose(u"Image"_s, u"Invert"_s)
        && dialog_of(program, u"Invert"_s).find(Role::Button, u"OK"_s).press();
}

} // namespace

/// A page is changed, taken back, cropped and saved, as a person does it: by menu, dialog, mouse and keyboard.
class tst_editing : public QObject
{
    Q_OBJECT

private slots:
    void invertIsTakenBackAndDoneAgain()
    {
        OpenProgram program(u"a.png"_s, roomy);
        QTRY_VERIFY(shown_page(program, pageSize) == patterned_page(pageSize));

        QVERIFY(invert(program));
        QTRY_VERIFY(shown_page(program, pageSize) == inverted(patterned_page(pageSize)));
        QTRY_COMPARE(program.tabTitles(), QStringList{u"a.png*"_s});
        QCOMPARE(program.place.snapshots().size(), 1);

        QTRY_VERIFY(program.tool(u"Undo"_s).has(State::Enabled));
        QVERIFY(program.tool(u"Undo"_s).press());
        QTRY_VERIFY(shown_page(program, pageSize) == patterned_page(pageSize));

        QTRY_VERIFY(program.tool(u"Redo"_s).has(State::Enabled));
        QVERIFY(program.tool(u"Redo"_s).press());
        QTRY_VERIFY(shown_page(program, pageSize) == inverted(patterned_page(pageSize)));
    }

    void brightnessIsChosenWithTheSlider()
    {
        const Place place;
        const QString grey = place.path(u"grey.png"_s);
        QVERIFY(solid_page(pageSize, qRgb(100, 100, 100)).save(grey));
        ImageManagerProgram program(place);
        QVERIFY(program.open({grey}, roomy));

        QVERIFY(program.choose(u"Image"_s, u"Brightness..."_s));
        const Accessible dialog = dialog_of(program, u"Brightness"_s);
        QVERIFY2(!dialog.isNull(), qPrintable(program.application().tree()));
        // The slider has the focus when the dialog comes.
        QTRY_VERIFY(!dialog
                         .findAll([](const Accessible &control) {
                             return control.roleName() == u"slider" && control.has(State::Focused);
                         })
                         .isEmpty());
        program.desktop().pressKey("End");
        QVERIFY(dialog.find(Role::Button, u"OK"_s).press());

        // The slider's end is +100 percent: twice as bright.
        QTRY_VERIFY(shown_page(program, pageSize) == solid_page(pageSize, qRgb(200, 200, 200)));
        QTRY_COMPARE(program.tabTitles(), QStringList{u"grey.png*"_s});
    }

    void cancelledDialogChangesNothing()
    {
        OpenProgram program(u"a.png"_s, roomy);

        QVERIFY(program.choose(u"Image"_s, u"Contrast..."_s));
        const Accessible dialog = dialog_of(program, u"Contrast"_s);
        QVERIFY(!dialog.isNull());
        program.desktop().pressKey("Escape");
        QTRY_VERIFY(program.application().find(Role::Dialog).isNull());

        QVERIFY(compare_pictures(shown_page(program, pageSize), patterned_page(pageSize)));
        QCOMPARE(program.tabTitles(), QStringList{u"a.png"_s});
        QCOMPARE(program.place.snapshots(), QStringList());
    }

    void selectionIsCroppedAndUndoBringsThePageBack()
    {
        OpenProgram program(u"a.png"_s, roomy);
        const QPoint corner = program.canvas().topLeft();

        program.desktop().drag(corner + QPoint(20, 10), {corner + QPoint(40, 30), corner + QPoint(69, 49)});
        QTRY_VERIFY(program.tool(u"Crop"_s).has(State::Enabled));
        QVERIFY(program.tool(u"Crop"_s).press());

        QTRY_VERIFY(shown_page(program, {50, 40}) == patterned_page(pageSize).copy(20, 10, 50, 40));
        QTRY_VERIFY(!program.tool(u"Crop"_s).has(State::Enabled));

        QVERIFY(program.tool(u"Undo"_s).press());
        QTRY_VERIFY(shown_page(program, pageSize) == patterned_page(pageSize));
    }

    void changedPageIsSavedUnderAnotherName()
    {
        OpenProgram program(u"a.png"_s, roomy);
        QVERIFY(invert(program));
        QTRY_COMPARE(program.tabTitles(), QStringList{u"a.png*"_s});

        QVERIFY(program.choose(u"File"_s, u"Save As..."_s));
        QTRY_VERIFY(!program.application().find(Role::Dialog).find(Role::Text).isNull());
        program.desktop().pressKey("a", {"Control_L"}); // the name field has the focus
        for (const char *const key : {"n", "e", "w", "period", "p", "n", "g"})
            program.desktop().pressKey(key);
        program.desktop().pressKey("Return");

        QTRY_COMPARE(program.tabTitles(), QStringList{u"new.png"_s});
        QVERIFY(compare_pictures(
            QImageReader(program.place.path(u"new.png"_s)).read().convertToFormat(QImage::Format_RGB32),
            inverted(patterned_page(pageSize))));
        QVERIFY(
            compare_pictures(QImageReader(program.place.path(u"a.png"_s)).read().convertToFormat(QImage::Format_RGB32),
                             patterned_page(pageSize)));
    }

    void closingAChangedPageAsks()
    {
        OpenProgram program(u"a.png"_s, roomy);
        QVERIFY(invert(program));
        QTRY_COMPARE(program.tabTitles(), QStringList{u"a.png*"_s});

        QVERIFY(program.choose(u"File"_s, u"Close"_s));
        const MessageBox box = program.answer(u"Yes"_s);

        QCOMPARE(box.text, u"Image 'a.png' has been changed.\nDo you want to save it?"_s);
        QTRY_COMPARE(program.tabTitles(), QStringList());
        QVERIFY(
            compare_pictures(QImageReader(program.place.path(u"a.png"_s)).read().convertToFormat(QImage::Format_RGB32),
                             inverted(patterned_page(pageSize))));
    }

    void closingRightBehindTheKeyThatAcceptsADialogEndsTheProgram()
    {
        OpenProgram program(u"a.png"_s, roomy, pageSize);
        const WindowId window = program.window();
        QVERIFY(program.askToInvert());

        program.pressReturnAndClose(window);

        QCOMPARE(program.process().waitForExit(), 0);
    }
};

QTEST_GUILESS_MAIN(tst_editing)
#include "tst_editing.moc"
