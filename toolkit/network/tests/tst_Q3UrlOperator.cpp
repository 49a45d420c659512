#include "UploadTrial.h"

#include <QDir>
#include <QPointer>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// As many bytes, all different from their neighbours.
QByteArray bytes_of(qsizetype count)
{
    QByteArray bytes(count, Qt::Uninitialized);
    for (qsizetype i = 0; i < count; ++i)
        bytes[i] = static_cast<char>(i * 7 + (i >> 8));
    return bytes;
}

qsizetype open_descriptors()
{
    return QDir(u"/proc/self/fd"_s).entryList(QDir::Files | QDir::System).size();
}

} // namespace

class tst_Q3UrlOperator : public QObject
{
    Q_OBJECT

private slots:
    // first: the others make it known
    void protocolThatIsNotKnownIsNotSupported()
    {
        Q3UrlOperator op;
        QStringList failures;
        connect(&op, &Q3UrlOperator::finished, &op, [&failures](const Q3NetworkOperation *operation) {
            failures += QString::number(operation->errorCode()) + u' ' + operation->protocolDetail();
        });

        op.copy(u"file:/p/x.png"_s, u"ftp://h"_s, false, true);
        QCOMPARE(failures, QStringList(u"3 The protocol `ftp' is not supported"_s));

        op.copy(u"http://h/x.png"_s, u"ftp://h"_s, false, true);
        QCOMPARE(failures.last(), u"3 The protocol `http' is not supported"_s);
    }

    void assigningTextForgetsAllFormerParts()
    {
        Q3UrlOperator op;
        op.setUser(u"u"_s);
        op.setPassword(u"p"_s);
        op.setPort(2121);
        op.setPath(u"/dir"_s);

        op = u"ftp://h"_s;

        QCOMPARE(op.toString(), u"ftp://h/"_s);
        QCOMPARE(op.port(), -1);
    }

    void uploadIsToldStepByStep()
    {
        UploadTrial trial;

        trial.upload();
        QVERIFY(trial.events.isEmpty()); // all comes from the event loop
        QVERIFY(trial.ends());

        QTRY_COMPARE(
            trial.events,
            (QStringList{u"start 32"_s, u"progress 32 0/10"_s, u"progress 32 0/10"_s, u"progress 32 10/10"_s,
                         u"finished 32 2"_s, u"start 64"_s, u"connection 0 Host 127.0.0.1 found"_s,
                         u"connection 1 Connected to host 127.0.0.1"_s, u"progress 64 0/10"_s, u"progress 64 10/10"_s,
                         u"finished 64 2"_s, u"connection 2 Connection to 127.0.0.1 closed"_s}));
    }

    void serverSeesTheClassicCommands()
    {
        UploadTrial trial;

        trial.upload(false, u"bob"_s, u"p w"_s);
        QVERIFY(trial.ends());

        QCOMPARE(trial.server->commands(),
                 (QList<QByteArray>{"USER bob", "PASS p w", "TYPE I", "PASV", "ALLO 10", "STOR /dir/x.png"}));
        QTRY_VERIFY(!trial.server->hasClient());
    }

    void fileArrivesAsItIs_data()
    {
        QTest::addColumn<qsizetype>("size");
        QTest::addColumn<QHostAddress>("address");

        QTest::newRow("0 bytes") << qsizetype{0} << QHostAddress(QHostAddress::LocalHost);
        QTest::newRow("1 byte") << qsizetype{1} << QHostAddress(QHostAddress::LocalHost);
        QTest::newRow("a block") << qsizetype{256} * 1024 << QHostAddress(QHostAddress::LocalHost);
        QTest::newRow("many blocks") << qsizetype{5'000'001} << QHostAddress(QHostAddress::LocalHost);
        QTest::newRow("many blocks over IPv6") << qsizetype{5'000'001} << QHostAddress(QHostAddress::LocalHostIPv6);
    }

    void fileArrivesAsItIs()
    {
        QFETCH(const qsizetype, size);
        QFETCH(const QHostAddress, address);
        UploadTrial trial(address);
        const QByteArray bytes = bytes_of(size);
        trial.write(bytes);

        trial.upload();
        QVERIFY(trial.ends());

        QCOMPARE(trial.failure(), QString());
        QVERIFY(trial.server->data() == bytes);
        QVERIFY(trial.hasFile());
        const bool isIPv6 = address == QHostAddress(QHostAddress::LocalHostIPv6);
        QCOMPARE(trial.server->commands().contains("EPSV"), isIPv6);
        QCOMPARE(trial.server->commands().contains("PASV"), !isIPv6);
    }

    void getReadsTheWholeFileInItsBlocks()
    {
        UploadTrial trial;
        const QByteArray bytes = bytes_of(150'000); // blocks of 1500
        trial.write(bytes);

        trial.upload();
        QVERIFY(trial.ends());

        QVERIFY(trial.readBytes == bytes);
        const QStringList reads = trial.events.filter(u"progress 32"_s);
        QCOMPARE(reads.size(), 102);
        QCOMPARE(reads.first(), u"progress 32 0/150000"_s);
        QCOMPARE(reads.at(1), u"progress 32 0/150000"_s);
        QCOMPARE(reads.at(2), u"progress 32 1500/150000"_s);
        QCOMPARE(reads.at(100), u"progress 32 148500/150000"_s);
        QCOMPARE(reads.last(), u"progress 32 150000/150000"_s);
    }

    void fileThatCannotBeOpenedIsNotSent()
    {
        UploadTrial trial;
        QVERIFY(QFile::remove(trial.path()));

        trial.upload(true);
        QVERIFY(trial.ends());

        QCOMPARE(trial.events, (QStringList{u"start 32"_s, u"finished 32 3"_s}));
        QCOMPARE(trial.failure(), u"11 Could not open\n"_s + trial.path());
        QCOMPARE(trial.server->sessions(), 0);
    }

    void movedFileGoesBeforeThePutIsFinished()
    {
        UploadTrial trial;
        bool wasThere = true;
        connect(trial.op.get(), &Q3UrlOperator::finished, this, [&](const Q3NetworkOperation *operation) {
            if (operation->operation() == Q3NetworkOperation::OpPut)
                wasThere = trial.hasFile();
        });

        trial.upload(true);
        QVERIFY(trial.ends());

        QVERIFY(!wasThere);
        QCOMPARE(trial.server->data(), QByteArray("0123456789"));
        QCOMPARE(trial.events.filter(u"finished"_s),
                 (QStringList{u"finished 32 2"_s, u"finished 4 2"_s, u"finished 64 2"_s}));
    }

    void failedRemoveIsToldBeforeThePut()
    {
        UploadTrial trial;
        trial.server->say("end", {});

        trial.upload(true);
        QTRY_VERIFY(trial.server->hasDataEnded());
        QVERIFY(QFile::remove(trial.path()));
        trial.server->sayNow("226 Thanks\r\n");
        QVERIFY(trial.ends());

        QCOMPARE(trial.events.filter(u"finished"_s),
                 (QStringList{u"finished 32 2"_s, u"finished 4 3"_s, u"finished 64 2"_s}));
        QCOMPARE(trial.failure(), u"9 Could not remove file or directory\n"_s + trial.path());
    }

    void fileIsSentAndRemovedWhateverItsName_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"a#b.png", "a?b.png", "a%41.png", "a\"b'.png", " a b .png", "a@b:c.png",
                                 "\xc3\xbc\xe3\x81\x82", "a\\b.png", "a;b&c|d.png", "...", "-x", "%2F..%2Fx"})
            QTest::addRow("%s", name) << QString::fromUtf8(name);
        QTest::newRow("long") << QString(255, u'x');
    }

    void fileIsSentAndRemovedWhateverItsName()
    {
        QFETCH(const QString, name);
        UploadTrial trial;
        trial.name = name;
        trial.write("0123456789");

        trial.upload(true, u"u@#?%41/: ö"_s, u"p@#?%41/: ö"_s, u"d #?%41/"_s + QString(500, u'y'));
        QVERIFY(trial.ends());

        QCOMPARE(trial.failure(), QString());
        QCOMPARE(trial.server->commands().at(0), QByteArray("USER u@#?%41/: \xc3\xb6"));
        QCOMPARE(trial.server->commands().at(1), QByteArray("PASS p@#?%41/: \xc3\xb6"));
        QCOMPARE(trial.server->commands().last(), "STOR /d #?%41/" + QByteArray(500, 'y') + '/' + name.toUtf8());
        QVERIFY(!trial.hasFile());
    }

    void controlCharacterSendsNothing()
    {
        UploadTrial trial;
        trial.name = u"a\r\nDELE b"_s;
        trial.write("0123456789");

        trial.upload(true);
        QVERIFY(trial.ends());

        QCOMPARE(trial.failure(), u"12 Uploading file failed:\nInvalid character in name"_s);
        QCOMPARE(trial.server->sessions(), 0);
        QVERIFY(trial.hasFile());
    }

    void operationsLiveForASecond()
    {
        UploadTrial trial;

        trial.upload(true);
        QList<QPointer<Q3NetworkOperation>> operations;
        for (Q3NetworkOperation *operation : std::as_const(trial.operations))
            operations.append(operation);
        QCOMPARE(operations.size(), 3);
        QVERIFY(trial.ends());

        QVERIFY(!operations.contains(nullptr));
        QTRY_COMPARE(operations.count(nullptr), 3);
        QVERIFY(trial.op->children().isEmpty());
    }

    void destroyedOperatorStopsItsCopyAndTellsNothing_data()
    {
        QTest::addColumn<QByteArray>("step"); // at which the server falls silent
        for (const char *step : {"greeting", "USER", "PASS", "TYPE", "PASV", "ALLO", "STOR", "end"})
            QTest::addRow("%s", step) << QByteArray(step);
    }

    void destroyedOperatorStopsItsCopyAndTellsNothing()
    {
        QFETCH(const QByteArray, step);
        UploadTrial trial;
        trial.server->say(step, {});

        trial.upload(true);
        if (step == "greeting")
            QTRY_VERIFY(trial.server->hasClient());
        else if (step == "end")
            QTRY_VERIFY(trial.server->hasDataEnded());
        else
            QTRY_VERIFY(!trial.server->commands().isEmpty() && trial.server->commands().last().startsWith(step));
        trial.op.reset();

        QTRY_VERIFY(!trial.server->hasClient());
        QVERIFY(trial.hasFile());
        QVERIFY(!trial.hasEnded);
    }

    void operatorMayGoInASlot_data()
    {
        QTest::addColumn<QString>("event");
        QTest::addColumn<bool>("good");

        for (const char *event :
             {"start 32", "progress 32 0/10", "progress 32 10/10", "finished 32 2", "start 64", "connection 0",
              "connection 1", "progress 64 0/10", "progress 64 10/10", "finished 4 2", "finished 64 2", "connection 2"})
            QTest::addRow("%s", event) << QString::fromLatin1(event) << true;
        QTest::newRow("connection 2 of a failure") << u"connection 2"_s << false;
        QTest::newRow("finished 64 3") << u"finished 64 3"_s << false;
    }

    void operatorMayGoInASlot()
    {
        QFETCH(const QString, event);
        QFETCH(const bool, good);
        UploadTrial trial;
        if (!good)
            trial.server->say("STOR", "550 No\r\n");
        // The trial's own slots come first, so the event is noted by then.
        const auto goAtTheEvent = [&trial, event] {
            if (trial.events.last().startsWith(event))
                trial.op.reset();
        };
        connect(trial.op.get(), &Q3UrlOperator::start, this, goAtTheEvent);
        connect(trial.op.get(), &Q3UrlOperator::dataTransferProgress, this, goAtTheEvent);
        connect(trial.op.get(), &Q3UrlOperator::connectionStateChanged, this, goAtTheEvent);
        connect(trial.op.get(), &Q3UrlOperator::finished, this, goAtTheEvent);

        trial.upload(true);

        QTRY_VERIFY(!trial.op);
        QTRY_VERIFY(!trial.server->hasClient());
        QVERIFY(trial.events.last().startsWith(event));
    }

    void manyUploadsLeaveNothingOpen()
    {
        UploadTrial trial;
        const QByteArray bytes = bytes_of(100'000);
        trial.write(bytes);
        trial.server->discardData();
        trial.upload();
        QVERIFY(trial.ends());
        QTRY_VERIFY(trial.op->children().isEmpty());
        QTRY_VERIFY(!trial.server->hasClient());
        const qsizetype descriptors = open_descriptors();

        for (int i = 0; i < 50; ++i) {
            trial.hasEnded = false;
            trial.upload();
            QVERIFY(trial.ends());
        }

        QCOMPARE(trial.server->dataCount(), 51 * bytes.size());
        QTRY_VERIFY(trial.op->children().isEmpty());
        QTRY_COMPARE(open_descriptors(), descriptors);
        QCOMPARE(trial.directory.isValid() ? QDir(trial.directory.path()).count() : 0, 3U); // the file, ".", ".."
    }

    void fileOfTwoGibibytesHasProgressThatFits()
    {
        constexpr qint64 size = 2LL * 1024 * 1024 * 1024;
        UploadTrial trial;
        trial.write("0");
        QVERIFY(QFile::resize(trial.path(), size)); // holes alone
        trial.server->discardData();

        trial.upload();
        QVERIFY(trial.ends());

        QCOMPARE(trial.failure(), QString());
        QCOMPARE(trial.server->dataCount(), size);
        QVERIFY(trial.server->commands().contains("ALLO 2147483648"));
        int former = 0;
        for (const QString &event : trial.events.filter(u"progress 64"_s)) {
            const QStringList numbers = event.section(u' ', 2).split(u'/');
            QCOMPARE(numbers.at(1), u"1073741824"_s); // halved once
            QVERIFY(numbers.at(0).toInt() >= former);
            former = numbers.at(0).toInt();
        }
        QCOMPARE(former, 1073741824);
    }
};

QTEST_GUILESS_MAIN(tst_Q3UrlOperator)
#include "tst_Q3UrlOperator.moc"
