#include "Q3Socket.h"

#include <QSignalSpy>
#include <QTcpServer>
#include <QTest>
#include <QTextStream>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString loopback = u"127.0.0.1"_s;

/// The other side: takes one connection at a time.
struct Peer
{
    Peer() { listening = server.listen(QHostAddress::LocalHost); }

    [[nodiscard]] quint16 port() const { return server.serverPort(); }
    /// The connection that has come, once it has.
    [[nodiscard]] std::unique_ptr<QTcpSocket> take()
    {
        if (!QTest::qWaitFor([this] { return server.hasPendingConnections(); }))
            return nullptr;
        return std::unique_ptr<QTcpSocket>(server.nextPendingConnection());
    }

    QTcpServer server;
    bool listening = false;
};

/// A pair of ends that are connected.
struct Pair
{
    Pair()
    {
        socket.connectToHost(loopback, peer.port());
        other = peer.take();
        isConnected = other && QTest::qWaitFor([this] { return socket.state() == Q3Socket::Connected; });
    }

    Peer peer;
    Q3Socket socket;
    std::unique_ptr<QTcpSocket> other;
    bool isConnected = false;
};

/// Lets another connection come about: by then everything that was on its way before has arrived.
bool another_connection_comes()
{
    const Pair pair;
    return pair.isConnected;
}

quint16 port_without_server()
{
    const Peer peer;
    return peer.port();
}

} // namespace

class tst_Q3Socket : public QObject
{
    Q_OBJECT

private slots:
    void statesHaveTheirNumbers()
    {
        QCOMPARE(int{Q3Socket::Idle}, 0);
        QCOMPARE(int{Q3Socket::HostLookup}, 1);
        QCOMPARE(int{Q3Socket::Connecting}, 2);
        QCOMPARE(int{Q3Socket::Connected}, 3);
        QCOMPARE(int{Q3Socket::Connection}, 3);
        QCOMPARE(int{Q3Socket::Closing}, 4);
    }

    void anAddressInFiguresIsConnectingAtOnce()
    {
        Peer peer;
        Q3Socket socket;
        QCOMPARE(socket.state(), Q3Socket::Idle);

        socket.connectToHost(loopback, peer.port());

        QCOMPARE(socket.state(), Q3Socket::Connecting);
        QVERIFY(socket.isOpen());
    }

    void aNameIsLookedUpFirst()
    {
        Peer peer;
        Q3Socket socket;
        QStringList order;
        connect(&socket, &Q3Socket::hostFound, this, [&] { order.append(u"found"_s); });
        connect(&socket, &Q3Socket::connected, this, [&] { order.append(u"connected"_s); });

        socket.connectToHost(u"localhost"_s, peer.port());

        QCOMPARE(socket.state(), Q3Socket::HostLookup);
        QTRY_COMPARE(socket.state(), Q3Socket::Connected);
        QCOMPARE(order, (QStringList{u"found"_s, u"connected"_s}));
        QCOMPARE(socket.peerName(), u"localhost"_s);
    }

    void theStateIsConnectedWhenTheSignalComes()
    {
        Peer peer;
        Q3Socket socket;
        QList<Q3Socket::State> states;
        connect(&socket, &Q3Socket::connected, this, [&] { states.append(socket.state()); });

        socket.connectToHost(loopback, peer.port());

        QTRY_COMPARE(states, QList<Q3Socket::State>{Q3Socket::Connected});
    }

    void whoIsNotThereIsRefused()
    {
        Q3Socket socket;
        const QSignalSpy errors(&socket, &Q3Socket::error);

        socket.connectToHost(loopback, port_without_server());

        QTRY_COMPARE(errors.size(), 1);
        QCOMPARE(errors.first().first().toInt(), int{Q3Socket::ErrConnectionRefused});
        QCOMPARE(socket.state(), Q3Socket::Idle);
    }

    void anEmptyHostIsNotFound()
    {
        Q3Socket socket;
        const QSignalSpy errors(&socket, &Q3Socket::error);

        socket.connectToHost(QString(), 25);

        QTRY_COMPARE(errors.size(), 1);
        QCOMPARE(errors.first().first().toInt(), int{Q3Socket::ErrHostNotFound});
        QCOMPARE(socket.state(), Q3Socket::Idle);
    }

    void aLineKeepsItsEndAndAPartOfOneIsNone()
    {
        Pair pair;
        QVERIFY(pair.isConnected);

        pair.other->write("250-first\r\n250 sec");

        QTRY_COMPARE(pair.socket.bytesAvailable(), qint64{18});
        QVERIFY(pair.socket.canReadLine());
        QCOMPARE(pair.socket.readLine(), "250-first\r\n"_ba);
        QVERIFY(!pair.socket.canReadLine());
    }

    void aTextStreamEndsLinesWithABareLineFeed()
    {
        Pair pair;
        QVERIFY(pair.isConnected);
        QTextStream stream(&pair.socket);

        stream << u"HELO there"_s << Qt::endl;

        QTRY_COMPARE(pair.other->bytesAvailable(), qint64{11});
        QCOMPARE(pair.other->readAll(), "HELO there\n"_ba);
    }

    void whatTheOtherSideSentBeforeItsEndCanStillBeRead()
    {
        Pair pair;
        QVERIFY(pair.isConnected);
        const QSignalSpy closed(&pair.socket, &Q3Socket::connectionClosed);
        const QSignalSpy errors(&pair.socket, &Q3Socket::error);

        pair.other->write("221 bye\n");
        pair.other->disconnectFromHost();

        QTRY_COMPARE(closed.size(), 1);
        QVERIFY(errors.isEmpty());
        QCOMPARE(pair.socket.readLine(), "221 bye\n"_ba);
        QCOMPARE(pair.socket.state(), Q3Socket::Idle);
    }

    void closingWithNothingToSendIsDoneAtOnce()
    {
        Pair pair;
        QVERIFY(pair.isConnected);
        const QSignalSpy finished(&pair.socket, &Q3Socket::delayedCloseFinished);

        pair.socket.close();

        QCOMPARE(pair.socket.state(), Q3Socket::Idle);
        QVERIFY(!pair.socket.isOpen());
        QTRY_COMPARE(pair.other->state(), QAbstractSocket::UnconnectedState);
        QVERIFY(finished.isEmpty());
    }

    void closingSendsFirstWhatIsLeft()
    {
        Pair pair;
        QVERIFY(pair.isConnected);
        const QSignalSpy finished(&pair.socket, &Q3Socket::delayedCloseFinished);
        const QByteArray much(qsizetype{16} * 1024 * 1024, 'x'); // more than the system's own buffers

        pair.socket.write(much);
        pair.socket.close();

        QCOMPARE(pair.socket.state(), Q3Socket::Closing);
        QByteArray received;
        QTRY_COMPARE((received += pair.other->readAll()).size(), much.size());
        QTRY_COMPARE(finished.size(), 1);
        QCOMPARE(pair.socket.state(), Q3Socket::Idle);
    }

    void closingBeforeTheConnectionPreventsIt_data()
    {
        QTest::addColumn<QString>("host");
        QTest::addColumn<int>("state");

        QTest::newRow("while connecting") << loopback << int{Q3Socket::Connecting};
        QTest::newRow("while the host is looked up")
            << u"LocalHost"_s // in a spelling that no test has asked for before
            << int{Q3Socket::HostLookup};
    }
    void closingBeforeTheConnectionPreventsIt()
    {
        QFETCH(const QString, host);
        QFETCH(const int, state);
        Peer peer;
        Q3Socket socket;
        const QSignalSpy connections(&socket, &Q3Socket::connected);
        socket.connectToHost(host, peer.port());
        QCOMPARE(int{socket.state()}, state);

        socket.close();

        QCOMPARE(socket.state(), Q3Socket::Idle);
        QVERIFY(another_connection_comes());
        QVERIFY(connections.isEmpty());
        QCOMPARE(socket.state(), Q3Socket::Idle);
    }

    void aNewConnectionDropsTheFormerOne()
    {
        Pair pair;
        QVERIFY(pair.isConnected);
        const QSignalSpy closed(&pair.socket, &Q3Socket::connectionClosed);
        Peer next;

        pair.socket.connectToHost(loopback, next.port());

        QTRY_COMPARE(pair.socket.state(), Q3Socket::Connected);
        QCOMPARE(pair.socket.peerPort(), next.port());
        QTRY_COMPARE(pair.other->state(), QAbstractSocket::UnconnectedState);
        QVERIFY(closed.isEmpty());
    }

    void aSocketThatEndsWhileConnectedTellsNobody()
    {
        Peer peer;
        auto socket = std::make_unique<Q3Socket>();
        socket->connectToHost(loopback, peer.port());
        const std::unique_ptr<QTcpSocket> other = peer.take();
        QTRY_COMPARE(socket->state(), Q3Socket::Connected);
        const QSignalSpy closed(socket.get(), &Q3Socket::connectionClosed);
        const QSignalSpy finished(socket.get(), &Q3Socket::delayedCloseFinished);

        socket.reset();

        QTRY_COMPARE(other->state(), QAbstractSocket::UnconnectedState);
        QVERIFY(closed.isEmpty());
        QVERIFY(finished.isEmpty());
    }

    void whatHasArrivedIsTakenInAheadOfTheEventLoop()
    {
        Pair pair;
        QVERIFY(pair.isConnected);
        pair.other->write("words");
        QVERIFY(pair.other->waitForBytesWritten());

        QStringList events;
        connect(&pair.socket, &Q3Socket::readyRead, this, [&] { events.append(u"read"_s); });
        pair.socket.takeInWaiting();

        QCOMPARE(events, QStringList(u"read"_s));
        QCOMPARE(pair.socket.readAll(), QByteArray("words"));
    }

    void takingInWhereNothingWaitsIsNoError()
    {
        Pair pair;
        QVERIFY(pair.isConnected);
        int errors = 0;
        connect(&pair.socket, &Q3Socket::error, this, [&] { ++errors; });
        connect(&pair.socket, &Q3Socket::connectionClosed, this, [&] { ++errors; });

        pair.socket.takeInWaiting();

        QCOMPARE(errors, 0);
        QCOMPARE(pair.socket.state(), Q3Socket::Connected);
        pair.other->write("words");
        QTRY_COMPARE(pair.socket.bytesAvailable(), 5);
    }
};

QTEST_GUILESS_MAIN(tst_Q3Socket)
#include "tst_Q3Socket.moc"
