#include "ftp_session.h"

using namespace Qt::StringLiterals;

FtpRequest plain_request()
{
    return {.host = u"h"_s, .user = u"bob"_s, .password = u"secret"_s, .path = u"/dir/x.png"_s, .size = 7};
}

QStringList words(const QList<FtpAction> &actions)
{
    QStringList list;
    for (const FtpAction &action : actions) {
        switch (action.kind) {
        case FtpAction::Connect:
            list += u"connect"_s;
            break;
        case FtpAction::Send:
            list += u"> "_s + QString::fromUtf8(action.command);
            break;
        case FtpAction::BeginPut:
            list += u"begin"_s;
            break;
        case FtpAction::ConnectData:
            list += u"data "_s + QString::number(action.port);
            break;
        case FtpAction::SendData:
            list += u"send"_s;
            break;
        case FtpAction::AwaitWords:
            list += u"await"_s;
            break;
        case FtpAction::Succeed:
            list += u"succeed"_s;
            break;
        case FtpAction::Fail:
            list += u"! "_s + QString::number(action.errorCode) + u' ' + action.text;
            break;
        }
    }
    return list;
}

QStringList after(FtpMachine &machine, const QString &event)
{
    if (event == "data connected"_L1)
        return words(machine.dataConnected());
    if (event == "data refused"_L1)
        return words(machine.dataLost(FtpMachine::Refused));
    if (event == "data cut"_L1)
        return words(machine.dataLost(FtpMachine::Cut));
    if (event == "no words"_L1)
        return words(machine.noWordsCame());
    if (event == "lost"_L1)
        return words(machine.connectionLost({}));
    if (event == "file failed"_L1)
        return words(machine.fileFailed());
    if (event == "sent"_L1) {
        machine.dataSent();
        return {};
    }
    bool isReply = false;
    const int code = event.first(3).toInt(&isReply);
    return words(machine.replied({.code = isReply ? code : 0, .text = isReply ? event.sliced(4) : event}));
}

QStringList after_all(FtpMachine &machine, const QStringList &events)
{
    QStringList last = words(machine.start());
    for (const QString &event : events)
        last = after(machine, event);
    return last;
}

const QStringList wholeSession{
    u"220 Hello"_s,      u"331 Who?"_s,    u"230 In"_s,    u"200 Binary"_s, u"227 (1,2,3,4,4,18)"_s,
    u"data connected"_s, u"202 No need"_s, u"150 Go on"_s, u"sent"_s,       u"226 Thanks"_s};

QStringList session_up_to(QStringView event)
{
    return wholeSession.first(wholeSession.indexOf(event));
}
