#include "ImageManagerProgram.h"

#include <QTest>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;

/// The program as it speaks to users of different locales. None of them need be known to the system.
class tst_languages : public QObject
{
    Q_OBJECT

private slots:
    void windowSpeaksTheLanguageOfTheUser_data();
    void windowSpeaksTheLanguageOfTheUser();
    void localeWithoutACatalogueIsEnglish_data();
    void localeWithoutACatalogueIsEnglish();
    void lcAllComesBeforeLang();
    void messageBoxSpeaksTheLanguageOfTheUser();
    void noFileOfThePackageIsMissed();
};

namespace {

constexpr QSize roomy{1100, 900}; ///< no tool button is hidden at this size in any language

/// Image Manager with no other locale than the given one.
class ProgramInLanguage : public ImageManagerProgram
{
public:
    ProgramInLanguage(const Place &place, const QString &locale) : ImageManagerProgram(place)
    {
        for (const QString &name : {u"LANGUAGE"_s, u"LC_ALL"_s, u"LC_CTYPE"_s, u"LC_MESSAGES"_s})
            process().unsetEnvironment(name);
        process().setEnvironment(u"LANG"_s, locale);
    }
};

QStringList menu_bar_of(ImageManagerProgram &program)
{
    QStringList names;
    const QList<Accessible> menus = program.application().find(Role::MenuBar).children();
    for (const Accessible &menu : menus)
        names.append(menu.name());
    return names;
}

/// What the status bar says while the pointer rests on a tool.
QString status_tip_of(ImageManagerProgram &program, const QString &tool)
{
    // The bar comes with the first message of the page below the pointer.
    program.desktop().movePointer(program.desktop().geometry(program.window()).center());
    if (!QTest::qWaitFor([&program] { return program.statusText().startsWith('['_L1); }, Program::patienceMs))
        return u"no status bar"_s;
    program.desktop().movePointer(program.tool(tool).extents().center());
    (void)QTest::qWaitFor([&program] { return !program.statusText().startsWith('['_L1); }, Program::patienceMs);
    return program.statusText();
}

const QStringList englishMenuBar{u"File"_s, u"Edit"_s, u"View"_s, u"Zoom"_s, u"Image"_s};

} // namespace

void tst_languages::windowSpeaksTheLanguageOfTheUser_data()
{
    QTest::addColumn<QStringList>("menuBar");
    QTest::addColumn<QString>("editMenu");
    QTest::addColumn<QStringList>("editEntries");
    QTest::addColumn<QString>("zoomOutTool");
    QTest::addColumn<QString>("zoomOutTip");

    const auto german = [](const char *locale) {
        QTest::newRow(locale) << QStringList{u"Datei"_s, u"Bearbeiten"_s, u"Ansicht"_s, u"Zoom"_s, u"Bild"_s}
                              << u"Bearbeiten"_s << QStringList{u"Rückgängig"_s, u"Wiederholen"_s} << u"Verkleinern"_s
                              << u"Zeigt das aktuelle Bild kleiner an"_s;
    };
    german("de_DE.UTF-8");
    german("de_AT.UTF-8");
    german("de_DE");
    QTest::newRow("fr_FR.UTF-8") << QStringList{u"Fichier"_s, u"Édition"_s, u"Affichage"_s, u"Zoom"_s, u"Image"_s}
                                 << u"Édition"_s << QStringList{u"Annuler"_s, u"Rétablir"_s} << u"Zoom arrière"_s
                                 << u"Réduit l'affichage de l'image actuelle"_s;
    QTest::newRow("es_ES.UTF-8") << QStringList{u"Archivo"_s, u"Edición"_s, u"Ver"_s, u"Zoom"_s, u"Imagen"_s}
                                 << u"Edición"_s << QStringList{u"Deshacer"_s, u"Rehacer"_s} << u"Alejar"_s
                                 << u"Reduce la vista de la imagen actual"_s;
    QTest::newRow("pl_PL.UTF-8") << QStringList{u"Plik"_s, u"Edycja"_s, u"Widok"_s, u"Powiększenie"_s, u"Obraz"_s}
                                 << u"Edycja"_s << QStringList{u"Cofnij"_s, u"Ponów"_s} << u"Pomniejsz"_s
                                 << u"Pomniejsza widok bieżącego obrazu"_s;
    QTest::newRow("ja_JP.UTF-8") << QStringList{u"ファイル(F)"_s, u"編集(E)"_s, u"表示(V)"_s, u"ズーム(Z)"_s,
                                                u"画像(I)"_s}
                                 << u"編集(E)"_s << QStringList{u"元に戻す(U)"_s, u"やり直し(R)"_s} << u"縮小表示(O)"_s
                                 << u"現在の画像を縮小して表示します"_s;
}

void tst_languages::windowSpeaksTheLanguageOfTheUser()
{
    QFETCH(const QStringList, menuBar);
    QFETCH(const QString, editMenu);
    QFETCH(const QStringList, editEntries);
    QFETCH(const QString, zoomOutTool);
    QFETCH(const QString, zoomOutTip);
    const Place place;
    ProgramInLanguage program(place, QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(program.open({place.page(u"a.bmp"_s, QSize(900, 800))}, roomy));

    QCOMPARE(menu_bar_of(program), menuBar);
    QCOMPARE(program.menuEntries(editMenu), editEntries);
    QCOMPARE(status_tip_of(program, zoomOutTool), zoomOutTip);
}

void tst_languages::localeWithoutACatalogueIsEnglish_data()
{
    QTest::addColumn<QString>("locale");

    QTest::newRow("none") << QString();
    QTest::newRow("C") << u"C.UTF-8"_s;
    QTest::newRow("English") << u"en_GB.UTF-8"_s;
    QTest::newRow("a language without a catalogue") << u"nl_NL.UTF-8"_s;
    QTest::newRow("no language at all") << u"../../de_DE.UTF-8"_s;
}

void tst_languages::localeWithoutACatalogueIsEnglish()
{
    QFETCH(const QString, locale);
    const Place place;
    ProgramInLanguage program(place, locale);
    QVERIFY(program.open({place.page(u"a.bmp"_s, QSize(900, 800))}, roomy));

    QCOMPARE(menu_bar_of(program), englishMenuBar);
    QCOMPARE(status_tip_of(program, u"Zoom Out"_s), u"Zooms current image out"_s);
}

void tst_languages::lcAllComesBeforeLang()
{
    const Place place;
    ProgramInLanguage program(place, u"fr_FR.UTF-8"_s);
    program.process().setEnvironment(u"LC_ALL"_s, u"pl_PL.UTF-8"_s);
    QVERIFY(program.open({place.page(u"a.bmp"_s)}));

    QCOMPARE(menu_bar_of(program).constFirst(), u"Plik"_s);
}

void tst_languages::messageBoxSpeaksTheLanguageOfTheUser()
{
    const Place place;
    ProgramInLanguage program(place, u"es_ES.UTF-8"_s);
    QVERIFY(program.start({place.path(u"nothing.png"_s)}));

    const MessageBox box = program.answer(u"Aceptar"_s); // the button is the toolkit's

    QCOMPARE(box.title, u"No se pudo cargar"_s);
    QCOMPARE(box.text, u"Error al cargar el archivo"_s);
}

void tst_languages::noFileOfThePackageIsMissed()
{
    const Place place;
    ProgramInLanguage program(place, u"de_DE.UTF-8"_s);
    QVERIFY(program.open({place.page(u"a.bmp"_s)}));

    QCOMPARE(program.close(), 0);

    QVERIFY2(!program.process().output().contains("WARNING"_L1), qPrintable(program.process().output()));
}

QTEST_GUILESS_MAIN(tst_languages)
#include "tst_languages.moc"
