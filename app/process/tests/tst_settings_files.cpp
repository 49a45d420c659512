#include "DiagnosticLines.h"
#include "settings_files.h"
#include "TemporaryHome.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QString settings_file(const TemporaryHome &home, const QString &name)
{
    QString path = home.filePath(u".config/"_s + name);
    if (!QDir().mkpath(QFileInfo(path).path()))
        qFatal("cannot make the directory of settings");
    return path;
}

} // namespace

class tst_settings_files : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { ::alarm(20); } // instead of waiting for a pipe

    void plainFilesAreKept()
    {
        const TemporaryHome home;
        QSettings().setValue(u"a"_s, 7);
        const DiagnosticLines diagnostics;

        avoid_odd_settings_files();

        QCOMPARE(QSettings().value(u"a"_s).toInt(), 7);
        QCOMPARE(diagnostics.lines(), QStringList());
    }

    void missingFilesAreMade()
    {
        const TemporaryHome home;

        avoid_odd_settings_files();

        QSettings().setValue(u"a"_s, 7);
        QCOMPARE(QSettings().value(u"a"_s).toInt(), 7);
    }

    void linkToAPlainFileIsKept()
    {
        const TemporaryHome home;
        QSettings().setValue(u"a"_s, 7);
        const QString path = QSettings().fileName();
        QVERIFY(QFile::rename(path, home.filePath(u"far"_s)));
        QVERIFY(QFile::link(home.filePath(u"far"_s), path));

        avoid_odd_settings_files();

        QCOMPARE(QSettings().value(u"a"_s).toInt(), 7);
    }

    void whatIsNoPlainFileGivesTheDefaults_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isPipe");

        QTest::newRow("pipe") << u"Unknown Organization/tst_settings_files.conf"_s << true;
        QTest::newRow("pipe for all programs") << u"Unknown Organization.conf"_s << true;
        QTest::newRow("pipe of the toolkit") << u"QtProject.conf"_s << true;
        QTest::newRow("link to a device") << u"Unknown Organization/tst_settings_files.conf"_s << false;
    }

    void whatIsNoPlainFileGivesTheDefaults()
    {
        QFETCH(const QString, name);
        QFETCH(const bool, isPipe);
        const TemporaryHome home;
        const QByteArray path = QFile::encodeName(settings_file(home, name));
        QCOMPARE(isPipe ? ::mkfifo(path.constData(), 0600) : ::symlink("/dev/zero", path.constData()), 0);
        DiagnosticLines diagnostics;
        diagnostics.expect("avoid_odd_settings_files - "_L1 + QFile::decodeName(path)
                           + " is no plain file, so there are no settings"_L1);

        avoid_odd_settings_files();

        QCOMPARE(QSettings().value(u"a"_s, 5).toInt(), 5);
        QSettings().setValue(u"a"_s, 7);
        QCOMPARE(QSettings().value(u"a"_s, 5).toInt(), 5);
        QSettings toolkit(u"QtProject"_s);
        QCOMPARE(toolkit.value(u"a"_s, 5).toInt(), 5);
    }

    void cleanup() { QSettings::setPath(QSettings::NativeFormat, QSettings::SystemScope, u"/etc/xdg"_s); }
};

QTEST_GUILESS_MAIN(tst_settings_files)
#include "tst_settings_files.moc"
