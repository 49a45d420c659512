#pragma once

#include "FtpMachine.h"
#include "FtpReplyReader.h"
#include "LocalFile.h"
#include "Q3Socket.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <memory>

/// Sends one file to an FTP server.
///
/// Passive mode alone. The file is read as the connection takes it, so memory does not grow with it; a server that
/// takes nothing, or says nothing, costs nothing and is waited for.
///
/// Units:     bytes.
/// Errors:    told by failed(), once, with the connections closed already.
/// Ownership: the file is the caller's. Destroying the object ends the upload at once.
/// Threads:   GUI thread only; nothing blocks. All signals but hostFound() come from the event loop.
class FtpUpload : public QObject
{
    Q_OBJECT

public:
    /// @param source  open, at its beginning
    FtpUpload(const FtpRequest &request, quint16 port, LocalFile &source, QObject *parent);
    ~FtpUpload() override;
    Q_DISABLE_COPY_MOVE(FtpUpload)

    void start();
    /// Ends the connection.
    void close();

signals:
    void hostFound();
    void connected();
    /// The connection that there was has ended.
    void closed();
    /// The login is done.
    void begun();
    /// @param done  how much of the file was handed to the system so far
    void progressed(qint64 done);
    void succeeded();
    /// @param code  one of Q3NetworkOperation::Error
    void failed(int code, const QString &text);

private:
    /// Ends a connection at once; the object goes later, as it may be at work.
    struct Drop
    {
        void operator()(Q3Socket *socket) const;
    };
    using Connection = std::unique_ptr<Q3Socket, Drop>;

    void perform(const QList<FtpAction> &actions);
    void perform(const FtpAction &action);
    void connectControl();
    void connectData(quint16 port);
    void controlConnected();
    void controlFailed(int code);
    void controlLost();
    void readReplies();
    void dataLost(FtpMachine::DataLoss how);
    void dataWritten();
    void sendMore();
    void endData();

    FtpMachine machine;
    FtpReplyReader reader;
    LocalFile &file;
    QString host;
    quint16 port;
    qint64 size;
    qint64 unread; ///< bytes of the file that are still to be read
    bool isSending = false;
    bool isMoreDue = false; ///< sendMore() is about to be called
    Connection control;
    Connection data;
    QTimer patience; ///< for the words of a server that has ended the data connection
};
