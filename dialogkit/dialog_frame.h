#pragma once

#include <Qt>

class QDialog;
class QHBoxLayout;
class QLayout;
class QPushButton;
class QString;

/// What the dialogs of this folder have in common. Sizes are in screen pixels.

inline constexpr int DialogSpacing = 6; ///< between widgets, and the margin around them

/// A title and a system menu; no close button, since OK and Cancel are there.
inline constexpr Qt::WindowFlags DialogFlags = Qt::WindowTitleHint | Qt::WindowSystemMenuHint;

/// The row under the inputs of a dialog.
struct ButtonRow
{
    QHBoxLayout *layout; ///< belongs to nobody yet: add it to the layout of the dialog
    QPushButton *okButton; ///< owned by the dialog
};

/// Gives @p dialog its title, its object name (@p name may be null), its modality, and the icon of its
/// parent or, if that has none, of the application's main window.
void identify_dialog(QDialog &dialog, const QString &title, const char *name, bool modal);

/// Gives @p layout the margin and the spacing of a dialog.
void set_dialog_spacing(QLayout &layout);

/// Makes "OK", the default, and "Cancel" at the right end of a row; they accept and reject @p dialog.
[[nodiscard]] ButtonRow make_button_row(QDialog &dialog);

/// Resizes @p dialog to what its finished layout asks for, and to @p minimumWidth if that is wider.
void fit_size(QDialog &dialog, int minimumWidth);
