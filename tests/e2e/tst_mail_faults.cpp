#include "end_signals.h"
#include "files.h"
#include "image_files.h"
#include "MailFormOnShow.h"
#include "NameServer.h"
#include "private_namespaces.h"
#include "ScriptedMailServer.h"

#include <QCoreApplication>
#include <QSettings>
#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;
using State = Accessible::State;

// Servers that fall silent, reset the connection or never end a line, and ends that come while a mail is sent. The
// network is this program's and that of the one under test alone.

namespace {

constexpr qint64 Mebibyte = qint64{1024} * 1024;
const QString host = u"127.0.0.2"_s;
const QByteArrayList goodSession{"220 a\r\n", "250 b\r\n", "250 c\r\n", "250 d\r\n", "354 e\r\n", "250 f\r\n"};
constexpr qsizetype Steps = 6; ///< replies up to the one that takes the message

/// Whether a server has got all that comes before its next reply.
bool is_at_step(const ScriptedMailServer &server, qsizetype replies)
{
    if (replies <= 4) // a line for each
        return server.hasClient() && server.received().count('\n') == replies;
    return server.message().endsWith("\n.\r\n") || server.message().endsWith("\n.\n");
}

void add_policies()
{
    QTest::addColumn<bool>("strict");

    QTest::newRow("old way") << false;
    QTest::newRow("by the book") << true;
}

} // namespace

class tst_mail_faults : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { names = std::make_unique<NameServer>(QStringList()); }
    void cleanupTestCase() { names.reset(); }

    void serverThatFallsSilentAtAnyStepIsLeftByClose()
    {
        MailFormOnShow shown;
        QVERIFY(shown.isReady);

        for (qsizetype replies = 0; replies < Steps; ++replies) {
            ScriptedMailServer server(host, goodSession.first(replies));
            QVERIFY(shown.sendButton().press());
            QTRY_VERIFY_WITH_TIMEOUT(is_at_step(server, replies), Program::patienceMs);
            QVERIFY(!shown.sendButton().has(State::Enabled));
            QVERIFY(!shown.says(u"Message sent"_s));

            QVERIFY(shown.close());

            QTRY_VERIFY_WITH_TIMEOUT(server.hasEnded(), Program::patienceMs);
            QVERIFY(shown.open());
        }
        QVERIFY(shown.close());
        QCOMPARE(shown.program.close(), 0);
    }

    void resetAtAnyStepIsToldByTheBook()
    {
        MailFormOnShow shown(true);
        QVERIFY(shown.isReady);

        for (qsizetype replies = 0; replies < Steps; ++replies) {
            ScriptedMailServer server(host, goodSession.first(replies));
            server.resetAtTheEnd();
            QVERIFY(shown.sendButton().press());

            QTRY_COMPARE_WITH_TIMEOUT(shown.activeTitle(), u"Mail system error"_s, Program::patienceMs);
            const Accessible box = shown.dialog(u"Mail system error"_s);
            const QString words = u"The connection to the mail server is lost."_s;
            QVERIFY2(!box.find(Role::Label, words).isNull() || replies == 0, // it may be lost ere it counts as one
                     qPrintable(box.tree()));
            shown.program.desktop().pressKey("Return");

            QTRY_COMPARE_WITH_TIMEOUT(shown.activeTitle(), shown.formTitle, Program::patienceMs);
            QVERIFY(shown.says(u"Message not sent"_s));
            QTRY_VERIFY_WITH_TIMEOUT(shown.sendButton().has(State::Enabled), Program::patienceMs);
        }
        QVERIFY(shown.close());
        QCOMPARE(shown.program.close(), 0);
    }

    void resetAtAnyStepMakesNoClaimInTheOldWay()
    {
        MailFormOnShow shown;
        QVERIFY(shown.isReady);

        for (qsizetype replies = 0; replies < Steps; ++replies) {
            ScriptedMailServer server(host, goodSession.first(replies));
            server.resetAtTheEnd();
            QVERIFY(shown.sendButton().press());
            QTRY_VERIFY_WITH_TIMEOUT(server.hasEnded(), Program::patienceMs);

            QVERIFY(shown.close()); // no box stands before the form
            QVERIFY(shown.open());
        }
        QVERIFY(shown.close());
        QCOMPARE(shown.program.close(), 0);
    }

    void lineOfAGibibyteIsHeldUpAndTakesNoMemory_data() { add_policies(); }
    void lineOfAGibibyteIsHeldUpAndTakesNoMemory()
    {
        QFETCH(const bool, strict);
        MailFormOnShow shown(strict);
        QVERIFY(shown.isReady);
        const qint64 peakBefore = peak_memory(shown.program.process().processId());
        ScriptedMailServer server(host);
        QVERIFY(shown.sendButton().press());
        QTRY_VERIFY_WITH_TIMEOUT(server.hasClient(), Program::patienceMs);

        const EndlessLine *const line = server.sayEndlessLine(1024 * Mebibyte);
        // No longer taken: none goes while the program answers many questions.
        constexpr int questions = 20;
        constexpr qint64 limit = 64 * Mebibyte;
        int answered = 0;
        for (qint64 before = -1; answered < questions && line->sentBytes() < limit; before = line->sentBytes()) {
            QVERIFY(!shown.sendButton().isNull());
            QCoreApplication::processEvents();
            answered = before == line->sentBytes() ? answered + 1 : 0;
        }

        QVERIFY2(line->sentBytes() < limit, qPrintable(QString::number(line->sentBytes())));
        QVERIFY(shown.close());
        QTRY_VERIFY_WITH_TIMEOUT(server.hasEnded(), Program::patienceMs);
        const qint64 grown = peak_memory(shown.program.process().processId()) - peakBefore;
        QVERIFY2(grown < limit * MeasureAllowance, qPrintable(QString::number(grown)));
        QCOMPARE(shown.program.close(), 0);
    }

    void signalWhileAMailIsSentEndsIt_data() { add_end_signals(); }
    void signalWhileAMailIsSentEndsIt()
    {
        QFETCH(const int, number);
        MailFormOnShow shown(false, patterned_page({3000, 3000}));
        QVERIFY(shown.isReady);
        const QByteArray file = file_bytes(shown.page);
        ScriptedMailServer server(host, goodSession);
        server.stopReadingInMessage();
        QVERIFY(shown.sendButton().press());
        QTRY_VERIFY_WITH_TIMEOUT(shown.says(u"Sending mail..."_s), Program::patienceMs);

        ::kill(static_cast<pid_t>(shown.program.process().processId()), number);

        QCOMPARE(shown.program.process().waitForEndBySignal(), number);
        server.goOnReading();
        QTRY_VERIFY_WITH_TIMEOUT(server.hasEnded(), Program::patienceMs);
        QVERIFY(server.message().size() < file.size()); // Base64 makes a third more of it
        QVERIFY(!server.received().contains("QUIT"));
        QCOMPARE(file_bytes(shown.page), file);
        // The form has been taken down in order: it stores what it shows.
        const QSettings stored(shown.place.home() + "/.config/Unknown Organization/imagemanager.conf"_L1,
                               QSettings::IniFormat);
        QCOMPARE(stored.value(u"ImageManager/mail_cfg/port"_s), u"25"_s);
    }

private:
    std::unique_ptr<NameServer> names;
};

TEST_MAIN_APART(QCoreApplication, tst_mail_faults, leave_common_network)
#include "tst_mail_faults.moc"
