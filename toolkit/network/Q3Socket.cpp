#include "Q3Socket.h"

#include <QNetworkProxy>
#include <QScopedValueRollback>

#include <utility>

Q3Socket::Q3Socket(QObject *parent) : QTcpSocket(parent)
{
    setProxy(QNetworkProxy::NoProxy);
    // First of all slots: the others find the flag set.
    connect(this, &QTcpSocket::connected, this, [this] { wasConnected = true; });
    connect(this, &QTcpSocket::errorOccurred, this, &Q3Socket::reportError);
    connect(this, &QTcpSocket::disconnected, this, &Q3Socket::finishClosing);
}

Q3Socket::~Q3Socket()
{
    // The base ends the connection, when the slots of this class are no more.
    disconnect(this, nullptr, this, nullptr);
}

Q3Socket::State Q3Socket::state() const
{
    switch (QTcpSocket::state()) {
    case HostLookupState:
        return HostLookup;
    case ConnectingState:
        return Connecting;
    case ConnectedState:
        return Connected;
    case ClosingState:
        return Closing;
    case UnconnectedState:
    case BoundState:
    case ListeningState:
        break;
    }
    return Idle;
}

void Q3Socket::connectToHost(const QString &hostName, quint16 port, OpenMode openMode, NetworkLayerProtocol protocol)
{
    isClosing = false;
    abort();
    wasConnected = false;
    QTcpSocket::connectToHost(hostName, port, openMode, protocol);
}

void Q3Socket::close()
{
    const State former = state();
    if ((former == HostLookup || former == Connecting) && !isAborting) {
        // close() of the base alone would let the connection come about afterwards. abort() comes back here.
        isAborting = true;
        abort();
        isAborting = false;
        return;
    }
    if (former == Closing)
        return;
    QTcpSocket::close();
    isClosing = former == Connected && state() == Closing;
}

void Q3Socket::takeInWaiting()
{
    const QScopedValueRollback takingIn(isTakingIn, true);
    (void)waitForReadyRead(0);
}

void Q3Socket::reportError(QAbstractSocket::SocketError code)
{
    if (isTakingIn && code == SocketTimeoutError)
        return; // nothing was waiting
    if (code == RemoteHostClosedError)
        emit connectionClosed();
    else if (code == HostNotFoundError)
        emit error(ErrHostNotFound);
    else
        emit error(wasConnected ? ErrSocketRead : ErrConnectionRefused);
}

void Q3Socket::finishClosing()
{
    if (!std::exchange(isClosing, false))
        return;
    emit delayedCloseFinished();
}
