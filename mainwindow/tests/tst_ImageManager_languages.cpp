#include "WindowFixture.h"

#include "file_dialogs.h"
#include "ImageFormat.h"
#include "Language.h"
#include "NextDialog.h"
#include "PropertiesDialog.h"

#include <QFileDialog>
#include <QPushButton>
#include <QSlider>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

void add_languages()
{
    QTest::addColumn<QString>("language");
    for (const char *const language : {"de", "es", "fr", "ja", "pl"})
        QTest::newRow(language) << QString::fromLatin1(language);
}

/// The key that a menu text underlines; null if it underlines none.
QChar mnemonic(const QString &text)
{
    const qsizetype mark = text.indexOf('&'_L1);
    return mark < 0 ? QChar() : text.at(mark + 1).toLower();
}

/// Texts of a menu or bar that have no mnemonic, or one that another text has as well.
QStringList bad_mnemonics(const QWidget *place)
{
    QStringList bad;
    QString used;
    for (const QAction *const action : place->actions()) {
        if (action->isSeparator())
            continue;
        const QChar key = mnemonic(action->text());
        if (key.isNull() || used.contains(key))
            bad.append(action->text());
        used.append(key);
    }
    return bad;
}

} // namespace

/// The window in the languages of the package.
class tst_ImageManager_languages : public QObject
{
    Q_OBJECT

private slots:
    void everyMenuTextHasAKeyOfItsOwn_data() { add_languages(); }
    void everyMenuTextHasAKeyOfItsOwn()
    {
        QFETCH(const QString, language);
        const Language spoken(language);
        const WindowFixture fixture;

        QCOMPARE(bad_mnemonics(fixture.window.menuBar()), QStringList());
        int count = 0;
        for (const QMenu *const menu : fixture.window.findChildren<QMenu *>()) {
            const QAction *const first = menu->actions().value(0);
            // The steps of the zoom are numbers, and the window's own pop-up is the toolkit's.
            if (!first || first->text() == "8:1"_L1 || first->text() == fixture.toolBar()->windowTitle())
                continue;
            QCOMPARE(bad_mnemonics(menu), QStringList());
            ++count;
        }
        QVERIFY(count >= 10); // four of the bar, five below these, and the tools
    }

    void everyTextOfAnActionIsTranslated_data() { add_languages(); }
    void everyTextOfAnActionIsTranslated()
    {
        QFETCH(const QString, language);
        const WindowFixture english;
        const Language spoken(language);
        const WindowFixture fixture;

        for (const QAction *const action : fixture.window.findChildren<QAction *>()) {
            const QString name = action->objectName();
            const QAction *const other = english.action(name);
            if (name.isEmpty() || !other)
                continue;
            // "1 bit" is what several languages call it.
            QVERIFY2(action->text() != other->text() || name == "depth_1"_L1, qPrintable(name));
            // The pictures' menu is made without a row of the table.
            QVERIFY2(action->statusTip() != other->statusTip() || name == "effects_menu"_L1, qPrintable(name));
        }
    }

    void whatsThisTextsStayEnglish()
    {
        const Language spoken(u"de"_s);
        const WindowFixture fixture;

        const QAction *const save = fixture.action(u"file_save"_s);
        QCOMPARE(save->text(), u"&Speichern"_s);
        QCOMPARE(save->statusTip(), u"Speichert das aktuelle Bild in einer Datei"_s);
        QCOMPARE(save->whatsThis(),
                 u"<p><img source=\"Save\">&nbsp;&nbsp; <b> Save</b></p><p>Saves current image to disk file</p>"_s);
    }

    void whatsThisTextOfTheZoomIsTranslated()
    {
        const Language spoken(u"de"_s);
        const WindowFixture fixture;

        const QAction *const largest = fixture.menu(u"&Zoom"_s)->actions().constFirst();
        QCOMPARE(largest->text(), u"8:1"_s);
        QCOMPARE(largest->statusTip(), u"Ändert die Vergrößerung des Bildes"_s);
        QCOMPARE(largest->whatsThis(), u"<p>Zoom<p><p>Ändert die Vergrößerung des Bildes.</p>"_s);
    }

    void shortcutsAreTheSameInEveryLanguage_data() { add_languages(); }
    void shortcutsAreTheSameInEveryLanguage()
    {
        QFETCH(const QString, language);
        const Language spoken(language);
        const WindowFixture fixture;

        QCOMPARE(fixture.action(u"file_save"_s)->shortcut(), QKeySequence(u"Ctrl+S"_s));
        QCOMPARE(fixture.action(u"edit_undo"_s)->shortcut(), QKeySequence(u"Ctrl+Z"_s));
    }

    void formatsAreNamedInTheUsersLanguageAndStillFound()
    {
        const Language spoken(u"de"_s);

        QCOMPARE(filter_text(allFilesFormat), u"Alle Dateien (*.*)"_s);
        QString path;
        QString format;
        QString title;
        QString filter;
        {
            const NextDialog dialog([&title, &filter](QDialog &shown) {
                title = shown.windowTitle();
                filter = qobject_cast<QFileDialog *>(&shown)->selectedNameFilter();
                shown.reject();
            });
            QVERIFY(!open_file_dialog(path, format, nullptr));
        }

        QCOMPARE(title, u"Datei öffnen"_s);
        QVERIFY2(filter.startsWith("Alle Bilddateien (*."_L1), qPrintable(filter));
    }

    void anEditSpeaksTheUsersLanguage()
    {
        const Language spoken(u"de"_s);
        WindowFixture fixture(u"a.png"_s);
        QString title;
        QString label;
        {
            const NextDialog dialog([&title, &label](QDialog &shown) {
                title = shown.windowTitle();
                label = shown.findChild<QSlider *>()->accessibleName();
                shown.findChild<QPushButton *>(u"my_ok_btn"_s)->click();
            });
            fixture.action(u"image_contrast"_s)->trigger();
        }

        QCOMPARE(title, u"Kontrast"_s);
        QCOMPARE(label, u"Kontrast einstellen"_s);
        QCOMPARE(fixture.window.statusBar()->currentMessage(), u"Bild wird geändert..."_s);
    }

    void reasonOfAFailedSaveIsTranslated()
    {
        const Language spoken(u"fr"_s);
        WindowFixture fixture(u"a.png"_s);
        ImageDocument *const document = fixture.currentView()->document();
        QVERIFY(document->addPage(patterned_page({10, 10})));

        QVERIFY(!document->save(fixture.home.filePath(u"b.png"_s), u"PNG"_s));

        QCOMPARE(document->lastError,
                 u"Les images de plusieurs pages ne sont pas prises en charge par le format <PNG>"_s);
    }

    void keyOfTheFormsButtonIsTheOneThatItShows_data() { add_languages(); }
    void keyOfTheFormsButtonIsTheOneThatItShows()
    {
        QFETCH(const QString, language);
        const Language spoken(language);
        const PropertiesDialog dialog(patterned_page({10, 10}), 1.0, nullptr);

        const auto *const button = dialog.findChild<QPushButton *>(u"buttonOk"_s);
        QCOMPARE(button->shortcut(), QKeySequence(u"Alt+"_s + mnemonic(button->text()).toUpper()));
    }
};

QTEST_MAIN(tst_ImageManager_languages)
#include "tst_ImageManager_languages.moc"
