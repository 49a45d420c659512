#pragma once

#include <QString>

/// The text under which a tab shows @p title as it is written: a single "&" would underline the letter behind it.
[[nodiscard]] inline QString tab_text(QString title)
{
    return title.replace(u'&', QStringLiteral("&&"));
}
