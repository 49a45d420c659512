#pragma once

#include <QString>

/// A command line with a file put in for its placeholder, wherever it stands and as often as it stands there. The path
/// goes in letter for letter, without any quoting, and is not searched again. A command without the placeholder comes
/// back as it is. Capital and small letters differ.
[[nodiscard]] QString fill_placeholder(const QString &command, const QString &placeholder, const QString &path);

/// A path with its first character, if that is "~", replaced by the path of the home directory; whatever stands behind
/// it stays, so "~name/file" becomes the home path and then "name/file". Any other "~" stays.
[[nodiscard]] QString expand_home(const QString &path, const QString &home);
