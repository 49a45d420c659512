#include "DiagnosticLines.h"
#include "InstanceTest.h"

#include <QSignalSpy>
#include <QTest>
#include <QWidget>

using namespace Qt::StringLiterals;

/// Messages from one instance to another, and what is none.
class tst_QtSingleApplication_messages : public InstanceTest
{
    Q_OBJECT

private slots:
    void messageIsWrittenToTheOwner_data()
    {
        QTest::addColumn<QString>("message");
        QTest::addColumn<QByteArray>("bytes");

        QTest::newRow("ASCII") << u"/usr/bin/tool:a.png"_s << "/usr/bin/tool:a.png"_ba;
        QTest::newRow("beyond ASCII") << u"\u00e9\u9801"_s << "\xc3\xa9\xe9\xa0\x81"_ba;
        QTest::newRow("empty") << QString() << ""_ba;
        QTest::newRow("10 MiB") << QString(10 << 20, u'x') << QByteArray(10 << 20, 'x');
    }

    void messageIsWrittenToTheOwner()
    {
        QFETCH(const QString, message);
        QFETCH(const QByteArray, bytes);
        const XWindowId window = m_peer.makeWindow();
        m_peer.own(selection_name(), window);
        m_peer.write(window, "any", "_QTSINGLEAPPLICATION", {});
        {
            Instance instance;
            QVERIFY(instance.application.sendMessage(message));
        } // its end flushes

        const auto property = m_peer.read(window, selection_name());

        QVERIFY(property.has_value());
        QCOMPARE(property->type, "_QTSINGLEAPPLICATION"_ba);
        QCOMPARE(property->format, 8);
        QVERIFY(property->bytes == bytes); // not QCOMPARE, which would print 10 MiB
    }

    void timeOutOfAMessageIsNotUsed()
    {
        Instance instance;
        QVERIFY(!instance.application.sendMessage(u"text"_s, 0));
        instance.application.startListening(false);

        QSignalSpy spy(&instance.application, &QtSingleApplication::messageReceived);

        QVERIFY(instance.application.sendMessage(u"text"_s, -1));
        QVERIFY(instance.application.ownerExists()); // asking the server flushes

        QTRY_COMPARE(spy.size(), 1);
    }

    void messageLargerThanARequestIsRefused()
    {
        DiagnosticLines lines;
        lines.expect(u"QtSingleApplication::sendMessage - message too long for the X server"_s);
        Instance instance;
        instance.application.startListening(true);

        QVERIFY(!instance.application.sendMessage(QString(17 << 20, u'x')));

        QVERIFY(instance.application.ownerExists()); // the connection has survived
        QVERIFY(!m_peer.read(listener(), selection_name()));
    }

    void messageArrivesWhole_data()
    {
        QTest::addColumn<int>("size");

        QTest::newRow("1 byte") << 1;
        QTest::newRow("one byte less than the first read") << 4095;
        QTest::newRow("as much as the first read") << 4096;
        QTest::newRow("one byte more than the first read") << 4097;
        QTest::newRow("100 KiB") << 100 * 1024;
        QTest::newRow("10 MiB") << 10 * 1024 * 1024;
    }

    void messageArrivesWhole()
    {
        QFETCH(const int, size);
        Instance instance;
        instance.application.startListening(true);
        QSignalSpy spy(&instance.application, &QtSingleApplication::messageReceived);
        QByteArray text(size, 'x');
        text.front() = 'F';
        text.back() = 'L';

        writeMessage(text);

        QTRY_COMPARE(spy.size(), 1);
        QVERIFY(spy.at(0).at(0).toString() == QLatin1StringView(text));
    }

    void bytesThatAreNoUtf8ComeAsTheToolkitReadsThem()
    {
        Instance instance;
        instance.application.startListening(true);
        QSignalSpy spy(&instance.application, &QtSingleApplication::messageReceived);

        writeMessage("a\xff\xc3");

        QTRY_COMPARE(spy.size(), 1);
        QCOMPARE(spy.at(0).at(0).toString(), u"a\ufffd\ufffd"_s);
    }

    void propertyThatIsNoMessageIsDropped_data()
    {
        QTest::addColumn<QByteArray>("type");
        QTest::addColumn<int>("format");
        QTest::addColumn<QByteArray>("bytes");

        QTest::newRow("empty") << "_QTSINGLEAPPLICATION"_ba << 8 << ""_ba;
        QTest::newRow("another type") << "STRING"_ba << 8 << "text"_ba;
        QTest::newRow("items of 16 bits") << "_QTSINGLEAPPLICATION"_ba << 16 << "text"_ba;
        QTest::newRow("items of 32 bits") << "_QTSINGLEAPPLICATION"_ba << 32 << QByteArray(8 * sizeof(long), 'x');
        QTest::newRow("many items of 32 bits")
            << "_QTSINGLEAPPLICATION"_ba << 32 << QByteArray(5000 * sizeof(long), 'x');
    }

    void propertyThatIsNoMessageIsDropped()
    {
        QFETCH(const QByteArray, type);
        QFETCH(const int, format);
        QFETCH(const QByteArray, bytes);
        CommandLine commandLine;
        RecordingApplication application(test_id(), commandLine.argc, commandLine.argv.data(), true);
        application.startListening(true);
        QSignalSpy spy(&application, &QtSingleApplication::messageReceived);

        m_peer.write(listener(), selection_name(), type, bytes, format);

        QTRY_VERIFY(application.passedOn.contains(m_peer.atom(selection_name())));
        QCOMPARE(spy.size(), 0);
        writeMessage("after");
        QTRY_COMPARE(spy.size(), 1);
    }

    void changesOfTheWindowBeforeItListensRepeatNoMessage()
    {
        Instance instance;
        QSignalSpy spy(&instance.application, &QtSingleApplication::messageReceived);
        instance.application.startListening(true);
        writeMessage("once"); // the toolkit's own changes of the new window are still to be told

        QTRY_COMPARE(spy.size(), 1);
        writeMessage("twice");

        QTRY_COMPARE(spy.size(), 2);
        QCOMPARE(spy.at(1).at(0).toString(), u"twice"_s);
    }

    void anyOtherChangeOfTheWindowRepeatsTheMessage()
    {
        Instance instance;
        instance.application.startListening(true);
        QSignalSpy spy(&instance.application, &QtSingleApplication::messageReceived);
        writeMessage("text");
        QTRY_COMPARE(spy.size(), 1);

        m_peer.write(listener(), "_NET_WM_NAME", "UTF8_STRING", "title");
        QTRY_COMPARE(spy.size(), 2);
        m_peer.write(listener(), selection_name() + "_LISTENER", selection_name() + "_LISTENER", "YES");
        QTRY_COMPARE(spy.size(), 3);
        m_peer.remove(listener(), "_NET_WM_NAME");
        QTRY_COMPARE(spy.size(), 4);

        QCOMPARE(spy.at(3).at(0).toString(), u"text"_s);
    }

    void aMessageThatIsTakenAwayIsNoMessage()
    {
        CommandLine commandLine;
        RecordingApplication application(test_id(), commandLine.argc, commandLine.argv.data(), true);
        application.startListening(true);
        QSignalSpy spy(&application, &QtSingleApplication::messageReceived);
        writeMessage("text");
        QTRY_COMPARE(spy.size(), 1);

        m_peer.remove(listener(), selection_name());

        QTRY_VERIFY(application.passedOn.contains(m_peer.atom(selection_name())));
        QCOMPARE(spy.size(), 1);
    }

    void equalMessagesBothCome()
    {
        Instance instance;
        instance.application.startListening(true);
        QSignalSpy spy(&instance.application, &QtSingleApplication::messageReceived);

        writeMessage("same");
        QTRY_COMPARE(spy.size(), 1);
        writeMessage("same");

        QTRY_COMPARE(spy.size(), 2);
    }

    void burstTellsItsLastTextForEachMessage()
    {
        Instance instance;
        instance.application.startListening(true);
        QSignalSpy spy(&instance.application, &QtSingleApplication::messageReceived);

        writeMessage("first");
        writeMessage("second");

        QTRY_COMPARE(spy.size(), 2);
        QCOMPARE(spy.at(0).at(0).toString(), u"second"_s);
        QCOMPARE(spy.at(1).at(0).toString(), u"second"_s);
    }

    void messageComesWhileAnotherIsBeingHandled()
    {
        Instance instance;
        instance.application.startListening(true);
        QStringList course;
        connect(&instance.application, &QtSingleApplication::messageReceived, this, [&](const QString &text) {
            course.append(u"begin "_s + text);
            if (text == "outer"_L1) {
                writeMessage("inner");
                QTRY_VERIFY(course.contains(u"end inner"_s)); // a loop of events, as a modal box has one
            }
            course.append(u"end "_s + text);
        });

        writeMessage("outer");

        QTRY_COMPARE(course, (QStringList{u"begin outer"_s, u"begin inner"_s, u"end inner"_s, u"end outer"_s}));
    }
};

QTEST_APPLESS_MAIN(tst_QtSingleApplication_messages)
#include "tst_QtSingleApplication_messages.moc"
