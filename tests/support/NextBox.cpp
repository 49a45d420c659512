#include "NextBox.h"

#include <QAbstractButton>
#include <QPushButton>
#include <QTest>

bool NextBox::takes(const QDialog &dialog) const
{
    return qobject_cast<const QMessageBox *>(&dialog) != nullptr;
}

void NextBox::meet(QDialog &dialog)
{
    auto &box = static_cast<QMessageBox &>(dialog);
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
