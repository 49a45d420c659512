#include "UploadTrial.h"

using namespace Qt::StringLiterals;

class tst_FtpUpload_failures : public QObject
{
    Q_OBJECT

private slots:
    void refusedUploadKeepsItsFile_data()
    {
        QTest::addColumn<QByteArray>("step");
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<QString>("failure");

        const auto rows = [](const char *step, std::initializer_list<int> codes, const QString &words, int special) {
            for (const int code : codes) {
                const QString text = code == 530 || code == 430 ? QString::number(special) : u"12"_s;
                QTest::addRow("%s %d", step, code) << QByteArray(step) << QByteArray::number(code) + " Sorry\r\n"
                                                   << text + u' ' + words + u":\nSorry"_s;
            }
        };
        rows("greeting", {120, 230, 421, 530}, u"Connecting to host failed"_s, 12);
        rows("USER", {332, 421, 430, 500, 530}, u"Login failed"_s, 5);
        rows("PASS", {421, 430, 500, 503, 530}, u"Login failed"_s, 5);
        rows("TYPE", {421, 500, 504, 530}, u"Uploading file failed"_s, 12);
        rows("PASV", {421, 425, 500, 502, 530}, u"Uploading file failed"_s, 12);
        rows("STOR", {421, 425, 450, 452, 530, 532, 550, 552, 553}, u"Uploading file failed"_s, 12);
        rows("end", {421, 425, 426, 451, 452, 550, 551, 552}, u"Uploading file failed"_s, 12);
        QTest::newRow("PASS 331") << QByteArray("PASS") << QByteArray("331 Again\r\n") << u"5 Login failed:\nAgain"_s;
        QTest::newRow("PASS 332") << QByteArray("PASS") << QByteArray("332 Account\r\n")
                                  << u"5 Login failed:\nAccount"_s;
        QTest::newRow("greeting without a number")
            << QByteArray("greeting") << QByteArray("Hello\r\n") << u"12 Connecting to host failed:\nHello"_s;
        QTest::newRow("end without a number")
            << QByteArray("end") << QByteArray("Hello\r\n") << u"12 Uploading file failed:\nHello"_s;
        QTest::newRow("several lines") << QByteArray("STOR") << QByteArray("553-Not\r\n553-this\r\n553 name\r\n")
                                       << u"12 Uploading file failed:\nNot\nthis\nname"_s;
    }

    void refusedUploadKeepsItsFile()
    {
        QFETCH(const QByteArray, step);
        QFETCH(const QByteArray, reply);
        QFETCH(const QString, failure);
        UploadTrial trial;
        trial.server->say(step, reply);

        trial.upload(true, u"bob"_s, u"secret"_s);
        QVERIFY(trial.ends());

        QCOMPARE(trial.failure(), failure);
        QCOMPARE(trial.events.filter(u"finished"_s), (QStringList{u"finished 32 2"_s, u"finished 64 3"_s}));
        QVERIFY(trial.hasFile());
        QTRY_VERIFY(!trial.server->hasClient());
    }

    void cutAtAnyStepKeepsTheFile_data()
    {
        QTest::addColumn<QByteArray>("step");
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<QString>("failure");
        for (const char *step : {"greeting", "USER", "PASS", "TYPE", "PASV", "ALLO", "STOR", "end"}) {
            const QByteArray name(step);
            const QString words = name == "greeting" ? u"12 Connecting to host failed:\n"_s
                : name == "USER" || name == "PASS"   ? u"12 Login failed:\n"_s
                                                     : u"12 Uploading file failed:\n"_s;
            QTest::addRow("%s, after a good bye", step)
                << name << QByteArray("421 Good bye\r\n") << QString(words + u"Good bye"_s);
            QTest::addRow("%s, without words", step)
                << name << QByteArray() << QString(words + u"Connection to 127.0.0.1 closed"_s);
        }
    }

    void cutAtAnyStepKeepsTheFile()
    {
        QFETCH(const QByteArray, step);
        QFETCH(const QByteArray, reply);
        QFETCH(const QString, failure);
        UploadTrial trial;
        trial.server->say(step, reply);
        trial.server->cutAt(step);

        trial.upload(true);
        QVERIFY(trial.ends());

        QCOMPARE(trial.failure(), failure);
        QVERIFY(trial.hasFile());
    }

    void hostThatIsNotThereIsTold_data()
    {
        QTest::addColumn<QString>("host");
        QTest::newRow("no such name") << u"no.such.host.invalid"_s;
        QTest::newRow("blank within") << u"local host"_s;
        QTest::newRow("blank alone") << u" "_s;
        QTest::newRow("port within") << u"127.0.0.1:21"_s;
        QTest::newRow("path within") << u"127.0.0.1/dir"_s;
        QTest::newRow("login within") << u"bob@127.0.0.1"_s;
        QTest::newRow("address in brackets") << u"[::1]"_s;
    }

    void hostThatIsNotThereIsTold()
    {
        QFETCH(const QString, host);
        UploadTrial trial;
        trial.host = host;

        trial.upload(true);
        QVERIFY(trial.ends());

        QCOMPARE(trial.failure(), u"6 Connecting to host failed:\nHost "_s + host + u" not found"_s);
        QVERIFY(trial.hasFile());
    }

    void refusedConnectionIsTold()
    {
        UploadTrial trial;
        trial.port = trial.server->port();
        trial.server.reset();

        trial.upload(true);
        QVERIFY(trial.ends());

        QCOMPARE(trial.failure(), u"12 Connecting to host failed:\nConnection refused to host 127.0.0.1"_s);
        QVERIFY(!trial.events.join(u' ').contains(u"connection 1"_s));
    }

    void oddAnswerIsPassedOver_data()
    {
        QTest::addColumn<QByteArray>("greeting");
        QTest::addColumn<QByteArray>("passiveHost");
        constexpr qsizetype size = qsizetype{10} * 1024 * 1024;
        const QByteArray here = "127,0,0,1";
        QTest::newRow("huge greeting of one line") << "220 " + QByteArray(size, 'x') + "\r\n" << here;
        QTest::newRow("huge greeting of many lines") << QByteArray("220-hello\r\n").repeated(size / 11) + "220 end\r\n"
                                                     << here;
        QTest::newRow("passive answer naming another host") << QByteArray("220 hi\r\n") << QByteArray("10,9,8,7");
    }

    void oddAnswerIsPassedOver()
    {
        QFETCH(const QByteArray, greeting);
        QFETCH(const QByteArray, passiveHost);
        UploadTrial trial;
        trial.server->say("greeting", greeting);
        trial.server->setPassiveHost(passiveHost);

        trial.upload();
        QVERIFY(trial.ends());

        QCOMPARE(trial.failure(), QString());
        QCOMPARE(trial.server->data(), QByteArray("0123456789"));
    }

    void repliesInSeveralLinesAndPiecesAreRead()
    {
        UploadTrial trial;
        trial.server->say("greeting", "220-Hello\r\n331 not yet\r\n");
        trial.server->say("PASS", "230-Much\r\n230-to\r\n230 tell\r\n");

        trial.upload();
        QTRY_VERIFY(trial.events.join(u' ').contains(u"connection 1"_s));
        for (const char byte : QByteArrayView("220 there\r\n"))
            trial.server->sayNow(QByteArray(1, byte));
        QVERIFY(trial.ends());

        QCOMPARE(trial.failure(), QString());
    }

    void fileThatShrinksMeanwhileIsAFailure()
    {
        UploadTrial trial;
        trial.write(QByteArray(20'000'000, 'x'));
        trial.server->stopDataAfter(1000);
        trial.upload(true);
        QTRY_VERIFY(trial.server->dataCount() >= 1000);

        QVERIFY(QFile::resize(trial.path(), 1000));
        trial.server->takeData();
        QVERIFY(trial.ends());

        QCOMPARE(trial.failure(), u"12 Uploading file failed:\nThe local file has changed"_s);
        QVERIFY(trial.hasFile());
    }

    void fileThatGrowsMeanwhileIsSentAsItWasAndStays()
    {
        UploadTrial trial;
        trial.server->say("STOR", {});
        trial.upload(true);
        QTRY_VERIFY(trial.server->commands().contains("STOR /dir/x.png"));

        trial.write("0123456789more");
        trial.server->sayNow("150 Go on\r\n");
        QVERIFY(trial.ends());

        QCOMPARE(trial.server->data(), QByteArray("0123456789"));
        QCOMPARE(trial.failure(), u"9 Could not remove file or directory\n"_s + trial.path());
        QVERIFY(trial.hasFile());
    }
};

QTEST_GUILESS_MAIN(tst_FtpUpload_failures)
#include "tst_FtpUpload_failures.moc"
