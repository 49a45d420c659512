#include "argument_message.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

QString joinArgv(int argc, const char *const *argv)
{
    QStringList arguments;
    arguments.reserve(argc);
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromUtf8(argv[i]));
    return arguments.join(':'_L1);
}

QStringList splitArgs(const QString &message)
{
    return message.split(':'_L1, Qt::SkipEmptyParts, Qt::CaseSensitive);
}

QStringList join_paths_with_colons(const QStringList &arguments)
{
    QStringList joined = arguments.first(std::min(arguments.size(), qsizetype{1}));
    for (qsizetype i = 1; i < arguments.size();) {
        qsizetype count = 1;
        while (i + count < arguments.size() && !QFileInfo::exists(arguments.mid(i, count).join(':'_L1)))
            ++count;
        if (!QFileInfo::exists(arguments.mid(i, count).join(':'_L1)))
            count = 1;
        joined.append(arguments.mid(i, count).join(':'_L1));
        i += count;
    }
    return joined;
}
