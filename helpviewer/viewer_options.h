#pragma once

#include <QString>
#include <QStringList>

/// What a caller of the help viewer asks for.
struct ViewerOptions
{
    QString directory; ///< where the pages lie (-s)
    QString topic; ///< file name of the page to show first (-u), empty for the overview
    QString overview; ///< file name of the page about the whole package (-g)
};

/// Reads a command line, without the program's name.
///
/// Options come in any order, each with its value as the next word; of one that comes twice the last counts.
/// "-n", "-h", "-f", "--ui-about", "--res-about", "--translate", "--sharedir" and "--vendorconfigdir" are taken with
/// their values and have no effect on what is shown. Any other word, and an option at the end without its value, is
/// ignored.
[[nodiscard]] ViewerOptions viewer_options(const QStringList &arguments);
