#include "tool_commands.h"

using namespace Qt::StringLiterals;

QString fill_placeholder(const QString &command, const QString &placeholder, const QString &path)
{
    return QString(command).replace(placeholder, path, Qt::CaseSensitive);
}

QString expand_home(const QString &path, const QString &home)
{
    // Intended: also in "~name", where a shell would go to the home of another user.
    return path.startsWith('~'_L1) ? home + path.sliced(1) : path;
}
