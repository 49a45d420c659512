#include "FtpMachine.h"

#include "Q3NetworkOperation.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

FtpRequest plain_request()
{
    return {.host = u"h"_s, .user = u"bob"_s, .password = u"secret"_s, .path = u"/dir/x.png"_s, .size = 7};
}

/// What is to be done, as short words: "> COMMAND", "data 1042", "! code text".
QStringList words(const QList<FtpAction> &actions)
{
    QStringList list;
    for (const FtpAction &action : actions) {
        switch (action.kind) {
        case FtpAction::Connect:
            list += u"connect"_s;
            break;
        case FtpAction::Send:
            list += u"> "_s + QString::fromUtf8(action.command);
            break;
        case FtpAction::BeginPut:
            list += u"begin"_s;
            break;
        case FtpAction::ConnectData:
            list += u"data "_s + QString::number(action.port);
            break;
        case FtpAction::SendData:
            list += u"send"_s;
            break;
        case FtpAction::AwaitWords:
            list += u"await"_s;
            break;
        case FtpAction::Succeed:
            list += u"succeed"_s;
            break;
        case FtpAction::Fail:
            list += u"! "_s + QString::number(action.errorCode) + u' ' + action.text;
            break;
        }
    }
    return list;
}

/// What the server says, or what happens besides.
QStringList after(FtpMachine &machine, const QString &event)
{
    if (event == "data connected"_L1)
        return words(machine.dataConnected());
    if (event == "data refused"_L1)
        return words(machine.dataLost(FtpMachine::Refused));
    if (event == "data cut"_L1)
        return words(machine.dataLost(FtpMachine::Cut));
    if (event == "no words"_L1)
        return words(machine.noWordsCame());
    if (event == "lost"_L1)
        return words(machine.connectionLost({}));
    if (event == "file failed"_L1)
        return words(machine.fileFailed());
    if (event == "sent"_L1) {
        machine.dataSent();
        return {};
    }
    bool isReply = false;
    const int code = event.first(3).toInt(&isReply);
    return words(machine.replied({.code = isReply ? code : 0, .text = isReply ? event.sliced(4) : event}));
}

QStringList after_all(FtpMachine &machine, const QStringList &events)
{
    QStringList last = words(machine.start());
    for (const QString &event : events)
        last = after(machine, event);
    return last;
}

const QStringList wholeSession{
    u"220 Hello"_s,      u"331 Who?"_s,    u"230 In"_s,    u"200 Binary"_s, u"227 (1,2,3,4,4,18)"_s,
    u"data connected"_s, u"202 No need"_s, u"150 Go on"_s, u"sent"_s,       u"226 Thanks"_s};

/// The session up to where it waits for what follows.
QStringList session_up_to(QStringView event)
{
    return wholeSession.first(wholeSession.indexOf(event));
}

} // namespace

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
    void failuresHaveTheirWordsAndCodes_data();
    void failuresHaveTheirWordsAndCodes();
    void serviceClosingFailsAtEveryStep_data();
    void serviceClosingFailsAtEveryStep();
    void lostConnectionFailsAtEveryStep_data();
    void lostConnectionFailsAtEveryStep();
    void lastWordsOfALostConnectionGiveTheText();
    void halfAConfirmationConfirmsNothing();
    void preliminaryRepliesAreWaitedOut_data();
    void preliminaryRepliesAreWaitedOut();
    void refusedAllocationCountsForNothing_data();
    void refusedAllocationCountsForNothing();
    void controlCharactersSendNothing_data();
    void controlCharactersSendNothing();
    void serversWordsWinOverALostDataConnection();
    void dataConnectionMayGoOnceAllIsSent();
    void confirmationAfterALostDataConnectionIsNone();
    void nothingComesAfterTheEnd_data();
    void nothingComesAfterTheEnd();
    void passwordThatAServerRepeatsIsNotShown();
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

void tst_FtpMachine::failuresHaveTheirWordsAndCodes_data()
{
    QTest::addColumn<QString>("step"); // what the session waits for
    QTest::addColumn<QString>("event");
    QTest::addColumn<QString>("failure");

    const auto connecting = u"Connecting to host failed:\n"_s;
    const auto login = u"Login failed:\n"_s;
    const auto uploading = u"Uploading file failed:\n"_s;
    const auto row = [](const char *name, const QString &step, const QString &event, int code, const QString &text) {
        QTest::newRow(name) << step << event << u"! "_s + QString::number(code) + u' ' + text;
    };
    const QString greeting = u"220 Hello"_s;
    row("greeting 120", greeting, u"120 Later"_s, 12, connecting + u"Later"_s);
    row("greeting 421", greeting, u"421 Full"_s, 12, connecting + u"Full"_s);
    row("greeting 530", greeting, u"530 Not you"_s, 12, connecting + u"Not you"_s);
    row("greeting 230", greeting, u"230 In"_s, 12, connecting + u"In"_s);
    row("greeting without a number", greeting, u"SSH-2.0"_s, 12, connecting + u"SSH-2.0"_s);
    const QString user = u"331 Who?"_s;
    row("USER 530", user, u"530 No"_s, 5, login + u"No"_s);
    row("USER 430", user, u"430 No"_s, 5, login + u"No"_s);
    row("USER 332", user, u"332 Account"_s, 12, login + u"Account"_s);
    row("USER 500", user, u"500 What?"_s, 12, login + u"What?"_s);
    row("USER without a number", user, u"What?"_s, 12, login + u"What?"_s);
    const QString pass = u"230 In"_s;
    row("PASS 530", pass, u"530 No"_s, 5, login + u"No"_s);
    row("PASS 430", pass, u"430 No"_s, 5, login + u"No"_s);
    row("PASS 331", pass, u"331 Again"_s, 5, login + u"Again"_s);
    row("PASS 332", pass, u"332 Account"_s, 5, login + u"Account"_s);
    row("PASS 503", pass, u"503 Order"_s, 12, login + u"Order"_s);
    const QString type = u"200 Binary"_s;
    row("TYPE 504", type, u"504 No"_s, 12, uploading + u"No"_s);
    row("TYPE 530", type, u"530 No"_s, 12, uploading + u"No"_s);
    const QString passive = u"227 (1,2,3,4,4,18)"_s;
    row("PASV 425", passive, u"425 No"_s, 12, uploading + u"No"_s);
    row("PASV 502", passive, u"502 No"_s, 12, uploading + u"No"_s);
    row("PASV without a port", passive, u"227 Where?"_s, 12, uploading + u"Where?"_s);
    row("PASV with port 0", passive, u"227 (1,2,3,4,0,0)"_s, 12, uploading + u"(1,2,3,4,0,0)"_s);
    const QString dataConnection = u"data connected"_s;
    row("data refused", dataConnection, u"data refused"_s, 12, uploading + u"Connection refused for data connection"_s);
    row("data cut before STOR", dataConnection, u"data cut"_s, 12, uploading + u"Data connection closed"_s);
    row("unasked refusal", dataConnection, u"425 No"_s, 12, uploading + u"No"_s);
    row("ALLO without a number", u"202 No need"_s, u"What?"_s, 12, uploading + u"What?"_s);
    const QString store = u"150 Go on"_s;
    row("STOR 550", store, u"550 No"_s, 12, uploading + u"No"_s);
    row("STOR 553", store, u"553 Name"_s, 12, uploading + u"Name"_s);
    row("STOR 452", store, u"452 Full"_s, 12, uploading + u"Full"_s);
    row("STOR 350", store, u"350 And?"_s, 12, uploading + u"And?"_s);
    row("STOR 226 at once", store, u"226 Thanks"_s, 12, uploading + u"Thanks"_s);
    const QString sent = u"sent"_s;
    row("226 too early", sent, u"226 Thanks"_s, 12, uploading + u"Thanks"_s);
    row("451 while sending", sent, u"451 Disk"_s, 12, uploading + u"Disk"_s);
    row("file that has changed", sent, u"file failed"_s, 12, uploading + u"The local file has changed"_s);
    const QString end = u"226 Thanks"_s;
    row("426 after all", end, u"426 Cut"_s, 12, uploading + u"Cut"_s);
    row("552 after all", end, u"552 Full"_s, 12, uploading + u"Full"_s);
    row("no number after all", end, u"Thanks"_s, 12, uploading + u"Thanks"_s);
}

void tst_FtpMachine::failuresHaveTheirWordsAndCodes()
{
    QFETCH(const QString, step);
    QFETCH(const QString, event);
    QFETCH(const QString, failure);
    FtpMachine machine(plain_request());
    (void)after_all(machine, session_up_to(step));

    QCOMPARE(after(machine, event), QStringList(failure));
}

void tst_FtpMachine::serviceClosingFailsAtEveryStep_data()
{
    QTest::addColumn<qsizetype>("step");
    for (qsizetype i = 0; i < wholeSession.size(); ++i)
        QTest::addRow("before %s", qPrintable(wholeSession.at(i))) << i;
}

void tst_FtpMachine::serviceClosingFailsAtEveryStep()
{
    QFETCH(const qsizetype, step);
    FtpMachine machine(plain_request());
    (void)after_all(machine, wholeSession.first(step));

    const QString prefix = step < 1 ? u"Connecting to host"_s : step < 3 ? u"Login"_s : u"Uploading file"_s;
    QCOMPARE(after(machine, u"421 Bye"_s), QStringList(u"! 12 "_s + prefix + u" failed:\nBye"_s));
}

void tst_FtpMachine::lostConnectionFailsAtEveryStep_data()
{
    serviceClosingFailsAtEveryStep_data();
}

void tst_FtpMachine::lostConnectionFailsAtEveryStep()
{
    QFETCH(const qsizetype, step);
    FtpMachine machine(plain_request());
    (void)after_all(machine, wholeSession.first(step));

    const QString prefix = step < 1 ? u"Connecting to host"_s : step < 3 ? u"Login"_s : u"Uploading file"_s;
    QCOMPARE(after(machine, u"lost"_s), QStringList(u"! 12 "_s + prefix + u" failed:\nConnection to h closed"_s));
}

void tst_FtpMachine::lastWordsOfALostConnectionGiveTheText()
{
    FtpMachine machine(plain_request());
    (void)after_all(machine, session_up_to(u"226 Thanks"));

    const FtpReply lastWords{.code = 421, .text = u"Going do"_s};
    QCOMPARE(words(machine.connectionLost(lastWords)), QStringList(u"! 12 Uploading file failed:\nGoing do"_s));
}

void tst_FtpMachine::halfAConfirmationConfirmsNothing()
{
    FtpMachine machine(plain_request());
    (void)after_all(machine, session_up_to(u"226 Thanks"));

    const FtpReply lastWords{.code = 226, .text = u"Tha"_s};
    QCOMPARE(words(machine.connectionLost(lastWords)),
             QStringList(u"! 12 Uploading file failed:\nConnection to h closed"_s));
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

void tst_FtpMachine::controlCharactersSendNothing_data()
{
    QTest::addColumn<QString>("character");
    QTest::newRow("line feed") << u"\n"_s;
    QTest::newRow("carriage return") << u"\r"_s;
    QTest::newRow("NUL") << QString(QChar(u'\0'));
    QTest::newRow("tabulator") << u"\t"_s;
    QTest::newRow("escape") << u"\x1b"_s;
    QTest::newRow("delete") << u"\x7f"_s;
    QTest::newRow("next line") << u"\u0085"_s;
}

void tst_FtpMachine::controlCharactersSendNothing()
{
    QFETCH(const QString, character);
    const QString text = u"a"_s + character + u"b"_s;
    FtpRequest inPath = plain_request();
    inPath.path = u'/' + text;
    FtpRequest inUser = plain_request();
    inUser.user = text;
    FtpRequest inPassword = plain_request();
    inPassword.password = text;

    for (const FtpRequest &request : {inPath, inUser, inPassword}) {
        FtpMachine machine(request);
        QCOMPARE(words(machine.start()), QStringList(u"! 12 Uploading file failed:\nInvalid character in name"_s));
    }
}

void tst_FtpMachine::serversWordsWinOverALostDataConnection()
{
    FtpMachine machine(plain_request());
    (void)after_all(machine, session_up_to(u"sent"));

    QCOMPARE(after(machine, u"data cut"_s), QStringList(u"await"_s));
    QCOMPARE(after(machine, u"452 Disk full"_s), QStringList(u"! 12 Uploading file failed:\nDisk full"_s));
    QCOMPARE(after(machine, u"no words"_s), QStringList());
}

void tst_FtpMachine::dataConnectionMayGoOnceAllIsSent()
{
    FtpMachine machine(plain_request());
    (void)after_all(machine, session_up_to(u"226 Thanks"));

    QCOMPARE(after(machine, u"data cut"_s), QStringList());
    QCOMPARE(after(machine, u"226 Thanks"_s), QStringList(u"succeed"_s));
}

void tst_FtpMachine::confirmationAfterALostDataConnectionIsNone()
{
    FtpMachine machine(plain_request());
    (void)after_all(machine, session_up_to(u"150 Go on"));

    QCOMPARE(after(machine, u"data cut"_s), QStringList(u"await"_s));
    QCOMPARE(after(machine, u"150 Go on"_s), QStringList());
    QCOMPARE(after(machine, u"226 Thanks"_s), QStringList(u"! 12 Uploading file failed:\nThanks"_s));
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

void tst_FtpMachine::passwordThatAServerRepeatsIsNotShown()
{
    FtpMachine machine(plain_request());
    (void)after_all(machine, session_up_to(u"230 In"));

    QCOMPARE(after(machine, u"500 'PASS secret' not known"_s),
             QStringList(u"! 12 Login failed:\n'PASS ***' not known"_s));
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
