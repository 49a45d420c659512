#include "Smtp.h"

#include "plain_box.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QPointer>

#include <cstdlib>
#include <fstream>
#include <vector>

namespace {

constexpr qint64 LineLimitBytes = qint64{1024} * 1024;
constexpr qsizetype ResponseLimit = qsizetype{1024} * 1024;
constexpr int BoxLimit = 16;

quint16 leading_port(const QString &text)
{
    const QByteArray digits = text.toLatin1();
    const bool isNumber = !digits.isEmpty() && digits.at(0) >= '0' && digits.at(0) <= '9';
    return isNumber ? static_cast<quint16>(std::strtoul(digits.constData(), nullptr, 10)) : quint16{0};
}

/// The number that a reply begins with, 0 if that is none or no code.
int reply_code(const QString &line)
{
    const long number = std::strtol(line.toLatin1().constData(), nullptr, 10);
    return number < 0 || number > 999 ? 0 : static_cast<int>(number);
}

/// Appends, and drops a good part of the oldest text where it becomes more than the limit.
void append_newest(QString &text, const QString &added)
{
    if (text.size() + added.size() > ResponseLimit)
        text = text.right(std::max(qsizetype{0}, ResponseLimit * 3 / 4 - added.size()));
    text += added.right(ResponseLimit);
}

/// A pipe or a device would hold the program up, or never end.
bool is_openable(const QString &path)
{
    const QFileInfo file(path);
    return file.isFile() || file.isDir();
}

} // namespace

const SmtpPolicy &Smtp::defaultPolicy()
{
    static const SmtpPolicy policy;
    return policy;
}

// NOLINTNEXTLINE(modernize-pass-by-value): all nine texts are taken alike
Smtp::Smtp(const QString &serverName, const QString &portText, const QString &login, const QString &password,
           const QString &from, const QString &to, const QString &subject, const QString &body,
           const QString &attachment, const SmtpPolicy &usedPolicy) :
    policy(&usedPolicy),
    server(serverName),
    domain(to.mid(to.indexOf(u'@') + 1)),
    port(leading_port(portText)),
    parties{.login = login, .password = password, .from = from, .to = to, .ownAddress = {}},
    authentication(usedPolicy.authentication(parties))
{
    patience.setSingleShot(true);
    // Queued: nothing shows a box inside a timer that may go with this object.
    connect(&patience, &QTimer::timeout, this, &Smtp::runOutOfPatience, Qt::QueuedConnection);
    const QString obstacle = policy->obstacle(parties, server);
    if (!obstacle.isNull()) {
        failSoon(obstacle);
        return;
    }
    if (!compose({.from = from, .to = to, .subject = subject, .body = body, .attachmentPath = attachment})) {
        // Intended: nobody hears of it by the old policy.
        state = SmtpState::Close;
        failSoon(tr("The attached file cannot be read."));
        return;
    }
    startLookup(server);
}

Smtp::~Smtp()
{
    dns.reset();
    t.reset();
    if (socket && socket->state() == Q3Socket::Connected)
        socket->close();
    qDeleteAll(sockets);
}

/// @return false if the attachment cannot be read, as far as the policy minds
bool Smtp::compose(const MailContent &content)
{
    if (!is_openable(content.attachmentPath))
        return false;
    std::vector<char> buffer(size_t{64} * 1024);
    std::ifstream file;
    file.rdbuf()->pubsetbuf(buffer.data(), static_cast<std::streamsize>(buffer.size()));
    file.open(QFile::encodeName(content.attachmentPath).constData(), std::ios::in | std::ios::binary);
    if (!file.good())
        return false;
    message = policy->compose(content, file, std::time(nullptr));
    return !file.bad() || !policy->tellsFailures();
}

void Smtp::startLookup(const QString &typedServer)
{
    if (!policy->asksForExchangers(typedServer)) {
        QMetaObject::invokeMethod(this, &Smtp::dnsLookupHelper, Qt::QueuedConnection);
        return;
    }
    // Intended: the recipient's domain is looked up, whatever server is typed.
    dns = std::make_unique<Q3Dns>(domain, Q3Dns::Mx);
    connect(dns.get(), &Q3Dns::resultsReady, this, &Smtp::dnsLookupHelper);
}

void Smtp::dnsLookupHelper()
{
    if (dns && dns->isWorking())
        return;
    if (connectedFlag) {
        qDebug("Smtp::dnsLookupHelper() excess call");
        return;
    }
    if (dns && dns->hasFailed() && policy->tellsFailures()) {
        failSoon(tr("The mail servers of %1 cannot be looked up at present.").arg(domain));
        return;
    }
    hosts = policy->hosts(dns ? dns->mailServers() : QList<Q3Dns::MailServer>(), server, domain);
    hostsTried = 0;
    if (hosts.isEmpty())
        failSoon(tr("The domain %1 takes no mail.").arg(domain));
    else
        dialNextHosts();
}

void Smtp::dialNextHosts()
{
    const qsizetype count = policy->triesAllHostsAtOnce() ? hosts.size() : 1;
    const QStringList next = hosts.mid(hostsTried, count);
    hostsTried += count;
    state = SmtpState::Init;
    for (const QString &host : next)
        dial(host);
    QString text = tr("Connecting to:");
    for (const QString &host : next)
        text += u'\n' + host;
    emit status(text);
}

void Smtp::dial(const QString &host)
{
    auto *const dialled = new Q3Socket(this);
    dialled->setReadBufferSize(LineLimitBytes);
    sockets.append(dialled);
    // Queued, so that it comes also while a box of an earlier one stands.
    connect(dialled, &Q3Socket::readyRead, this, &Smtp::readyRead, Qt::QueuedConnection);
    connect(dialled, &Q3Socket::connected, this, &Smtp::connected);
    if (policy->tellsFailures())
        watch(dialled);
    dialled->connectToHost(host, port);
}

void Smtp::connected()
{
    if (dns)
        disconnect(dns.get(), &Q3Dns::resultsReady, this, &Smtp::dnsLookupHelper);
    connectedFlag = true;
    socket = nullptr;
    for (Q3Socket *const dialled : sockets) {
        if (dialled->state() != Q3Socket::Connected) {
            dialled->close();
            continue;
        }
        state = SmtpState::Init;
        socket = dialled;
    }
    if (!socket)
        return;
    t = std::make_unique<TextSender>(socket, policy->lineEnd());
    parties.ownAddress = socket->localAddress();
    emit status(tr("Connected to %1").arg(socket->peerName()));
    restartPatience();
}

void Smtp::readyRead()
{
    if (!socket || (policy->tellsFailures() && state == SmtpState::Close))
        return;
    if (boxes >= BoxLimit) {
        ++heldReads;
        return;
    }
    if (!socket->canReadLine()) {
        qDebug("can not read line");
        return;
    }
    const QPointer<Smtp> self(this);
    do {
        const QString line = readReply();
        if (policy->takesPartsOfReplies() || policy->isLastLine(line))
            act(line);
        // Intended: by the old policy the lines behind a reply wait until more data come.
    } while (self && !policy->takesPartsOfReplies() && state != SmtpState::Close && socket && socket->canReadLine());
}

/// Reads up to the last line of a reply, or up to the last line there is.
/// @return the last one read
QString Smtp::readReply()
{
    QString line;
    do {
        line = QString::fromLatin1(socket->readLine().constData()); // it ends at its first NUL
        append_newest(response_, line);
        append_newest(reply, line);
    } while (socket->canReadLine() && !policy->isLastLine(line));
    return line;
}

void Smtp::act(const QString &line)
{
    const int code = reply_code(line);
    if (policy->tellsFailures() && t->isBusy()) { // the server cannot have read what this would be the answer to
        refuse(code);
        return;
    }
    const int tabledCode = policy->tabledCode(code, state);
    if (state == SmtpState::Ehlo && tabledCode == 250) {
        authentication = policy->offered(authentication, reply);
        if (authentication == SmtpAuthentication::None) {
            fail(tr("The mail server offers no login that this program knows."));
            return;
        }
    }
    const SmtpTransition *const transition = find_transition(tabledCode, state, authentication);
    if (transition) {
        reply.clear();
        perform(*transition);
        return;
    }
    if (policy->tellsFailures()) {
        refuse(code);
        return;
    }
    if (has_handler(code))
        qDebug("%d no handler !!!", code);
    unexpected(line);
}

void Smtp::perform(const SmtpTransition &transition)
{
    if (transition.command == SmtpCommand::Message)
        t->send(message);
    else if (transition.command != SmtpCommand::None)
        t->send(policy->line(transition.command, parties));
    state = transition.next;
    restartPatience();
    switch (transition.progress) {
    case SmtpProgress::None:
        break;
    case SmtpProgress::Authentication:
        emit status(tr("Authentication..."));
        break;
    case SmtpProgress::Sending:
        emit status(tr("Sending mail..."));
        break;
    case SmtpProgress::Sent:
        emit status(tr("Message sent"));
        break;
    }
    if (!transition.completes)
        return;
    delivered = transition.code == 250;
    const QPointer<Smtp> self(this);
    ++boxes;
    emit completed();
    if (self)
        releaseBox();
}

void Smtp::unexpected(const QString &line)
{
    const QPointer<Smtp> self(this);
    ++boxes;
    // Intended: a reply of any length must not make a box as long.
    showBox(tr("Unexpected reply from SMTP server:\n\n") + line.left(ShownLimit));
    if (!self)
        return;
    qDebug("Unknown state");
    // Intended: the state stays, no QUIT is sent, and the next reply is judged like this one.
    emit completed();
    if (self)
        releaseBox();
}

/// Returns when the box is answered. The object may be gone by then.
void Smtp::showBox(const QString &text)
{
    (void)show_plain_box(QMessageBox::Warning, QApplication::activeWindow(), tr("Mail system error"), text,
                         QMessageBox::Ok);
}

/// To be called when the slots of completed() have returned, as they may show boxes of their own.
void Smtp::releaseBox()
{
    --boxes;
    if (heldReads == 0)
        return;
    --heldReads;
    QMetaObject::invokeMethod(this, &Smtp::readyRead, Qt::QueuedConnection);
}
