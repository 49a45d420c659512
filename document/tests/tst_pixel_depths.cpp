#include "page_depth.h"
#include "page_scale.h"
#include "plain_pixels.h"
#include "random_pages.h"

#include <QTest>

#include <limits>

namespace {

/// The colour at a place of a page, counted along its lines, from a random number.
using ColorOf = QRgb (*)(int place, quint32 noise);

QImage one_pixel(QRgb color)
{
    QImage page(1, 1, QImage::Format_RGB32);
    page.fill(color);
    return page;
}

} // namespace

class TestPixelDepths : public QObject
{
    Q_OBJECT

    QRandomGenerator random{8};

private slots:
    void monoEqualsItsDefinition_data()
    {
        QTest::addColumn<QImage::Format>("format");
        for (const QImage::Format format : page_formats()) {
            if (format != QImage::Format_Indexed8)
                QTest::newRow(format_name(format)) << format;
        }
    }

    void monoEqualsItsDefinition()
    {
        QFETCH(QImage::Format, format);
        for (const QSize size : small_sizes()) {
            const QImage page = random_page(random, size, format);

            const QImage mono = toMono(page);

            QCOMPARE(mono.format(), QImage::Format_Mono);
            QCOMPARE(mono, plain_mono(page));
            QCOMPARE(mono.colorTable(), (QList<QRgb>{0xffffffff, 0xff000000}));
        }
    }

    void anAverageOf129IsWhite() { QCOMPARE(toMono(one_pixel(qRgb(129, 129, 129))).pixelIndex(0, 0), 0); }
    void aSumOf386IsBlack() { QCOMPARE(toMono(one_pixel(qRgb(129, 129, 128))).pixelIndex(0, 0), 1); }

    void monoKeepsResolutionAndTexts()
    {
        QImage page = one_pixel(0xffffffff);
        page.setDotsPerMeterX(11811);
        page.setDotsPerMeterY(5906);
        page.setText(QStringLiteral("Title"), QStringLiteral("scan"));

        const QImage mono = toMono(page);

        QCOMPARE(mono.dotsPerMeterX(), 11811);
        QCOMPARE(mono.dotsPerMeterY(), 5906);
        QCOMPARE(mono.text(QStringLiteral("Title")), QStringLiteral("scan"));
    }

    void theOwnDepthLeavesAPageAsItIs_data()
    {
        QTest::addColumn<QImage::Format>("format");
        for (const QImage::Format format : page_formats())
            QTest::newRow(format_name(format)) << format;
    }

    void theOwnDepthLeavesAPageAsItIs()
    {
        QFETCH(QImage::Format, format);
        const QImage page = random_page(random, QSize(9, 5), format);

        const QImage result = converted_to_depth(page, page.depth());

        QCOMPARE(result.format(), format);
        QCOMPARE(result, page);
    }

    void depth32OfABitPageEqualsTheToolkits_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::addColumn<QList<QRgb>>("table");
        for (const QImage::Format format : {QImage::Format_Mono, QImage::Format_MonoLSB}) {
            const char *const name = format_name(format);
            QTest::addRow("%s, odd colours", name) << format << QList<QRgb>{0xff804020, 0xff0102f3};
            QTest::addRow("%s, colours with alpha", name) << format << QList<QRgb>{0x10804020, 0x000102f3};
            QTest::addRow("%s, one colour", name) << format << QList<QRgb>{0xff804020};
            QTest::addRow("%s, no colours", name) << format << QList<QRgb>{};
        }
    }

    void depth32OfABitPageEqualsTheToolkits()
    {
        QFETCH(QImage::Format, format);
        QFETCH(QList<QRgb>, table);
        for (const QSize size : small_sizes()) {
            QImage page = random_page(random, size, format);
            page.setColorTable(table);

            const QImage result = converted_to_depth(page, 32);

            QCOMPARE(result.format(), QImage::Format_RGB32);
            QCOMPARE(result, page.convertToFormat(QImage::Format_RGB32));
        }
    }

    void depth32OfAnIndexedPageShowsItsColors()
    {
        const QImage page = random_page(random, QSize(31, 17), QImage::Format_Indexed8);

        const QImage result = converted_to_depth(page, 32);

        QCOMPARE(result.format(), QImage::Format_RGB32);
        for (int x = 0; x < page.width(); ++x)
            QCOMPARE(result.pixel(x, 11), page.pixel(x, 11));
    }

    void depth8OfFewColorsIsExact()
    {
        QImage page(16, 16, QImage::Format_RGB32);
        for (int i = 0; i < 256; ++i)
            page.setPixel(i % 16, i / 16, qRgb(i, 255 - i, i / 2));

        const QImage result = converted_to_depth(page, 8);

        QCOMPARE(result.format(), QImage::Format_Indexed8);
        QCOMPARE(result.convertToFormat(QImage::Format_RGB32), page);
    }

    void depth8OfManyColorsHas256Entries()
    {
        const QImage page = random_page(random, QSize(40, 40), QImage::Format_RGB32);

        const QImage result = converted_to_depth(page, 8);

        QCOMPARE(result.format(), QImage::Format_Indexed8);
        QCOMPARE(result.colorCount(), 256);
    }

    void depth8OfAColorPageEqualsTheToolkits_data()
    {
        QTest::addColumn<ColorOf>("colorOf");

        QTest::newRow("noise") << ColorOf([](int /*place*/, quint32 noise) { return noise; });
        QTest::newRow("greys") << ColorOf([](int /*place*/, quint32 noise) { return noise % 256 * 0x010101; });
        QTest::newRow("256 colours") << ColorOf([](int place, quint32) { return QRgb(place % 256) * 0x010203; });
        QTest::newRow("257 colours") << ColorOf([](int place, quint32) { return QRgb(place % 257) * 0x010203; });
        QTest::newRow("dark") << ColorOf([](int /*place*/, quint32 noise) { return noise & 0x1f1f1f; });
        QTest::newRow("light") << ColorOf([](int /*place*/, quint32 noise) { return noise | 0xe0e0e0; });
        QTest::newRow("white, then noise")
            << ColorOf([](int place, quint32 noise) { return place < 1500 ? 0xffffff : noise; });
        // Errors below 0 are rounded away from it, so that they add up over a dark area.
        QTest::newRow("noise, then black") << ColorOf([](int place, quint32 noise) { return place < 300 ? noise : 0; });
    }

    void depth8OfAColorPageEqualsTheToolkits()
    {
        QFETCH(const ColorOf, colorOf);
        for (const QSize size : small_sizes() + QList{QSize(1000, 20), QSize(20, 1000)}) {
            QImage page(size, QImage::Format_RGB32);
            for (int y = 0; y < size.height(); ++y) {
                auto *const words = reinterpret_cast<QRgb *>(page.scanLine(y));
                for (int x = 0; x < size.width(); ++x) // the highest byte of a word stands for nothing
                    words[x] = (colorOf(y * size.width() + x, random.generate()) & 0xffffff) | random.generate() << 24;
            }
            page.setDotsPerMeterX(1234);

            const QImage result = converted_to_depth(page, 8);

            const QImage expected = page.convertToFormat(QImage::Format_Indexed8);
            QCOMPARE(result, expected);
            QCOMPARE(result.colorTable(), expected.colorTable());
            QCOMPARE(result.dotsPerMeterX(), 1234);
        }
    }

    void depth8OfABitPageKeepsItsTwoColors()
    {
        const QImage page = random_page(random, QSize(20, 10), QImage::Format_MonoLSB);

        const QImage result = converted_to_depth(page, 8);

        QCOMPARE(result.format(), QImage::Format_Indexed8);
        QCOMPARE(result.color(0), page.color(0));
        QCOMPARE(result.color(1), page.color(1));
        QCOMPARE(result.pixel(13, 7), page.pixel(13, 7));
    }

    void depth1HasItsLowBitFirstAndWhiteAsColor0()
    {
        const QImage page = random_page(random, QSize(20, 10), QImage::Format_RGB32);

        const QImage result = converted_to_depth(page, 1);

        QCOMPARE(result.format(), QImage::Format_MonoLSB);
        QCOMPARE(result.color(0), 0xffffffff);
        QCOMPARE(result.color(1), 0xff000000);
    }

    void anUnknownDepthGivesNoPage() { QVERIFY(converted_to_depth(one_pixel(0xffffffff), 16).isNull()); }

    void multipliedSize_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<double>("x");
        QTest::addColumn<double>("y");
        QTest::addColumn<QSize>("expected");
        QTest::newRow("twice") << QSize(100, 50) << 2.0 << 2.0 << QSize(199, 99);
        QTest::newRow("side 1 stays 1") << QSize(1, 1) << 3.0 << 0.1 << QSize(1, 1);
        QTest::newRow("half, cut") << QSize(100, 50) << 0.5 << 0.5 << QSize(50, 25);
        QTest::newRow("own size") << QSize(100, 50) << 1.0 << 1.0 << QSize(100, 50);
        QTest::newRow("nothing") << QSize(100, 50) << 0.0 << 1.0 << QSize(1, 50);
        QTest::newRow("below nothing is cut towards 0") << QSize(2, 50) << -1.5 << 1.0 << QSize(0, 50);
    }

    void multipliedSize()
    {
        QFETCH(QSize, size);
        QFETCH(double, x);
        QFETCH(double, y);
        QTEST(multiplied_size(size, x, y).value_or(QSize(-7, -7)), "expected");
    }

    void aSizeThatFitsNoIntIsRefused()
    {
        QVERIFY(!multiplied_size(QSize(100, 50), 1e9, 1.0));
        QVERIFY(!multiplied_size(QSize(100, 50), 1.0, std::numeric_limits<double>::infinity()));
        QVERIFY(!multiplied_size(QSize(100, 50), std::numeric_limits<double>::quiet_NaN(), 1.0));
    }

    void scalingPagesWithATableGivesWords_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::addColumn<QRgb>("alpha");
        QTest::addColumn<QImage::Format>("expected");
        QTest::newRow("Mono") << QImage::Format_Mono << 0xff000000U << QImage::Format_RGB32;
        QTest::newRow("Mono with alpha") << QImage::Format_Mono << 0x80000000U << QImage::Format_ARGB32;
        QTest::newRow("Indexed8") << QImage::Format_Indexed8 << 0xff000000U << QImage::Format_RGB32;
        QTest::newRow("Indexed8 with alpha") << QImage::Format_Indexed8 << 0x80000000U << QImage::Format_ARGB32;
        QTest::newRow("RGB32") << QImage::Format_RGB32 << 0xff000000U << QImage::Format_RGB32;
        QTest::newRow("ARGB32") << QImage::Format_ARGB32 << 0xff000000U << QImage::Format_ARGB32;
    }

    void scalingPagesWithATableGivesWords()
    {
        QFETCH(QImage::Format, format);
        QFETCH(QRgb, alpha);
        QFETCH(QImage::Format, expected);
        QImage page = random_page(random, QSize(20, 10), format);
        if (page.colorCount() > 0)
            page.setColor(0, (page.color(0) & 0x00ffffff) | alpha);

        const QImage result = smoothly_scaled(page, QSize(31, 5));

        QCOMPARE(result.size(), QSize(31, 5));
        QCOMPARE(result.format(), expected);
        QCOMPARE(result, page.convertToFormat(expected).scaled(31, 5, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }

    void theOwnSizeLeavesAPageAsItIs()
    {
        const QImage page = random_page(random, QSize(20, 10), QImage::Format_Indexed8);

        QCOMPARE(smoothly_scaled(page, page.size()), page);
        QCOMPARE(smoothly_scaled(page, page.size()).format(), QImage::Format_Indexed8);
    }

    void anEmptySizeGivesNoPage() { QVERIFY(smoothly_scaled(one_pixel(0xffffffff), QSize(0, 5)).isNull()); }
};

QTEST_GUILESS_MAIN(TestPixelDepths)
#include "tst_pixel_depths.moc"
