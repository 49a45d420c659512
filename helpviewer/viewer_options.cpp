#include "viewer_options.h"

#include <QHash>

using namespace Qt::StringLiterals;

ViewerOptions viewer_options(const QStringList &arguments)
{
    ViewerOptions options;
    QString unused;
    const QHash<QString, QString *> values{
        {u"-s"_s, &options.directory},
        {u"-u"_s, &options.topic},
        {u"-g"_s, &options.overview},
        {u"-n"_s, &unused},
        {u"-h"_s, &unused},
        {u"-f"_s, &unused},
        {u"--ui-about"_s, &unused},
        {u"--res-about"_s, &unused},
        {u"--translate"_s, &unused},
        {u"--sharedir"_s, &unused},
        {u"--vendorconfigdir"_s, &unused},
    };
    for (qsizetype i = 0; i + 1 < arguments.size(); ++i) {
        if (QString *const value = values.value(arguments.at(i)))
            *value = arguments.at(++i);
    }
    return options;
}
