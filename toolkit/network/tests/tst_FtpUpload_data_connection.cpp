#include "UploadTrial.h"

#include <QAbstractEventDispatcher>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// Whether client and server have nothing to do until the other one or a timer wakes them.
bool is_at_rest()
{
    for (int i = 0; i < 1000; ++i) {
        if (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents))
            return false;
    }
    return true;
}

/// What the server does other than usual.
using Script = std::function<void(FtpServer &)>;

} // namespace

/// Uploads whose data connection does not do what it should.
class tst_FtpUpload_data_connection : public QObject
{
    Q_OBJECT

private slots:
    void dataConnectionThatEndsEarlyFailsTheUpload_data()
    {
        QTest::addColumn<Script>("script");
        QTest::addColumn<bool>("move");
        QTest::addColumn<QString>("failure");

        const auto row = [](const char *name, const Script &script, const char *words, bool move = true) {
            QTest::newRow(name) << script << move << u"12 Uploading file failed:\n"_s + QString::fromLatin1(words);
        };
        const Script earlyEnd = [](FtpServer &server) {
            server.stopDataAfter(1000);
            server.endAfter(1000);
        };
        row("confirmation before the last byte", earlyEnd, "Thanks");
        row("confirmation before the last byte of a file to be kept", earlyEnd, "Thanks", false);
        const auto cut = [](const QByteArray &reply) {
            return [reply](FtpServer &server) {
                server.cutDataAfter(100'000);
                server.say("end", reply);
            };
        };
        row("server's words after a cut", cut("452 Disk full\r\n"), "Disk full");
        row("cut without words", cut({}), "Data connection closed");
        row("refused", &FtpServer::refuseData, "Connection refused for data connection");
        // The second reply is on its way before the refusal can be.
        const auto wordsThatWait = [](FtpServer &server) {
            server.refuseData();
            server.say("PASV", "227 Here (127,0,0,1,0,1)\r\n425 No more\r\n");
        };
        row("words that wait win over a refusal", wordsThatWait, "No more");
    }

    void dataConnectionThatEndsEarlyFailsTheUpload()
    {
        QFETCH(const Script, script);
        QFETCH(const bool, move);
        QFETCH(const QString, failure);
        UploadTrial trial;
        trial.write(QByteArray(20'000'000, 'x')); // more than the network holds
        script(*trial.server);

        trial.upload(move);
        QVERIFY(trial.ends());

        QCOMPARE(trial.failure(), failure);
        QVERIFY(trial.hasFile());
    }

    void dataConnectionThatIsGoneBeforeTheGoAheadTookNothing()
    {
        // Which of the two the client hears of first is by chance.
        for (int i = 0; i < 10; ++i) {
            UploadTrial trial;
            trial.write(QByteArray(300'000, 'x'));
            trial.server->cutDataBeforeGoAhead();
            trial.server->say("STOR", "150 Go on\r\n226 Done\r\n");
            trial.server->say("end", {});

            trial.upload(true);
            QVERIFY(trial.ends());

            QCOMPARE(trial.failure(), u"12 Uploading file failed:\nDone"_s);
            QVERIFY(trial.hasFile());
        }
    }

    void closedDataWindowCostsNothingAndIsWaitedFor()
    {
        UploadTrial trial;
        const QByteArray bytes(20'000'000, 'x');
        trial.write(bytes);
        trial.server->stopDataAfter(1000);
        trial.upload(true);
        QTRY_VERIFY(trial.server->dataCount() >= 1000);

        QTRY_VERIFY_WITH_TIMEOUT(is_at_rest(), 30000); // the network between the two is full
        QVERIFY(!trial.hasEnded);
        QVERIFY(trial.hasFile());

        trial.server->takeData();
        QVERIFY(trial.ends());
        QCOMPARE(trial.failure(), QString());
        QVERIFY(trial.server->data() == bytes);
        QVERIFY(!trial.hasFile());
    }

    void floodOnTheDataConnectionIsNotTaken()
    {
        UploadTrial trial;
        trial.server->floodData(qint64{8} * 1024 * 1024);
        trial.server->say("STOR", {});

        trial.upload();
        QTRY_VERIFY(trial.server->isFloodHeldUp());
        QTRY_VERIFY(
            trial.server->commands().constLast().startsWith("STOR")); // else it would be the answer to another one

        trial.server->sayNow("550 No\r\n");
        QVERIFY(trial.ends());
        QCOMPARE(trial.failure(), u"12 Uploading file failed:\nNo"_s);
    }
};

QTEST_GUILESS_MAIN(tst_FtpUpload_data_connection)
#include "tst_FtpUpload_data_connection.moc"
