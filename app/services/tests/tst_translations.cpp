#include "files.h"
#include "translations.h"

#include "AppContext.h"
#include "path_strings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

// What the catalogues that the test lays out make of the text "Cancel".
const QString German = u"Abbrechen"_s;
const QString French = u"Annuler"_s;
const QString Spanish = u"Cancelar"_s;
const QString English = u"Cancel"_s;

QString shown_text()
{
    return QCoreApplication::translate("dialog_frame", "Cancel");
}

/// A directory of catalogues.
class Catalogues
{
public:
    [[nodiscard]] QString path() const { return m_directory.path(); }

    /// Lays out the catalogue of a language under a name of the test's own.
    void add(const QString &name, const QString &language) const
    {
        const QDir directory(path());
        QVERIFY(directory.mkpath(QFileInfo(directory.filePath(name)).path()));
        QVERIFY(QFile::copy(u"" IM_PACKAGE_SHARE "/tr/utils_%1.qm"_s.arg(language), directory.filePath(name)));
    }

private:
    QTemporaryDir m_directory;
};

} // namespace

class tst_translations : public QObject
{
    Q_OBJECT

private slots:
    // Catalogues stay installed as long as the application object lives.
    void init() { m_application.emplace(m_argc, m_argv.data()); }
    void cleanup() { m_application.reset(); }

    void fileNameIsNameSeparatorAndLocale_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("locale");
        QTest::addColumn<bool>("found");

        QTest::newRow("dash") << u"probe-de_DE.qm"_s << u"de_DE"_s << true;
        QTest::newRow("underscore") << u"probe_de_DE.qm"_s << u"de_DE"_s << true;
        QTest::newRow("dash, language alone") << u"probe-de.qm"_s << u"de_AT"_s << true;
        QTest::newRow("underscore, language alone") << u"probe_de.qm"_s << u"de_AT"_s << true;
        QTest::newRow("no suffix") << u"probe_de"_s << u"de_DE"_s << true;
        QTest::newRow("another language") << u"probe_de.qm"_s << u"nl_NL"_s << false;
        QTest::newRow("another country") << u"probe_de_AT.qm"_s << u"de_DE"_s << false;
        QTest::newRow("another name") << u"other_de.qm"_s << u"de_DE"_s << false;
        QTest::newRow("no language") << u"probe_de.qm"_s << u"C"_s << false;
    }

    void fileNameIsNameSeparatorAndLocale()
    {
        QFETCH(const QString, file);
        QFETCH(const QString, locale);
        QFETCH(const bool, found);
        const Catalogues catalogues;
        catalogues.add(file, u"de"_s);

        install_translations({u"probe"_s}, {catalogues.path()}, locale);

        QCOMPARE(shown_text(), found ? German : English);
    }

    void namesAreTriedInTheirOrder_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QString>("text");

        QTest::newRow("dash before underscore") << QStringList{u"probe"_s} << German;
        QTest::newRow("later names after a missing one") << QStringList{u"absent"_s, u"probe"_s} << German;
        QTest::newRow("no names, nothing loaded") << QStringList() << English;
    }

    void namesAreTriedInTheirOrder()
    {
        QFETCH(const QStringList, names);
        QFETCH(const QString, text);
        const Catalogues catalogues;
        catalogues.add(u"probe_de_DE.qm"_s, u"fr"_s);
        catalogues.add(u"probe-de.qm"_s, u"de"_s); // a dash is tried before an underscore

        install_translations(names, {catalogues.path()}, u"de_DE"_s);

        QCOMPARE(shown_text(), text);
    }

    void firstDirectoryThatHasACatalogueWins()
    {
        const Catalogues none;
        const Catalogues first;
        const Catalogues second;
        first.add(u"probe_de.qm"_s, u"de"_s);
        second.add(u"probe-de_DE.qm"_s, u"fr"_s);

        install_translations({u"probe"_s}, {none.path(), first.path(), second.path()}, u"de_DE"_s);

        QCOMPARE(shown_text(), German);
    }

    void damagedCatalogueIsNoCatalogue()
    {
        const Catalogues catalogues;
        write_file(catalogues.path() + u"/probe_de.qm"_s, "this is no catalogue");

        install_translations({u"probe"_s}, {catalogues.path()}, u"de_DE"_s);

        QCOMPARE(shown_text(), English);
    }

    void directoryOfThePackageIsSearchedForTheUsersLocale()
    {
        const Catalogues share;
        share.add(u"tr/probe_de_DE.qm"_s, u"de"_s); // with the country
        copy_str(actx.share_dir, qPrintable(share.path()), sizeof(actx.share_dir));

        load_translations(std::array<const char *, 3>{"absent", "probe", nullptr}.data());

        QCOMPARE(shown_text(), German);
    }

    void directoryOfThePackageComesAfterTheCallers()
    {
        const Catalogues callers;
        const Catalogues share;
        callers.add(u"probe_de.qm"_s, u"fr"_s);
        share.add(u"tr/probe_de.qm"_s, u"de"_s);
        copy_str(actx.share_dir, qPrintable(share.path()), sizeof(actx.share_dir));

        load_program_translations({u"probe"_s}, {callers.path()});

        QCOMPARE(shown_text(), French);
    }

    void oneMoreDirectoryComesAfterTheCallers()
    {
        const Catalogues callers;
        const Catalogues more;
        callers.add(u"first_de.qm"_s, u"fr"_s);
        more.add(u"first_de.qm"_s, u"de"_s);
        more.add(u"second_de.qm"_s, u"es"_s);

        load_translations_from({u"first"_s}, {callers.path()}, more.path());
        QCOMPARE(shown_text(), French);
        load_translations_from({u"second"_s}, {callers.path()}, more.path());
        QCOMPARE(shown_text(), Spanish);
    }

    void toolkitsDirectoryComesFirst()
    {
        const Catalogues catalogues;
        catalogues.add(u"qt_de.qm"_s, u"fr"_s);

        load_translations_with_toolkit({}, {catalogues.path()});

        QCOMPARE(shown_text(), English); // the toolkit's own "qt" does not have this text
    }

    void toolkitsCatalogueComesAfterTheNames()
    {
        const QDir toolkits(QLibraryInfo::path(QLibraryInfo::TranslationsPath));
        const Catalogues catalogues;
        QVERIFY(QFile::copy(toolkits.filePath(u"qtbase_fr.qm"_s), catalogues.path() + u"/probe_de.qm"_s));

        load_translations_with_toolkit({u"probe"_s}, {catalogues.path()});

        // What was installed last is asked first.
        QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), German);
    }

    void toolkitsOwnTextsAreLoadedToo()
    {
        load_translations_with_toolkit({}, {});

        QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), German);
    }

private:
    int m_argc = 1;
    std::array<char, 5> m_name{"test"};
    std::array<char *, 2> m_argv{m_name.data(), nullptr};
    std::optional<QCoreApplication> m_application;
};

int main(int argc, char **argv)
{
    // Asked for once in a process. The name counts; the system need not have the locale.
    qputenv("LC_ALL", "de_DE.UTF-8");
    qunsetenv("LANGUAGE");
    tst_translations test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_translations.moc"
