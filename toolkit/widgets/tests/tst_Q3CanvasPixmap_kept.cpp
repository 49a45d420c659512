// What a reduced picture keeps of what it has shown, and how much that may be.

#include "noise_pages.h"
#include "painted_window.h"
#include "Q3CanvasPixmap.h"

#include <QTest>

#include <algorithm>
#include <malloc.h>

namespace {

constexpr QRgb First = 0xff102030;
constexpr QRgb Second = 0xff605040;

/// A picture of one colour that changes its colour behind the back of what has been kept of it.
class SecretPicture
{
public:
    explicit SecretPicture(const QSize &size) :
        words(qsizetype{size.width()} * size.height(), First),
        pixmap(QImage(reinterpret_cast<uchar *>(words.data()), size.width(), size.height(), QImage::Format_RGB32))
    {
    }

    [[nodiscard]] QImage shown(double factor, const QPoint &scroll = {}, const QRegion &exposed = {},
                               const QSize &window = Window) const
    {
        return painted(
            factor, scroll, exposed, [this](QPainter &painter) { pixmap.draw(painter, {}); }, 1.0, window);
    }
    void change() { std::fill(words.begin(), words.end(), Second); }

private:
    QList<QRgb> words;
    Q3CanvasPixmap pixmap;
};

/// The screen pixels that show what the page was at first, the others showing what it is now.
QRect of_first(const QImage &window)
{
    QRegion region;
    for (int y = 0; y < window.height(); ++y) {
        for (int x = 0; x < window.width(); ++x) {
            if (window.pixel(x, y) == First)
                region += QRect(x, y, 1, 1);
            else if (window.pixel(x, y) != Second)
                return {};
        }
    }
    return region.rectCount() == 1 ? region.boundingRect() : QRect();
}

/// Bytes that are allocated.
std::size_t allocated_bytes()
{
    const auto memory = mallinfo2();
    return memory.uordblks + memory.hblkhd;
}

} // namespace

class tst_Q3CanvasPixmap_kept : public QObject
{
    Q_OBJECT

private slots:
    void whatWasShownIsNotAveragedAgain()
    {
        SecretPicture picture(QSize(2000, 1600));
        (void)picture.shown(0.25, {}, QRect(0, 0, 60, 50));
        picture.change();

        QCOMPARE(of_first(picture.shown(0.25)), QRect(0, 0, 60, 50));
    }

    void scrollByLinesAveragesTheNewOnes()
    {
        SecretPicture picture(QSize(2000, 1600));
        (void)picture.shown(0.25);
        picture.change();

        QCOMPARE(of_first(picture.shown(0.25, {0, 20})), QRect(0, 0, Window.width(), Window.height() - 20));
    }

    void whatAScrollLeavesIsKeptAround()
    {
        SecretPicture picture(QSize(4000, 3000));
        for (const QPoint scroll : {QPoint(0, 0), QPoint(0, 100), QPoint(140, 100)})
            (void)picture.shown(0.5, scroll);
        picture.change();

        QCOMPARE(of_first(picture.shown(0.5)), QRect(QPoint(0, 0), Window));
    }

    void windowThatGrowsKeepsWhatIsThere()
    {
        SecretPicture picture(QSize(4000, 3000));
        (void)picture.shown(0.5, {900, 300}, {}, QSize(1000, 1000)); // fills what is kept to its end and beyond
        (void)picture.shown(0.5, {950, 400}, {}, QSize(1000, 1000));
        picture.change();

        const QImage grown = picture.shown(0.5, {0, 0}, {}, QSize(1999, 1499));

        QCOMPARE(grown.pixel(950, 400), First);
        QCOMPARE(grown.pixel(1949, 1399), First);
        QCOMPARE(grown.pixel(1951, 1399), Second);
        QCOMPARE(grown.pixel(1949, 1401), Second);
        QCOMPARE(grown.pixel(899, 800), Second);
    }

    void otherZoomKeepsNothing_data()
    {
        QTest::addColumn<double>("factor");
        QTest::newRow("a smaller one is averaged anew") << 0.25;
        QTest::newRow("natural size shows the page itself") << 1.0;
    }

    void otherZoomKeepsNothing()
    {
        QFETCH(const double, factor);
        SecretPicture picture(QSize(4000, 3000));
        (void)picture.shown(0.5);
        picture.change();

        const QImage other = picture.shown(factor);
        const QImage back = picture.shown(0.5);

        QCOMPARE(other.pixel(10, 10), Second);
        QCOMPARE(back.pixel(10, 10), Second);
    }

    void keepsNoMoreThanThis_data()
    {
        QTest::addColumn<QSize>("page");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QPoint>("step");
        QTest::addColumn<int>("steps");
        QTest::addColumn<std::size_t>("bytes");
        QTest::newRow("eight megabytes") << QSize(12000, 12000) << QSize(900, 700) << QPoint(-300, -350) << 12
                                         << std::size_t{8'000'000};
        QTest::newRow("one and a half times a window of 24 MB")
            << QSize(16000, 12000) << QSize(3000, 2000) << QPoint(-900, -800) << 4 << std::size_t{36'000'000};
    }

    void keepsNoMoreThanThis()
    {
        QFETCH(const QSize, page);
        QFETCH(const QSize, size);
        QFETCH(const QPoint, step);
        QFETCH(const int, steps);
        QFETCH(const std::size_t, bytes);
        const Q3CanvasPixmap pixmap(noise_page(page_kinds()[0], page));
        QImage window(size, QImage::Format_RGB32);
        const std::size_t before = allocated_bytes();

        for (int i = 0; i < steps; ++i) {
            QPainter painter(&window);
            painter.setTransform(QTransform::fromScale(0.5, 0.5)
                                 * QTransform::fromTranslate(step.x() * i, step.y() * i));
            pixmap.draw(painter, {});
        }

        QVERIFY(allocated_bytes() - before <= bytes + 200'000);
    }

    void forgottenAveragesTakeNoMemory()
    {
        Q3CanvasPixmap pixmap(noise_page(page_kinds()[10], QSize(3000, 2000)));
        QImage window(Window, QImage::Format_RGB32);
        const auto paint = [&] {
            QPainter painter(&window);
            painter.scale(0.5, 0.5);
            pixmap.draw(painter, {});
        };
        paint();
        pixmap.forgetAverages();
        const std::size_t before = allocated_bytes();

        paint();
        pixmap.forgetAverages();

        QVERIFY(allocated_bytes() <= before + 2000);
    }
};

QTEST_MAIN(tst_Q3CanvasPixmap_kept)

#include "tst_Q3CanvasPixmap_kept.moc"
