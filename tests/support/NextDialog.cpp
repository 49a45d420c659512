#include "NextDialog.h"

#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <QTest>

#include <algorithm>

namespace {

/// Those that have met no dialog yet, oldest first.
QList<NextModal *> &waiting()
{
    static QList<NextModal *> all;
    return all;
}

} // namespace

NextModal::NextModal()
{
    waiting().append(this);
    qApp->installEventFilter(this);
}

NextModal::~NextModal()
{
    waiting().removeOne(this);
    if (!m_bCome)
        QTest::qFail("no dialog came", __FILE__, __LINE__);
}

bool NextModal::eventFilter(QObject *watched, QEvent *event)
{
    auto *const dialog = event->type() == QEvent::Show ? qobject_cast<QDialog *>(watched) : nullptr;
    if (dialog == nullptr || !dialog->isModal())
        return false;
    // Younger filters see an event first, so each asks whether it is its turn.
    const auto turn = std::ranges::find_if(waiting(), [dialog](const NextModal *next) { return next->takes(*dialog); });
    if (turn == waiting().end() || *turn != this)
        return false;

    m_bCome = true;
    waiting().removeOne(this);
    // The dialog runs its event loop only after it has been shown.
    QMetaObject::invokeMethod(
        this,
        [this, shown = QPointer(dialog)] {
            if (shown)
                meet(*shown);
        },
        Qt::QueuedConnection);
    return false;
}
