#include "OwnScreen.h"
#include "pictures.h"
#include "StalledUpload.h"
#include "StoppingProgram.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

/// The X server is killed in the middle of something.
class tst_killed_server : public QObject
{
    Q_OBJECT

private slots:
    void idleProgramEnds();
    void saveIsFinishedFirst();
    void editLeavesTheFileAsItWas();
    void uploadEndsAndItsFileStays();
};

void tst_killed_server::idleProgramEnds()
{
    const OwnScreen screen;
    StoppingProgram stopping;
    QVERIFY(stopping.program.open({stopping.path}));
    QVERIFY(stopping.program.invert());

    screen.killServer();

    QCOMPARE(stopping.program.process().waitForExit(), 1);
    QVERIFY(compare_pictures(page_of(stopping.path), patterned_page({100, 80})));
    QCOMPARE(stopping.files(), QStringList{u"a.bmp"_s});
}

void tst_killed_server::saveIsFinishedFirst()
{
    const OwnScreen screen;
    StoppingProgram stopping;
    QVERIFY(stopping.stopInASave());

    screen.killServer();
    stopping.goOn();

    QCOMPARE(stopping.program.process().waitForExit(), 1);
    QVERIFY(compare_pictures(page_of(stopping.path), inverted_page()));
    QCOMPARE(stopping.files(), QStringList{u"a.bmp"_s});
}

void tst_killed_server::editLeavesTheFileAsItWas()
{
    const OwnScreen screen;
    StoppingProgram stopping;
    QVERIFY(stopping.stopInAnEdit());

    screen.killServer();
    stopping.goOn();

    QCOMPARE(stopping.program.process().waitForExit(), 1);
    QVERIFY(compare_pictures(page_of(stopping.path), patterned_page({100, 80})));
    QCOMPARE(stopping.files(), QStringList{u"a.bmp"_s});
}

void tst_killed_server::uploadEndsAndItsFileStays()
{
    const OwnScreen screen;
    StalledUpload upload(0);
    QVERIFY(upload.isStalled);

    screen.killServer();

    QCOMPARE(upload.process().waitForExit(), 1);
    QVERIFY(upload.hasEnded());
}

TEST_MAIN_APART(QCoreApplication, tst_killed_server, leave_common_mounts)
#include "tst_killed_server.moc"
