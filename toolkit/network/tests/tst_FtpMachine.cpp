#include "ftp_session.h"
#include "FtpMachine.h"

#include <QTest>

#include <utility>

using namespace Qt::StringLiterals;

class tst_FtpMachine : public QObject
{
    Q_OBJECT

private slots:
    void wholeUploadGoesStepByStep();
    void anonymousLoginHasTheClassicPassword();
    void emptyPasswordOfAUserIsSentEmpty();
    void userWhoIsLetInIsNotAskedForAPassword();
    void extendedPassiveModeIsUsedOverIPv6();
    void namesGoOutAsUtf8AndAsTheyStand();
    void preliminaryRepliesAreWaitedOut_data();
    void preliminaryRepliesAreWaitedOut();
    void refusedAllocationCountsForNothing_data();
    void refusedAllocationCountsForNothing();
    void dataConnectionMayGoOnceAllIsSent();
    void nothingComesAfterTheEnd_data();
    void nothingComesAfterTheEnd();
    void passivePortIsFoundWhereverItStands_data();
    void passivePortIsFoundWhereverItStands();
    void extendedPassivePortIsFoundBetweenItsMarks_data();
    void extendedPassivePortIsFoundBetweenItsMarks();
};

void tst_FtpMachine::wholeUploadGoesStepByStep()
{
    FtpMachine machine(plain_request());

    QStringList done = words(machine.start());
    for (const QString &event : wholeSession)
        done += after(machine, event);

    QCOMPARE(done,
             (QStringList{u"connect"_s, u"> USER bob\r\n"_s, u"> PASS secret\r\n"_s, u"begin"_s, u"> TYPE I\r\n"_s,
                          u"> PASV\r\n"_s, u"data 1042"_s, u"> ALLO 7\r\n"_s, u"> STOR /dir/x.png\r\n"_s, u"send"_s,
                          u"succeed"_s}));
}

void tst_FtpMachine::anonymousLoginHasTheClassicPassword()
{
    FtpRequest request = plain_request();
    request.user.clear();
    request.password.clear();
    FtpMachine machine(request);

    QCOMPARE(after_all(machine, {u"220 a"_s}), QStringList(u"> USER anonymous\r\n"_s));
    QCOMPARE(after(machine, u"331 b"_s), QStringList(u"> PASS anonymous@\r\n"_s));
}

void tst_FtpMachine::emptyPasswordOfAUserIsSentEmpty()
{
    FtpRequest request = plain_request();
    request.password.clear();
    FtpMachine machine(request);

    QCOMPARE(after_all(machine, {u"220 a"_s, u"331 b"_s}), QStringList(u"> PASS \r\n"_s));
}

void tst_FtpMachine::userWhoIsLetInIsNotAskedForAPassword()
{
    FtpMachine machine(plain_request());

    QCOMPARE(after_all(machine, {u"220 a"_s, u"230 b"_s}), (QStringList{u"begin"_s, u"> TYPE I\r\n"_s}));
}

void tst_FtpMachine::extendedPassiveModeIsUsedOverIPv6()
{
    FtpMachine machine(plain_request());
    machine.connected(true);

    QCOMPARE(after_all(machine, session_up_to(u"227 (1,2,3,4,4,18)")), QStringList(u"> EPSV\r\n"_s));
    QCOMPARE(after(machine, u"229 Entering (|||40000|)"_s), QStringList(u"data 40000"_s));
}

void tst_FtpMachine::namesGoOutAsUtf8AndAsTheyStand()
{
    FtpRequest request = plain_request();
    request.user = u"bö b"_s;
    request.path = u"/ä #?%41\"'\\\u3042 "_s;
    FtpMachine machine(request);

    QCOMPARE(after_all(machine, {u"220 a"_s}), QStringList(u"> USER bö b\r\n"_s));
    QStringList rest = session_up_to(u"150 Go on");
    rest.removeFirst();
    QStringList last;
    for (const QString &event : std::as_const(rest))
        last = after(machine, event);
    QCOMPARE(last, QStringList(u"> STOR /ä #?%41\"'\\\u3042 \r\n"_s));
}

void tst_FtpMachine::preliminaryRepliesAreWaitedOut_data()
{
    QTest::addColumn<qsizetype>("step");
    for (qsizetype i = 1; i < wholeSession.size(); ++i) {
        if (wholeSession.at(i) != "150 Go on"_L1)
            QTest::addRow("before %s", qPrintable(wholeSession.at(i))) << i;
    }
}

void tst_FtpMachine::preliminaryRepliesAreWaitedOut()
{
    QFETCH(const qsizetype, step);
    FtpMachine machine(plain_request());
    (void)after_all(machine, wholeSession.first(step));

    QCOMPARE(after(machine, u"125 Wait"_s), QStringList());
    QStringList last;
    for (const QString &event : wholeSession.sliced(step))
        last = after(machine, event);
    QCOMPARE(last, QStringList(u"succeed"_s));
}

void tst_FtpMachine::refusedAllocationCountsForNothing_data()
{
    QTest::addColumn<QString>("reply");
    for (const char *reply : {"200 Ok", "202 No need", "452 Full", "500 What?", "502 No", "504 No", "530 No"})
        QTest::addRow("%s", reply) << QString::fromLatin1(reply);
}

void tst_FtpMachine::refusedAllocationCountsForNothing()
{
    QFETCH(const QString, reply);
    FtpMachine machine(plain_request());
    (void)after_all(machine, session_up_to(u"202 No need"));

    QCOMPARE(after(machine, reply), QStringList(u"> STOR /dir/x.png\r\n"_s));
}

void tst_FtpMachine::dataConnectionMayGoOnceAllIsSent()
{
    FtpMachine machine(plain_request());
    (void)after_all(machine, session_up_to(u"226 Thanks"));

    QCOMPARE(after(machine, u"data cut"_s), QStringList());
    QCOMPARE(after(machine, u"226 Thanks"_s), QStringList(u"succeed"_s));
}

void tst_FtpMachine::nothingComesAfterTheEnd_data()
{
    QTest::addColumn<QString>("event");
    for (const QString &event :
         {u"226 Again"_s, u"421 Bye"_s, u"lost"_s, u"data cut"_s, u"data connected"_s, u"no words"_s, u"file failed"_s})
        QTest::addRow("%s", qPrintable(event)) << event;
}

void tst_FtpMachine::nothingComesAfterTheEnd()
{
    QFETCH(const QString, event);
    FtpMachine good(plain_request());
    (void)after_all(good, wholeSession);
    FtpMachine bad(plain_request());
    (void)after_all(bad, {u"530 No"_s});

    QCOMPARE(after(good, event), QStringList());
    QCOMPARE(after(bad, event), QStringList());
}

void tst_FtpMachine::passivePortIsFoundWhereverItStands_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("port");

    QTest::newRow("plain") << u"Entering Passive Mode (10,0,0,1,4,18)"_s << 1042;
    QTest::newRow("no brackets") << u"Entering Passive Mode 10,0,0,1,4,18"_s << 1042;
    QTest::newRow("full stop behind") << u"Entering Passive Mode (10,0,0,1,4,18)."_s << 1042;
    QTest::newRow("highest") << u"(1,2,3,4,255,255)"_s << 65535;
    QTest::newRow("lowest") << u"(1,2,3,4,0,1)"_s << 1;
    QTest::newRow("zero") << u"(1,2,3,4,0,0)"_s << 0;
    QTest::newRow("high byte too high") << u"(1,2,3,4,256,1)"_s << 0;
    QTest::newRow("low byte too high") << u"(1,2,3,4,1,256)"_s << 0;
    QTest::newRow("five figures") << u"(1,2,3,4,5)"_s << 0;
    QTest::newRow("figures of nobody's") << u"(1,2,3,4,1111,2)"_s << 0;
    QTest::newRow("negative") << u"(1,2,3,4,-1,2)"_s << 0;
    QTest::newRow("nothing") << u""_s << 0;
}

void tst_FtpMachine::passivePortIsFoundWhereverItStands()
{
    QFETCH(const QString, text);
    QFETCH(const int, port);

    QCOMPARE(int{passive_port(text)}, port);
}

void tst_FtpMachine::extendedPassivePortIsFoundBetweenItsMarks_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("port");

    QTest::newRow("plain") << u"Entering Extended Passive Mode (|||6446|)"_s << 6446;
    QTest::newRow("another mark") << u"(!!!6446!)"_s << 6446;
    QTest::newRow("highest") << u"(|||65535|)"_s << 65535;
    QTest::newRow("too high") << u"(|||65536|)"_s << 0;
    QTest::newRow("zero") << u"(|||0|)"_s << 0;
    QTest::newRow("marks that differ") << u"(||!6446|)"_s << 0;
    QTest::newRow("no figures") << u"(||||)"_s << 0;
    QTest::newRow("no brackets") << u"|||6446|"_s << 0;
    QTest::newRow("nothing") << u""_s << 0;
}

void tst_FtpMachine::extendedPassivePortIsFoundBetweenItsMarks()
{
    QFETCH(const QString, text);
    QFETCH(const int, port);

    QCOMPARE(int{extended_passive_port(text)}, port);
}

QTEST_GUILESS_MAIN(tst_FtpMachine)
#include "tst_FtpMachine.moc"
