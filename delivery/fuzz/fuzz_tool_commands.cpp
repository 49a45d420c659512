// Command lines and paths of any text: placeholders and the home are put in as by a plain way.

#include "fuzz_target.h"
#include "FuzzInput.h"
#include "tool_commands.h"

namespace {

QString plain_filled(const QString &command, const QString &placeholder, const QString &path)
{
    QString filled;
    for (qsizetype at = 0; at < command.size();) {
        const bool isHere = !placeholder.isEmpty() && command.mid(at, placeholder.size()) == placeholder;
        filled += isHere ? path : QString(command.at(at));
        at += isHere ? placeholder.size() : 1;
    }
    return filled;
}

} // namespace

std::vector<std::string> fuzz_seeds()
{
    return {"\x0agimp <BMP>\x05<BMP>\x08/a <BMP>", "\x04~/ab\x01~\x02/h", "\x06\xc3\xa9<B<B>\x03<B>\x02~~"};
}

void try_input(std::span<const std::uint8_t> bytes)
{
    FuzzInput input(bytes);
    const QString command = QString::fromUtf8(QByteArray::fromStdString(input.text()));
    const QString placeholder = QString::fromUtf8(QByteArray::fromStdString(input.text()));
    const QString path = QString::fromUtf8(QByteArray::fromStdString(input.text()));
    if (!placeholder.isEmpty())
        promise(fill_placeholder(command, placeholder, path) == plain_filled(command, placeholder, path),
                "a placeholder gives way to the path");
    const QString expanded = expand_home(command, path);
    promise(command.startsWith(u'~') ? expanded == path + command.sliced(1) : expanded == command,
            "the first sign alone stands for the home");
}
