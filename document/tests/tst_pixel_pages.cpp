#include "ImageDocument.h"
#include "page_depth.h"
#include "random_pages.h"

#include <QColor>
#include <QList>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <initializer_list>
#include <utility>

namespace {

using Operation = std::function<bool(ImageDocument &)>;

QImage scaled_by_way_of32_bits(const QImage &page, QSize size)
{
    return toMono(
        page.convertToFormat(QImage::Format_RGB32).scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

/// The word of one pixel made brighter, by the toolkit alone.
QRgb brightened(QRgb word, int percent)
{
    const int end = qBound(-100, percent, 100);
    const QColor color(word);
    const QColor changed = end > 0 ? color.lighter(100 + end) : color.darker(100 - end);
    return (word & 0xff000000) | (changed.rgb() & 0x00ffffff);
}

} // namespace

class TestPixelPages : public QObject
{
    Q_OBJECT

    QRandomGenerator random{10};

    /// The page after an operation that must succeed and mark the document.
    static QImage changed(const QImage &page, const Operation &operation)
    {
        ImageDocument document({}, {});
        if (!document.addPage(page))
            return {};
        document.setModified(false);
        return operation(document) && document.isModified() ? document.page(1) : QImage();
    }

    static void addFormats()
    {
        QTest::addColumn<QImage::Format>("format");
        for (const QImage::Format format : page_formats())
            QTest::newRow(format_name(format)) << format;
    }

private slots:
    void flipsAndHalfTurnKeepFormatAndPalette_data() { addFormats(); }
    void flipsAndHalfTurnKeepFormatAndPalette()
    {
        QFETCH(QImage::Format, format);
        for (const QSize size : small_sizes()) {
            const QImage page = random_page(random, size, format);
            const QImage down = changed(page, [](ImageDocument &d) { return d.flip_vertically(1); });
            QCOMPARE(down, page.mirrored(false, true));
            QCOMPARE(down.colorTable(), page.colorTable());
            QCOMPARE(changed(page, [](ImageDocument &d) { return d.flip_horizontally(1); }),
                     page.mirrored(true, false));
            QCOMPARE(changed(page, [](ImageDocument &d) { return d.rotate_180(1); }), page.mirrored(true, true));
        }
    }

    void quarterTurns_data() { addFormats(); }
    void quarterTurns()
    {
        QFETCH(QImage::Format, format);
        const QTransform counterClockwise(0, -1, 1, 0, 0, 0);
        const QTransform clockwise(0, 1, -1, 0, 0, 0);
        for (const QSize size : small_sizes()) {
            const QImage page = random_page(random, size, format);
            QImage left = page.transformed(counterClockwise);
            QImage right = page.transformed(clockwise);
            if (page.depth() == 1) {
                const QImage wide = page.convertToFormat(QImage::Format_RGB32);
                left = toMono(wide.transformed(counterClockwise));
                right = toMono(wide.transformed(clockwise));
            }

            QCOMPARE(changed(page, [](ImageDocument &d) { return d.rotate_90(1); }), left);
            QCOMPARE(changed(page, [](ImageDocument &d) { return d.rotate_270(1); }), right);
        }
    }

    void aTurnedBitPageIsBlackAndWhiteWhateverItsPaletteWas()
    {
        QImage page = random_page(random, QSize(9, 4), QImage::Format_MonoLSB);
        page.setColorTable({0xff202020, 0xff303030});

        const QImage result = changed(page, [](ImageDocument &d) { return d.rotate_90(1); });

        QCOMPARE(result.format(), QImage::Format_Mono);
        QCOMPARE(result.colorTable(), (QList<QRgb>{0xffffffff, 0xff000000}));
        QCOMPARE(result.pixelIndex(3, 8), 1);
    }

    void onlyQuarterTurnsExchangeTheResolutions_data() { addFormats(); }
    void onlyQuarterTurnsExchangeTheResolutions()
    {
        QFETCH(QImage::Format, format);
        QImage page = random_page(random, QSize(9, 4), format);
        page.setDotsPerMeterX(7874); // 200 dots to the inch
        page.setDotsPerMeterY(3937);
        const auto resolutionAfter = [&page](const Operation &operation) {
            const QImage result = changed(page, operation);
            return std::pair(result.dotsPerMeterX(), result.dotsPerMeterY());
        };

        QCOMPARE(resolutionAfter([](ImageDocument &d) { return d.rotate_90(1); }), std::pair(3937, 7874));
        QCOMPARE(resolutionAfter([](ImageDocument &d) { return d.rotate_270(1); }), std::pair(3937, 7874));
        for (const Operation &operation : std::initializer_list<Operation>{
                 [](ImageDocument &d) { return d.rotate_180(1); },
                 [](ImageDocument &d) { return d.flip_vertically(1); },
                 [](ImageDocument &d) { return d.flip_horizontally(1); },
                 [](ImageDocument &d) { return d.scale(1, 2.0, 2.0); },
                 [](ImageDocument &d) { return d.resize(1, 5, 5); },
                 [](ImageDocument &d) { return d.crop(1, QRect(1, 1, 2, 2)); },
                 [](ImageDocument &d) { return d.invert(1); },
                 [](ImageDocument &d) { return d.depth_1_bit(1); },
                 [](ImageDocument &d) { return d.depth_8_bit(1); },
                 [](ImageDocument &d) { return d.depth_32_bit(1); },
             })
            QCOMPARE(resolutionAfter(operation), std::pair(7874, 3937));
    }

    void turningAShortTableLeavesItShort()
    {
        QImage page(5, 4, QImage::Format_Indexed8);
        page.setColorTable({0xff202020, 0xff303030});
        page.fill(1);

        QCOMPARE(changed(page, [](ImageDocument &d) { return d.rotate_90(1); }).colorCount(), 2);
    }

    void color255Stays()
    {
        const QImage page = random_page(random, QSize(5, 4), QImage::Format_Indexed8);

        QCOMPARE(changed(page, [](ImageDocument &d) { return d.rotate_270(1); }).color(255), page.color(255));
    }

    void invertEqualsTheToolkits_data() { addFormats(); }
    void invertEqualsTheToolkits()
    {
        QFETCH(QImage::Format, format);
        const QImage page = random_page(random, QSize(21, 9), format);
        QImage expected = page;
        expected.invertPixels(QImage::InvertRgb);

        QCOMPARE(changed(page, [](ImageDocument &d) { return d.invert(1); }), expected);
        QCOMPARE(changed(page.copy(), [](ImageDocument &d) { return d.invert(1) && d.invert(1); }), page);
    }

    void invertLeavesCopiesOfThePageAlone()
    {
        const QImage page = random_page(random, QSize(21, 9), QImage::Format_RGB32);
        const QImage before = page.copy();

        (void)changed(page, [](ImageDocument &d) { return d.invert(1); });

        QCOMPARE(page, before);
    }

    void invertWorksInPlaceWhereNobodyShares()
    {
        ImageDocument document({}, {});
        QVERIFY(document.addPage(random_page(random, QSize(21, 9), QImage::Format_RGB32)));
        const uchar *const memory = std::as_const(document).page(1).constBits();

        QVERIFY(document.invert(1));

        QCOMPARE(std::as_const(document).page(1).constBits(), memory);
    }

    void brightnessEqualsQColorPixelByPixel()
    {
        for (const int percent : {-500, -100, -37, -1, 1, 37, 100, 500}) {
            const QImage page = random_page(random, QSize(33, 21), QImage::Format_ARGB32);

            const QImage result = changed(page, [percent](ImageDocument &d) { return d.brightness(1, percent); });

            QCOMPARE(result.size(), page.size());
            for (int y = 0; y < page.height(); ++y) {
                for (int x = 0; x < page.width(); ++x)
                    QCOMPARE(value_at(result, x, y), brightened(value_at(page, x, y), percent));
            }
        }
    }

    void contrastOfTheWorkedExample()
    {
        QImage page(3, 1, QImage::Format_RGB32);
        page.setPixel(0, 0, qRgb(10, 0, 0));
        page.setPixel(1, 0, qRgb(105, 0, 0));
        page.setPixel(2, 0, qRgb(200, 0, 0));

        const QImage raised = changed(page, [](ImageDocument &d) { return d.contrast(1, 100); });
        const QImage lowered = changed(page, [](ImageDocument &d) { return d.contrast(1, -100); });

        QCOMPARE(qRed(raised.pixel(1, 0)), 254);
        QCOMPARE(qRed(raised.pixel(2, 0)), 255);
        QCOMPARE(qRed(lowered.pixel(2, 0)), 127);
    }

    void percentagesBeyondTheEndsActAsTheEnds()
    {
        const QImage page = random_page(random, QSize(12, 9), QImage::Format_RGB32);
        for (const int end : {-100, 100}) {
            const QImage atEnd = changed(page, [end](ImageDocument &d) { return d.contrast(1, end); });
            QVERIFY(!atEnd.isNull());
            QCOMPARE(changed(page, [end](ImageDocument &d) { return d.contrast(1, 5 * end); }), atEnd);
        }
    }

    void zeroPercentSucceedsAndDoesNotMarkTheDocument()
    {
        ImageDocument document({}, {});
        QVERIFY(document.addPage(random_page(random, QSize(5, 5), QImage::Format_RGB32)));
        document.setModified(false);
        const QSignalSpy changes(&document, &ImageDocument::modifiedStateChanged);

        QVERIFY(document.brightness(1, 0));
        QVERIFY(document.contrast(1, 0));

        QVERIFY(!document.isModified());
        QCOMPARE(changes.count(), 0);
    }

    void brightnessAndContrastMarkIndexedPagesAndChangeNothing()
    {
        for (const QImage::Format format : {QImage::Format_Mono, QImage::Format_Indexed8}) {
            const QImage page = random_page(random, QSize(8, 8), format);
            QCOMPARE(changed(page, [](ImageDocument &d) { return d.brightness(1, 50); }), page);
            QCOMPARE(changed(page, [](ImageDocument &d) { return d.contrast(1, 50); }), page);
        }
    }

    void scaleTakesTheLastPixelsIndex()
    {
        const QImage page = random_page(random, QSize(100, 50), QImage::Format_RGB32);

        const QImage result = changed(page, [](ImageDocument &d) { return d.scale(1, 2.0, 2.0); });

        QCOMPARE(result.size(), QSize(199, 99));
        QCOMPARE(result, page.scaled(199, 99, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }

    void scaleOfABitPageEqualsTheWayOver32Bits_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::newRow("Mono") << QImage::Format_Mono;
        QTest::newRow("MonoLSB") << QImage::Format_MonoLSB;
    }

    void scaleOfABitPageEqualsTheWayOver32Bits()
    {
        QFETCH(QImage::Format, format);
        for (const QSize size : small_sizes()) {
            const QImage page = random_page(random, size, format);
            const QSize scaled((size.width() - 1) * 3 / 2 + 1, (size.height() - 1) / 2 + 1);

            const QImage result = changed(page, [](ImageDocument &d) { return d.scale(1, 1.5, 0.5); });

            QCOMPARE(result, scaled_by_way_of32_bits(page, scaled));
        }
    }

    void aBitPageTooWideFor32BitsIsScaledAllTheSame()
    {
        // 70 million pixels in a line are more than a line of 32 bits each can have.
        QImage page(70'000'001, 1, QImage::Format_Mono);
        page.setColorTable({0xffffffff, 0xff000000});
        page.fill(1);

        const QImage result = changed(page, [](ImageDocument &d) { return d.scale(1, 1e-6, 1.0); });

        QCOMPARE(result.size(), QSize(71, 1));
        QCOMPARE(result.format(), QImage::Format_Mono);
        QCOMPARE(result.pixelIndex(35, 0), 1);
    }

    void impossibleSizesFailAndChangeNothing()
    {
        ImageDocument document({}, {});
        const QImage page = random_page(random, QSize(5, 5), QImage::Format_RGB32);
        QVERIFY(document.addPage(page));
        document.setModified(false);

        QVERIFY(!document.scale(1, 1e12, 1.0));
        QVERIFY(!document.resize(1, 0, 10));
        QVERIFY(!document.resize(1, 10, 0));

        QCOMPARE(document.page(1), page);
        QVERIFY(!document.isModified());
    }

    void resizeGivesTheSizeIn32Bits()
    {
        for (const QImage::Format format : {QImage::Format_Mono, QImage::Format_Indexed8, QImage::Format_RGB32}) {
            const QImage page = random_page(random, QSize(30, 20), format);
            const QImage result = changed(page, [](ImageDocument &d) { return d.resize(1, 17, 41); });
            QCOMPARE(result.size(), QSize(17, 41));
            QCOMPARE(result.format(), QImage::Format_RGB32);
        }
    }

    void depthOperationsGiveTheirDepth()
    {
        const QImage page = random_page(random, QSize(30, 20), QImage::Format_ARGB32);

        QCOMPARE(changed(page, [](ImageDocument &d) { return d.depth_1_bit(1); }).format(), QImage::Format_MonoLSB);
        QCOMPARE(changed(page, [](ImageDocument &d) { return d.depth_8_bit(1); }).format(), QImage::Format_Indexed8);
        QCOMPARE(changed(page, [](ImageDocument &d) { return d.depth_32_bit(1); }).format(), QImage::Format_ARGB32);
    }

    void operationsTakeTheNamedPageOnly()
    {
        ImageDocument document({}, {});
        const QImage first = random_page(random, QSize(6, 3), QImage::Format_RGB32);
        const QImage second = random_page(random, QSize(6, 3), QImage::Format_RGB32);
        QVERIFY(document.addPage(first));
        QVERIFY(document.addPage(second));

        QVERIFY(document.rotate_90(2));

        QCOMPARE(document.page(1), first);
        QCOMPARE(document.page(2).size(), QSize(3, 6));
    }
};

QTEST_GUILESS_MAIN(TestPixelPages)
#include "tst_pixel_pages.moc"
