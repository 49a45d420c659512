#pragma once

#include <deque>
#include <string>

/// What a mail session does, as a table of texts and without any socket: for a mail from ann@example.test to
/// bob@example.test, by a client "ann" with the password "pass" or without any.
class PlainMailSession
{
public:
    enum class Login { None, Login };

    PlainMailSession(bool isStrict, Login wanted);

    /// The server says something, which comes in at once.
    void hear(const std::string &bytes);
    /// The server ends the connection.
    void lose();

    /// What the client has to have sent since the last call; "message" in a line stands for the message.
    [[nodiscard]] std::string takeSent();

    int boxes = 0; ///< that were to be shown so far
    int completions = 0;

private:
    [[nodiscard]] bool isLast(const std::string &line) const;
    [[nodiscard]] std::string tabledCode(const std::string &line) const;
    [[nodiscard]] std::string takeReply();
    void act(const std::string &line);
    void choose();
    void fail();

    const bool strict;
    std::string login; ///< "none", "login" or "plain"
    std::string state = "greeting";
    std::string unended; ///< a line
    std::deque<std::string> lines;
    std::string reply; ///< all of its lines
    std::string sent;
};
