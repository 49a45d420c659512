#pragma once

#include "NextDialog.h"

#include <QMessageBox>
#include <QString>

/// Answers the next modal message box and remembers what it said. A box that lacks the wanted button fails the test and
/// is closed.
class NextBox : public NextModal
{
public:
    explicit NextBox(QMessageBox::StandardButton answer) : m_answer(answer) { }

    [[nodiscard]] const QString &title() const { return m_title; }
    [[nodiscard]] const QString &text() const { return m_text; }
    [[nodiscard]] Qt::TextFormat textFormat() const { return m_textFormat; }
    [[nodiscard]] QMessageBox::StandardButtons buttons() const { return m_buttons; }
    [[nodiscard]] QMessageBox::StandardButton defaultButton() const { return m_defaultButton; }

private:
    [[nodiscard]] bool takes(const QDialog &dialog) const override;
    void meet(QDialog &dialog) override;

    QMessageBox::StandardButton m_answer;
    QString m_title;
    QString m_text;
    Qt::TextFormat m_textFormat = Qt::AutoText;
    QMessageBox::StandardButtons m_buttons;
    QMessageBox::StandardButton m_defaultButton = QMessageBox::NoButton;
};

/// `const NextBox box = answer_next_box(QMessageBox::No);`
[[nodiscard]] inline NextBox answer_next_box(QMessageBox::StandardButton answer)
{
    return NextBox(answer);
}
