#include "DiagnosticLines.h"
#include "NameServer.h"
#include "private_namespaces.h"
#include "ScriptedMailServer.h"
#include "SentMail.h"
#include "standing_boxes.h"

#include <QApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString host = u"127.0.0.2"_s;
constexpr qint64 Mebibyte = qint64{1024} * 1024;

} // namespace

class tst_Smtp_bounds : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { names = std::make_unique<NameServer>(QStringList()); }
    void cleanupTestCase() { names.reset(); }

    void aLineThatNeverEndsIsBufferedUpToAMebibyte()
    {
        ScriptedMailServer server(host, {QByteArray(16 * Mebibyte, 'x')});
        SentMail mail(host);
        const DiagnosticLines diagnostics;
        mail.send();
        const Q3Socket *const socket = mail.connectedSocket();
        QVERIFY(socket);

        QTRY_COMPARE(socket->bytesAvailable(), Mebibyte);

        // Another mail goes its way meanwhile; this one has become that of a silent server.
        ScriptedMailServer otherServer(u"127.0.0.3"_s, {"220 hi\r\n"});
        SentMail other;
        other.server = u"127.0.0.3"_s;
        other.send();
        QTRY_COMPARE(otherServer.received(), "HELO there\n"_ba);
        QCOMPARE(socket->bytesAvailable(), Mebibyte);
        QVERIFY(mail.smtp->response().isEmpty());
        QCOMPARE(mail.completions, 0);
    }

    void responsesAreKeptWithinAMebibyteOfTheNewest()
    {
        QByteArray lines;
        for (int i = 0; i < 100000; ++i)
            lines += "220-" + QByteArray::number(i).rightJustified(36, '.') + "\n"; // 4.1 MB
        ScriptedMailServer server(host, {lines + "220 end\r\n"});
        SentMail mail(host);
        qsizetype longest = 0;

        mail.send();

        // Parts of it count as greetings of their own; what is left over of these says nothing here.
        const DiagnosticLines diagnostics;
        QTimer answerer;
        connect(&answerer, &QTimer::timeout, &server, [&] {
            longest = std::max(longest, mail.smtp->response().size());
            answer_top_box();
        });
        answerer.start(0);
        QTRY_VERIFY(mail.smtp->response().endsWith(u"220 end\r\n"_s));
        QTRY_COMPARE(standing_boxes(), 0);
        QVERIFY2(longest <= Mebibyte, qPrintable(QString::number(longest)));
        QVERIFY2(longest > Mebibyte / 2, qPrintable(QString::number(longest)));
    }

    void atMostSixteenBoxesStandAtOnce()
    {
        ScriptedMailServer server(host, {"999 wrong\r\n"});
        SentMail mail(host);
        const DiagnosticLines diagnostics;
        int mostBoxes = 0;
        int said = 1;
        // Each reply is read for itself: the next one is said when the one before has been read or held back.
        QTimer talker;
        connect(&talker, &QTimer::timeout, &server, [&] {
            mostBoxes = std::max(mostBoxes, standing_boxes());
            for (int i = 0; server.connections() > 0 && i < 50 && said < 10000; ++i, ++said)
                server.say("999 wrong\r\n");
            if (said == 10000)
                answer_top_box();
        });
        talker.start(0);

        mail.send();

        QTRY_VERIFY_WITH_TIMEOUT(said == 10000 && mail.completions >= 16 && standing_boxes() == 0, 60000);
        talker.stop();
        QCOMPARE(mostBoxes, 16);
        QCOMPARE(diagnostics.lines().count(u"Unknown state"_s), mail.completions);
        QCOMPARE(mail.smtp->response().count(u"999 wrong\r\n"_s), mail.completions);
    }

    void replyThatComesDuringABoxGetsABoxOfItsOwn()
    {
        ScriptedMailServer server(host, {"999 first\r\n"});
        SentMail mail(host);
        const DiagnosticLines diagnostics;
        QStringList texts;
        QTimer watcher;
        connect(&watcher, &QTimer::timeout, &server, [&] {
            const QMessageBox *const box = top_box();
            if (!box)
                return;
            if (box->text() == texts.value(0)) {
                if (mail.completions == 1) // of the second one, with the first box standing below it
                    answer_top_box();
                return;
            }
            texts.append(box->text());
            if (texts.size() == 1)
                server.say("999 second\r\n");
            else
                answer_top_box();
        });
        watcher.start(0);

        mail.send();

        QTRY_COMPARE(mail.completions, 2);
        QCOMPARE(texts.size(), 2);
        QVERIFY(texts.last().endsWith(u"999 second\r\n"_s));
    }

    void aSessionThatEndsDuringItsBoxSaysNoMore()
    {
        ScriptedMailServer server(host, {"999 wrong\r\n"});
        SentMail mail(host);
        const DiagnosticLines diagnostics;
        QTimer watcher;
        connect(&watcher, &QTimer::timeout, &server, [&] {
            if (standing_boxes() == 0)
                return;
            mail.smtp.reset();
            answer_top_box();
        });
        watcher.start(0);

        mail.send();

        QTRY_VERIFY(!mail.smtp);
        QTRY_COMPARE(standing_boxes(), 0);
        QTRY_VERIFY(server.hasEnded());
        QCOMPARE(mail.completions, 0);
        QVERIFY(diagnostics.lines().isEmpty());
    }

    void aVeryLongLineIsCutInItsBox()
    {
        ScriptedMailServer server(host, {"999 " + QByteArray(100000, 'x') + "\r\n"});
        SentMail mail(host);
        const DiagnosticLines diagnostics;
        QString text;
        QTimer watcher;
        connect(&watcher, &QTimer::timeout, &server, [&] {
            const QMessageBox *const box = top_box();
            if (!box)
                return;
            text = box->text();
            answer_top_box();
        });
        watcher.start(0);

        mail.send();

        QTRY_VERIFY(mail.completions >= 1);
        QCOMPARE(text.section(u"\n\n"_s, 1).size(), 2000);
    }

    void aMessageGoesOutInPiecesAndInOneOrder()
    {
        ScriptedMailServer server(host, {"220 a\r\n", "250 b\r\n", "250 c\r\n", "250 d\r\n", "354 e\r\n"});
        SentMail mail(host);
        mail.attach(QByteArray(30 * Mebibyte, 'x'));
        mail.send();
        QTRY_COMPARE(mail.statuses.value(3), u"Sending mail..."_s);
        const Q3Socket *const socket = mail.connectedSocket();
        QTRY_VERIFY(server.received().contains("\r\nSubject: "));
        server.stopReading();

        // A verdict that comes before the end of the message: QUIT goes behind the message all the same.
        server.say("250 early\r\n");
        QTRY_COMPARE(mail.completions, 1);
        QVERIFY2(socket->bytesToWrite() < Mebibyte, "no more than some pieces wait in the socket");

        server.goOnReading();
        QTRY_VERIFY_WITH_TIMEOUT(server.received().endsWith("\r\n.\nQUIT\n"), 60000);
        const qsizetype lines = 30 * Mebibyte / 60;
        QCOMPARE(server.message().count(
                     "eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4eHh4\r\n"),
                 lines);
    }

    void endingTheSessionEndsTheConnectionAtOnce()
    {
        ScriptedMailServer server(host, {"220 a\r\n", "250 b\r\n", "250 c\r\n", "250 d\r\n", "354 e\r\n"});
        SentMail mail(host);
        mail.attach(QByteArray(30 * Mebibyte, 'x'));
        mail.send();
        QTRY_VERIFY(server.received().contains("\r\nSubject: "));

        mail.smtp.reset();

        QTRY_VERIFY(server.hasEnded());
        QVERIFY(server.received().size() < 30 * Mebibyte);
        QVERIFY(!server.received().contains("Boundary.7976494--"));
    }

    void aSessionMayEndInEveryState_data()
    {
        QTest::addColumn<QString>("login");
        QTest::addColumn<QByteArrayList>("replies");

        const QByteArrayList plain{"220 a\r\n", "250 b\r\n", "250 c\r\n", "250 d\r\n", "354 e\r\n", "250 f\r\n"};
        for (qsizetype i = 0; i <= plain.size(); ++i)
            QTest::addRow("%lld replies", i) << QString() << plain.first(i);
        const QByteArrayList proved{"220 a\r\n", "250 b\r\n", "334 c\r\n", "334 d\r\n", "235 e\r\n"};
        for (qsizetype i = 1; i <= proved.size(); ++i)
            QTest::addRow("%lld replies, with a login", i) << u"ann"_s << proved.first(i);
    }
    void aSessionMayEndInEveryState()
    {
        QFETCH(const QString, login);
        QFETCH(const QByteArrayList, replies);
        ScriptedMailServer server(host, replies);
        SentMail mail(host);
        mail.login = login;
        mail.password = u"secret"_s;
        mail.send();
        QTRY_COMPARE(server.connections(), 1);
        QTRY_COMPARE(mail.smtp->response(), QString::fromLatin1(replies.join()));

        mail.smtp.reset();

        QTRY_VERIFY(server.hasEnded());
    }

    void aServerThatHangsUpLeavesTheSessionWithoutAWord_data() { aSessionMayEndInEveryState_data(); }
    void aServerThatHangsUpLeavesTheSessionWithoutAWord()
    {
        QFETCH(const QString, login);
        QFETCH(const QByteArrayList, replies);
        ScriptedMailServer server(host, replies);
        SentMail mail(host);
        mail.login = login;
        mail.password = u"secret"_s;
        mail.send();
        const Q3Socket *const socket = mail.connectedSocket();
        QVERIFY(socket);
        QTRY_COMPARE(mail.smtp->response(), QString::fromLatin1(replies.join()));
        const QStringList told = mail.statuses;

        server.hangUp();

        QTRY_COMPARE(socket->state(), Q3Socket::Idle);
        QCOMPARE(mail.statuses, told); // Intended: no box and no signal either
    }

private:
    std::unique_ptr<NameServer> names;
};

TEST_MAIN_APART(QApplication, tst_Smtp_bounds, leave_common_network)
#include "tst_Smtp_bounds.moc"
