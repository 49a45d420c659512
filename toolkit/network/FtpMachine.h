#pragma once

#include "FtpReplyReader.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QString>

#include <optional>
#include <utility>

/// An upload as it is asked for. Texts go over as UTF-8.
struct FtpRequest
{
    QString host; ///< for the words of failures
    QString user; ///< empty for an anonymous login
    QString password; ///< of a user; empty is sent empty
    QString path; ///< of the file on the server, from "/" on
    qint64 size = 0; ///< in bytes
};

/// What is to be done next.
struct FtpAction
{
    enum Kind {
        Connect, ///< the control connection
        Send, ///< command, on the control connection
        BeginPut, ///< nothing: the login is done
        ConnectData, ///< to port, at the host that the control connection leads to
        SendData, ///< the file, on the data connection, which is then to be closed
        AwaitWords, ///< give the server a moment to tell why it ended the data connection
        Succeed, ///< the server has confirmed the file
        Fail, ///< for the reason in text
    };

    Kind kind = Fail;
    QByteArray command = {}; ///< with its line end
    quint16 port = 0;
    int errorCode = 0; ///< one of Q3NetworkOperation::Error
    QString text = {};
};

/// The course of one upload: events go in, what is to be done comes out. It knows no sockets.
///
/// RFC 959: USER, PASS unless the user alone is let in, TYPE I, PASV, ALLO (whose refusal counts for nothing), STOR.
/// EPSV takes the place of PASV over IPv6 (RFC 2428). The host in the answer to PASV is not followed. There is no QUIT:
/// the connection is dropped. There are no time-outs.
///
/// Errors: a text for the user and a code tell a failure, and nothing more happens then. Whatever a server says, names
///         or credentials cannot become commands: with a control character in one of them nothing is sent.
class FtpMachine
{
    Q_DECLARE_TR_FUNCTIONS(FtpMachine)

public:
    enum DataLoss {
        Refused, ///< nobody there
        Cut, ///< ended before the whole file was handed to the system
    };

    explicit FtpMachine(FtpRequest wanted) : request(std::move(wanted)) { }

    [[nodiscard]] QList<FtpAction> start();

    [[nodiscard]] QList<FtpAction> hostNotFound();
    /// @param reason  empty if the host refuses connections
    [[nodiscard]] QList<FtpAction> notConnected(const QString &reason);
    /// @param overIPv6  so that the data connection is asked for with EPSV
    void connected(bool overIPv6) { isIPv6 = overIPv6; }
    [[nodiscard]] QList<FtpAction> replied(const FtpReply &reply);
    /// @param lastWords  a reply that has come in part
    [[nodiscard]] QList<FtpAction> connectionLost(const std::optional<FtpReply> &lastWords);

    [[nodiscard]] QList<FtpAction> dataConnected();
    [[nodiscard]] QList<FtpAction> dataLost(DataLoss how);
    /// The server has not told why it ended the data connection.
    [[nodiscard]] QList<FtpAction> noWordsCame();
    /// The last byte was handed to the system.
    void dataSent();
    /// The local file does not give the bytes that it had.
    [[nodiscard]] QList<FtpAction> fileFailed();

private:
    enum State {
        Greeting,
        User,
        Password,
        Type,
        Passive,
        DataConnection,
        Allocation,
        Store,
        Sending,
        Sent,
        Ended,
    };

    [[nodiscard]] QList<FtpAction> repliedToLogin(const FtpReply &reply);
    [[nodiscard]] QList<FtpAction> repliedToPassive(const FtpReply &reply);
    [[nodiscard]] QList<FtpAction> repliedToStore(const FtpReply &reply);
    [[nodiscard]] QList<FtpAction> loggedIn();
    [[nodiscard]] QList<FtpAction> send(State next, const char *command, const QString &argument = {});
    [[nodiscard]] QList<FtpAction> refused(const FtpReply &reply);
    [[nodiscard]] QList<FtpAction> fail(const QString &reason);
    [[nodiscard]] QList<FtpAction> fail(const QString &reason, int errorCode);
    [[nodiscard]] QString lossText() const;

    FtpRequest request;
    State state = Greeting;
    bool isIPv6 = false;
    bool isDataLost = false;
    DataLoss loss = Cut;
};

/// The port in an answer to PASV, "(h1,h2,h3,h4,p1,p2)" with or without the brackets (RFC 1123, 4.1.2.6); 0 for none.
[[nodiscard]] quint16 passive_port(const QString &text);

/// The port in an answer to EPSV, "(|||port|)" with any sign for "|" (RFC 2428, 3); 0 for none.
[[nodiscard]] quint16 extended_passive_port(const QString &text);
