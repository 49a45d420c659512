#pragma once

#include "ImageItem.h"
#include "ImageView.h"
#include "pictures.h"
#include "Q3Canvas.h"

#include <QLoggingCategory>
#include <QMouseEvent>
#include <QTest>

/// A shown ImageView of 300 by 200 with a patterned page, and a mouse for it.
class ViewFixture
{
public:
    explicit ViewFixture(QSize pageSize) : view(nullptr)
    {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^ImageItem::setImage:")));
        const QImage page = patterned_page(pageSize);
        if (!view.setImage(page))
            qFatal("the page was refused");
        view.canvas()->resize(page.width(), page.height());
        view.setFrameShape(QFrame::NoFrame);
        view.resize(300, 200);
        view.show();
        if (!QTest::qWaitForWindowExposed(&view))
            qFatal("the view did not come up");
        QCoreApplication::processEvents(); // scroll bars follow from the event loop
    }

    /// Positions are viewport pixels.
    void press(QPoint position, Qt::MouseButton button = Qt::LeftButton)
    {
        m_held = button;
        send(QEvent::MouseButtonPress, position, button, m_held);
    }
    void move(QPoint position) { send(QEvent::MouseMove, position, Qt::NoButton, m_held); }
    void release(QPoint position, Qt::MouseButton button = Qt::LeftButton)
    {
        m_held = Qt::NoButton;
        send(QEvent::MouseButtonRelease, position, button, m_held);
    }
    /// Lets the button go where the view does not hear of it.
    void releaseElsewhere() { m_held = Qt::NoButton; }
    void drag(QPoint from, QPoint to)
    {
        press(from);
        move(to);
        release(to);
    }

    ImageView view;

private:
    void send(QEvent::Type type, QPoint position, Qt::MouseButton button, Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, position, view.viewport()->mapToGlobal(position), button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(view.viewport(), &event);
    }

    Qt::MouseButton m_held = Qt::NoButton;
};
