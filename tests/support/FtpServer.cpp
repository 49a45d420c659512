#include "FtpServer.h"

#include <QTcpSocket>

namespace {

constexpr qint64 StoppedBuffer = 4096; // bytes; with 0 the toolkit would take all

/// What a server says that likes everything.
const QHash<QByteArray, QByteArray> &friendly_replies()
{
    static const QHash<QByteArray, QByteArray> replies{
        {"greeting", "220 Ready\r\n"}, {"USER", "331 Password?\r\n"}, {"PASS", "230 In\r\n"},
        {"TYPE", "200 Binary\r\n"},    {"ALLO", "202 No need\r\n"},   {"STOR", "150 Go on\r\n"},
        {"end", "226 Thanks\r\n"},
    };
    return replies;
}

void listen(QTcpServer &server, const QHostAddress &address, quint16 port)
{
    if (!server.listen(address, port))
        qFatal("FtpServer - %s", qPrintable(server.errorString()));
}

} // namespace

FtpServer::FtpServer(const QHostAddress &address, quint16 port)
{
    listen(controlServer, address, port);
    connect(&controlServer, &QTcpServer::newConnection, this, &FtpServer::takeClient);
}

FtpServer::~FtpServer()
{
    for (const QPointer<QTcpSocket> &socket : {control, dataConnection}) {
        if (socket)
            socket->disconnect(this);
    }
}

void FtpServer::takeData()
{
    dataLimit = -1;
    if (!dataConnection)
        return;
    dataConnection->setReadBufferSize(0);
    readData();
}

void FtpServer::sayNow(const QByteArray &words)
{
    if (control)
        control->write(words);
}

bool FtpServer::isFloodHeldUp() const
{
    return dataConnection && dataConnection->bytesToWrite() > 0 && dataConnection->bytesToWrite() < flood;
}

void FtpServer::takeClient()
{
    control = controlServer.nextPendingConnection();
    ++sessionCount;
    isStoring = false;
    connect(control, &QTcpSocket::readyRead, this, &FtpServer::readCommands);
    connect(control, &QTcpSocket::disconnected, control, &QObject::deleteLater);
    answer("greeting", {});
}

void FtpServer::readCommands()
{
    while (control && control->canReadLine()) {
        const QByteArray line = control->readLine();
        lines.append(line.chopped(line.endsWith("\r\n") ? 2 : 1));
        const QByteArray step = lines.last().left(4);
        if (step == "PASV" || step == "EPSV")
            listenForData(step == "EPSV");
        else
            answer(step, "500 What?\r\n");
        isStoring = isStoring || step == "STOR";
        if (step == "STOR")
            readData();
    }
}

void FtpServer::answer(const QByteArray &step, const QByteArray &reply)
{
    if (!control)
        return;
    if (step == resetStep) {
        reset_connection(*control);
        return;
    }
    if (step == "STOR" && isDataCutBefore && dataConnection)
        dataConnection->disconnectFromHost();
    const QByteArray words = replies.value(step, friendly_replies().value(step, reply));
    if (isSlow)
        send_byte_by_byte(*control, words);
    else
        control->write(words);
    if (cuts.contains(step))
        control->disconnectFromHost();
}

void FtpServer::listenForData(bool extended)
{
    dataServer = std::make_unique<QTcpServer>();
    listen(*dataServer, controlServer.serverAddress(), 0);
    connect(dataServer.get(), &QTcpServer::newConnection, this, &FtpServer::takeDataConnection);
    isDataEnded = false;
    const quint16 dataPort = dataServer->serverPort();
    if (isDataRefused)
        dataServer->close();
    if (extended)
        answer("EPSV", "229 Here (|||" + QByteArray::number(dataPort) + "|)\r\n");
    else
        answer("PASV",
               "227 Here (" + passiveHost + ',' + QByteArray::number(dataPort >> 8) + ','
                   + QByteArray::number(dataPort & 0xff) + ")\r\n");
}

void FtpServer::takeDataConnection()
{
    dataConnection = dataServer->nextPendingConnection();
    if (dataLimit >= 0)
        dataConnection->setReadBufferSize(StoppedBuffer);
    dataConnection->write(QByteArray(flood, 'x'));
    connect(dataConnection, &QTcpSocket::readyRead, this, &FtpServer::readData);
    connect(dataConnection, &QTcpSocket::disconnected, this, [this] {
        readData();
        isDataEnded = true;
        if (isStoring && earlyEnd < 0 && dataCut < 0 && dataReset < 0)
            answer("end", {});
    });
    connect(dataConnection, &QTcpSocket::disconnected, dataConnection, &QObject::deleteLater);
}

void FtpServer::readData()
{
    if (!dataConnection || !isStoring || (dataLimit >= 0 && count >= dataLimit))
        return;
    const QByteArray more = dataConnection->readAll();
    count += more.size();
    if (!isDiscarding)
        taken += more;
    if (earlyEnd >= 0 && !hasEndedEarly && count >= earlyEnd) {
        hasEndedEarly = true;
        answer("end", {});
    }
    if (dataReset >= 0 && count >= dataReset) {
        dataConnection->disconnect(this);
        reset_connection(*dataConnection);
        answer("end", {});
        return;
    }
    if (dataCut >= 0 && count >= dataCut) {
        dataConnection->disconnect(this);
        dataConnection->abort();
        answer("end", {});
    }
}
