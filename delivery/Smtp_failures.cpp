// What a session does about failures, where its policy tells them.

#include "Smtp.h"

#include <QPointer>

void Smtp::watch(Q3Socket *dialled)
{
    // Queued: what was read before comes first, and a box keeps no socket waiting.
    connect(
        dialled, &Q3Socket::error, this,
        [this, dialled](int code) {
            lose(dialled,
                 code == Q3Socket::ErrSocketRead ? tr("The connection to the mail server is lost.")
                                                 : tr("No connection to %1.").arg(dialled->peerName()));
        },
        Qt::QueuedConnection);
    connect(
        dialled, &Q3Socket::connectionClosed, this,
        [this, dialled] { lose(dialled, tr("The connection to the mail server is lost.")); }, Qt::QueuedConnection);
    connect(dialled, &Q3Socket::bytesWritten, this, &Smtp::restartPatience);
}

void Smtp::lose(const Q3Socket *lost, const QString &reason)
{
    if (lost != sockets.last() || state == SmtpState::Close)
        return;
    if (state == SmtpState::Init)
        giveUpHost(reason);
    else
        fail(reason);
}

/// Acts on a reply that keeps the mail from going on.
void Smtp::refuse(int code)
{
    constexpr int transient = 4; // first digit
    const QString reason = tr("Unexpected reply from SMTP server:\n\n") + reply.right(ShownLimit);
    reply.clear();
    if (code / 100 == transient)
        giveUpHost(reason);
    else
        fail(reason);
}

void Smtp::leaveHost()
{
    patience.stop();
    if (t && t->isBusy()) { // a message whose rest follows would be taken after all
        t.reset();
        socket->abort();
    } else if (t) {
        t->send(policy->line(SmtpCommand::Quit, parties));
    }
}

void Smtp::giveUpHost(const QString &reason)
{
    if (hostsTried == hosts.size()) {
        fail(reason);
        return;
    }
    leaveHost();
    t.reset();
    socket = nullptr;
    sockets.last()->close();
    reply.clear();
    dialNextHosts();
}

void Smtp::fail(const QString &reason)
{
    state = SmtpState::Close;
    leaveHost();
    const QPointer<Smtp> self(this);
    emit status(tr("Message not sent"));
    ++boxes;
    showBox(reason);
    if (!self)
        return;
    emit completed();
    if (self)
        releaseBox();
}

/// For the constructor: whoever made the object has to hear of it.
void Smtp::failSoon(const QString &reason)
{
    if (policy->tellsFailures())
        QMetaObject::invokeMethod(
            this, [this, reason] { fail(reason); }, Qt::QueuedConnection);
}

/// A server that has said or taken something gets its full time again.
void Smtp::restartPatience()
{
    const std::chrono::milliseconds wait = policy->patience(state, t && t->isBusy());
    if (wait.count() > 0)
        patience.start(wait);
    else
        patience.stop();
}

void Smtp::runOutOfPatience()
{
    lose(sockets.last(), tr("The mail server does not answer."));
}
