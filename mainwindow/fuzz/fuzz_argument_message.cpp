// Bytes that another program has left in the property of our window become a message and a list of arguments, and
// arguments become a message: as a plain way makes them.

#include "argument_message.h"
#include "fuzz_target.h"
#include "FuzzInput.h"

#include <algorithm>

namespace {

/// The parts between colons, less those without a character.
QStringList plain_parts(const QString &message)
{
    QStringList parts{QString()};
    for (const QChar character : message) {
        if (character == u':')
            parts.append(QString());
        else
            parts.last().append(character);
    }
    parts.removeAll(QString());
    return parts;
}

void check_split(const QString &message)
{
    const QStringList arguments = splitArgs(message);
    promise(arguments == plain_parts(message), "a message comes apart at its colons");
    promise(splitArgs(arguments.join(u':')) == arguments, "what came apart is joined and comes apart again");

    const QStringList joined = join_paths_with_colons(arguments);
    promise(joined.join(u':') == arguments.join(u':'), "paths put together lose nothing and change no order");
    promise(joined.isEmpty() == arguments.isEmpty(), "no argument goes");
    promise(arguments.isEmpty() || joined.first() == arguments.first(), "the program's path is left alone");
}

void check_join(const std::vector<std::string> &arguments)
{
    std::vector<const char *> argv;
    QStringList expected;
    for (const std::string &argument : arguments) {
        argv.push_back(argument.c_str());
        expected.append(QString::fromUtf8(argument.c_str()));
    }
    const QString message = joinArgv(static_cast<int>(argv.size()), argv.data());
    promise(message == expected.join(u':'), "arguments are joined by colons");
    promise(QString::fromUtf8(message.toUtf8()) == message, "a message survives the way through the property");
    expected.removeAll(QString());
    const bool hasColon = std::ranges::any_of(expected, [](const QString &text) { return text.contains(u':'); });
    promise(hasColon || splitArgs(message) == expected, "arguments without a colon come back as they were");
}

} // namespace

std::vector<std::string> fuzz_seeds()
{
    return {"/opt/im:-t:a b.bmp:\xc3\xa9.png", "::/tmp:/", "im:\xff\xfe:/proc/self:\xed\xa0\x80", "/o:pt/im:/tmp:x"};
}

void try_input(std::span<const std::uint8_t> bytes)
{
    const std::string text(bytes.begin(), bytes.end());
    check_split(QString::fromUtf8(QByteArray::fromStdString(text)));

    FuzzInput input(bytes);
    std::vector<std::string> arguments;
    while (!input.isAtEnd())
        arguments.push_back(input.text());
    check_join(arguments);
}
