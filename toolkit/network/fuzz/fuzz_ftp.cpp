// An FTP server that says anything, in pieces of any size, while connections come and go in any order: the replies are
// those of a plain reading, and the session keeps to the order of an upload and ends once.

#include "FtpMachine.h"
#include "fuzz_target.h"
#include "FuzzInput.h"

#include <array>
#include <string_view>

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView Password("s3cr3t!");

FtpRequest request()
{
    return {.host = u"h"_s, .user = u"bob"_s, .password = Password, .path = u"/dir/x.png"_s, .size = 7};
}

bool is_code(const QByteArray &line)
{
    const auto isDigit = [&line](qsizetype at) { return line.at(at) >= '0' && line.at(at) <= '9'; };
    return line.size() >= 3 && line.at(0) >= '1' && line.at(0) <= '5' && isDigit(1) && isDigit(2)
        && (line.size() == 3 || line.at(3) == ' ' || line.at(3) == '-');
}

/// The codes of all replies, read line by line; 0 for a line that is none.
QList<int> plain_codes(const QByteArray &said)
{
    QList<int> codes;
    QByteArray opened; // the number of a long reply
    QByteArrayList lines = said.split('\n');
    lines.removeLast(); // has not ended
    for (const QByteArray &whole : lines) {
        const QByteArray line = whole.first(std::min(whole.size(), FtpReplyReader::TextLimit));
        const QByteArray shown = line.endsWith('\r') ? line.chopped(1) : line;
        const bool isContinued = is_code(shown) && shown.size() > 3 && shown.at(3) == '-';
        if (!opened.isEmpty()) {
            if (is_code(shown) && shown.startsWith(opened) && !isContinued) {
                codes.append(opened.toInt());
                opened.clear();
            }
        } else if (isContinued) {
            opened = shown.first(3);
        } else if (!shown.trimmed().isEmpty()) {
            codes.append(is_code(shown) ? shown.first(3).toInt() : 0);
        }
    }
    return codes;
}

void check_reply(const FtpReply &reply)
{
    promise(reply.code == 0 || (reply.code >= 100 && reply.code <= 599), "a reply has a code or none");
    promise(reply.text.size() <= FtpReplyReader::TextLimit, "a reply is not longer than told");
    promise(reply.text.count(u'\n') < FtpReplyReader::LineLimit, "a reply has no more lines than told");
    for (const QChar character : reply.text)
        promise(character == u'\n' || character.category() != QChar::Other_Control, "a reply controls nothing");
}

/// The session as a user of the machine sees it.
class Session
{
public:
    void begin() { take(machine.start()); }

    void hear(const FtpReply &reply)
    {
        said.append(reply.code);
        lastReply = reply;
        take(machine.replied(reply));
        lastReply.reset();
    }

    void happen(int event)
    {
        switch (event) {
        case 0:
            take(machine.dataConnected());
            break;
        case 1:
            take(machine.dataLost(FtpMachine::Refused));
            break;
        case 2:
            take(machine.dataLost(FtpMachine::Cut));
            break;
        case 3:
            take(machine.noWordsCame());
            break;
        case 4:
            take(machine.connectionLost({}));
            break;
        case 5:
            take(machine.fileFailed());
            break;
        case 6:
            machine.dataSent();
            isFileOut = isSending;
            break;
        default:
            machine.connected(event % 2 == 0);
            break;
        }
    }

private:
    void take(const QList<FtpAction> &actions)
    {
        for (const FtpAction &action : actions) {
            promise(!isOver, "nothing happens after the end");
            take(action);
        }
    }

    void take(const FtpAction &action)
    {
        switch (action.kind) {
        case FtpAction::Connect:
            promise(stage == 0 && said.isEmpty(), "there is one connection");
            break;
        case FtpAction::Send:
            sent(action.command);
            break;
        case FtpAction::BeginPut:
            promise(stage == 1 || stage == 2, "an upload begins behind the login");
            break;
        case FtpAction::ConnectData:
            promise(stage == 4 && action.port != 0, "data go where the server has told");
            break;
        case FtpAction::SendData:
            promise(stage == 6 && !isSending, "the file goes out once, behind its name");
            isSending = true;
            break;
        case FtpAction::AwaitWords:
            break;
        case FtpAction::Succeed:
            promise(isFileOut && lastReply && lastReply->code / 100 == 2, "what has succeeded was confirmed");
            isOver = true;
            break;
        case FtpAction::Fail:
            failed(action);
            break;
        }
    }

    /// Commands come in this order. The password may be left out, for a user whom the server lets in by the name.
    void sent(const QByteArray &command)
    {
        static constexpr std::array<const char *, 6> order{"USER bob\r\n", "PASS s3cr3t!\r\n",   "TYPE I\r\n", "",
                                                           "ALLO 7\r\n",   "STOR /dir/x.png\r\n"};
        const bool isPassive = command == "PASV\r\n" || command == "EPSV\r\n";
        if (stage == 1 && command == "TYPE I\r\n")
            stage = 2;
        promise(stage < order.size(), "no command follows the last");
        promise(stage == 3 ? isPassive : command == order.at(stage), "commands come in their order");
        ++stage;
    }

    void failed(const FtpAction &action)
    {
        isOver = true;
        const QLatin1StringView beginning = stage == 0 ? "Connecting to host failed:\n"_L1
            : stage <= 2                               ? "Login failed:\n"_L1
                                                       : "Uploading file failed:\n"_L1;
        promise(action.text.startsWith(beginning), "a failure is told by where it came");
        promise(stage < 2 || !action.text.contains(Password), "no failure shows the password");
        promise(action.errorCode != 0, "a failure has a code");
    }

    FtpMachine machine{request()};
    std::size_t stage = 0; ///< commands sent, the password counted
    QList<int> said;
    std::optional<FtpReply> lastReply;
    bool isSending = false;
    bool isFileOut = false;
    bool isOver = false;
};

std::string piece(std::string_view said, int event)
{
    return static_cast<char>(said.size()) + std::string(said) + static_cast<char>(event);
}

} // namespace

std::vector<std::string> fuzz_seeds()
{
    constexpr int Nothing = 16;
    return {
        piece("220 Hello\r\n", Nothing) + piece("331 Who?\r\n", Nothing) + piece("230 In\r\n", Nothing)
            + piece("200 Binary\r\n", Nothing) + piece("227 (1,2,3,4,4,18)\r\n", 0) + piece("202 No need\r\n", Nothing)
            + piece("150 Go on\r\n", 6) + piece("226 Thanks\r\n", Nothing),
        piece("220-Hello\r\n all\r\n220 of you\r\n", 8) + piece("230 In\r\n200 B\r\n229 (|||1042|)\r\n", 0)
            + piece("502 No\r\n150 Go on\r\n", 2) + piece("426 Cut s3cr3t!\r\n", 3),
        piece("421 Closing\r\n", Nothing) + piece("nonsense\n", 4),
    };
}

void try_input(std::span<const std::uint8_t> bytes)
{
    FuzzInput input(bytes);
    FtpReplyReader reader;
    Session session;
    QByteArray all;
    QList<int> codes;
    session.begin();
    while (!input.isAtEnd()) {
        const QByteArray said = QByteArray::fromStdString(input.text());
        all += said;
        QByteArrayView left(said);
        while (const std::optional<FtpReply> reply = reader.take(left)) {
            check_reply(*reply);
            codes.append(reply->code);
            session.hear(*reply);
        }
        promise(left.isEmpty(), "all is read");
        session.happen(input.byte());
    }
    promise(codes == plain_codes(all), "the replies are those of a plain reading");
    if (const std::optional<FtpReply> reply = reader.unfinished())
        check_reply(*reply);
}
