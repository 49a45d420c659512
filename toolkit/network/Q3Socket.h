#pragma once

#include <QTcpSocket>

/// A TCP connection with the states and signals of a classic toolkit.
///
/// Reading, writing and their signals are those of its base. In the slots of connected() the state is Connected
/// already. Proxies are not used.
///
/// Units:   bytes.
/// Errors:  told by error(), except an end by the other side, which is connectionClosed().
/// Threads: that of the object; nothing blocks.
class Q3Socket : public QTcpSocket
{
    Q_OBJECT

public:
    enum State : int {
        Idle = 0,
        HostLookup = 1,
        Connecting = 2,
        Connected = 3,
        Connection = Connected,
        Closing = 4, ///< closed by close() while bytes had still to go out
    };

    enum Error : int {
        ErrConnectionRefused = 0, ///< nobody there has answered, for whatever reason
        ErrHostNotFound = 1,
        ErrSocketRead = 2, ///< the connection is lost
    };

    explicit Q3Socket(QObject *parent = nullptr);
    ~Q3Socket() override;
    Q_DISABLE_COPY_MOVE(Q3Socket)

    [[nodiscard]] State state() const;

    using QTcpSocket::connectToHost;
    /// Drops a former connection and looks the host up; the addresses are tried one after the other. An address in
    /// figures is Connecting when the call returns, and an empty host is not found.
    void connectToHost(const QString &hostName, quint16 port, OpenMode openMode = ReadWrite,
                       NetworkLayerProtocol protocol = AnyIPProtocol) override;

    /// Ends the connection: at once while there is none yet or nothing is left to send, else when all bytes are out.
    /// Nothing more can be read or written.
    void close() override;

    /// Takes in what has arrived by now, with the signals that go with it, ahead of the event loop.
    void takeInWaiting();

signals:
    /// The other side has ended the connection. What it sent before can still be read.
    void connectionClosed();
    /// After close() the last byte has gone to the system.
    void delayedCloseFinished();
    /// @param code  one of Error
    void error(int code);

private:
    void reportError(QAbstractSocket::SocketError code);
    void finishClosing();

    bool wasConnected = false;
    bool isClosing = false;
    bool isAborting = false;
    bool isTakingIn = false;
};
