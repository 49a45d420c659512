#include "WindowFixture.h"

#include "Language.h"
#include "NextDialog.h"

#include <QAbstractButton>
#include <QDialog>
#include <QLabel>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int minimalWidth = 335; ///< of the main window, the parent of all dialogs
constexpr int usualWidth = 1000;

/// Whether the text of a control has less room than it takes, or stands outside of its window.
bool is_cut(const QWidget &control, const QWidget &window)
{
    const QRect place(control.mapTo(&window, QPoint()), control.size());
    if (!window.rect().contains(place))
        return true;
    if (const auto *const label = qobject_cast<const QLabel *>(&control); label && label->wordWrap())
        return control.height() < label->heightForWidth(control.width());
    // "Cancel" has the height of "OK", whatever higher letters would like.
    return control.width() < control.sizeHint().width() || control.height() < control.fontMetrics().height();
}

QStringList cut_texts(const QDialog &dialog)
{
    QStringList texts;
    const auto look = [&](const QWidget &control, const QString &text) {
        if (control.isVisible() && !text.isEmpty() && is_cut(control, dialog))
            texts.append(text);
    };
    const QList<QLabel *> labels = dialog.findChildren<QLabel *>();
    for (const QLabel *const label : labels) {
        if (label->objectName() != "attachment"_L1) // a path, which may have any length, does not widen the form
            look(*label, label->text());
    }
    const QList<QAbstractButton *> buttons = dialog.findChildren<QAbstractButton *>();
    for (const QAbstractButton *const button : buttons)
        look(*button, button->text());
    return texts;
}

} // namespace

/// The room that texts get in the dialogs.
class tst_ImageManager_room : public QObject
{
    Q_OBJECT

private slots:
    void cutTextIsFound();
    void noTextOfADialogIsCutOff_data();
    void noTextOfADialogIsCutOff();
};

void tst_ImageManager_room::cutTextIsFound()
{
    QDialog dialog;
    auto *const label = new QLabel(u"A text that takes its room"_s, &dialog);
    label->resize(label->sizeHint());
    dialog.resize(label->sizeHint());
    dialog.show();
    QCOMPARE(cut_texts(dialog), QStringList());

    dialog.resize(label->width() - 1, label->height());
    QCOMPARE(cut_texts(dialog), QStringList(label->text()));

    dialog.resize(label->sizeHint());
    label->resize(label->width() - 1, label->height());
    QCOMPARE(cut_texts(dialog), QStringList(label->text()));
}

void tst_ImageManager_room::noTextOfADialogIsCutOff_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("width");
    for (const char *const language : {"en", "de", "es", "fr", "ja", "pl"}) {
        for (const int width : {minimalWidth, usualWidth})
            QTest::addRow("%s, %d pixels", language, width) << QString::fromLatin1(language) << width;
    }
}

void tst_ImageManager_room::noTextOfADialogIsCutOff()
{
    QFETCH(const QString, language);
    QFETCH(const int, width);
    const auto spoken = language == "en"_L1 ? nullptr : std::make_unique<Language>(language);
    WindowFixture fixture;
    fixture.window.resize(width, 560);
    QVERIFY(fixture.open(u"a.png"_s));

    for (const QString &name : {u"image_invert"_s, u"image_brightness"_s, u"image_contrast"_s, u"scale_horizontally"_s,
                                u"scale_vertically"_s, u"scale_proportionally"_s, u"image_resize"_s,
                                u"image_properties"_s, u"tool_send"_s, u"tool_upload"_s, u"tool_configure"_s}) {
        QStringList cut;
        {
            const NextDialog dialog([&](QDialog &shown) {
                cut = cut_texts(shown);
                shown.reject();
            });
            fixture.action(name)->trigger();
        }
        QVERIFY2(cut.isEmpty(), qPrintable(name + u": "_s + cut.join(u" | "_s)));
    }
}

QTEST_MAIN(tst_ImageManager_room)
#include "tst_ImageManager_room.moc"
