#pragma once

#include <QDialog>

class LineEditControl;
class QPushButton;
class QRegularExpression;

/// Asks for a text that must match a regular expression as a whole; until it does, OK is disabled.
/// It belongs to the kit; no command uses it.
class InputStringDialog : public QDialog
{
    Q_OBJECT

public:
    /// @param pattern  "." matches line breaks too, "\w" the letters of every script
    /// @param name     becomes the object name; may be null
    InputStringDialog(const QString &title, const QString &label, const QString &toolTip,
                      const QRegularExpression &pattern, QWidget *parent = nullptr, const char *name = nullptr,
                      bool modal = false);

    [[nodiscard]] QString text() const;

private slots:
    void on_textChanged(const QString &text);

private:
    LineEditControl *m_control;
    QPushButton *m_okButton = nullptr;
};
