#include "NextBox.h"

#include <QAbstractButton>
#include <QPushButton>
#include <QTest>

void NextBox::answer(QMessageBox &box)
{
    m_title = box.windowTitle();
    m_text = box.text();
    m_textFormat = box.textFormat();
    m_buttons = box.standardButtons();
    m_defaultButton = box.standardButton(box.defaultButton());

    QAbstractButton *const button = box.button(m_answer);
    if (button != nullptr) {
        button->click();
        return;
    }
    QTest::qFail("the message box has no such button", __FILE__, __LINE__);
    box.done(QMessageBox::NoButton);
}
