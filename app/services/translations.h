#pragma once

#include <QString>
#include <QStringList>

/// The catalogues that turn the program's English texts into the user's language.
///
/// A catalogue is a file of compiled translations, <name>-<locale>.qm or <name>_<locale>.qm; the shorter forms that
/// QTranslator::load() falls back on, such as ImageManager_de.qm for de_AT, count as well.
///
/// Errors:    a catalogue that is not found leaves its texts in English and is no error.
/// Ownership: loaded catalogues stay installed until the process ends.
/// Threads:   GUI thread only, after the application object is made and before the first text is shown.

/// Loads the named catalogues for the user's locale, from the package's own directory and the toolkit's, and the
/// toolkit's own catalogue after them.
/// @param names  base names in the order in which they are installed, closed by null
void load_translations(const char *const *names);

// The stages that load_translations() goes through, each calling the next. A catalogue comes from the first
// directory that has it.

/// Appends the package's directory of catalogues.
void load_program_translations(const QStringList &names, const QStringList &directories);

/// Appends @p directory.
void load_translations_from(const QStringList &names, QStringList directories, const QString &directory);

/// Appends the toolkit's catalogue "qt" and puts the toolkit's directory in front.
void load_translations_with_toolkit(QStringList names, QStringList directories);

/// Installs what is found for a locale such as "de_DE", a name after the other.
void install_translations(const QStringList &names, const QStringList &directories, const QString &locale);
