#include "FtpMachine.h"

#include "Q3NetworkOperation.h"

#include <QRegularExpression>

#include <algorithm>
#include <initializer_list>

using namespace Qt::StringLiterals;

namespace {

constexpr int ServiceReady = 220;
constexpr int NeedsPassword = 331;
constexpr int NeedsAccount = 332;
constexpr int ServiceClosing = 421;
constexpr int LoginInvalid = 430; // in use, though not by RFC 959
constexpr int SmallestRefusal = 400;
constexpr int NotLoggedIn = 530;
constexpr qsizetype ShortestHiddenPassword = 4;

enum ReplyClass { Preliminary = 1, Completion = 2 };

int class_of(const FtpReply &reply)
{
    return reply.code / 100;
}

bool has_control_character(const QString &text)
{
    return std::any_of(text.cbegin(), text.cend(),
                       [](QChar character) { return character.category() == QChar::Other_Control; });
}

} // namespace

QList<FtpAction> FtpMachine::start()
{
    const std::initializer_list<QString> names{request.path, request.user, request.password};
    if (std::any_of(names.begin(), names.end(), has_control_character)) {
        state = Type; // what is wrong is the upload, not the login
        return fail(tr("Invalid character in name"));
    }
    return {{.kind = FtpAction::Connect}};
}

QList<FtpAction> FtpMachine::hostNotFound()
{
    return fail(tr("Host %1 not found").arg(request.host), Q3NetworkOperation::ErrHostNotFound);
}

QList<FtpAction> FtpMachine::notConnected(const QString &reason)
{
    return fail(reason.isEmpty() ? tr("Connection refused to host %1").arg(request.host) : reason);
}

QList<FtpAction> FtpMachine::replied(const FtpReply &reply)
{
    if (reply.code == ServiceClosing)
        return refused(reply);
    switch (state) {
    case Greeting:
        if (reply.code != ServiceReady)
            return refused(reply);
        return send(User, "USER ", request.user.isEmpty() ? u"anonymous"_s : request.user);
    case User:
    case Password:
        return repliedToLogin(reply);
    case Type:
        if (class_of(reply) == Preliminary)
            return {};
        return class_of(reply) == Completion ? send(Passive, isIPv6 ? "EPSV" : "PASV") : refused(reply);
    case Passive:
        return repliedToPassive(reply);
    case DataConnection:
        // No answer is due. One that refuses, or that is none, is meant for what comes.
        return class_of(reply) == Preliminary || class_of(reply) == Completion ? QList<FtpAction>() : refused(reply);
    case Allocation:
        // Most servers have no use for it, and whether they refuse it tells nothing of the file.
        if (class_of(reply) == Preliminary)
            return {};
        return reply.code == 0 ? refused(reply) : send(Store, "STOR ", request.path);
    case Store:
    case Sending:
    case Sent:
        return repliedToStore(reply);
    case Ended:
        break;
    }
    return {};
}

QList<FtpAction> FtpMachine::connectionLost(const std::optional<FtpReply> &lastWords)
{
    // Part of a reply may say why. It confirms nothing.
    if (lastWords && lastWords->code >= SmallestRefusal)
        return refused(*lastWords);
    return fail(tr("Connection to %1 closed").arg(request.host));
}

QList<FtpAction> FtpMachine::dataConnected()
{
    if (state != DataConnection)
        return {};
    return send(Allocation, "ALLO ", QString::number(request.size));
}

QList<FtpAction> FtpMachine::dataLost(DataLoss how)
{
    // Once the last byte is handed over, the server's reply alone tells whether it has arrived.
    if (state == Sent || state == Ended || isDataLost)
        return {};
    isDataLost = true;
    loss = how;
    if (state == DataConnection)
        return fail(lossText());
    return {{.kind = FtpAction::AwaitWords}};
}

QList<FtpAction> FtpMachine::noWordsCame()
{
    return fail(lossText());
}

void FtpMachine::dataSent()
{
    if (state == Sending)
        state = Sent;
}

QList<FtpAction> FtpMachine::fileFailed()
{
    return fail(tr("The local file has changed"));
}

QList<FtpAction> FtpMachine::repliedToLogin(const FtpReply &reply)
{
    if (class_of(reply) == Preliminary)
        return {};
    if (class_of(reply) == Completion)
        return loggedIn();
    if (state == User && reply.code == NeedsPassword)
        return send(Password, "PASS ", request.user.isEmpty() ? u"anonymous@"_s : request.password);
    return refused(reply);
}

QList<FtpAction> FtpMachine::loggedIn()
{
    return QList<FtpAction>{{.kind = FtpAction::BeginPut}} + send(Type, "TYPE I");
}

QList<FtpAction> FtpMachine::repliedToPassive(const FtpReply &reply)
{
    if (class_of(reply) == Preliminary)
        return {};
    const quint16 port = isIPv6 ? extended_passive_port(reply.text) : passive_port(reply.text);
    if (class_of(reply) != Completion || port == 0)
        return refused(reply);
    state = DataConnection;
    return {{.kind = FtpAction::ConnectData, .port = port}};
}

QList<FtpAction> FtpMachine::repliedToStore(const FtpReply &reply)
{
    if (class_of(reply) == Preliminary) {
        if (state != Store || isDataLost)
            return {};
        state = Sending;
        return {{.kind = FtpAction::SendData}};
    }
    // A confirmation before the file is out is for some other file, or for a part of it.
    if (state != Sent || class_of(reply) != Completion)
        return refused(reply);
    state = Ended;
    return {{.kind = FtpAction::Succeed}};
}

QList<FtpAction> FtpMachine::send(State next, const char *command, const QString &argument)
{
    state = next;
    return {{.kind = FtpAction::Send, .command = command + argument.toUtf8() + "\r\n"}};
}

QList<FtpAction> FtpMachine::refused(const FtpReply &reply)
{
    QString text = reply.text;
    // Some servers repeat the command that they do not like. A short password would tear other words.
    if (state >= Password && request.password.size() >= ShortestHiddenPassword)
        text.replace(request.password, u"***"_s);
    const bool isLoginRefused = (state == User || state == Password)
        && (reply.code == NotLoggedIn || reply.code == LoginInvalid
            || (state == Password && (reply.code == NeedsPassword || reply.code == NeedsAccount)));
    return fail(text, isLoginRefused ? Q3NetworkOperation::ErrLoginIncorrect : Q3NetworkOperation::ErrPut);
}

QList<FtpAction> FtpMachine::fail(const QString &reason)
{
    return fail(reason, Q3NetworkOperation::ErrPut);
}

QList<FtpAction> FtpMachine::fail(const QString &reason, int errorCode)
{
    if (state == Ended)
        return {};
    QString text;
    if (state == Greeting)
        text = tr("Connecting to host failed:\n%1");
    else if (state == User || state == Password)
        text = tr("Login failed:\n%1");
    else
        text = tr("Uploading file failed:\n%1");
    state = Ended;
    return {{.kind = FtpAction::Fail, .errorCode = errorCode, .text = text.arg(reason)}};
}

QString FtpMachine::lossText() const
{
    return loss == Refused ? tr("Connection refused for data connection") : tr("Data connection closed");
}

quint16 passive_port(const QString &text)
{
    static const QRegularExpression figures(uR"(\b\d{1,3},\d{1,3},\d{1,3},\d{1,3},(\d{1,3}),(\d{1,3})\b)"_s);
    const QRegularExpressionMatch match = figures.match(text);
    const int high = match.captured(1).toInt();
    const int low = match.captured(2).toInt();
    return high > 0xff || low > 0xff ? quint16{0} : static_cast<quint16>(high << 8 | low);
}

quint16 extended_passive_port(const QString &text)
{
    static const QRegularExpression figures(uR"(\(([!-~])\1\1(\d{1,5})\1\))"_s);
    return figures.match(text).captured(2).toUShort();
}
