#pragma once

#include <QString>

class QWidget;

/// @name Asking the user for an image file
///
/// Each runs one modal dialog from start to end and answers whether the user chose a file. On false
/// the caller stays where it was and ignores the strings, which may have been changed all the same.
///
/// Errors:    told to the user by the dialogs themselves or by a diagnostic line; cancelling is silent.
/// Ownership: the parent stays the caller's and may be null; the dialog is gone on return.
/// Threads:   GUI thread only; the event loop runs.
/// @{

/// Asks for an existing file, starting in the home directory each time.
/// @param[out] filePath  absolute path
/// @param[out] format    key of the chosen filter; if that filter stands for several formats, what
///                       follows the last dot of the path, or the whole path if it has none
[[nodiscard]] bool open_file_dialog(QString &filePath, QString &format, QWidget *parent);

/// Asks for the file to save an image in, and makes sure that its format can be written.
/// @param[in,out] filePath  proposed name, a relative one being put into the home directory; then the
///                          absolute path
/// @param[in,out] format    proposed key, may be empty; then the key of the chosen filter
/// @param onlyFormat        key of the only format to offer, which must be among writableImageFormats();
///                          null offers all of these
[[nodiscard]] bool save_file_dialog(QString &filePath, QString &format, QWidget *parent, const char *onlyFormat);

/// Asks for the name and the format of all open documents; offers multi-page TIFF as well.
/// @param[in,out] filePath, format  as in save_file_dialog(), but the format is not tested
/// @param[out] useAsBase            whether documents without a name get theirs from the chosen one;
///                                  written only when a name was chosen
[[nodiscard]] bool save_all_file_dialog(QString &filePath, QString &format, bool &useAsBase, QWidget *parent);

/// @}
