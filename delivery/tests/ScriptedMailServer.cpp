#include "ScriptedMailServer.h"

ScriptedMailServer::ScriptedMailServer(const QString &address, QByteArrayList replies, quint16 port) :
    m_replies(std::move(replies))
{
    connect(&m_server, &QTcpServer::newConnection, this, &ScriptedMailServer::greet);
    if (!m_server.listen(QHostAddress(address), port))
        qFatal("ScriptedMailServer - %s: %s", qPrintable(address), qPrintable(m_server.errorString()));
}

void ScriptedMailServer::greet()
{
    ++m_connections;
    m_client = m_server.nextPendingConnection();
    m_client->setParent(this);
    connect(m_client, &QTcpSocket::readyRead, this, &ScriptedMailServer::read);
    connect(m_client, &QTcpSocket::disconnected, this, [this] { m_bEnded = true; });
    answer();
}

void ScriptedMailServer::stopReading()
{
    m_bReading = false;
    m_client->setReadBufferSize(1);
}

void ScriptedMailServer::goOnReading()
{
    m_bReading = true;
    m_client->setReadBufferSize(0);
    read();
}

void ScriptedMailServer::read()
{
    if (!m_bReading)
        return;
    const QByteArray bytes = m_client->readAll();
    m_received += bytes;
    m_line += bytes;
    qsizetype begin = 0;
    for (qsizetype end = m_line.indexOf('\n'); end >= 0; end = m_line.indexOf('\n', begin)) {
        take(m_line.mid(begin, end + 1 - begin));
        begin = end + 1;
    }
    m_line.remove(0, begin);
}

void ScriptedMailServer::take(const QByteArray &line)
{
    if (!m_bInMessage) {
        answer();
        return;
    }
    const bool isBehindLine = m_message.isEmpty() || m_message.endsWith(m_bHardened ? "\r\n" : "\n");
    m_message += line;
    if (isBehindLine && (line == ".\r\n" || (line == ".\n" && !m_bHardened))) {
        m_bInMessage = false;
        answer();
    }
}

void ScriptedMailServer::answer()
{
    if (m_replies.isEmpty()) {
        if (m_bResetting)
            reset_connection(*m_client);
        return;
    }
    const QByteArray reply = m_replies.takeFirst();
    m_bInMessage = reply.startsWith("354");
    if (m_bInMessage && m_bStopping)
        stopReading();
    m_client->write(reply);
}

void ScriptedMailServer::say(const QByteArray &bytes)
{
    m_client->write(bytes);
}

void ScriptedMailServer::hangUp()
{
    m_client->disconnectFromHost();
}
