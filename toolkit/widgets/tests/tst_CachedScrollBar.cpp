#include "CachedScrollBar.h"

#include <QCursor>
#include <QImage>
#include <QProxyStyle>
#include <QScreen>
#include <QStyleFactory>
#include <QTest>

#include <algorithm>
#include <cstdlib>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// Largest difference of a channel; parts that are drawn one over the other are rounded once more.
int largest_difference(const QImage &a, const QImage &b)
{
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            largest = std::max(
                {largest, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)), std::abs(qBlue(p) - qBlue(q))});
        }
    }
    return largest;
}

/// A style around that of the desktop; counts the bars that it draws.
class CountingStyle : public QProxyStyle
{
    Q_OBJECT

public:
    CountingStyle() : QProxyStyle(u"fusion"_s) { }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override
    {
        bars += control == CC_ScrollBar ? 1 : 0;
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }

    mutable int bars = 0;
};

} // namespace

/// Each bar beside a plain one with the same values.
class tst_CachedScrollBar : public QObject
{
    Q_OBJECT

private slots:
    void drawsWhatAPlainBarDraws_data();
    void drawsWhatAPlainBarDraws();
    void isDrawnOnceUnderAStyleAroundTheDesktops();
    void theScreenShowsEachPlaceOfTheSlider();
    void nothingIsPaintedWhileTheSliderStaysWhereItIs();
    void lightsUpAsAPlainBarUnderTheMouse_data();
    void lightsUpAsAPlainBarUnderTheMouse();
};

void tst_CachedScrollBar::drawsWhatAPlainBarDraws_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    for (const QString &style : QStyleFactory::keys()) {
        const QByteArray name = style.toLatin1();
        QTest::addRow("%s, upright", name.constData()) << style << Qt::Vertical << Qt::LeftToRight;
        QTest::addRow("%s, level", name.constData()) << style << Qt::Horizontal << Qt::LeftToRight;
        QTest::addRow("%s, level, from the right", name.constData()) << style << Qt::Horizontal << Qt::RightToLeft;
    }
}

void tst_CachedScrollBar::drawsWhatAPlainBarDraws()
{
    QFETCH(const QString, style);
    QFETCH(const Qt::Orientation, orientation);
    QFETCH(const Qt::LayoutDirection, direction);
    const std::unique_ptr<QStyle> wanted(QStyleFactory::create(style));

    QWidget window;
    CachedScrollBar bar(orientation, &window);
    QScrollBar plain(orientation, &window);
    for (QScrollBar *const each : {static_cast<QScrollBar *>(&bar), &plain}) {
        each->setStyle(wanted.get());
        each->setLayoutDirection(direction);
    }

    const auto compare = [&](int maximum, int pageStep, int value, int length) {
        for (QScrollBar *const each : {static_cast<QScrollBar *>(&bar), &plain}) {
            const int width = each->sizeHint().boundedTo({100, 100}).width();
            const int height = each->sizeHint().height();
            each->resize(orientation == Qt::Vertical ? QSize(width, length) : QSize(length, height));
            each->setRange(0, maximum);
            each->setPageStep(pageStep);
            each->setValue(value);
        }
        return largest_difference(bar.grab().toImage(), plain.grab().toImage());
    };
    for (int value = 0; value <= 4000; value += 250)
        QVERIFY2(compare(4000, 1000, value, 400) <= 2, qPrintable(u"at %1"_s.arg(value)));
    // A page of another size, another length, a bar without a way to go, and one that works no more.
    QVERIFY(compare(400, 100, 37, 400) <= 2);
    QVERIFY(compare(9000, 100, 37, 401) <= 2);
    QVERIFY(compare(9000, 100, 37, 90) <= 2);
    QVERIFY(compare(0, 100, 0, 90) <= 2);
    window.setEnabled(false);
    QVERIFY(compare(4000, 1000, 1700, 400) <= 2);
    QPalette palette;
    palette.setColor(QPalette::Button, Qt::darkGreen);
    palette.setColor(QPalette::Window, Qt::darkGreen);
    window.setPalette(palette);
    QVERIFY(compare(4000, 1000, 1700, 400) <= 2);
}

void tst_CachedScrollBar::isDrawnOnceUnderAStyleAroundTheDesktops()
{
    CountingStyle style;
    CachedScrollBar bar(Qt::Vertical);
    bar.setStyle(&style);
    bar.resize(bar.sizeHint().width(), 400);
    bar.setRange(0, 4000);
    (void)bar.grab();
    const int first = style.bars;
    QVERIFY(first > 0);

    for (int value = 0; value <= 4000; value += 250) {
        bar.setValue(value);
        (void)bar.grab();
    }

    QCOMPARE(style.bars, first);
}

namespace {

/// A bar in a window, away from the mouse.
struct ShownBar
{
    explicit ShownBar(Qt::Orientation orientation) : bar(orientation, &window)
    {
        bar.setStyle(style.get());
        bar.setRange(0, 40000);
        bar.setPageStep(1000);
        bar.resize(orientation == Qt::Vertical ? QSize(bar.sizeHint().width(), 300)
                                               : QSize(300, bar.sizeHint().height()));
        window.setWindowFlag(Qt::BypassWindowManagerHint);
        window.setGeometry(0, 0, 300, 300);
        QCursor::setPos(600, 500);
        window.show();
    }

    [[nodiscard]] QImage onTheScreen() const
    {
        const QRect place = bar.geometry();
        return window.screen()
            ->grabWindow(window.winId(), place.x(), place.y(), place.width(), place.height())
            .toImage();
    }

    std::unique_ptr<QStyle> style{QStyleFactory::create(u"fusion"_s)};
    QWidget window;
    CachedScrollBar bar;
};

/// Counts how often a widget is painted.
class Paintings : public QObject
{
public:
    explicit Paintings(QWidget &widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int count = 0;
};

} // namespace

void tst_CachedScrollBar::theScreenShowsEachPlaceOfTheSlider()
{
    for (const Qt::Orientation orientation : {Qt::Vertical, Qt::Horizontal}) {
        ShownBar shown(orientation);
        QVERIFY(QTest::qWaitForWindowExposed(&shown.window));
        for (const int value : {0, 20, 200, 201, 20000, 40000, 39990, 39000, 0, 150, 149, 148, 40000, 10}) {
            shown.bar.setValue(value);
            // Not by grab(): that would be a painting of its own.
            QScrollBar plain(orientation);
            plain.setStyle(shown.style.get());
            plain.setRange(shown.bar.minimum(), shown.bar.maximum());
            plain.setPageStep(shown.bar.pageStep());
            plain.setValue(value);
            plain.resize(shown.bar.size());
            const QImage expected = plain.grab().toImage();
            QTRY_VERIFY2(largest_difference(shown.onTheScreen(), expected) <= 2, qPrintable(QString::number(value)));
        }
    }
}

void tst_CachedScrollBar::nothingIsPaintedWhileTheSliderStaysWhereItIs()
{
    ShownBar shown(Qt::Vertical);
    QVERIFY(QTest::qWaitForWindowExposed(&shown.window));
    shown.bar.setValue(20000);
    shown.bar.repaint();
    const Paintings paintings(shown.bar);

    for (int value = 20001; value < 20010; ++value) { // a pixel of the slider is about 150
        shown.bar.setValue(value);
        QCoreApplication::processEvents();
    }
    shown.bar.setValue(20400);
    QTRY_VERIFY(paintings.count > 0);
    QCOMPARE(paintings.count, 1);
}

void tst_CachedScrollBar::lightsUpAsAPlainBarUnderTheMouse_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<bool>("isPressed");
    for (const bool isPressed : {false, true}) {
        const char *const state = isPressed ? "pressed" : "under the mouse";
        QTest::addRow("arrow %s", state) << 5 << isPressed;
        QTest::addRow("slider %s", state) << 30 << isPressed;
        QTest::addRow("ground %s", state) << 200 << isPressed;
    }
}

void tst_CachedScrollBar::lightsUpAsAPlainBarUnderTheMouse()
{
    QFETCH(const int, place);
    QFETCH(const bool, isPressed);
    ShownBar shown(Qt::Vertical);
    QScrollBar plain(Qt::Vertical, &shown.window);
    plain.setStyle(shown.style.get());
    plain.setRange(shown.bar.minimum(), shown.bar.maximum());
    plain.setGeometry(shown.bar.geometry().translated(100, 0));
    for (QScrollBar *const each : {static_cast<QScrollBar *>(&shown.bar), &plain})
        each->setPageStep(20000);
    plain.show();
    QVERIFY(QTest::qWaitForWindowExposed(&shown.window));

    const QPoint at(shown.bar.width() / 2, place);
    const auto picture_under_mouse = [&](QScrollBar &bar) {
        QCursor::setPos(bar.mapToGlobal(at)); // the X server's pointer
        if (!QTest::qWaitFor([&] { return bar.underMouse(); }))
            return QImage();
        if (isPressed)
            QTest::mousePress(&bar, Qt::LeftButton, {}, at);
        QImage picture = bar.grab().toImage();
        if (isPressed)
            QTest::mouseRelease(&bar, Qt::LeftButton, {}, at);
        return picture;
    };
    const QImage expected = picture_under_mouse(plain);
    const QImage actual = picture_under_mouse(shown.bar);
    QVERIFY(!expected.isNull() && !actual.isNull());
    QCOMPARE(largest_difference(actual, expected), 0);
}

QTEST_MAIN(tst_CachedScrollBar)
#include "tst_CachedScrollBar.moc"
