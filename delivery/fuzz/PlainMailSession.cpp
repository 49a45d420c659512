#include "PlainMailSession.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <sstream>
#include <utility>

namespace {

struct Row
{
    const char *login;
    const char *state;
    const char *code;
    const char *oldLine;
    const char *strictLine;
    const char *next;
    bool completes = false;
};

// YW5u is "ann", cGFzcw== "pass", AGFubgBwYXNz all that PLAIN wants.
constexpr std::array Table{
    Row{"none", "greeting", "220", "HELO there", "HELO [127.0.0.1]", "helo"},
    Row{"login", "greeting", "220", "EHLO there", "EHLO [127.0.0.1]", "ehlo"},
    Row{"login", "ehlo", "250", "AUTH LOGIN", "AUTH LOGIN", "name"},
    Row{"login", "name", "334", "YW5u", "YW5u", "password"},
    Row{"login", "password", "334", "cGFzcw==", "cGFzcw==", "verdict"},
    Row{"plain", "ehlo", "250", "", "AUTH PLAIN", "password"},
    Row{"plain", "password", "334", "", "AGFubgBwYXNz", "verdict"},
    Row{"", "verdict", "235", "MAIL FROM: <ann@example.test>", "MAIL FROM:<ann@example.test>", "mail"},
    Row{"", "verdict", "535", "QUIT", "QUIT", "end", true},
    Row{"", "helo", "250", "MAIL FROM: <ann@example.test>", "MAIL FROM:<ann@example.test>", "mail"},
    Row{"", "mail", "250", "RCPT TO: <bob@example.test>", "RCPT TO:<bob@example.test>", "recipient"},
    Row{"", "recipient", "250", "DATA", "DATA", "data"},
    Row{"", "data", "354", "message", "message", "body"},
    Row{"", "body", "250", "QUIT", "QUIT", "end", true},
    Row{"", "end", "221", "", "", "end"},
};

} // namespace

PlainMailSession::PlainMailSession(bool isStrict, Login wanted) :
    strict(isStrict),
    login(wanted == Login::None ? "none" : "login")
{
}

void PlainMailSession::hear(const std::string &bytes)
{
    unended += bytes;
    for (std::size_t end = unended.find('\n'); end != std::string::npos; end = unended.find('\n')) {
        lines.push_back(unended.substr(0, end + 1));
        unended.erase(0, end + 1);
    }
    if (bytes.empty() || lines.empty() || (strict && state == "end"))
        return;
    if (!strict) {
        act(takeReply()); // what lies behind waits for the next bytes
        return;
    }
    while (!lines.empty() && state != "end") {
        const std::string line = takeReply();
        if (!isLast(line))
            return;
        if (!sent.empty()) { // not yet out, so that this cannot be the answer; nothing goes out any more
            fail();
            sent.clear();
            return;
        }
        act(line);
    }
}

void PlainMailSession::lose()
{
    if (strict && state != "end") {
        fail();
        sent.clear(); // nobody is there to hear it
    }
}

std::string PlainMailSession::takeSent()
{
    return std::exchange(sent, {});
}

bool PlainMailSession::isLast(const std::string &line) const
{
    return strict ? line.size() <= 3 || line[3] != '-' : line.size() > 3 && line[3] == ' ';
}

std::string PlainMailSession::takeReply()
{
    std::string line;
    do {
        line = lines.front();
        lines.pop_front();
        reply += line;
    } while (!lines.empty() && !isLast(line));
    return line;
}

/// By the book the first figure counts.
std::string PlainMailSession::tabledCode(const std::string &line) const
{
    if (!strict)
        return line.substr(0, 3);
    if (line.starts_with('2'))
        return state == "greeting" ? "220" : state == "verdict" ? "235" : "250";
    if (line.starts_with('3'))
        return state == "data" ? "354" : "334";
    return "";
}

/// Takes the way to log in that the server offers.
void PlainMailSession::choose()
{
    std::istringstream offers(reply);
    login = "";
    for (std::string line; std::getline(offers, line);) {
        std::ranges::transform(line, line.begin(), [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
        std::istringstream words(line.size() > 4 ? line.substr(4) : "");
        std::string word;
        words >> word;
        if (!line.starts_with("250") || word != "AUTH")
            continue;
        while (words >> word) {
            if (word == "LOGIN")
                login = "login";
            else if (word == "PLAIN" && login.empty())
                login = "plain";
        }
    }
}

void PlainMailSession::act(const std::string &line)
{
    const std::string code = tabledCode(line);
    if (strict && state == "ehlo" && code == "250")
        choose();
    const auto *const row = std::ranges::find_if(Table, [&](const Row &one) {
        return one.state == state && one.code == code && (*one.login == '\0' || one.login == login);
    });
    if (row != Table.end()) {
        reply.clear();
        const std::string command = strict ? row->strictLine : row->oldLine;
        sent += command.empty() ? "" : command + (strict ? "\r\n" : "\n");
        state = row->next;
        completions += row->completes ? 1 : 0;
    } else if (strict) {
        fail();
    } else {
        ++boxes;
        ++completions;
    }
}

void PlainMailSession::fail()
{
    sent += "QUIT\r\n";
    state = "end";
    ++boxes;
    ++completions;
}
