#include "save_targets.h"

#include "ImageDocument.h"

using namespace Qt::StringLiterals;

SaveTargets numbered_targets(const QList<ImageDocument *> &documents, const QString &path, const QString &format)
{
    const qsizetype dot = path.lastIndexOf('.'_L1);
    const qsizetype position = dot < 0 ? path.size() : dot;
    SaveTargets targets;
    for (const ImageDocument *const document : documents) {
        if (document->hasFile())
            continue;
        const QString number = QString::number(targets.size() + 1);
        targets.insert(document,
                       {.path = QString(path).insert(position, number), .format = format, .isNumbered = true});
    }
    return targets;
}
