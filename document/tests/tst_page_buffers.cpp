#include "page_buffers.h"

#include <QTest>

#include <cstddef>
#include <initializer_list>
#include <utility>

#include <sys/mman.h>

namespace {

constexpr QSize LargeSize(600, 500);

/// A picture on memory from the system, which takes it back when the picture goes.
/// @param place  where the memory is to begin; anywhere if it is null
QImage picture_at(uchar *place)
{
    constexpr int LineBytes = LargeSize.width() * 4;
    constexpr std::size_t Bytes = std::size_t{LineBytes} * LargeSize.height();
    const int flags = MAP_PRIVATE | MAP_ANONYMOUS | (place ? MAP_FIXED_NOREPLACE : 0);
    void *const memory = ::mmap(place, Bytes, PROT_READ | PROT_WRITE, flags, -1, 0);
    if (memory == MAP_FAILED)
        qFatal("no memory there");
    const auto giveBack = [](void *given) { ::munmap(given, Bytes); };
    return {static_cast<uchar *>(memory),
            LargeSize.width(),
            LargeSize.height(),
            LineBytes,
            QImage::Format_RGB32,
            giveBack,
            memory};
}

} // namespace

class TestPageBuffers : public QObject
{
    Q_OBJECT

private slots:
    void aPageHasTheShapeOfAnOrdinaryImage_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::addColumn<QSize>("size");
        const std::initializer_list<std::pair<const char *, QImage::Format>> formats = {
            {"Mono", QImage::Format_Mono},   {"MonoLSB", QImage::Format_MonoLSB}, {"Indexed8", QImage::Format_Indexed8},
            {"RGB32", QImage::Format_RGB32}, {"ARGB32", QImage::Format_ARGB32},
        };
        for (const auto &[name, format] : formats) {
            QTest::addRow("%s, small", name) << format << QSize(13, 7);
            QTest::addRow("%s, pooled", name) << format << QSize(2501, 1003);
        }
    }

    void aPageHasTheShapeOfAnOrdinaryImage()
    {
        QFETCH(QImage::Format, format);
        QFETCH(QSize, size);
        const QImage ordinary(size, format);

        const QImage page = new_page(size, format);

        QCOMPARE(page.size(), size);
        QCOMPARE(page.format(), format);
        QCOMPARE(page.bytesPerLine(), ordinary.bytesPerLine());
        QCOMPARE(page.colorTable(), ordinary.colorTable());
        QCOMPARE(page.dotsPerMeterX(), ordinary.dotsPerMeterX());
    }

    void anEmptySizeOrFormatGivesNoPage()
    {
        QVERIFY(new_page(QSize(0, 5), QImage::Format_RGB32).isNull());
        QVERIFY(new_page(QSize(5, -1), QImage::Format_RGB32).isNull());
        QVERIFY(new_page(QSize(5, 5), QImage::Format_Invalid).isNull());
    }

    void memoryOfADroppedPageServesTheNextOne()
    {
        QImage page = new_page(LargeSize, QImage::Format_RGB32);
        const uchar *const memory = page.constBits();
        page = {};

        const QImage next = new_page(LargeSize.transposed(), QImage::Format_ARGB32);

        QCOMPARE(next.constBits(), memory);
        QCOMPARE(spare_page_bytes(), 0);
    }

    void memoryOfAPageInUseIsNotLentAgain()
    {
        QImage page = new_page(LargeSize, QImage::Format_RGB32);
        const QImage sharer = page;
        page = {};

        const QImage next = new_page(LargeSize, QImage::Format_RGB32);

        QVERIFY(next.constBits() != sharer.constBits());
    }

    void memoryThatWentBackToTheSystemCanBeAdoptedAgain()
    {
        QImage page = adopt_page(picture_at(nullptr));
        uchar *const former = page.bits();
        page = {};
        drop_spare_page();

        page = adopt_page(picture_at(former));
        QCOMPARE(std::as_const(page).constBits(), former);
        page = {};

        QVERIFY(spare_page_bytes() > 0);
        drop_spare_page();
    }

    void ofLargePagesOneIsKept()
    {
        constexpr QSize size(3000, 2500); // 30 MB
        QImage first = new_page(size, QImage::Format_RGB32);
        QImage second = new_page(size, QImage::Format_RGB32);
        const uchar *const secondMemory = second.constBits();
        const qsizetype bytes = first.sizeInBytes();

        first = {};
        second = {};

        QCOMPARE(spare_page_bytes(), bytes);
        QCOMPARE(new_page(size, QImage::Format_RGB32).constBits(), secondMemory);
    }

    void ofSmallPagesAsManyAreKeptAsStayWithin32MiB()
    {
        constexpr qsizetype limit = qsizetype{32} * 1024 * 1024;
        QList<QImage> pages;
        for (int i = 0; i < 40; ++i)
            pages.append(new_page(LargeSize, QImage::Format_RGB32)); // 1.2 MB each
        const qsizetype bytes = pages.first().sizeInBytes();

        pages.clear();

        QCOMPARE(spare_page_bytes(), limit / bytes * bytes);
    }

    void aSpareOfQuiteAnotherSizeThanTheNextPageIsReleased_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("much larger than the page") << QSize(300, 300);
        QTest::newRow("much smaller than the page") << LargeSize * 2;
    }

    void aSpareOfQuiteAnotherSizeThanTheNextPageIsReleased()
    {
        QFETCH(const QSize, size);
        (void)new_page(LargeSize, QImage::Format_RGB32);
        QVERIFY(spare_page_bytes() > 0);

        const QImage next = new_page(size, QImage::Format_RGB32);

        QCOMPARE(spare_page_bytes(), 0);
    }

    void aPageMuchLargerThanTheOneThatReplacedItIsKeptForTheNextOne()
    {
        QImage large = new_page(LargeSize, QImage::Format_RGB32);
        const QImage small = new_page(QSize(300, 300), QImage::Format_RGB32);

        large = {};

        QCOMPARE(spare_page_bytes(), qsizetype{LargeSize.width()} * LargeSize.height() * 4);
        const QImage nextSmall = new_page(QSize(300, 300), QImage::Format_RGB32);
        QCOMPARE(spare_page_bytes(), 0);
    }

    void previewsLeaveTheSpareAlone()
    {
        (void)new_page(LargeSize, QImage::Format_RGB32);
        const qsizetype kept = spare_page_bytes();

        const QImage preview = new_page(QSize(160, 160), QImage::Format_RGB32);

        QVERIFY(kept > 0);
        QCOMPARE(spare_page_bytes(), kept);
    }

    void writingIntoACopyLeavesThePageAlone()
    {
        QImage page = new_page(LargeSize, QImage::Format_RGB32);
        page.fill(Qt::red);
        QImage copy = page;

        copy.fill(Qt::blue);

        QCOMPARE(page.pixel(5, 5), 0xffff0000);
        QCOMPARE(copy.pixel(5, 5), 0xff0000ff);
    }

    void anAdoptedImageKeepsPictureTableResolutionAndTexts()
    {
        QImage image(LargeSize, QImage::Format_Indexed8);
        image.setColorTable({0xff102030, 0x80405060});
        image.fill(1);
        image.setDotsPerMeterX(11811);
        image.setText(QStringLiteral("Title"), QStringLiteral("scan"));
        const QImage expected = image.copy();

        const QImage page = adopt_page(std::move(image));

        QCOMPARE(page, expected);
        QCOMPARE(page.colorTable(), expected.colorTable());
        QCOMPARE(page.dotsPerMeterX(), 11811);
        QCOMPARE(page.text(QStringLiteral("Title")), QStringLiteral("scan"));
    }

    void memoryOfAnAdoptedImageServesTheNextPage()
    {
        QImage image(LargeSize, QImage::Format_RGB32);
        const uchar *const memory = image.constBits();
        QImage page = adopt_page(std::move(image));
        QCOMPARE(page.constBits(), memory);
        page = {};

        const QImage next = new_page(LargeSize, QImage::Format_RGB32);

        QCOMPARE(next.constBits(), memory);
    }

    void adoptingTwiceChangesNothing()
    {
        QImage page = new_page(LargeSize, QImage::Format_RGB32);
        const uchar *const memory = page.constBits();

        page = adopt_page(std::move(page));
        page = {};
        const QImage next = new_page(LargeSize, QImage::Format_RGB32);

        QCOMPARE(next.constBits(), memory);
    }

    void aSharedImageIsNotAdopted()
    {
        const QImage image(LargeSize, QImage::Format_RGB32);

        const QImage page = adopt_page(image);

        QVERIFY(!image.isDetached());
        QCOMPARE(page.constBits(), image.constBits());
    }

    void zerosInATableThatCountAsOpaqueStayOpaque()
    {
        QImage pattern(LargeSize, QImage::Format_Indexed8);
        pattern.setColorCount(256);
        pattern.setColor(7, 0xff123456);

        const QImage page = new_page_like(pattern, QSize(40, 30));

        QVERIFY(!page.hasAlphaChannel());
        QCOMPARE(page.colorTable(), pattern.colorTable());
    }

    void cleanup() { drop_spare_page(); }
};

QTEST_GUILESS_MAIN(TestPageBuffers)
#include "tst_page_buffers.moc"
