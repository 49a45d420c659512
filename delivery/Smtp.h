#pragma once

#include "Q3Dns.h"
#include "Q3Socket.h"
#include "SmtpPolicy.h"
#include "TextSender.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <memory>

/// Sends one mail with one attachment to one recipient, from its construction on. The constructor reads the attachment;
/// all else happens in the event loop. Deleting the object ends the session at once.
///
/// By the old policy the hosts are dialled at once, and nobody hears of a host that is not there, of a server that
/// falls silent, or of an attachment that cannot be opened: then neither signal comes any more.
///
/// Bounds:    1 MiB of a line without an end, after which the connection counts as silent; 1 Mi characters of
///            responses; 16 boxes at once, with those that the slots of completed() show.
/// Errors:    replies that fit nowhere are told in a box.
/// Ownership: owns its sockets. Made without a parent; whoever made it deletes it.
/// Threads:   GUI thread only.
/// Sources:   RFC 5321, RFC 4954.
class Smtp : public QObject
{
    Q_OBJECT

public:
    /// The policy for the setting "strict" off.
    [[nodiscard]] static const SmtpPolicy &defaultPolicy();

    /// @param port  its leading decimal number counts, cut to 16 bits
    /// @param usedPolicy  has to outlive the object
    Smtp(const QString &server, const QString &port, const QString &login, const QString &password, const QString &from,
         const QString &to, const QString &subject, const QString &body, const QString &attachment,
         const SmtpPolicy &usedPolicy = defaultPolicy());
    ~Smtp() override;
    Q_DISABLE_COPY_MOVE(Smtp)

    /// Whether the attached file may be deleted on completed(), as far as the session is concerned.
    [[nodiscard]] bool releasesFile() const { return delivered || !policy->tellsFailures(); }
    /// What servers have said, the oldest being dropped. No form shows it.
    [[nodiscard]] const QString &response() const { return response_; }

signals:
    /// How far the session is, in the user's language.
    void status(const QString &text);
    /// The session is over, well or not. May come again after a reply that fits nowhere.
    void completed();

private slots:
    void dnsLookupHelper();
    void readyRead();
    void connected();

private:
    [[nodiscard]] bool compose(const MailContent &content);
    void startLookup(const QString &server);
    void dialNextHosts();
    void dial(const QString &host);
    void watch(Q3Socket *dialled);
    [[nodiscard]] QString readReply();
    void act(const QString &line);
    void perform(const SmtpTransition &transition);
    void unexpected(const QString &line);
    static void showBox(const QString &text);
    void releaseBox();

    // For a policy that tells failures.
    void refuse(int code);
    void lose(const Q3Socket *lost, const QString &reason);
    void leaveHost();
    void giveUpHost(const QString &reason);
    void fail(const QString &reason);
    void failSoon(const QString &reason);
    void restartPatience();
    void runOutOfPatience();

    static constexpr qsizetype ShownLimit = 2000; ///< characters of a reply in a box: a line has 512 at most

    const SmtpPolicy *policy;
    QStringList hosts; ///< in the order in which they are tried
    qsizetype hostsTried = 0;
    QString message; ///< what follows DATA
    QString server;
    QString domain; ///< of the recipient
    quint16 port;
    SmtpParties parties;
    SmtpAuthentication authentication;
    Q3Socket *socket = nullptr; ///< the one in use
    QList<Q3Socket *> sockets; ///< every one that was opened
    std::unique_ptr<TextSender> t; ///< writes to the socket in use
    SmtpState state = SmtpState::Init;
    QString response_;
    QString reply; ///< all lines since the last step
    std::unique_ptr<Q3Dns> dns;
    QTimer patience;
    int boxes = 0; ///< of replies that stand, or whose completed() has not returned
    int heldReads = 0; ///< that wait until one of them is answered
    bool connectedFlag = false;
    bool delivered = false;
};
