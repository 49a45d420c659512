#pragma once

#include "files.h"
#include "FtpServer.h"
#include "network_protocols.h"
#include "Q3UrlOperator.h"

#include <QEventLoop>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <chrono>
#include <memory>

/// A local file of ten digits, a server, and an operator that uploads the one to the other and writes down what it is
/// told.
class UploadTrial
{
public:
    explicit UploadTrial(const QHostAddress &address = QHostAddress(QHostAddress::LocalHost)) :
        server(std::make_unique<FtpServer>(address)),
        host(address.toString())
    {
        q3InitNetworkProtocols();
        listen(*op);
        write(QByteArrayLiteral("0123456789"));
    }

    [[nodiscard]] QString path() const { return directory.filePath(name); }
    [[nodiscard]] bool hasFile() const { return QFile::exists(path()); }

    void write(const QByteArray &bytes) const { write_file(path(), bytes); }

    /// As a dialog starts one, from a user's entries.
    void upload(bool move = false, const QString &user = {}, const QString &password = {},
                const QString &remotePath = QStringLiteral("/dir"))
    {
        *op = QStringLiteral("ftp://") + host;
        op->setHost(host);
        op->setPath(remotePath);
        op->setUser(user);
        op->setPassword(password);
        op->setPort(server ? server->port() : port);
        operations = op->copy(QStringLiteral("file:") + path(), op->toString(), move, true);
    }

    /// Waits for the end of the put, or of what fails before it, in an event loop that does not pause.
    [[nodiscard]] bool ends()
    {
        if (!hasEnded) {
            QTimer::singleShot(std::chrono::seconds(100), &ending, &QEventLoop::quit);
            ending.exec();
        }
        return hasEnded;
    }

    /// The last failure: its code and its text.
    [[nodiscard]] QString failure() const { return failure_; }

    QTemporaryDir directory;
    QString name = QStringLiteral("x.png");
    std::unique_ptr<FtpServer> server;
    QString host;
    quint16 port = 0; ///< where there is no server
    std::unique_ptr<Q3UrlOperator> op = std::make_unique<Q3UrlOperator>();
    QList<Q3NetworkOperation *> operations;
    QStringList events;
    QByteArray readBytes; ///< of the get
    bool hasEnded = false;

private:
    void listen(Q3UrlOperator &source)
    {
        const auto note = [this](const QString &event) { events.append(event); };
        QObject::connect(&source, &Q3UrlOperator::start, &source, [note](const Q3NetworkOperation *operation) {
            note(QStringLiteral("start %1").arg(operation->operation()));
        });
        QObject::connect(&source, &Q3UrlOperator::data, &source,
                         [this](const QByteArray &bytes) { readBytes += bytes; });
        QObject::connect(&source, &Q3UrlOperator::dataTransferProgress, &source,
                         [note](int done, int total, const Q3NetworkOperation *operation) {
                             note(QStringLiteral("progress %1 %2/%3").arg(operation->operation()).arg(done).arg(total));
                         });
        QObject::connect(&source, &Q3UrlOperator::connectionStateChanged, &source,
                         [note](int state, const QString &message) {
                             note(QStringLiteral("connection %1 %2").arg(state).arg(message));
                         });
        QObject::connect(&source, &Q3UrlOperator::finished, &source,
                         [this](const Q3NetworkOperation *operation) { noteEnd(*operation); });
    }

    void noteEnd(const Q3NetworkOperation &operation)
    {
        events.append(QStringLiteral("finished %1 %2").arg(operation.operation()).arg(operation.state()));
        const bool hasFailed = operation.state() == Q3NetworkOperation::StFailed;
        if (hasFailed)
            failure_ = QString::number(operation.errorCode()) + u' ' + operation.protocolDetail();
        if (operation.operation() == Q3NetworkOperation::OpPut
            || (hasFailed && operation.operation() == Q3NetworkOperation::OpGet))
            hasEnded = true;
        if (hasEnded)
            ending.quit();
    }

    QString failure_;
    QEventLoop ending;
};
