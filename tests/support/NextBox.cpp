#include "NextBox.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace {

/// Those that have met no box yet, oldest first.
QList<NextBox *> &waiting()
{
    static QList<NextBox *> boxes;
    return boxes;
}

} // namespace

NextBox::NextBox(QMessageBox::StandardButton answer) : m_answer(answer)
{
    waiting().append(this);
    qApp->installEventFilter(this);
}

NextBox::~NextBox()
{
    waiting().removeOne(this);
    if (!m_bCome)
        QTest::qFail("no message box came", __FILE__, __LINE__);
}

bool NextBox::eventFilter(QObject *watched, QEvent *event)
{
    // Younger filters see an event first, so each asks whether it is its turn.
    if (event->type() != QEvent::Show || waiting().value(0) != this)
        return false;
    auto *const box = qobject_cast<QMessageBox *>(watched);
    if (box == nullptr || !box->isModal())
        return false;

    m_bCome = true;
    waiting().removeOne(this);
    // The box runs its event loop only after it has been shown.
    QMetaObject::invokeMethod(
        this,
        [this, shown = QPointer(box)] {
            if (shown)
                answer(*shown);
        },
        Qt::QueuedConnection);
    return false;
}

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
