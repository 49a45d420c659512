#include "files.h"
#include "ImageManagerProgram.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;

namespace {

/// The program installed by the build, in a directory that goes with the object.
class Installation
{
public:
    Installation()
    {
        QProcess cmake;
        cmake.setProcessChannelMode(QProcess::MergedChannels);
        cmake.start(QStringLiteral(IM_CMAKE), {u"--install"_s, QStringLiteral(IM_BUILD), u"--prefix"_s, m_root});
        if (!cmake.waitForFinished() || cmake.exitCode() != 0)
            qFatal("cannot install: %s", cmake.readAll().constData());
    }

    /// The path of a file below the package's directory, which is there from the first.
    [[nodiscard]] QString path(const QString &name) const { return QDir(m_root).filePath(name); }

    /// Takes the whole package to another place.
    void move()
    {
        const QString elsewhere = m_directory.filePath(u"elsewhere"_s);
        QVERIFY(QDir().rename(m_root, elsewhere));
        m_root = elsewhere;
    }

    [[nodiscard]] QByteArray contents(const QString &name) const { return file_bytes_if_any(path(name)); }

private:
    QTemporaryDir m_directory;
    QString m_root = m_directory.filePath(u"package"_s);
};

} // namespace

/// The program as it is installed: one directory with bin/ and share/.
class tst_installed : public QObject
{
    Q_OBJECT

private slots:
    void packageHasItsFiles_data();
    void packageHasItsFiles();
    void desktopStartsTheInstalledProgram();
    void everyHelpPageIsReached();
    void programFindsItsPackageWhereverItLies();
    void programIsFoundByARelativePath();
};

void tst_installed::packageHasItsFiles_data()
{
    QTest::addColumn<QString>("file");

    for (const char *const file :
         {"bin/imagemanager", "share/OEM.ini", "share/tr/ImageManager_de.qm", "share/tr/imageview_ja.qm",
          "share/tr/utils_pl.qm", "share/help/DriverPackageOverview.htm", "share/help/ImageEditor.htm",
          "share/help/ImageEditorConfigureTools.htm", "share/help/ImageEditorFTPUpload.htm",
          "share/help/ImageEditorSendMessage.htm", "share/applications/imagemanager.desktop",
          "share/icons/hicolor/scalable/apps/imagemanager.svg"})
        QTest::newRow(file) << QString::fromLatin1(file);
}

void tst_installed::packageHasItsFiles()
{
    QFETCH(const QString, file);
    const Installation package;

    QVERIFY(!package.contents(file).isEmpty());
}

void tst_installed::desktopStartsTheInstalledProgram()
{
    const Installation package;

    const QByteArray entry = package.contents(u"share/applications/imagemanager.desktop"_s);

    const QString line = u"\nExec=\"%1\" %F\n"_s.arg(package.path(u"bin/imagemanager"_s));
    QVERIFY2(entry.contains(line.toUtf8()), entry.constData());
}

void tst_installed::everyHelpPageIsReached()
{
    const Installation package;

    const QByteArray overview = package.contents(u"share/help/DriverPackageOverview.htm"_s);

    const QStringList pages = QDir(package.path(u"share/help"_s)).entryList(QDir::Files);
    QCOMPARE(pages.size(), 14);
    for (const QString &page : pages)
        QVERIFY2(page == "DriverPackageOverview.htm"_L1 || overview.contains(("href=\"" + page + '"').toUtf8()),
                 qPrintable(page));
}

void tst_installed::programFindsItsPackageWhereverItLies()
{
    Installation package;
    package.move();
    const Place place;
    ImageManagerProgram program(place, package.path(u"bin/imagemanager"_s));
    program.process().setEnvironment(u"LC_ALL"_s, u"de_DE.UTF-8"_s);
    program.process().unsetEnvironment(u"LANGUAGE"_s);
    QVERIFY(program.open({place.page(u"a.bmp"_s)}));

    QCOMPARE(program.menuEntries(u"Bearbeiten"_s), (QStringList{u"Rückgängig"_s, u"Wiederholen"_s}));
    QCOMPARE(program.close(), 0);
    QVERIFY2(!program.process().output().contains("WARNING"_L1), qPrintable(program.process().output()));
}

void tst_installed::programIsFoundByARelativePath()
{
    const Installation package;
    const Place place;
    ImageManagerProgram program(place, u"./imagemanager"_s);
    program.process().setWorkingDirectory(package.path(u"bin"_s));
    program.process().setEnvironment(u"LC_ALL"_s, u"fr_FR.UTF-8"_s);
    program.process().unsetEnvironment(u"LANGUAGE"_s);
    QVERIFY(program.open({place.page(u"a.bmp"_s)}));

    QCOMPARE(program.menuEntries(u"Édition"_s), (QStringList{u"Annuler"_s, u"Rétablir"_s}));
}

QTEST_GUILESS_MAIN(tst_installed)
#include "tst_installed.moc"
