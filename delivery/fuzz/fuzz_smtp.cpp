// A mail server that says anything in any order and cuts the line at any time, to a client of either policy: what the
// client sends, shows and tells is what the table of sessions says.

#include "fuzz_target.h"
#include "FuzzInput.h"
#include "PlainMailSession.h"
#include "quiet_toolkit.h"
#include "Smtp.h"
#include "StrictSmtpPolicy.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryFile>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <tuple>
#include <utility>

#include <poll.h>
#include <sys/socket.h>

using namespace Qt::StringLiterals;

namespace {

/// The way of old, but without asking name servers.
class NearPolicy : public SmtpPolicy
{
public:
    [[nodiscard]] bool asksForExchangers(const QString & /*server*/) const override { return false; }
    [[nodiscard]] QStringList hosts(const QList<Q3Dns::MailServer> & /*exchangers*/, const QString &server,
                                    const QString & /*domain*/) const override
    {
        return {server};
    }
};

/// Counts the boxes and answers each.
class BoxAnswerer : public QObject
{
public:
    BoxAnswerer() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *const box = event->type() == QEvent::Show ? qobject_cast<QMessageBox *>(watched) : nullptr;
        if (box) {
            ++boxes;
            QMetaObject::invokeMethod(box, &QDialog::accept, Qt::QueuedConnection);
        }
        return false;
    }

    int boxes = 0;
};

/// The server's end of one connection, and the client that makes it.
class Conversation
{
public:
    Conversation(bool isStrict, bool hasLogin)
    {
        static const NearPolicy nearPolicy;
        static const QString attachment = [] {
            static QTemporaryFile file;
            promise(file.open() && file.write("ABC") == 3 && file.flush(), "an attachment can be made");
            return file.fileName();
        }();
        static QTcpServer listener;
        if (!listener.isListening())
            promise(listener.listen(QHostAddress::LocalHost), "a port is free");
        const QString login = hasLogin ? u"ann"_s : QString();
        const QString password = hasLogin ? u"pass"_s : QString();
        const SmtpPolicy &policy = isStrict ? smtp_policy(true) : nearPolicy;
        client = std::make_unique<Smtp>(u"127.0.0.1"_s, QString::number(listener.serverPort()), login, password,
                                        u"ann@example.test"_s, u"bob@example.test"_s, u"scan"_s, u"Hello"_s, attachment,
                                        policy);
        QObject::connect(client.get(), &Smtp::completed, client.get(), [this] { ++completions; });
        while (!(socket = client->findChild<QTcpSocket *>()))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QObject::connect(socket, &QTcpSocket::bytesWritten, client.get(), [this](qint64 bytes) { written += bytes; });
        while (socket->state() != QAbstractSocket::ConnectedState)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        // Another program of the machine may have tried the same port.
        while (!server || server->peerPort() != socket->localPort()) {
            while (!listener.hasPendingConnections())
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            server.reset(listener.nextPendingConnection());
        }
        server->setSocketOption(QAbstractSocket::LowDelayOption, 1); // or what is said waits for an acknowledgement
        settle();
    }

    ~Conversation()
    {
        client.reset();
        // Or the system keeps the port for minutes.
        const linger atOnce{.l_onoff = 1, .l_linger = 0};
        ::setsockopt(static_cast<int>(server->socketDescriptor()), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
        server->abort();
    }
    Q_DISABLE_COPY_MOVE(Conversation)

    void say(const std::string &bytes)
    {
        server->write(bytes.data(), static_cast<qint64>(bytes.size()));
        server->flush();
        awaitArrival();
        settle();
    }

    void hangUp()
    {
        ::shutdown(static_cast<int>(server->socketDescriptor()), SHUT_WR);
        awaitArrival();
        settle();
    }

    [[nodiscard]] QByteArray heard() { return std::exchange(received, {}); }
    [[nodiscard]] int boxes() const { return answerer.boxes; }

    int completions = 0;

private:
    /// Lets both ends do all that they have to: until nothing is on its way and nothing comes of some rounds.
    void settle()
    {
        constexpr int quietRounds = 6;
        for (int quiet = 0; quiet < quietRounds; ++quiet) {
            const auto before = std::tuple(received.size(), answerer.boxes, completions);
            QCoreApplication::processEvents();
            const QByteArray arrived = server->readAll();
            received += arrived;
            heardBytes += arrived.size();
            if (isOnItsWay() || before != std::tuple(received.size(), answerer.boxes, completions))
                quiet = 0;
        }
    }

    [[nodiscard]] bool isOnItsWay() const
    {
        return socket->state() == QAbstractSocket::ConnectedState
            && (socket->bytesToWrite() > 0 || written > heardBytes);
    }

    /// Waits until the client's system has what the server has sent last.
    void awaitArrival() const
    {
        constexpr int longTimeMs = 10'000;
        pollfd end{.fd = static_cast<int>(socket->socketDescriptor()), .events = POLLIN, .revents = 0};
        if (end.fd < 0)
            return;
        int ready = 0;
        do
            ready = ::poll(&end, 1, longTimeMs);
        while (ready < 0 && errno == EINTR); // the engine's clock ticks by a signal
        promise(ready == 1, "what is sent arrives");
    }

    BoxAnswerer answerer;
    std::unique_ptr<QTcpSocket> server;
    std::unique_ptr<Smtp> client;
    const QTcpSocket *socket = nullptr; ///< the client's
    qint64 written = 0; ///< bytes, by the client
    qint64 heardBytes = 0;
    QByteArray received;
};

/// Something that a server may say, mostly lines of replies.
std::string words_from(FuzzInput &input)
{
    constexpr std::array codes{"220", "250", "334", "235", "354", "221", "535", "421", "550", "251", "452"};
    constexpr std::array ends{" ok\r\n",         "-more\r\n",         "\r\n", "\n", " ", "-AUTH LOGIN PLAIN\r\n",
                              " AUTH PLAIN\r\n", "-auth cram-md5\r\n"};
    std::string words;
    for (int lines = input.within(1, 3); lines > 0; --lines) {
        const auto code = static_cast<std::size_t>(input.below(static_cast<int>(codes.size()) + 1));
        const auto end = static_cast<std::size_t>(input.below(static_cast<int>(ends.size())));
        words += code < codes.size() ? codes.at(code) : "what?";
        words += ends.at(end);
    }
    return words;
}

void check(Conversation &conversation, PlainMailSession &session)
{
    const QByteArray heard = conversation.heard();
    const QByteArray expected = QByteArray::fromStdString(session.takeSent());
    const bool isMessage = expected.startsWith("message");
    promise(isMessage || heard == expected, ("the client sends '" + expected + "', not '" + heard + "'").constData());
    promise(!isMessage || heard.endsWith("\r\n." + expected.mid(7)), "the message ends with a full stop");
    promise(
        conversation.boxes() == session.boxes,
        qPrintable(
            u"the client shows %1 boxes for what fits nowhere, not %2"_s.arg(session.boxes).arg(conversation.boxes())));
    promise(conversation.completions == session.completions, "the client tells each end");
}

} // namespace

std::vector<std::string> fuzz_seeds()
{
    // A choice of policy and login, then: what to do, how many lines, and codes and ends of lines.
    const auto reply = [](char code, char end = 0) { return std::string{0, 0, code, end}; };
    const std::string mail = reply(1) + reply(1) + reply(1) + reply(4) + reply(1) + reply(5);
    const std::string login = reply(2) + reply(2) + reply(3) + mail.substr(4);
    return {
        '\0' + reply(0) + mail,
        '\1' + reply(0) + mail,
        '\2' + reply(0) + reply(1) + login,
        '\3' + reply(0) + std::string{0, 1, 1, 5, 1, 0} + login,
        '\3' + reply(0) + reply(1, 6) + login.substr(4),
        '\1' + reply(7),
        '\1' + reply(0) + reply(1) + std::string{7},
        '\2' + reply(0) + reply(1) + reply(2) + reply(2) + reply(6),
        '\0' + reply(11) + reply(0, 4) + reply(8) + std::string{0, 2, 1, 1, 1, 0, 4, 0},
    };
}

void try_input(std::span<const std::uint8_t> bytes)
{
    start_quiet_toolkit<QApplication>();
    FuzzInput input(bytes.first(std::min<std::size_t>(bytes.size(), 200)));
    const unsigned choices = input.byte();
    const bool isStrict = (choices & 1U) != 0;
    const bool hasLogin = (choices & 2U) != 0;
    Conversation conversation(isStrict, hasLogin);
    PlainMailSession session(isStrict, hasLogin ? PlainMailSession::Login::Login : PlainMailSession::Login::None);
    while (!input.isAtEnd()) {
        if (input.below(16) == 7) {
            conversation.hangUp();
            session.lose();
            check(conversation, session);
            return;
        }
        const std::string words = words_from(input);
        conversation.say(words);
        session.hear(words);
        check(conversation, session);
    }
}
