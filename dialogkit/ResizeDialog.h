#pragma once

#include <QDialog>

class QImage;
class QLineEdit;

/// Asks for a new width and height, and refuses what the machine could not hold.
///
/// Units:  pixels.
class ResizeDialog : public QDialog
{
    Q_OBJECT

public:
    /// Starts with the size of @p image.
    /// @param name  becomes the object name; may be null
    explicit ResizeDialog(const QImage &image, QWidget *parent = nullptr, const char *name = nullptr,
                          bool modal = false);

    using QDialog::result;

    /// Reads what stands in the line edits, judging nothing.
    /// @param[out] size  must not be null; untouched on failure
    /// @return false if one of them holds no number
    [[nodiscard]] bool result(QSize *size) const;

public slots:
    /// Closes the dialog if the size will do; otherwise a box says why it stays open. How much the
    /// machine can hold is asked anew each time.
    void accept() override;

private:
    QLineEdit *m_widthEdit = nullptr;
    QLineEdit *m_heightEdit = nullptr;
};
