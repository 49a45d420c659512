#pragma once

#include <QHash>
#include <QList>
#include <QString>

class ImageDocument;

/// Where a document goes when all are saved.
struct SaveTarget
{
    QString path; ///< empty: where it lives, or where the user is going to say
    QString format; ///< format word
    bool isNumbered = false; ///< nobody has seen the name yet, so a file that has it is asked about
};

using SaveTargets = QHash<const ImageDocument *, SaveTarget>;

/// Targets for those of @p documents that have no file of their own: @p path with 1, 2, 3 ... before its last dot,
/// or behind it if it has none.
[[nodiscard]] SaveTargets numbered_targets(const QList<ImageDocument *> &documents, const QString &path,
                                           const QString &format);
