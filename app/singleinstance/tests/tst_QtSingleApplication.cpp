#include "DiagnosticLines.h"
#include "QtSingleApplication.h"
#include "QtSingletonPrivate.h"
#include "XPeer.h"

#include <QSignalSpy>
#include <QTest>
#include <QWidget>

#include <array>

// Behind the toolkit's headers, which its macros would break.
#include <X11/Xlib.h>

using namespace Qt::StringLiterals;
using XWindowId = XPeer::Window;

namespace {

/// Each test has an identity of its own, so that none finds what another has left.
QString testId()
{
    return QString::fromLatin1(QTest::currentTestFunction()) + QString::fromLatin1(QTest::currentDataTag());
}

QByteArray selectionName()
{
    return QtSingletonPrivate().selectionName(testId(), login_name());
}

/// Command line of an application, which has to outlive it.
struct CommandLine
{
    std::array<char, 5> name{'t', 'e', 's', 't', '\0'};
    std::array<char *, 2> argv{name.data(), nullptr};
    int argc = 1;
};

struct Instance : CommandLine
{
    QtSingleApplication application{testId(), argc, argv.data(), true};
};

/// Tells whether it has been brought to the top of the stack.
class RaisedWindow : public QWidget
{
public:
    bool isRaised = false;

protected:
    bool event(QEvent *event) override
    {
        isRaised = isRaised || event->type() == QEvent::ZOrderChange;
        return QWidget::event(event);
    }
};

/// Tells what the protocol calls.
class RecordingApplication : public QtSingleApplication
{
public:
    using QtSingleApplication::QtSingleApplication;

    bool x11EventFilter(XEvent *event) override
    {
        const bool result = QtSingleApplication::x11EventFilter(event);
        if (event->type == PropertyNotify)
            (result ? eaten : passedOn).append(event->xproperty.atom);
        isSelectionLost = isSelectionLost || event->type == SelectionClear;
        return result;
    }
    void activateMainWidget() override { calls.append(u"activate"_s); }

    QStringList calls;
    QList<unsigned long> eaten; ///< properties whose changes were kept from the toolkit
    QList<unsigned long> passedOn;
    bool isSelectionLost = false;
};

} // namespace

class tst_QtSingleApplication : public QObject
{
    Q_OBJECT

private:
    XPeer m_peer;

    /// The window of the only listener of this test.
    [[nodiscard]] XWindowId listener() const
    {
        const QList<XWindowId> windows = m_peer.windowsWith(selectionName() + "_LISTENER");
        return windows.size() == 1 ? windows.first() : 0;
    }
    void writeMessage(const QByteArray &text)
    {
        m_peer.write(listener(), selectionName(), "_QTSINGLEAPPLICATION", text);
    }
    [[nodiscard]] XWindowId makeListener()
    {
        const XWindowId window = m_peer.makeWindow();
        m_peer.write(window, selectionName() + "_LISTENER", selectionName() + "_LISTENER", "YES");
        return window;
    }

private slots:
    // Runs first: the server forgets no atom.
    void withoutTheTypeOfMessagesNothingIsSent()
    {
        QVERIFY2(!m_peer.hasAtom("_QTSINGLEAPPLICATION"), "this test needs a fresh X server");
        Instance instance;
        m_peer.own(selectionName(), m_peer.makeWindow());

        QVERIFY(!instance.application.sendMessage(u"text"_s));

        QVERIFY(instance.application.ownerExists());
        QVERIFY(!m_peer.hasAtom("_QTSINGLEAPPLICATION"));
    }

    void withoutAnyListenerThereIsNoOwner()
    {
        Instance instance;

        QVERIFY(!instance.application.ownerExists());
        QVERIFY(!instance.application.sendMessage(u"text"_s));
        QVERIFY(!m_peer.hasAtom(selectionName()));
    }

    void selectionWithoutAnOwnerIsNoOwner()
    {
        Instance instance;
        m_peer.own(selectionName(), 0);

        QVERIFY(!instance.application.ownerExists());
        QVERIFY(!instance.application.sendMessage(u"text"_s));
    }

    void listenerCarriesItsMarkAndOwnsTheSelection()
    {
        Instance instance;

        instance.application.startListening(true);

        QVERIFY(listener() != 0);
        QCOMPARE(m_peer.owner(selectionName()), listener());
        const QByteArray mark = selectionName() + "_LISTENER";
        QCOMPARE(m_peer.read(listener(), mark), (XPeer::Property{.type = mark, .format = 8, .bytes = "YES"}));
        QVERIFY(instance.application.ownerExists());
    }

    void listenerIsNeverShown()
    {
        Instance instance;

        instance.application.startListening(true);
        QCoreApplication::processEvents();

        QVERIFY(!m_peer.isShown(listener()));
    }

    void secondCallToListenChangesNothing()
    {
        Instance instance;
        instance.application.startListening(true);
        const XWindowId window = listener();
        const XWindowId other = m_peer.makeWindow();
        m_peer.own(selectionName(), other);

        instance.application.startListening(true);

        QCOMPARE(listener(), window);
        QCOMPARE(m_peer.owner(selectionName()), other);
    }

    void listeningTakesTheSelectionFromAnEarlierOwner()
    {
        Instance instance;
        m_peer.own(selectionName(), m_peer.makeWindow());

        instance.application.startListening(true);

        QCOMPARE(m_peer.owner(selectionName()), listener());
    }

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
        m_peer.own(selectionName(), window);
        m_peer.write(window, "any", "_QTSINGLEAPPLICATION", {});
        {
            Instance instance;
            QVERIFY(instance.application.sendMessage(message));
        } // its end flushes

        const auto property = m_peer.read(window, selectionName());

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
        QVERIFY(!m_peer.read(listener(), selectionName()));
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
        RecordingApplication application(testId(), commandLine.argc, commandLine.argv.data(), true);
        application.startListening(true);
        QSignalSpy spy(&application, &QtSingleApplication::messageReceived);

        m_peer.write(listener(), selectionName(), type, bytes, format);

        QTRY_VERIFY(application.passedOn.contains(m_peer.atom(selectionName())));
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
        m_peer.write(listener(), selectionName() + "_LISTENER", selectionName() + "_LISTENER", "YES");
        QTRY_COMPARE(spy.size(), 3);
        m_peer.remove(listener(), "_NET_WM_NAME");
        QTRY_COMPARE(spy.size(), 4);

        QCOMPARE(spy.at(3).at(0).toString(), u"text"_s);
    }

    void aMessageThatIsTakenAwayIsNoMessage()
    {
        CommandLine commandLine;
        RecordingApplication application(testId(), commandLine.argc, commandLine.argv.data(), true);
        application.startListening(true);
        QSignalSpy spy(&application, &QtSingleApplication::messageReceived);
        writeMessage("text");
        QTRY_COMPARE(spy.size(), 1);

        m_peer.remove(listener(), selectionName());

        QTRY_VERIFY(application.passedOn.contains(m_peer.atom(selectionName())));
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

    void lostSelectionIsTakenBackAtTheNextMessage()
    {
        Instance instance;
        instance.application.startListening(true);
        QSignalSpy spy(&instance.application, &QtSingleApplication::messageReceived);
        m_peer.own(selectionName(), m_peer.makeWindow());

        writeMessage("a"); // comes after the loss

        QTRY_COMPARE(m_peer.owner(selectionName()), listener());
        QCOMPARE(spy.size(), 0);
        writeMessage("text");
        QTRY_COMPARE(spy.size(), 1);
        QCOMPARE(spy.at(0).at(0).toString(), u"text"_s);
    }

    void waitingListenerWakesAtAnyChangeOfItsWindow_data()
    {
        QTest::addColumn<bool>("isTakenAway"); // the property, instead of written

        QTest::newRow("written") << false;
        QTest::newRow("taken away") << true;
    }

    void waitingListenerWakesAtAnyChangeOfItsWindow()
    {
        QFETCH(const bool, isTakenAway);
        CommandLine commandLine;
        RecordingApplication application(testId(), commandLine.argc, commandLine.argv.data(), true);
        application.startListening(true);
        m_peer.own(selectionName(), m_peer.makeWindow());
        QTRY_VERIFY(application.isSelectionLost);

        if (isTakenAway)
            m_peer.remove(listener(), selectionName() + "_LISTENER");
        else
            m_peer.write(listener(), "OF_THE_TEST", "STRING", "title");

        QTRY_VERIFY(!application.eaten.isEmpty());
        QVERIFY(m_peer.owner(selectionName()) == application.allWidgets().constFirst()->winId());
    }

    void lossOfAnotherSelectionKeepsTheOwner()
    {
        Instance instance;
        instance.application.startListening(true);
        QSignalSpy spy(&instance.application, &QtSingleApplication::messageReceived);

        XEvent event{};
        event.xselectionclear.type = SelectionClear;
        event.xselectionclear.selection = m_peer.atom("PRIMARY");

        QVERIFY(!instance.application.x11EventFilter(&event));
        writeMessage("text");

        QTRY_COMPARE(spy.size(), 1);
    }

    void onlyMessagesAreKeptFromTheToolkit()
    {
        CommandLine commandLine;
        RecordingApplication application(testId(), commandLine.argc, commandLine.argv.data(), true);
        application.startListening(false);
        m_peer.write(listener(), "OF_THE_TEST", "STRING", "title");
        QTRY_VERIFY(application.passedOn.contains(m_peer.atom("OF_THE_TEST")));
        QVERIFY(application.passedOn.contains(m_peer.atom(selectionName() + "_LISTENER")));

        writeMessage("text");

        QTRY_COMPARE(application.eaten, QList<unsigned long>{m_peer.atom(selectionName())});
    }

    void widgetComesToTheFrontBeforeLaterReceiversHearOfTheMessage()
    {
        CommandLine commandLine;
        RecordingApplication application(testId(), commandLine.argc, commandLine.argv.data(), true);
        application.startListening(true);
        connect(&application, &QtSingleApplication::messageReceived, this,
                [&application](const QString &text) { application.calls.append(text); });

        writeMessage("text");

        QTRY_COMPARE(application.calls, (QStringList{u"activate"_s, u"text"_s}));
    }

    void withoutActivationOnlyReceiversHearOfTheMessage()
    {
        CommandLine commandLine;
        RecordingApplication application(testId(), commandLine.argc, commandLine.argv.data(), true);
        application.startListening(false);
        QSignalSpy spy(&application, &QtSingleApplication::messageReceived);

        writeMessage("text");

        QTRY_COMPARE(spy.size(), 1);
        QCOMPARE(application.calls, QStringList());
    }

    void firstWidgetLosesItsMinimizedState()
    {
        Instance instance;
        QWidget window;
        window.showMinimized();
        QVERIFY(window.isMinimized());

        instance.application.activateMainWidget(); // whichever is first: here there is one alone

        QVERIFY(!window.isMinimized());
    }

    void firstWidgetIsRaisedAndActivated()
    {
        Instance instance;
        RaisedWindow a;
        RaisedWindow b;
        a.show();
        b.show();
        auto *const first = static_cast<RaisedWindow *>(QApplication::allWidgets().constFirst());
        RaisedWindow *const other = first == &a ? &b : &a;
        other->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(other));
        first->isRaised = false;

        instance.application.activateMainWidget();

        QVERIFY(first->isRaised);
        QVERIFY(QTest::qWaitForWindowActive(first));
    }

    void withoutAnyWidgetNothingIsActivated()
    {
        Instance instance;

        instance.application.activateMainWidget();

        QVERIFY(QApplication::allWidgets().isEmpty());
    }

    void endOfTheOwnerWakesTheLastOfTheListeners()
    {
        auto instance = std::make_unique<Instance>();
        const XWindowId lower = makeListener();
        instance->application.startListening(true);
        const XWindowId upper = makeListener();
        const XWindowId stranger = m_peer.makeWindow();

        instance.reset();

        QCOMPARE(m_peer.read(upper, selectionName()),
                 (XPeer::Property{.type = "_QTSINGLEAPPLICATION", .format = 8, .bytes = "a"}));
        QVERIFY(!m_peer.read(lower, selectionName()));
        QVERIFY(!m_peer.read(stranger, selectionName()));
        QCOMPARE(m_peer.owner(selectionName()), XWindowId{0});
    }

    void endOfTheOwnerWakesAListenerBelowItsOwn()
    {
        auto instance = std::make_unique<Instance>();
        const XWindowId lower = makeListener();
        instance->application.startListening(true);

        instance.reset();

        QVERIFY(m_peer.read(lower, selectionName()).has_value());
    }

    void endOfTheOnlyListenerWritesNothing()
    {
        auto instance = std::make_unique<Instance>();
        instance->application.startListening(true);
        const XWindowId stranger = m_peer.makeWindow();
        XSelectInput(m_peer.display(), listener(), PropertyChangeMask);
        XSync(m_peer.display(), False); // or the window would be gone before anyone asks for its changes

        instance.reset();

        XSync(m_peer.display(), False);
        XEvent change{};
        QVERIFY(!XCheckTypedEvent(m_peer.display(), PropertyNotify, &change)); // of the window that has gone
        QVERIFY(m_peer.windowsWith(selectionName()).isEmpty());
        QVERIFY(!m_peer.read(stranger, selectionName()));
    }

    void endOfAWaitingListenerWakesNobody()
    {
        CommandLine commandLine;
        auto application =
            std::make_unique<RecordingApplication>(testId(), commandLine.argc, commandLine.argv.data(), true);
        application->startListening(true);
        const XWindowId other = makeListener();
        m_peer.own(selectionName(), other);
        QTRY_VERIFY(application->isSelectionLost);

        application.reset();

        QVERIFY(!m_peer.read(other, selectionName()));
        QCOMPARE(m_peer.owner(selectionName()), other);
    }

    void withoutAGuiThereIsNobodyToTalkTo()
    {
        const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
        CommandLine commandLine;
        QtSingleApplication application(testId(), commandLine.argc, commandLine.argv.data(), false);
        qputenv("QT_QPA_PLATFORM", platform);
        m_peer.own(selectionName(), m_peer.makeWindow());

        application.startListening(true);

        QVERIFY(!application.ownerExists());
        QVERIFY(!application.sendMessage(u"text"_s));
        QVERIFY(m_peer.windowsWith(selectionName() + "_LISTENER").isEmpty());
    }

    void applicationOnAGivenDisplayMeetsTheOthersThere()
    {
        CommandLine commandLine;
        QtSingleApplication application(m_peer.display(), testId(), commandLine.argc, commandLine.argv.data());

        application.startListening(true);

        QCOMPARE(m_peer.owner(selectionName()), listener());
        QVERIFY(listener() != 0);
    }
};

QTEST_APPLESS_MAIN(tst_QtSingleApplication)
#include "tst_QtSingleApplication.moc"
