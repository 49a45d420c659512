#include "UploadTrial.h"

#include <QAbstractEventDispatcher>

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

} // namespace

/// Uploads whose data connection does not do what it should.
class tst_FtpUpload_data_connection : public QObject
{
    Q_OBJECT

private slots:
    void confirmationBeforeTheLastByteIsAFailure_data();
    void confirmationBeforeTheLastByteIsAFailure();
    void serversWordsAfterACutAreShown();
    void cutWithoutWordsFailsAllTheSame();
    void dataConnectionThatIsGoneBeforeTheGoAheadTookNothing();
    void refusedDataConnectionIsTold();
    void wordsThatWaitWinOverARefusedDataConnection();
    void closedDataWindowCostsNothingAndIsWaitedFor();
    void floodOnTheDataConnectionIsNotTaken();
};

void tst_FtpUpload_data_connection::confirmationBeforeTheLastByteIsAFailure_data()
{
    QTest::addColumn<bool>("move");
    QTest::newRow("kept") << false;
    QTest::newRow("to be deleted") << true;
}

void tst_FtpUpload_data_connection::confirmationBeforeTheLastByteIsAFailure()
{
    QFETCH(const bool, move);
    UploadTrial trial;
    QVERIFY(trial.write(QByteArray(20'000'000, 'x'))); // more than the network holds
    trial.server->stopDataAfter(1000);
    trial.server->endAfter(1000);

    trial.upload(move);
    QVERIFY(trial.ends());

    QCOMPARE(trial.failure(), u"12 Uploading file failed:\nThanks"_s);
    QVERIFY(trial.hasFile());
}

void tst_FtpUpload_data_connection::serversWordsAfterACutAreShown()
{
    UploadTrial trial;
    QVERIFY(trial.write(QByteArray(20'000'000, 'x')));
    trial.server->cutDataAfter(100'000);
    trial.server->say("end", "452 Disk full\r\n");

    trial.upload(true);
    QVERIFY(trial.ends());

    QCOMPARE(trial.failure(), u"12 Uploading file failed:\nDisk full"_s);
    QVERIFY(trial.hasFile());
}

void tst_FtpUpload_data_connection::cutWithoutWordsFailsAllTheSame()
{
    UploadTrial trial;
    QVERIFY(trial.write(QByteArray(20'000'000, 'x')));
    trial.server->cutDataAfter(100'000);
    trial.server->say("end", {});

    trial.upload(true);
    QVERIFY(trial.ends());

    QCOMPARE(trial.failure(), u"12 Uploading file failed:\nData connection closed"_s);
    QVERIFY(trial.hasFile());
}

void tst_FtpUpload_data_connection::dataConnectionThatIsGoneBeforeTheGoAheadTookNothing()
{
    // Which of the two the client hears of first is by chance.
    for (int i = 0; i < 10; ++i) {
        UploadTrial trial;
        QVERIFY(trial.write(QByteArray(300'000, 'x')));
        trial.server->cutDataBeforeGoAhead();
        trial.server->say("STOR", "150 Go on\r\n226 Done\r\n");
        trial.server->say("end", {});

        trial.upload(true);
        QVERIFY(trial.ends());

        QCOMPARE(trial.failure(), u"12 Uploading file failed:\nDone"_s);
        QVERIFY(trial.hasFile());
    }
}

void tst_FtpUpload_data_connection::refusedDataConnectionIsTold()
{
    UploadTrial trial;
    QVERIFY(trial.write("0123456789"));
    trial.server->refuseData();

    trial.upload(true);
    QVERIFY(trial.ends());

    QCOMPARE(trial.failure(), u"12 Uploading file failed:\nConnection refused for data connection"_s);
    QVERIFY(trial.hasFile());
}

void tst_FtpUpload_data_connection::wordsThatWaitWinOverARefusedDataConnection()
{
    UploadTrial trial;
    QVERIFY(trial.write("0123456789"));
    trial.server->refuseData();
    // The second reply is on its way before the refusal can be.
    trial.server->say("PASV", "227 Here (127,0,0,1,0,1)\r\n425 No more\r\n");

    trial.upload(true);
    QVERIFY(trial.ends());

    QCOMPARE(trial.failure(), u"12 Uploading file failed:\nNo more"_s);
}

void tst_FtpUpload_data_connection::closedDataWindowCostsNothingAndIsWaitedFor()
{
    UploadTrial trial;
    const QByteArray bytes(20'000'000, 'x');
    QVERIFY(trial.write(bytes));
    trial.server->stopDataAfter(1000);
    trial.upload(true);
    QTRY_VERIFY(trial.server->dataCount() >= 1000);

    QTRY_VERIFY(is_at_rest()); // the network between the two is full
    QVERIFY(!trial.hasEnded);
    QVERIFY(trial.hasFile());

    trial.server->takeData();
    QVERIFY(trial.ends());
    QCOMPARE(trial.failure(), QString());
    QVERIFY(trial.server->data() == bytes);
    QVERIFY(!trial.hasFile());
}

void tst_FtpUpload_data_connection::floodOnTheDataConnectionIsNotTaken()
{
    UploadTrial trial;
    QVERIFY(trial.write("0123456789"));
    trial.server->floodData(qint64{8} * 1024 * 1024);
    trial.server->say("STOR", {});

    trial.upload();
    QTRY_VERIFY(trial.server->isFloodHeldUp());
    QTRY_VERIFY(trial.server->commands().constLast().startsWith("STOR")); // else it would be the answer to another one

    trial.server->sayNow("550 No\r\n");
    QVERIFY(trial.ends());
    QCOMPARE(trial.failure(), u"12 Uploading file failed:\nNo"_s);
}

QTEST_GUILESS_MAIN(tst_FtpUpload_data_connection)
#include "tst_FtpUpload_data_connection.moc"
