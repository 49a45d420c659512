#include "argument_message.h"

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
