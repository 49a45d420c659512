#include "shown_scroll_view.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QWheelEvent>

namespace {

/// Records what reaches the contents...Event() functions.
class RecordingView : public Q3ScrollView
{
public:
    using Q3ScrollView::Q3ScrollView;

    struct Call
    {
        QEvent::Type handler = QEvent::None; ///< which function was called
        QEvent::Type type = QEvent::None;
        QPointF position;
        QPointF globalPosition;
        Qt::MouseButton button = Qt::NoButton;
        Qt::MouseButtons buttons;
        Qt::KeyboardModifiers modifiers;
    };

    QList<Call> calls;
    QList<QPoint> menuPositions;
    QList<QPoint> wheelPositions;
    bool ignoresMouse = false;
    bool acceptsWheel = false;

protected:
    void contentsMousePressEvent(QMouseEvent *event) override { record(QEvent::MouseButtonPress, event); }
    void contentsMouseReleaseEvent(QMouseEvent *event) override { record(QEvent::MouseButtonRelease, event); }
    void contentsMouseMoveEvent(QMouseEvent *event) override { record(QEvent::MouseMove, event); }
    void contentsContextMenuEvent(QContextMenuEvent *event) override
    {
        menuPositions.append(event->pos());
        Q3ScrollView::contentsContextMenuEvent(event);
    }
    void contentsWheelEvent(QWheelEvent *event) override
    {
        wheelPositions.append(event->position().toPoint());
        if (!acceptsWheel)
            Q3ScrollView::contentsWheelEvent(event);
    }

private:
    void record(QEvent::Type handler, QMouseEvent *event)
    {
        calls.append({handler, event->type(), event->position(), event->globalPosition(), event->button(),
                      event->buttons(), event->modifiers()});
        if (ignoresMouse)
            event->ignore();
    }
};

/// Counts the events that its child passed on.
class Parent : public QWidget
{
public:
    int presses = 0;
    int keys = 0;
    int menus = 0;

protected:
    void mousePressEvent(QMouseEvent * /*event*/) override { ++presses; }
    void keyPressEvent(QKeyEvent * /*event*/) override { ++keys; }
    void contextMenuEvent(QContextMenuEvent * /*event*/) override { ++menus; }
};

} // namespace

class tst_Q3ScrollView_events : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void mouseEventsArriveInContentsCoordinates();
    void doubleClickIsAPress();
    void dragLeavesTheWindowOnBothSides();
    void acceptedMouseEventIsEaten();
    void ignoredMouseEventGoesToTheParent();
    void disabledViewportForwardsNothing();
    void contextMenuIsIgnoredByDefault();
    void wheelNotchScrollsThreeLines_data();
    void wheelNotchScrollsThreeLines();
    void wheelEventThatIsAcceptedScrollsNothing();
    void keysAreLeftToTheParent();
    void cursorOfTheViewShowsOverTheViewport();

private:
    RecordingView *view = nullptr;
    Parent *parent = nullptr;
};

void tst_Q3ScrollView_events::init()
{
    parent = new Parent;
    view = new RecordingView(parent);
    show_at_100(*view);
}

void tst_Q3ScrollView_events::cleanup()
{
    delete parent;
}

void tst_Q3ScrollView_events::mouseEventsArriveInContentsCoordinates()
{
    QTest::mousePress(view->viewport(), Qt::RightButton, Qt::ControlModifier, QPoint(7, 9));
    QTest::mouseMove(view->viewport(), QPoint(8, 11));
    QTest::mouseRelease(view->viewport(), Qt::RightButton, Qt::NoModifier, QPoint(8, 11));

    QTRY_VERIFY(view->calls.size() >= 3);
    const RecordingView::Call &press = view->calls.constFirst();
    QCOMPARE(press.handler, QEvent::MouseButtonPress);
    QCOMPARE(press.position, QPointF(107, 109));
    QCOMPARE(press.globalPosition.toPoint(), view->viewport()->mapToGlobal(QPoint(7, 9)));
    QCOMPARE(press.button, Qt::RightButton);
    QCOMPARE(press.buttons, Qt::RightButton);
    QCOMPARE(press.modifiers, Qt::ControlModifier);
    const RecordingView::Call &release = view->calls.constLast();
    QCOMPARE(release.handler, QEvent::MouseButtonRelease);
    QCOMPARE(release.position, QPointF(108, 111));
    QCOMPARE(view->calls[1].handler, QEvent::MouseMove);
    QCOMPARE(view->calls[1].position, QPointF(108, 111));
}

void tst_Q3ScrollView_events::doubleClickIsAPress()
{
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(7, 9));

    QVERIFY(!view->calls.isEmpty());
    const RecordingView::Call &last = view->calls.constLast();
    QCOMPARE(last.type, QEvent::MouseButtonDblClick);
    QCOMPARE(last.handler, QEvent::MouseButtonPress);
    QCOMPARE(last.position, QPointF(107, 109));
}

void tst_Q3ScrollView_events::dragLeavesTheWindowOnBothSides()
{
    view->setContentsPos(0, 0);
    QTest::mousePress(view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(7, 9));

    const QPointF outside(-12, 500);
    QMouseEvent move(QEvent::MouseMove, outside, view->viewport()->mapToGlobal(outside), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(view->viewport(), &move);

    QCOMPARE(view->calls.constLast().position, QPointF(-12, 500));
    QCOMPARE(view->calls.constLast().buttons, Qt::LeftButton);
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(7, 9));
}

void tst_Q3ScrollView_events::acceptedMouseEventIsEaten()
{
    QTest::mousePress(view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(7, 9));

    QCOMPARE(view->calls.size(), 1);
    QCOMPARE(parent->presses, 0);
}

void tst_Q3ScrollView_events::ignoredMouseEventGoesToTheParent()
{
    view->ignoresMouse = true;

    QTest::mousePress(view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(7, 9));

    QCOMPARE(view->calls.size(), 1);
    QCOMPARE(parent->presses, 1);
}

void tst_Q3ScrollView_events::disabledViewportForwardsNothing()
{
    view->viewport()->setEnabled(false);
    const QPoint point(7, 9);
    const QPoint global = view->viewport()->mapToGlobal(point);

    QMouseEvent press(QEvent::MouseButtonPress, point, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view->viewport(), &press);
    QContextMenuEvent menu(QContextMenuEvent::Mouse, point, global);
    QCoreApplication::sendEvent(view->viewport(), &menu);
    QWheelEvent wheel(point, global, {}, QPoint(0, -120), {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view->viewport(), &wheel);

    QVERIFY(view->calls.isEmpty());
    QVERIFY(view->menuPositions.isEmpty());
    QVERIFY(view->wheelPositions.isEmpty());
    QCOMPARE(view->contentsY(), 100);
}

void tst_Q3ScrollView_events::contextMenuIsIgnoredByDefault()
{
    const QPoint point(7, 9);
    QContextMenuEvent menu(QContextMenuEvent::Mouse, point, view->viewport()->mapToGlobal(point));

    QCoreApplication::sendEvent(view->viewport(), &menu);

    QCOMPARE(view->menuPositions, (QList<QPoint>{QPoint(107, 109)}));
    QCOMPARE(parent->menus, 1);
}

void tst_Q3ScrollView_events::wheelNotchScrollsThreeLines_data()
{
    QTest::addColumn<QPoint>("angle");
    QTest::addColumn<QPoint>("expected");
    QTest::newRow("down") << QPoint(0, -120) << QPoint(100, 160);
    QTest::newRow("up") << QPoint(0, 120) << QPoint(100, 40);
    QTest::newRow("right") << QPoint(-120, 0) << QPoint(160, 100);
    QTest::newRow("left") << QPoint(120, 0) << QPoint(40, 100);
}

void tst_Q3ScrollView_events::wheelNotchScrollsThreeLines()
{
    QFETCH(QPoint, angle);
    QFETCH(QPoint, expected);
    const QPoint point(7, 9);

    QWheelEvent wheel(point, view->viewport()->mapToGlobal(point), {}, angle, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view->viewport(), &wheel);

    QCOMPARE(view->wheelPositions, (QList<QPoint>{QPoint(107, 109)}));
    QCOMPARE(QPoint(view->contentsX(), view->contentsY()), expected);
}

void tst_Q3ScrollView_events::wheelEventThatIsAcceptedScrollsNothing()
{
    view->acceptsWheel = true;
    const QPoint point(7, 9);

    QWheelEvent wheel(point, view->viewport()->mapToGlobal(point), {}, QPoint(0, -120), {}, {}, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(view->viewport(), &wheel);

    QCOMPARE(view->wheelPositions.size(), 1);
    QCOMPARE(view->contentsY(), 100);
}

void tst_Q3ScrollView_events::keysAreLeftToTheParent()
{
    QTest::keyClick(view, Qt::Key_PageDown);
    QTest::keyClick(view, Qt::Key_Left);

    QCOMPARE(QPoint(view->contentsX(), view->contentsY()), QPoint(100, 100));
    QCOMPARE(parent->keys, 2);
}

void tst_Q3ScrollView_events::cursorOfTheViewShowsOverTheViewport()
{
    view->setCursor(Qt::CrossCursor);

    QVERIFY(!view->viewport()->testAttribute(Qt::WA_SetCursor));
    QCOMPARE(view->viewport()->cursor().shape(), Qt::CrossCursor);
}

QTEST_MAIN(tst_Q3ScrollView_events)

#include "tst_Q3ScrollView_events.moc"
