#include "NextBox.h"
#include "NextDialog.h"
#include "NextFileDialog.h"
#include "Once.h"
#include "WindowFixture.h"

#include <QCheckBox>
#include <QFile>
#include <QTest>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

void close_current_tab_unasked(const WindowFixture &fixture)
{
    fixture.currentView()->document()->setModified(false);
    fixture.action(u"file_close"_s)->trigger();
}

} // namespace

/// What is typed or clicked right behind the last key of a command closes the tab that the command works on.
class tst_ImageManager_closed_tabs : public QObject
{
    Q_OBJECT

private slots:
    void theWindowMayBeClosedBehindAnAcceptedDialog_data()
    {
        QTest::addColumn<QString>("action");

        for (const QString &action :
             {u"image_invert"_s, u"rotate_cw"_s, u"image_brightness"_s, u"image_contrast"_s, u"depth_8"_s,
              u"scale_proportionally"_s, u"scale_vertically"_s, u"image_resize"_s})
            QTest::newRow(qPrintable(action)) << action;
    }

    void theWindowMayBeClosedBehindAnAcceptedDialog()
    {
        QFETCH(const QString, action);
        WindowFixture fixture(u"a.png"_s);
        const NextDialog dialog([&](QDialog &box) {
            WindowFixture::pressOk(box);
            QVERIFY(fixture.window.close());
        });

        fixture.action(action)->trigger();

        QCOMPARE(fixture.tabs()->count(), 0);
        QVERIFY(!fixture.window.isVisible());
        QVERIFY(fixture.window.isEnabled());
        QVERIFY(!fixture.enabled(u"edit_undo"_s));
        QCOMPARE(fixture.home.filesIn(u"tmp"_s), QStringList());
    }

    void theTabBehindAClosedOneIsNotEdited_data() { theWindowMayBeClosedBehindAnAcceptedDialog_data(); }

    void theTabBehindAClosedOneIsNotEdited()
    {
        QFETCH(const QString, action);
        WindowFixture fixture(u"a.png"_s);
        QVERIFY(fixture.open(u"b.png"_s));
        const QImage page = fixture.page(0);
        const NextDialog dialog([&](QDialog &box) {
            WindowFixture::pressOk(box);
            close_current_tab_unasked(fixture);
        });

        fixture.action(action)->trigger();

        QCOMPARE(fixture.titles(), QStringList{u"a.png"_s});
        QVERIFY(compare_pictures(fixture.page(0), page));
        QVERIFY(fixture.window.isEnabled());
    }

    void theWindowMayBeClosedBehindTheImageProperties()
    {
        WindowFixture fixture(u"a.png"_s);
        const NextDialog dialog([&](QDialog &box) {
            box.accept();
            QVERIFY(fixture.window.close());
        });

        fixture.action(u"image_properties"_s)->trigger();

        QVERIFY(!fixture.window.isVisible());
    }

    void aDocumentThatIsClosedBehindItsSaveDialogIsNotSaved_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<bool>("useAsBase");

        QTest::newRow("save as") << u"file_save_as"_s << false;
        QTest::newRow("save all under one name") << u"file_save_all"_s << false;
        QTest::newRow("save all under a base name") << u"file_save_all"_s << true;
    }

    void aDocumentThatIsClosedBehindItsSaveDialogIsNotSaved()
    {
        QFETCH(const QString, action);
        QFETCH(const bool, useAsBase);
        WindowFixture fixture;
        QVERIFY(fixture.window.load_file(fixture.file(u"scan.png"_s), {}, true));
        const QString path = fixture.home.filePath(u"named.png"_s);
        const NextFileDialog dialog([&](QFileDialog &chooser) {
            if (auto *const box = chooser.findChild<QCheckBox *>())
                box->setChecked(useAsBase);
            NextFileDialog::accept(chooser, path);
            QVERIFY(fixture.window.close());
        });

        fixture.action(action)->trigger();

        QVERIFY(!fixture.window.isVisible());
        QVERIFY(!QFile::exists(path));
        QVERIFY(!QFile::exists(fixture.home.filePath(u"named1.png"_s)));
    }

    void aFileThatIsChosenWhenTheWindowClosesIsNotOpened()
    {
        WindowFixture fixture;
        const QString path = fixture.file(u"a.png"_s);
        const NextFileDialog dialog([&](QFileDialog &chooser) {
            NextFileDialog::accept(chooser, path);
            QVERIFY(fixture.window.close());
        });

        fixture.action(u"file_open"_s)->trigger();

        QCOMPARE(fixture.tabs()->count(), 0);
        QVERIFY(fixture.window.isClosed());
    }

    void theLastTabMayBeClosedAtTheEndOfAnEdit()
    {
        WindowFixture fixture(u"a.png"_s);
        bool frozen = false;
        const Once closing(
            [&] {
                frozen = frozen || !fixture.window.isEnabled();
                return frozen && fixture.window.isEnabled();
            },
            [&] { close_current_tab_unasked(fixture); });

        fixture.edit(u"image_invert"_s);

        QCOMPARE(fixture.tabs()->count(), 0);
        QVERIFY(!fixture.enabled(u"edit_undo"_s));
        QVERIFY(!fixture.enabled(u"edit_redo"_s));
    }

    void withoutATabTheCommandsOfOneDoNothing()
    {
        WindowFixture fixture(u"a.png"_s);
        fixture.edit(u"image_invert"_s);
        close_current_tab_unasked(fixture);

        fixture.window.edit_undo();
        fixture.window.edit_redo();
        fixture.window.image_crop();
        fixture.window.view_zoom_in();
        fixture.window.view_zoom_out();
        fixture.window.view_zoom_by_id(-2);
        fixture.window.image_properties();
        fixture.window.file_close();
        fixture.window.file_close_all();

        QVERIFY(fixture.window.isEnabled());
        QCOMPARE(fixture.home.filesIn(u"tmp"_s).size(), 1);
    }

    void theTabBehindAClosedOneIsNotClosed()
    {
        WindowFixture fixture(u"a.png"_s);
        QVERIFY(fixture.open(u"b.png"_s));
        fixture.currentView()->document()->setModified(true);
        const NextOf<QMessageBox> answer([&](const QMessageBox &box) {
            box.button(QMessageBox::No)->click();
            close_current_tab_unasked(fixture);
        });

        fixture.action(u"file_close"_s)->trigger();

        QCOMPARE(fixture.titles(), QStringList{u"a.png"_s});
    }

    void allTabsMayBeClosedBehindTheQuestionOfTheWindow()
    {
        WindowFixture fixture(u"a.png"_s);
        fixture.currentView()->document()->setModified(true);
        const NextOf<QMessageBox> answer([&](const QMessageBox &box) {
            box.button(QMessageBox::No)->click();
            close_current_tab_unasked(fixture);
        });

        QVERIFY(fixture.window.close());
    }

    void everyTabIsAskedForThoughOneIsClosedMeanwhile()
    {
        WindowFixture fixture;
        for (const QString &name : {u"a.png"_s, u"b.png"_s, u"c.png"_s}) {
            QVERIFY(fixture.open(name));
            fixture.currentView()->document()->setModified(true);
        }
        fixture.tabs()->setCurrentIndex(0);
        const NextOf<QMessageBox> first([&](const QMessageBox &box) {
            QVERIFY(box.text().contains(u"a.png"_s));
            box.button(QMessageBox::No)->click();
            close_current_tab_unasked(fixture);
        });
        const NextBox second = answer_next_box(QMessageBox::No);
        const NextBox third = answer_next_box(QMessageBox::No);

        QVERIFY(fixture.window.close());

        QVERIFY(second.text().contains(u"c.png"_s));
        QVERIFY(third.text().contains(u"b.png"_s));
    }

    void aFileThatComesWhenTheLastTabIsClosedKeepsTheWindow()
    {
        WindowFixture fixture(u"a.png"_s);
        const QString scan = fixture.file(u"scan.png"_s);
        const Once message([&] { return fixture.tabs()->count() == 0; },
                           [&] { fixture.window.processMessage(u"imagemanager:-t:"_s + scan); });

        QVERIFY(!fixture.window.close());

        QVERIFY(fixture.window.isVisible());
        QCOMPARE(fixture.tabs()->count(), 1);
        QVERIFY(!QFile::exists(scan));
    }

    void aTemporaryFileThatComesDuringTheCloseQuestionKeepsItsTab_data()
    {
        QTest::addColumn<bool>("closesWindow");

        QTest::newRow("the window") << true;
        QTest::newRow("all tabs") << false;
    }

    void aTemporaryFileThatComesDuringTheCloseQuestionKeepsItsTab()
    {
        QFETCH(const bool, closesWindow);
        WindowFixture fixture(u"a.png"_s);
        fixture.currentView()->document()->setModified(true);
        const QString scan = fixture.file(u"scan.png"_s);
        const NextOf<QMessageBox> message([&](const QMessageBox &box) {
            fixture.window.processMessage(u"imagemanager:-t:"_s + scan);
            box.button(QMessageBox::No)->click();
        });

        if (closesWindow)
            QVERIFY(!fixture.window.close());
        else
            fixture.action(u"file_close_all"_s)->trigger();

        QVERIFY(fixture.window.isVisible());
        QCOMPARE(fixture.tabs()->count(), 2);
        QVERIFY(!QFile::exists(scan));
    }

    void aTemporaryFileThatComesToAClosedWindowStays()
    {
        WindowFixture fixture;
        QVERIFY(fixture.window.close());
        const QString scan = fixture.file(u"scan.png"_s);

        fixture.window.processMessage(u"imagemanager:-t:"_s + scan);

        QCOMPARE(fixture.tabs()->count(), 0);
        QVERIFY(QFile::exists(scan));
    }

    void theFilesOfAMessageStayClosedOnceTheWindowIs()
    {
        WindowFixture fixture(u"a.png"_s);
        const QString first = fixture.file(u"b.png"_s);
        const QString second = fixture.file(u"c.png"_s);
        const Once closing([&] { return fixture.tabs()->count() == 2; }, [&] { QVERIFY(fixture.window.close()); });

        fixture.window.processMessage(u"imagemanager:"_s + first + u":-t:"_s + second);

        QCOMPARE(fixture.tabs()->count(), 0);
        QVERIFY(QFile::exists(second));
    }

    void aTemporaryFileStaysIfTheWindowIsClosedWhileItOpens()
    {
        WindowFixture fixture;
        const QString scan = fixture.file(u"scan.png"_s);
        const Once closing([&] { return fixture.tabs()->count() == 1; }, [&] { QVERIFY(fixture.window.close()); });

        fixture.window.processMessage(u"imagemanager:-t:"_s + scan);

        QVERIFY(!fixture.window.isVisible());
        QVERIFY(QFile::exists(scan));
    }

    void aFileThatCameWhileTheWindowWasBuiltKeepsTheProgramUp()
    {
        WindowFixture fixture;
        const QString path = fixture.file(u"early.png"_s);
        const NextBox box = answer_next_box(QMessageBox::Ok);

        fixture.window.processArgs({u"imagemanager"_s, u"/nowhere/at.all"_s}, {u"imagemanager:"_s + path});

        QCOMPARE(box.title(), u"Load failed"_s);
        QCOMPARE(fixture.titles(), QStringList{u"early.png"_s});
    }

    void anEarlyMessageOpensNothingAndTheNextOneDoes()
    {
        WindowFixture fixture;
        const QString path = fixture.file(u"early.png"_s);
        const NextBox own = answer_next_box(QMessageBox::Ok);
        const NextBox early = answer_next_box(QMessageBox::Ok);

        fixture.window.processArgs({u"imagemanager"_s, u"/nowhere/at.all"_s},
                                   {u"imagemanager:/nowhere/else"_s, u"imagemanager:"_s + path});

        QVERIFY(own.hasCome());
        QVERIFY(early.hasCome());
        QCOMPARE(fixture.titles(), QStringList{u"early.png"_s});
    }

    void aMessageBringsAMinimizedWindowBack()
    {
        WindowFixture fixture;
        QVERIFY(QTest::qWaitForWindowExposed(&fixture.window));
        fixture.window.showMinimized();
        QTRY_VERIFY(!fixture.window.windowHandle()->isExposed()); // the window manager has taken it away

        fixture.window.processMessage(u"program:"_s + fixture.file(u"a.png"_s));

        QVERIFY(!fixture.window.isMinimized());
        QCOMPARE(fixture.titles(), QStringList{u"a.png"_s});
    }
};

QTEST_MAIN(tst_ImageManager_closed_tabs)
#include "tst_ImageManager_closed_tabs.moc"
