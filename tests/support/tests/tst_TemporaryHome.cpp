#include "files.h"
#include "TemporaryHome.h"

#include <QDir>
#include <QSettings>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_TemporaryHome : public QObject
{
    Q_OBJECT

private slots:
    void homeIsAnEmptyDirectoryWhileTheObjectLives();
    void formerHomeIsBackAfterwards();
    void configHomeIsUnsetAndComesBack();
    void settingsOfEachHomeStartEmpty();
    void filesInListsHiddenFilesAndNoDirectories();
    void filesInAMissingDirectoryAreNone();
};

void tst_TemporaryHome::homeIsAnEmptyDirectoryWhileTheObjectLives()
{
    const TemporaryHome home;

    QCOMPARE(QDir::homePath(), home.path());
    QVERIFY(QDir(home.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

void tst_TemporaryHome::formerHomeIsBackAfterwards()
{
    const QString before = QDir::homePath();
    QString between;
    {
        const TemporaryHome home;
        between = home.path();
    }

    QCOMPARE(QDir::homePath(), before);
    QVERIFY(!QDir(between).exists());
}

void tst_TemporaryHome::configHomeIsUnsetAndComesBack()
{
    qputenv("XDG_CONFIG_HOME", "/nowhere");
    {
        const TemporaryHome home;
        QVERIFY(!qEnvironmentVariableIsSet("XDG_CONFIG_HOME"));
    }

    QCOMPARE(qgetenv("XDG_CONFIG_HOME"), QByteArray("/nowhere"));
    qunsetenv("XDG_CONFIG_HOME");
}

void tst_TemporaryHome::settingsOfEachHomeStartEmpty()
{
    for (int round = 0; round < 2; ++round) {
        const TemporaryHome home;
        QSettings settings;
        QVERIFY(!settings.contains(u"width"_s));
        settings.setValue(u"width"_s, 335);
        QVERIFY(settings.fileName().startsWith(home.path() + u'/'));
    }
}

void tst_TemporaryHome::filesInListsHiddenFilesAndNoDirectories()
{
    const TemporaryHome home;
    QVERIFY(QDir(home.path()).mkpath(u"tmp/below"_s));
    write_file(home.filePath(u"tmp/b.bmp"_s), "x");
    write_file(home.filePath(u"tmp/.hidden"_s), "x");
    write_file(home.filePath(u"other"_s), "x");

    QCOMPARE(home.filesIn(u"tmp"_s), (QStringList{u".hidden"_s, u"b.bmp"_s}));
    QCOMPARE(home.filesIn(), QStringList{u"other"_s});
}

void tst_TemporaryHome::filesInAMissingDirectoryAreNone()
{
    const TemporaryHome home;

    QCOMPARE(home.filesIn(u"tmp"_s), QStringList());
}

QTEST_GUILESS_MAIN(tst_TemporaryHome)
#include "tst_TemporaryHome.moc"
