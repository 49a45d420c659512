#pragma once

#include "socket_faults.h"

#include <QByteArray>
#include <QHash>
#include <QHostAddress>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QTcpServer>

#include <memory>

class QTcpSocket;

/// An FTP server that says what a test wants it to say. Without any word of the test it takes every upload.
///
/// The steps of a session are named after the command that is answered: "USER" and so on. Besides there are
/// "greeting", and "end", the reply after the data.
///
/// Errors:  a server that cannot listen ends the test program.
/// Threads: that of the event loop; one client at a time.
class FtpServer : public QObject
{
    Q_OBJECT

public:
    explicit FtpServer(const QHostAddress &address = QHostAddress(QHostAddress::LocalHost), quint16 port = 0);
    ~FtpServer() override;
    Q_DISABLE_COPY_MOVE(FtpServer)

    [[nodiscard]] quint16 port() const { return controlServer.serverPort(); }

    // Before a session.

    /// Says @p bytes, with their line ends, at a step; nothing if they are empty.
    void say(const QByteArray &step, const QByteArray &bytes) { replies.insert(step, bytes); }
    /// Ends the control connection at a step, once its reply is out.
    void cutAt(const QByteArray &step) { cuts.insert(step); }
    /// Resets the control connection at a step, in the place of its reply; at none if it is empty.
    void resetAt(const QByteArray &step) { resetStep = step; }
    /// Sends each byte of its replies once the client has read the one before.
    void sayByteByByte() { isSlow = true; }
    /// Names another host in the answer to PASV, as "10,0,0,1".
    void setPassiveHost(const QByteArray &host) { passiveHost = host; }
    /// Names a port at which nobody is.
    void refuseData() { isDataRefused = true; }
    /// Takes so many bytes of data; the rest stays in the network until takeData() is called.
    void stopDataAfter(qint64 bytes) { dataLimit = bytes; }
    /// Ends the data connection with an error once so many bytes have come.
    void cutDataAfter(qint64 bytes) { dataCut = bytes; }
    /// Resets it once so many bytes have come, and says the reply of "end".
    void resetDataAfter(qint64 bytes) { dataReset = bytes; }
    /// Ends the data connection just before it says that the data may come.
    void cutDataBeforeGoAhead() { isDataCutBefore = true; }
    /// Says the reply of "end" as soon as so many bytes have come.
    void endAfter(qint64 bytes) { earlyEnd = bytes; }
    /// Counts the data and forgets it.
    void discardData() { isDiscarding = true; }

    /// Sends so many bytes on the data connection as soon as there is one.
    void floodData(qint64 bytesToSend) { flood = bytesToSend; }

    // During it.

    void takeData();
    /// Says something unasked.
    void sayNow(const QByteArray &words);

    /// Says a line of so many bytes, as the client takes them. It belongs to the connection.
    [[nodiscard]] EndlessLine *sayEndlessLine(qint64 bytes) { return new EndlessLine(control, bytes); }

    /// The lines that came, without their ends, of all sessions.
    [[nodiscard]] const QList<QByteArray> &commands() const { return lines; }
    [[nodiscard]] const QByteArray &data() const { return taken; }
    [[nodiscard]] qint64 dataCount() const { return count; }
    /// Whether the client has ended the data connection.
    [[nodiscard]] bool hasDataEnded() const { return isDataEnded; }
    [[nodiscard]] bool hasClient() const { return !control.isNull(); }
    /// Whether the flood has begun and the client takes no more of it.
    [[nodiscard]] bool isFloodHeldUp() const;
    [[nodiscard]] int sessions() const { return sessionCount; }

private:
    void takeClient();
    void readCommands();
    void answer(const QByteArray &step, const QByteArray &reply);
    void listenForData(bool extended);
    void takeDataConnection();
    void readData();

    QTcpServer controlServer;
    std::unique_ptr<QTcpServer> dataServer;
    QPointer<QTcpSocket> control;
    QPointer<QTcpSocket> dataConnection;
    QHash<QByteArray, QByteArray> replies;
    QSet<QByteArray> cuts;
    QByteArray resetStep;
    QByteArray passiveHost = "127,0,0,1";
    QList<QByteArray> lines;
    QByteArray taken;
    qint64 count = 0;
    qint64 dataLimit = -1;
    qint64 dataCut = -1;
    qint64 dataReset = -1;
    qint64 earlyEnd = -1;
    qint64 flood = 0;
    int sessionCount = 0;
    bool isSlow = false;
    bool isDataRefused = false;
    bool isDataCutBefore = false;
    bool isDataEnded = false;
    bool isDiscarding = false;
    bool isStoring = false;
    bool hasEndedEarly = false;
};
