#include "FtpUpload.h"

#include <QHostAddress>
#include <QPointer>

#include <algorithm>
#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr qint64 BlockSize = 131072;
constexpr qint64 UnsentLimit = 2 * BlockSize; ///< what waits for the system at most
constexpr qint64 UnreadLimit = 65536; ///< what waits for us at most
constexpr auto PatienceForWords = 5s;

} // namespace

void FtpUpload::Drop::operator()(Q3Socket *socket) const
{
    socket->disconnect();
    socket->abort();
    socket->deleteLater();
}

FtpUpload::FtpUpload(const FtpRequest &request, quint16 serverPort, LocalFile &source, QObject *parent) :
    QObject(parent),
    machine(request),
    file(source),
    host(request.host),
    port(serverPort),
    size(request.size),
    unread(request.size)
{
    patience.setSingleShot(true);
    connect(&patience, &QTimer::timeout, this, [this] { perform(machine.noWordsCame()); });
}

FtpUpload::~FtpUpload() = default;

void FtpUpload::start()
{
    perform(machine.start());
}

void FtpUpload::close()
{
    patience.stop();
    isSending = false;
    data.reset();
    const bool wasConnected = control && control->state() == Q3Socket::Connected;
    control.reset();
    if (wasConnected)
        emit closed();
}

void FtpUpload::perform(const QList<FtpAction> &actions)
{
    const QPointer<FtpUpload> self(this);
    for (const FtpAction &action : actions) {
        perform(action);
        if (!self)
            return;
    }
}

void FtpUpload::perform(const FtpAction &action)
{
    switch (action.kind) {
    case FtpAction::Connect:
        connectControl();
        break;
    case FtpAction::Send:
        control->write(action.command);
        break;
    case FtpAction::BeginPut:
        emit begun();
        break;
    case FtpAction::ConnectData:
        connectData(action.port);
        break;
    case FtpAction::SendData:
        isSending = true;
        sendMore();
        break;
    case FtpAction::AwaitWords:
        patience.start(PatienceForWords);
        break;
    // The two ends are told when no socket is at work: the receiver may destroy everything, or show a box.
    case FtpAction::Succeed:
        QMetaObject::invokeMethod(this, &FtpUpload::succeeded, Qt::QueuedConnection);
        break;
    case FtpAction::Fail: {
        const QPointer<FtpUpload> self(this);
        close();
        if (!self)
            return;
        QMetaObject::invokeMethod(
            this, [this, code = action.errorCode, text = action.text] { emit failed(code, text); },
            Qt::QueuedConnection);
        break;
    }
    }
}

void FtpUpload::connectControl()
{
    control.reset(new Q3Socket);
    control->setReadBufferSize(UnreadLimit);
    connect(control.get(), &Q3Socket::hostFound, this, &FtpUpload::hostFound);
    connect(control.get(), &Q3Socket::connected, this, &FtpUpload::controlConnected);
    connect(control.get(), &Q3Socket::readyRead, this, &FtpUpload::readReplies);
    connect(control.get(), &Q3Socket::connectionClosed, this, &FtpUpload::controlLost);
    connect(control.get(), &Q3Socket::error, this, &FtpUpload::controlFailed);
    control->connectToHost(host, port);
}

void FtpUpload::connectData(quint16 dataPort)
{
    data.reset(new Q3Socket);
    data->setReadBufferSize(UnreadLimit); // nothing is expected and nothing is read
    connect(data.get(), &Q3Socket::connected, this, [this] { perform(machine.dataConnected()); });
    connect(data.get(), &Q3Socket::bytesWritten, this, &FtpUpload::dataWritten);
    // Not at once: the control connection may be at work, and has to be read first.
    connect(
        data.get(), &Q3Socket::connectionClosed, this, [this] { dataLost(FtpMachine::Cut); }, Qt::QueuedConnection);
    connect(
        data.get(), &Q3Socket::error, this,
        [this](int code) { dataLost(code == Q3Socket::ErrConnectionRefused ? FtpMachine::Refused : FtpMachine::Cut); },
        Qt::QueuedConnection);
    data->connectToHost(control->peerAddress().toString(), dataPort);
}

void FtpUpload::controlConnected()
{
    bool isIPv4 = false;
    (void)control->peerAddress().toIPv4Address(&isIPv4); // true for one that is dressed up as IPv6 too
    machine.connected(!isIPv4);
    emit connected();
}

void FtpUpload::controlFailed(int code)
{
    if (code == Q3Socket::ErrHostNotFound)
        perform(machine.hostNotFound());
    else if (code == Q3Socket::ErrSocketRead)
        controlLost();
    else if (control->QTcpSocket::error() == QAbstractSocket::ConnectionRefusedError)
        perform(machine.notConnected({}));
    else
        perform(machine.notConnected(control->errorString()));
}

void FtpUpload::controlLost()
{
    const QPointer<FtpUpload> self(this);
    readReplies();
    if (self)
        perform(machine.connectionLost(reader.unfinished()));
}

void FtpUpload::readReplies()
{
    const QPointer<FtpUpload> self(this);
    const QByteArray bytes = control->readAll();
    QByteArrayView rest = bytes;
    while (const std::optional<FtpReply> reply = reader.take(rest)) {
        perform(machine.replied(*reply));
        if (!self || !control)
            return;
    }
}

void FtpUpload::dataLost(FtpMachine::DataLoss how)
{
    if (!control)
        return;
    const QPointer<FtpUpload> self(this);
    control->takeInWaiting();
    if (!self)
        return;
    isSending = false;
    perform(machine.dataLost(how));
}

void FtpUpload::dataWritten()
{
    if (!isSending)
        return;
    const QPointer<FtpUpload> self(this);
    const qint64 unsent = data->bytesToWrite();
    if (unread == 0 && unsent == 0)
        endData();
    emit progressed(size - unread - unsent);
    if (!self || !isSending || isMoreDue)
        return;
    // In a turn of the event loop of its own: on a fast connection the system could take all of the file at once.
    isMoreDue = true;
    QMetaObject::invokeMethod(this, &FtpUpload::sendMore, Qt::QueuedConnection);
}

void FtpUpload::sendMore()
{
    isMoreDue = false;
    // A connection that is lost takes nothing, and leaves nothing unsent: that its loss is yet to be told must not look
    // like a file that has gone.
    if (!isSending || data->state() != Q3Socket::Connected)
        return;
    while (unread > 0 && data->bytesToWrite() < UnsentLimit) {
        const std::optional<QByteArray> block = file.read(std::min(BlockSize, unread));
        if (!block || block->isEmpty()) {
            perform(machine.fileFailed());
            return;
        }
        if (data->write(*block) != block->size())
            return;
        unread -= block->size();
    }
    if (unread == 0 && data->bytesToWrite() == 0)
        endData();
}

void FtpUpload::endData()
{
    isSending = false;
    machine.dataSent();
    data->close();
}
