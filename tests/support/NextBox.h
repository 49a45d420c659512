#pragma once

#include "NextDialog.h"

#include <QMessageBox>
#include <QString>

/// Answers the next modal message box and remembers what it said. A box that lacks the wanted button fails the test and
/// is closed.
class NextBox : public NextOf<QMessageBox>
{
public:
    explicit NextBox(QMessageBox::StandardButton answer) :
        NextOf([this](QMessageBox &box) { this->answer(box); }),
        m_answer(answer)
    {
    }

    [[nodiscard]] const QString &title() const { return m_title; }
    [[nodiscard]] const QString &text() const { return m_text; }
    [[nodiscard]] Qt::TextFormat textFormat() const { return m_textFormat; }
    [[nodiscard]] QMessageBox::StandardButtons buttons() const { return m_buttons; }
    [[nodiscard]] QMessageBox::StandardButton defaultButton() const { return m_defaultButton; }

private:
    void answer(QMessageBox &box);

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
