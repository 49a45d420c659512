#pragma once

#include "Row.h"

#include <QString>
#include <QStringList>

/// Another program that makes a file of a file, from its start to its end.
struct Command
{
    QString name;
    QStringList words; ///< "%1" stands for the input, "%2" for the output (.tif), and "%3" for the directory of inputs
};

/// The words with all put in.
[[nodiscard]] QStringList words_of(const Command &command, const QString &input, const QString &output,
                                   const Surroundings &surroundings);

/// Runs it on an input each round; the output of the round before is removed first.
[[nodiscard]] Side command_side(const Command &command, const char *input);

/// ImageMagick with these words between the input and the output, an uncompressed TIFF file.
[[nodiscard]] Command image_magick(const QStringList &words);
