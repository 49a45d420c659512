#pragma once

#include "ImageFileDialog.h"

#include <QObject>
#include <QPointer>

#include <functional>

/// Works the next image file dialog as a user would, once it is shown, and fails the test if none
/// came, if it is left open, or if a message box comes that nobody answers.
///
/// Made on the stack before the call that runs the dialog. The work must end it.
///
/// Threads: GUI thread only.
class FileDialogUser : public QObject
{
public:
    using Work = std::function<void(FileDialogUser &)>;

    explicit FileDialogUser(Work work);
    ~FileDialogUser() override;
    Q_DISABLE_COPY_MOVE(FileDialogUser)

    [[nodiscard]] ImageFileDialog &dialog() const { return *m_dialog; }
    [[nodiscard]] bool isOpen() const { return m_dialog && m_dialog->isVisible(); }

    [[nodiscard]] QString name() const; ///< what the name field holds
    [[nodiscard]] QString filter() const; ///< what the filter box holds

    void type(const QString &name) const; ///< replaces what the name field holds
    void chooseFilter(const QString &filter) const; ///< fails the test if the filter box lacks this text
    void accept() const; ///< presses Open or Save
    /// Takes the name by the Return key in its field. Unlike the button, it also works for a name that
    /// the filter keeps off the list.
    void pressReturn() const;
    void cancel() const;
    void forceAccept() const; ///< ends the dialog as accepted, past its own checks

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void run();

    Work m_work;
    QPointer<ImageFileDialog> m_dialog;
};

/// @name The same steps for a dialog that a test shows by itself.
/// @{
[[nodiscard]] QString name_in(const ImageFileDialog &dialog);
void type_name(const ImageFileDialog &dialog, const QString &name);
void choose_filter(const ImageFileDialog &dialog, const QString &filter);
void press_accept(const ImageFileDialog &dialog);
/// @}
