#include "noise_pages.h"
#include "page_buffers.h"
#include "page_crop.h"

#include <QColorSpace>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize Large(701, 523); // also its eighth is more than the smallest pooled page

QImage page_with_attributes(int kind)
{
    QImage page = noise_page(page_kinds().at(kind), Large);
    page.setDotsPerMeterX(11811);
    page.setDotsPerMeterY(23622);
    page.setOffset({3, -4});
    page.setText(u"Title"_s, u"invoice"_s);
    page.setDevicePixelRatio(2);
    if (page.depth() == 32)
        page.setColorSpace(QColorSpace::AdobeRgb);
    return page;
}

/// Indices and words, whatever table there is.
bool are_equal(const QImage &a, const QImage &b)
{
    for (int y = 0; y < b.height(); ++y) {
        for (int x = 0; x < b.width(); ++x) {
            const bool isSame = b.depth() == 32 ? reinterpret_cast<const QRgb *>(a.constScanLine(y))[x]
                    == reinterpret_cast<const QRgb *>(b.constScanLine(y))[x]
                                                : a.pixelIndex(x, y) == b.pixelIndex(x, y);
            if (!isSame)
                return false;
        }
    }
    return true;
}

} // namespace

class tst_page_crop : public QObject
{
    Q_OBJECT

private slots:
    void equalsTheToolkits_data();
    void equalsTheToolkits();
    void leavesThePageAlone();
    void takesTheMemoryOfThePageBefore();
};

void tst_page_crop::equalsTheToolkits_data()
{
    QTest::addColumn<int>("kind");
    const QList<PageKind> kinds = page_kinds();
    for (int kind = 0; kind < kinds.size(); ++kind)
        QTest::newRow(kinds.at(kind).name) << kind;
}

void tst_page_crop::equalsTheToolkits()
{
    QFETCH(const int, kind);
    const QImage page = page_with_attributes(kind);
    const QRect all = page.rect();
    for (const QRect &area :
         {all, all.adjusted(1, 0, 0, 0), all.adjusted(0, 1, 0, 0), all.adjusted(0, 0, -1, 0), all.adjusted(0, 0, 0, -1),
          QRect(13, 17, 640, 480), QRect(8, 0, 512, 523), QRect(300, 2, 1, 500), QRect(5, 250, 600, 1),
          QRect(7, 7, 3, 3), all.adjusted(-1, 0, 0, 0), all.adjusted(0, 0, 0, 1), all.translated(200, 100),
          QRect(-10, -10, 5, 5), QRect(), QRect(5, 5, 0, 100), QRect(5, 5, 100, 0),
          QRect(QPoint(600, 500), QPoint(3, 4))}) {
        const QImage actual = cropped(page, area);
        const QImage expected = page.copy(area);
        QCOMPARE(actual.isNull(), expected.isNull());
        QCOMPARE(actual.format(), expected.format());
        QCOMPARE(actual.colorTable(), expected.colorTable());
        QCOMPARE(actual.dotsPerMeterX(), expected.dotsPerMeterX());
        QCOMPARE(actual.dotsPerMeterY(), expected.dotsPerMeterY());
        QCOMPARE(actual.offset(), expected.offset());
        QCOMPARE(actual.devicePixelRatio(), expected.devicePixelRatio());
        QVERIFY(actual.colorSpace() == expected.colorSpace());
        QCOMPARE(actual.textKeys(), expected.textKeys());
        QCOMPARE(actual.text(u"Title"_s), expected.text(u"Title"_s));
        QCOMPARE(actual.size(), expected.size());
        QVERIFY2(are_equal(actual, expected), qPrintable(QDebug::toString(area)));
    }
}

void tst_page_crop::leavesThePageAlone()
{
    const QImage page = page_with_attributes(0);
    const QImage before = page.copy();
    QImage part = cropped(page, {10, 10, 650, 500});
    part.fill(1);
    QVERIFY(are_equal(page, before));
}

void tst_page_crop::takesTheMemoryOfThePageBefore()
{
    drop_spare_page();
    const QImage page(Large, QImage::Format_RGB32);
    (void)cropped(page, {10, 10, 650, 500});
    QCOMPARE(spare_page_bytes(), qsizetype{650} * 500 * 4);
    const QImage part = cropped(page, {20, 0, 650, 500});
    QCOMPARE(spare_page_bytes(), 0);
}

QTEST_GUILESS_MAIN(tst_page_crop)
#include "tst_page_crop.moc"
