#include "InstanceTest.h"

#include <QSignalSpy>
#include <QTest>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

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

} // namespace

class tst_QtSingleApplication : public InstanceTest
{
    Q_OBJECT

private slots:
    // Runs first: the server forgets no atom.
    void withoutTheTypeOfMessagesNothingIsSent()
    {
        QVERIFY2(!m_peer.hasAtom("_QTSINGLEAPPLICATION"), "this test needs a fresh X server");
        Instance instance;
        m_peer.own(selection_name(), m_peer.makeWindow());

        QVERIFY(!instance.application.sendMessage(u"text"_s));

        QVERIFY(instance.application.ownerExists());
        QVERIFY(!m_peer.hasAtom("_QTSINGLEAPPLICATION"));
    }

    void withoutAnyListenerThereIsNoOwner()
    {
        Instance instance;

        QVERIFY(!instance.application.ownerExists());
        QVERIFY(!instance.application.sendMessage(u"text"_s));
        QVERIFY(!m_peer.hasAtom(selection_name()));
    }

    void selectionWithoutAnOwnerIsNoOwner()
    {
        Instance instance;
        m_peer.own(selection_name(), 0);

        QVERIFY(!instance.application.ownerExists());
        QVERIFY(!instance.application.sendMessage(u"text"_s));
    }

    void listenerCarriesItsMarkAndOwnsTheSelection()
    {
        Instance instance;

        instance.application.startListening(true);

        QVERIFY(listener() != 0);
        QCOMPARE(m_peer.owner(selection_name()), listener());
        const QByteArray mark = selection_name() + "_LISTENER";
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
        m_peer.own(selection_name(), other);

        instance.application.startListening(true);

        QCOMPARE(listener(), window);
        QCOMPARE(m_peer.owner(selection_name()), other);
    }

    void listeningTakesTheSelectionFromAnEarlierOwner()
    {
        Instance instance;
        m_peer.own(selection_name(), m_peer.makeWindow());

        instance.application.startListening(true);

        QCOMPARE(m_peer.owner(selection_name()), listener());
    }

    void lostSelectionIsTakenBackAtTheNextMessage()
    {
        Instance instance;
        instance.application.startListening(true);
        QSignalSpy spy(&instance.application, &QtSingleApplication::messageReceived);
        m_peer.own(selection_name(), m_peer.makeWindow());

        writeMessage("a"); // comes after the loss

        QTRY_COMPARE(m_peer.owner(selection_name()), listener());
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
        RecordingApplication application(test_id(), commandLine.argc, commandLine.argv.data(), true);
        application.startListening(true);
        m_peer.own(selection_name(), m_peer.makeWindow());
        QTRY_VERIFY(application.isSelectionLost);

        if (isTakenAway)
            m_peer.remove(listener(), selection_name() + "_LISTENER");
        else
            m_peer.write(listener(), "OF_THE_TEST", "STRING", "title");

        QTRY_VERIFY(!application.eaten.isEmpty());
        QVERIFY(m_peer.owner(selection_name()) == application.allWidgets().constFirst()->winId());
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
        RecordingApplication application(test_id(), commandLine.argc, commandLine.argv.data(), true);
        application.startListening(false);
        m_peer.write(listener(), "OF_THE_TEST", "STRING", "title");
        QTRY_VERIFY(application.passedOn.contains(m_peer.atom("OF_THE_TEST")));
        QVERIFY(application.passedOn.contains(m_peer.atom(selection_name() + "_LISTENER")));

        writeMessage("text");

        QTRY_COMPARE(application.eaten, QList<unsigned long>{m_peer.atom(selection_name())});
    }

    void widgetComesToTheFrontBeforeLaterReceiversHearOfTheMessage()
    {
        CommandLine commandLine;
        RecordingApplication application(test_id(), commandLine.argc, commandLine.argv.data(), true);
        application.startListening(true);
        connect(&application, &QtSingleApplication::messageReceived, this,
                [&application](const QString &text) { application.calls.append(text); });

        writeMessage("text");

        QTRY_COMPARE(application.calls, (QStringList{u"activate"_s, u"text"_s}));
    }

    void withoutActivationOnlyReceiversHearOfTheMessage()
    {
        CommandLine commandLine;
        RecordingApplication application(test_id(), commandLine.argc, commandLine.argv.data(), true);
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

        QCOMPARE(m_peer.read(upper, selection_name()),
                 (XPeer::Property{.type = "_QTSINGLEAPPLICATION", .format = 8, .bytes = "a"}));
        QVERIFY(!m_peer.read(lower, selection_name()));
        QVERIFY(!m_peer.read(stranger, selection_name()));
        QCOMPARE(m_peer.owner(selection_name()), XWindowId{0});
    }

    void endOfTheOwnerWakesAListenerBelowItsOwn()
    {
        auto instance = std::make_unique<Instance>();
        const XWindowId lower = makeListener();
        instance->application.startListening(true);

        instance.reset();

        QVERIFY(m_peer.read(lower, selection_name()).has_value());
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
        QVERIFY(m_peer.windowsWith(selection_name()).isEmpty());
        QVERIFY(!m_peer.read(stranger, selection_name()));
    }

    void endOfAWaitingListenerWakesNobody()
    {
        CommandLine commandLine;
        auto application =
            std::make_unique<RecordingApplication>(test_id(), commandLine.argc, commandLine.argv.data(), true);
        application->startListening(true);
        const XWindowId other = makeListener();
        m_peer.own(selection_name(), other);
        QTRY_VERIFY(application->isSelectionLost);

        application.reset();

        QVERIFY(!m_peer.read(other, selection_name()));
        QCOMPARE(m_peer.owner(selection_name()), other);
    }

    void withoutAGuiThereIsNobodyToTalkTo()
    {
        const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
        CommandLine commandLine;
        QtSingleApplication application(test_id(), commandLine.argc, commandLine.argv.data(), false);
        qputenv("QT_QPA_PLATFORM", platform);
        m_peer.own(selection_name(), m_peer.makeWindow());

        application.startListening(true);

        QVERIFY(!application.ownerExists());
        QVERIFY(!application.sendMessage(u"text"_s));
        QVERIFY(m_peer.windowsWith(selection_name() + "_LISTENER").isEmpty());
    }

    void applicationOnAGivenDisplayMeetsTheOthersThere()
    {
        CommandLine commandLine;
        QtSingleApplication application(m_peer.display(), test_id(), commandLine.argc, commandLine.argv.data());

        application.startListening(true);

        QCOMPARE(m_peer.owner(selection_name()), listener());
        QVERIFY(listener() != 0);
    }
};

QTEST_APPLESS_MAIN(tst_QtSingleApplication)
#include "tst_QtSingleApplication.moc"
