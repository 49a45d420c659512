#include "shown_scroll_view.h"

#include <QSignalSpy>
#include <QStyle>

namespace {

/// Counts its repaints.
class CountingView : public Q3ScrollView
{
public:
    using Q3ScrollView::Q3ScrollView;

    int repaints = 0;
    QList<QSize> paintedSizes; ///< of the viewport

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++repaints;
        paintedSizes.append(viewport()->size());
        Q3ScrollView::paintEvent(event);
    }
};

} // namespace

class tst_Q3ScrollView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void newViewHasTheClassicDefaults();
    void scrollBarsHaveAccessibleNames();
    void leastSizeFollowsFrameAndStyle();
    void contentsSizeIsStoredAtOnceAndBarsFollow();
    void barsShowOnlyWhenNeeded();
    void contentsArePaintedOnceTheBarsAreThere();
    void oneBarCallsForTheOther_data();
    void oneBarCallsForTheOther();
    void contentsThatShrinkPullThePositionBackLater();
    void contentsSmallerThanTheViewGoToTheOrigin();
    void widerViewPullsThePositionBackAtOnce();
    void positionIsCutToTheContents_data();
    void positionIsCutToTheContents();
    void moveIsAnnouncedBeforeItHappens();
    void moveByNothingIsNotAnnounced();
    void moveRepaintsTheWindow();
    void scrollByStopsAtTheEdges();
    void programmaticMoveSetsTheBarsSilently();
    void barMovesTheContents();
    void ensureVisibleMovesAsLittleAsItCan_data();
    void ensureVisibleMovesAsLittleAsItCan();
    void ensureVisibleHasMarginsOf50();
    void ensureVisibleOfSmallContentsGoesToTheOrigin();
    void pointsMapBetweenContentsAndViewport();

private:
    CountingView *view = nullptr;
    QWidget *parent = nullptr;
};

void tst_Q3ScrollView::init()
{
    parent = new QWidget;
    view = new CountingView(parent);
    show_at_100(*view);
}

void tst_Q3ScrollView::cleanup()
{
    delete parent;
}

void tst_Q3ScrollView::newViewHasTheClassicDefaults()
{
    const Q3ScrollView fresh(nullptr, "fresh");

    QCOMPARE(fresh.objectName(), QStringLiteral("fresh"));
    QCOMPARE(fresh.frameStyle(), QFrame::StyledPanel | QFrame::Sunken);
    QCOMPARE(fresh.lineWidth(), fresh.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, &fresh));
    QCOMPARE(fresh.sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    QCOMPARE(fresh.focusPolicy(), Qt::NoFocus);
    QCOMPARE(fresh.horizontalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QCOMPARE(fresh.verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QCOMPARE(fresh.horizontalScrollBar()->singleStep(), 20);
    QCOMPARE(fresh.verticalScrollBar()->singleStep(), 20);
    QVERIFY(!fresh.cornerWidget());
    QCOMPARE(QPoint(fresh.contentsX(), fresh.contentsY()), QPoint(0, 0));
}

void tst_Q3ScrollView::scrollBarsHaveAccessibleNames()
{
    QCOMPARE(view->horizontalScrollBar()->accessibleName(), QStringLiteral("Horizontal scroll bar"));
    QCOMPARE(view->verticalScrollBar()->accessibleName(), QStringLiteral("Vertical scroll bar"));
}

void tst_Q3ScrollView::leastSizeFollowsFrameAndStyle()
{
    const auto expected = [this] { return view->QAbstractScrollArea::minimumSizeHint(); };
    const QSize before = view->minimumSizeHint();
    QCOMPARE(before, expected());

    view->setLineWidth(view->lineWidth() + 5);
    view->setFrameStyle(QFrame::Box | QFrame::Plain);
    QVERIFY(expected() != before);
    QCOMPARE(view->minimumSizeHint(), expected());

    const QSize framed = expected();
    view->setStyleSheet(QStringLiteral("QScrollBar { min-width: 77px; min-height: 77px; }"));
    QVERIFY(expected() != framed);
    QCOMPARE(view->minimumSizeHint(), expected());
}

void tst_Q3ScrollView::contentsSizeIsStoredAtOnceAndBarsFollow()
{
    view->resizeContents(500, 600);

    QCOMPARE(QSize(view->contentsWidth(), view->contentsHeight()), QSize(500, 600));
    QCOMPARE(view->horizontalScrollBar()->maximum(), 300);
    QTRY_COMPARE(view->horizontalScrollBar()->maximum(), 400);
    QCOMPARE(view->verticalScrollBar()->maximum(), 520);
    QCOMPARE(view->horizontalScrollBar()->pageStep(), 100);
    QCOMPARE(view->verticalScrollBar()->pageStep(), 80);
}

void tst_Q3ScrollView::barsShowOnlyWhenNeeded()
{
    QVERIFY(view->horizontalScrollBar()->isVisible());
    QVERIFY(view->verticalScrollBar()->isVisible());

    view->resizeContents(50, 50);

    QTRY_VERIFY(!view->horizontalScrollBar()->isVisible());
    QVERIFY(!view->verticalScrollBar()->isVisible());
    QCOMPARE(view->viewport()->size(), view->size() - frame(*view));
}

void tst_Q3ScrollView::contentsArePaintedOnceTheBarsAreThere()
{
    const QSize inside = view->size() - frame(*view);
    for (const QSize contents : {QSize(50, 50), QSize(400, 300)}) { // the bars go, and come back
        QCoreApplication::sendPostedEvents(); // a painting that waits already would come first
        view->paintedSizes.clear();

        view->resizeContents(contents.width(), contents.height());
        view->viewport()->update();
        QCoreApplication::sendPostedEvents(); // what is asked for here, without what the X server may ask for

        QVERIFY(!view->paintedSizes.isEmpty());
        QCOMPARE(view->paintedSizes.first(), contents.width() < Visible.width() ? inside : Visible);
    }
}

void tst_Q3ScrollView::oneBarCallsForTheOther_data()
{
    QTest::addColumn<QSize>("beyond"); // contents size beyond the frame's inside
    QTest::addColumn<bool>("horizontal");
    QTest::addColumn<bool>("vertical");
    QTest::newRow("fits exactly") << QSize(0, 0) << false << false;
    QTest::newRow("wider, as high as the inside") << QSize(1, 0) << true << true;
    QTest::newRow("higher, as wide as the inside") << QSize(0, 1) << true << true;
    QTest::newRow("wider, low enough beside the bar") << QSize(1, -40) << true << false;
    QTest::newRow("higher, narrow enough beside the bar") << QSize(-40, 1) << false << true;
}

void tst_Q3ScrollView::oneBarCallsForTheOther()
{
    QFETCH(QSize, beyond);
    QFETCH(bool, horizontal);
    QFETCH(bool, vertical);
    const QSize contents = view->size() - frame(*view) + beyond;

    view->resizeContents(contents.width(), contents.height());
    QTRY_VERIFY(view->verticalScrollBar()->isVisible() == vertical
                && view->horizontalScrollBar()->isVisible() == horizontal);

    QCOMPARE(view->viewport()->width(), view->width() - frame(*view).width() - (vertical ? bar_width(*view) : 0));
    QCOMPARE(view->viewport()->height(), view->height() - frame(*view).height() - (horizontal ? bar_height(*view) : 0));
}

void tst_Q3ScrollView::contentsThatShrinkPullThePositionBackLater()
{
    view->setContentsPos(300, 220);
    QSignalSpy moving(view, &Q3ScrollView::contentsMoving);

    view->resizeContents(250, 300);

    QCOMPARE(view->contentsX(), 300);
    QVERIFY(moving.wait());
    QCOMPARE(moving.constFirst(), (QVariantList{150, 220}));
    QCOMPARE(QPoint(view->contentsX(), view->contentsY()), QPoint(150, 220));
    QCOMPARE(view->horizontalScrollBar()->value(), 150);
}

void tst_Q3ScrollView::contentsSmallerThanTheViewGoToTheOrigin()
{
    const QSignalSpy moving(view, &Q3ScrollView::contentsMoving);

    view->resizeContents(20, 10);

    QTRY_COMPARE(QPoint(view->contentsX(), view->contentsY()), QPoint(0, 0));
    QCOMPARE(moving, (QList<QVariantList>{{0, 0}}));
}

void tst_Q3ScrollView::widerViewPullsThePositionBackAtOnce()
{
    view->setContentsPos(300, 220);

    view->resize(view->size() + QSize(30, 20));

    QCOMPARE(QPoint(view->contentsX(), view->contentsY()), QPoint(270, 200));
    QCOMPARE(view->horizontalScrollBar()->maximum(), 270);
    QCOMPARE(view->verticalScrollBar()->value(), 200);
}

void tst_Q3ScrollView::positionIsCutToTheContents_data()
{
    QTest::addColumn<QPoint>("wanted");
    QTest::addColumn<QPoint>("expected");
    QTest::newRow("inside") << QPoint(12, 34) << QPoint(12, 34);
    QTest::newRow("negative") << QPoint(-5, -1) << QPoint(0, 0);
    QTest::newRow("last") << QPoint(300, 220) << QPoint(300, 220);
    QTest::newRow("beyond") << QPoint(301, 1000) << QPoint(300, 220);
}

void tst_Q3ScrollView::positionIsCutToTheContents()
{
    QFETCH(QPoint, wanted);
    QFETCH(QPoint, expected);

    view->setContentsPos(wanted.x(), wanted.y());

    QCOMPARE(QPoint(view->contentsX(), view->contentsY()), expected);
}

void tst_Q3ScrollView::moveIsAnnouncedBeforeItHappens()
{
    QPoint announced, positionThen;
    connect(view, &Q3ScrollView::contentsMoving, this, [&](int x, int y) {
        announced = QPoint(x, y);
        positionThen = QPoint(view->contentsX(), view->contentsY());
    });

    view->setContentsPos(120, 1000);

    QCOMPARE(announced, QPoint(120, 220));
    QCOMPARE(positionThen, QPoint(100, 100));
}

void tst_Q3ScrollView::moveByNothingIsNotAnnounced()
{
    view->setContentsPos(300, 220);
    const QSignalSpy moving(view, &Q3ScrollView::contentsMoving);

    view->setContentsPos(300, 220);
    view->setContentsPos(310, 230);
    view->scrollBy(0, 0);

    QCOMPARE(moving.size(), 0);
}

void tst_Q3ScrollView::moveRepaintsTheWindow()
{
    QTRY_VERIFY(view->repaints > 0);
    QCoreApplication::processEvents();
    view->repaints = 0;

    view->scrollBy(1, 0);

    QTRY_COMPARE(view->repaints, 1);
}

void tst_Q3ScrollView::scrollByStopsAtTheEdges()
{
    view->scrollBy(10, -20);
    QCOMPARE(QPoint(view->contentsX(), view->contentsY()), QPoint(110, 80));

    view->scrollBy(-500, 500);
    QCOMPARE(QPoint(view->contentsX(), view->contentsY()), QPoint(0, 220));
}

void tst_Q3ScrollView::programmaticMoveSetsTheBarsSilently()
{
    const QSignalSpy changed(view->horizontalScrollBar(), &QScrollBar::valueChanged);

    view->setContentsPos(42, 17);

    QCOMPARE(view->horizontalScrollBar()->value(), 42);
    QCOMPARE(view->verticalScrollBar()->value(), 17);
    QCOMPARE(changed.size(), 0);
}

void tst_Q3ScrollView::barMovesTheContents()
{
    QSignalSpy moving(view, &Q3ScrollView::contentsMoving);

    view->horizontalScrollBar()->setValue(150);
    view->verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    view->verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);

    QCOMPARE(QPoint(view->contentsX(), view->contentsY()), QPoint(150, 200));
    QCOMPARE(moving.size(), 3);
    QCOMPARE(moving.constFirst(), (QVariantList{150, 100}));
}

void tst_Q3ScrollView::ensureVisibleMovesAsLittleAsItCan_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QPoint>("margins");
    QTest::addColumn<QPoint>("expected"); // from 100,100
    QTest::newRow("inside") << QPoint(150, 150) << QPoint(0, 0) << QPoint(100, 100);
    QTest::newRow("right of it ends one pixel outside") << QPoint(250, 150) << QPoint(0, 0) << QPoint(150, 100);
    QTest::newRow("just right of it stays") << QPoint(200, 150) << QPoint(0, 0) << QPoint(100, 100);
    QTest::newRow("left of it becomes the first column") << QPoint(50, 150) << QPoint(0, 0) << QPoint(50, 100);
    QTest::newRow("below it") << QPoint(150, 230) << QPoint(0, 0) << QPoint(100, 150);
    QTest::newRow("above it") << QPoint(150, 20) << QPoint(0, 0) << QPoint(100, 20);
    QTest::newRow("margin on the right") << QPoint(195, 150) << QPoint(10, 10) << QPoint(105, 100);
    QTest::newRow("margin on the left") << QPoint(105, 150) << QPoint(10, 10) << QPoint(95, 100);
    QTest::newRow("margin above half the size centres") << QPoint(210, 190) << QPoint(999, 999) << QPoint(160, 150);
    QTest::newRow("cut at the end") << QPoint(399, 299) << QPoint(50, 50) << QPoint(300, 220);
    QTest::newRow("cut at the start") << QPoint(3, 2) << QPoint(50, 50) << QPoint(0, 0);
    QTest::newRow("negative point") << QPoint(-30, -40) << QPoint(0, 0) << QPoint(0, 0);
    QTest::newRow("point beyond the contents") << QPoint(900, 900) << QPoint(0, 0) << QPoint(300, 220);
}

void tst_Q3ScrollView::ensureVisibleMovesAsLittleAsItCan()
{
    QFETCH(QPoint, point);
    QFETCH(QPoint, margins);
    QFETCH(QPoint, expected);

    view->ensureVisible(point.x(), point.y(), margins.x(), margins.y());

    QCOMPARE(QPoint(view->contentsX(), view->contentsY()), expected);
    QCOMPARE(view->horizontalScrollBar()->value(), expected.x());
}

void tst_Q3ScrollView::ensureVisibleHasMarginsOf50()
{
    view->resize(view->size() + QSize(60, 80)); // 160 by 160 visible

    view->ensureVisible(250, 90);

    QCOMPARE(QPoint(view->contentsX(), view->contentsY()), QPoint(140, 40));
}

void tst_Q3ScrollView::ensureVisibleOfSmallContentsGoesToTheOrigin()
{
    view->resizeContents(60, 50);
    QTRY_COMPARE(view->contentsX(), 0);

    view->ensureVisible(500, 500, 0, 0);

    QCOMPARE(QPoint(view->contentsX(), view->contentsY()), QPoint(0, 0));
}

void tst_Q3ScrollView::pointsMapBetweenContentsAndViewport()
{
    view->setContentsPos(30, 70);

    QCOMPARE(view->viewportToContents(QPoint(-5, 6)), QPoint(25, 76));
    QCOMPARE(view->contentsToViewport(QPoint(25, 76)), QPoint(-5, 6));
}

QTEST_MAIN(tst_Q3ScrollView)

#include "tst_Q3ScrollView.moc"
