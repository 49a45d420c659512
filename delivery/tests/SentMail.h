#pragma once

#include "files.h"
#include "Smtp.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <utility>

/// One mail on its way, from ann@example.test to bob@example.test unless a test says otherwise, with an attachment of
/// three bytes.
class SentMail
{
public:
    /// @param throughServer  those of the recipient's domain if there is none
    explicit SentMail(QString throughServer = {}) : server(std::move(throughServer)) { attach("ABC"); }

    void attach(const QByteArray &bytes) const { write_file(attachment, bytes); }

    void send(const SmtpPolicy &policy = Smtp::defaultPolicy())
    {
        smtp = std::make_unique<Smtp>(server, port, login, password, from, to, subject, body, attachment, policy);
        QObject::connect(smtp.get(), &Smtp::status, smtp.get(), [this](const QString &text) { statuses.append(text); });
        QObject::connect(smtp.get(), &Smtp::completed, smtp.get(), [this] {
            ++completions;
            statuses.append(QStringLiteral("(completed)"));
        });
    }

    /// The socket that is connected, as soon as there is one; it belongs to the session.
    [[nodiscard]] const Q3Socket *connectedSocket() const
    {
        const Q3Socket *connected = nullptr;
        (void)QTest::qWaitFor([&] {
            const QList<Q3Socket *> sockets = smtp->findChildren<Q3Socket *>();
            for (const Q3Socket *const socket : sockets)
                if (socket->state() == Q3Socket::Connected)
                    connected = socket;
            return connected != nullptr;
        });
        return connected;
    }

    QTemporaryDir directory;
    QString server;
    QString port = QStringLiteral("25");
    QString login;
    QString password;
    QString from = QStringLiteral("ann@example.test");
    QString to = QStringLiteral("bob@example.test");
    QString subject = QStringLiteral("scan");
    QString body = QStringLiteral("Hello");
    QString attachment = directory.filePath(QStringLiteral("scan.png"));

    std::unique_ptr<Smtp> smtp;
    QStringList statuses; ///< in order, "(completed)" standing for that signal
    int completions = 0;
};
