// What a reduced picture keeps of what it has shown, and how much that may be.

#include "noise_pages.h"
#include "painted_window.h"
#include "Q3CanvasPixmap.h"

#include <QTest>

#include <algorithm>
#include <malloc.h>

namespace {

/// A page on @p bytes that the test may change behind the picture's back.
QImage page_on(QByteArray &bytes, const QSize &size)
{
    bytes.resize(qsizetype{size.width()} * size.height() * 4);
    return {reinterpret_cast<uchar *>(bytes.data()), size.width(), size.height(), QImage::Format_RGB32};
}

constexpr QRgb First = 0xff102030;
constexpr QRgb Second = 0xff605040;

void fill(QByteArray &bytes, QRgb color)
{
    auto *const words = reinterpret_cast<QRgb *>(bytes.data());
    std::fill(words, words + bytes.size() / 4, color);
}

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
    void whatWasShownIsNotAveragedAgain();
    void scrollByLinesAveragesTheNewOnes();
    void whatAScrollLeavesIsKeptAround();
    void windowThatGrowsKeepsWhatIsThere();
    void otherZoomIsAveragedAnew();
    void naturalSizeShowsThePageItselfAndKeepsNothing();
    void keepsNoMoreThanEightMegabytes();
    void keepsOneAndAHalfTimesALargeWindow();
    void forgottenAveragesTakeNoMemory();
};

void tst_Q3CanvasPixmap_kept::whatWasShownIsNotAveragedAgain()
{
    QByteArray bytes;
    const Q3CanvasPixmap pixmap(page_on(bytes, QSize(2000, 1600)));
    const auto draw = [&](QPainter &painter) { pixmap.draw(painter, {}); };
    fill(bytes, First);
    (void)painted(0.25, {}, QRect(0, 0, 60, 50), draw); // only to have it shown
    fill(bytes, Second);

    QCOMPARE(of_first(painted(0.25, {}, {}, draw)), QRect(0, 0, 60, 50));
}

void tst_Q3CanvasPixmap_kept::scrollByLinesAveragesTheNewOnes()
{
    QByteArray bytes;
    const Q3CanvasPixmap pixmap(page_on(bytes, QSize(2000, 1600)));
    const auto draw = [&](QPainter &painter) { pixmap.draw(painter, {}); };
    fill(bytes, First);
    (void)painted(0.25, {}, {}, draw); // only to have it shown
    fill(bytes, Second);

    QCOMPARE(of_first(painted(0.25, {0, 20}, {}, draw)), QRect(0, 0, Window.width(), Window.height() - 20));
}

void tst_Q3CanvasPixmap_kept::whatAScrollLeavesIsKeptAround()
{
    QByteArray bytes;
    const Q3CanvasPixmap pixmap(page_on(bytes, QSize(4000, 3000)));
    const auto draw = [&](QPainter &painter) { pixmap.draw(painter, {}); };
    fill(bytes, First);
    for (const QPoint scroll : {QPoint(0, 0), QPoint(0, 100), QPoint(140, 100)})
        (void)painted(0.5, scroll, {}, draw); // only to have it shown
    fill(bytes, Second);

    QCOMPARE(of_first(painted(0.5, {0, 0}, {}, draw)), QRect(QPoint(0, 0), Window));
}

void tst_Q3CanvasPixmap_kept::windowThatGrowsKeepsWhatIsThere()
{
    QByteArray bytes;
    const Q3CanvasPixmap pixmap(page_on(bytes, QSize(4000, 3000)));
    const auto draw = [&](QPainter &painter) { pixmap.draw(painter, {}); };
    fill(bytes, First);
    (void)painted(0.5, {900, 300}, {}, draw, 1.0, QSize(1000, 1000)); // fills what is kept to its end and beyond
    (void)painted(0.5, {950, 400}, {}, draw, 1.0, QSize(1000, 1000));
    fill(bytes, Second);

    const QImage grown = painted(0.5, {0, 0}, {}, draw, 1.0, QSize(1999, 1499));

    QCOMPARE(grown.pixel(950, 400), First);
    QCOMPARE(grown.pixel(1949, 1399), First);
    QCOMPARE(grown.pixel(1951, 1399), Second);
    QCOMPARE(grown.pixel(1949, 1401), Second);
    QCOMPARE(grown.pixel(899, 800), Second);
}

void tst_Q3CanvasPixmap_kept::otherZoomIsAveragedAnew()
{
    QByteArray bytes;
    const Q3CanvasPixmap pixmap(page_on(bytes, QSize(4000, 3000)));
    const auto draw = [&](QPainter &painter) { pixmap.draw(painter, {}); };
    fill(bytes, First);
    (void)painted(0.5, {}, {}, draw); // only to have it shown
    fill(bytes, Second);

    const QImage smaller = painted(0.25, {}, {}, draw);
    const QImage back = painted(0.5, {}, {}, draw);

    QCOMPARE(smaller.pixel(10, 10), Second);
    QCOMPARE(back.pixel(10, 10), Second);
}

void tst_Q3CanvasPixmap_kept::naturalSizeShowsThePageItselfAndKeepsNothing()
{
    QByteArray bytes;
    const Q3CanvasPixmap pixmap(page_on(bytes, QSize(400, 300)));
    const auto draw = [&](QPainter &painter) { pixmap.draw(painter, {}); };
    fill(bytes, First);
    (void)painted(0.5, {}, {}, draw); // only to have it shown
    fill(bytes, Second);

    const QImage natural = painted(1.0, {}, {}, draw);
    const QImage back = painted(0.5, {}, {}, draw);

    QCOMPARE(natural.pixel(10, 10), Second);
    QCOMPARE(back.pixel(10, 10), Second);
}

void tst_Q3CanvasPixmap_kept::keepsNoMoreThanEightMegabytes()
{
    const Q3CanvasPixmap pixmap(noise_page(page_kinds()[0], QSize(12000, 12000)));
    const QSize size(900, 700);
    QImage window(size, QImage::Format_RGB32);
    const std::size_t before = allocated_bytes();

    for (int i = 0; i < 12; ++i) {
        QPainter painter(&window);
        painter.setTransform(QTransform::fromScale(0.5, 0.5) * QTransform::fromTranslate(-300 * i, -350 * i));
        pixmap.draw(painter, {});
    }

    QVERIFY(allocated_bytes() - before <= 8'000'000 + 200'000);
}

void tst_Q3CanvasPixmap_kept::keepsOneAndAHalfTimesALargeWindow()
{
    const Q3CanvasPixmap pixmap(noise_page(page_kinds()[0], QSize(16000, 12000)));
    const QSize size(3000, 2000); // 24 MB
    QImage window(size, QImage::Format_RGB32);
    const std::size_t before = allocated_bytes();

    for (int i = 0; i < 4; ++i) {
        QPainter painter(&window);
        painter.setTransform(QTransform::fromScale(0.5, 0.5) * QTransform::fromTranslate(-900 * i, -800 * i));
        pixmap.draw(painter, {});
    }

    QVERIFY(allocated_bytes() - before <= 36'000'000 + 200'000);
}

void tst_Q3CanvasPixmap_kept::forgottenAveragesTakeNoMemory()
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

QTEST_MAIN(tst_Q3CanvasPixmap_kept)

#include "tst_Q3CanvasPixmap_kept.moc"
