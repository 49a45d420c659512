#pragma once

#include <QMessageBox>
#include <QObject>
#include <QString>

/// Answers the next modal message box, remembers what it said, and fails the test if none came.
///
/// Made on the stack before the call that shows the box. Several of them answer several boxes, in the
/// order in which they were made. A box that lacks the wanted button fails the test and is closed.
///
/// Threads: GUI thread only.
class NextBox : public QObject
{
public:
    explicit NextBox(QMessageBox::StandardButton answer);
    ~NextBox() override;
    Q_DISABLE_COPY_MOVE(NextBox)

    [[nodiscard]] bool hasCome() const { return m_bCome; }
    [[nodiscard]] const QString &title() const { return m_title; }
    [[nodiscard]] const QString &text() const { return m_text; }
    [[nodiscard]] Qt::TextFormat textFormat() const { return m_textFormat; }
    [[nodiscard]] QMessageBox::StandardButtons buttons() const { return m_buttons; }
    [[nodiscard]] QMessageBox::StandardButton defaultButton() const { return m_defaultButton; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void answer(QMessageBox &box);

    QMessageBox::StandardButton m_answer;
    bool m_bCome = false;
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
