#include "DiagnosticLines.h"
#include "pixel_operations.h"
#include "random_pages.h"

#include <QList>
#include <QTest>

namespace {

QImage indexed_page(const QList<QRgb> &table)
{
    QImage image(2, 1, QImage::Format_Indexed8);
    image.setColorTable(table);
    image.fill(0);
    return image;
}

} // namespace

class TestPixelOperations : public QObject
{
    Q_OBJECT

    QRandomGenerator random{9};

private slots:
    void transformsWithoutParameterEqualTheToolkits_data()
    {
        QTest::addColumn<ImageTransform>("transform");
        QTest::addColumn<QImage>("source");
        QTest::addColumn<QImage>("expected");
        for (const QImage::Format format : page_formats()) {
            const QImage page = random_page(random, QSize(13, 6), format);
            const auto add = [&](const char *name, ImageTransform transform, const QImage &expected) {
                QTest::addRow("%s, %s", name, format_name(format)) << transform << page << expected;
            };
            QImage negative = page;
            negative.invertPixels(QImage::InvertRgb);
            add("invert", trans_invert, negative);
            add("flip vertically", trans_flip_vertically, page.mirrored(false, true));
            add("flip horizontally", trans_flip_horizontally, page.mirrored(true, false));
            add("180 degrees", trans_rotate_180, page.mirrored(true, true));
            add("counter-clockwise", trans_rotate_90, page.transformed(QTransform(0, -1, 1, 0, 0, 0)));
            add("clockwise", trans_rotate_270, page.transformed(QTransform(0, 1, -1, 0, 0, 0)));
            const auto converted = [&page](int depth, QImage::Format wanted) {
                return page.depth() == depth ? page : page.convertToFormat(wanted);
            };
            add("depth 1", trans_depth_1_bit, converted(1, QImage::Format_MonoLSB));
            add("depth 8", trans_depth_8_bit, converted(8, QImage::Format_Indexed8));
            add("depth 32", trans_depth_32_bit, converted(32, QImage::Format_RGB32));
        }
    }

    void transformsWithoutParameterEqualTheToolkits()
    {
        QFETCH(ImageTransform, transform);
        QFETCH(QImage, source);
        QFETCH(QImage, expected);
        QImage result;

        QVERIFY(transform(source, result, nullptr));

        QCOMPARE(result.format(), expected.format());
        QCOMPARE(result.colorTable(), expected.colorTable());
        QCOMPARE(result, expected);
    }

    void transformsOfNoPictureFail()
    {
        QImage result(1, 1, QImage::Format_RGB32);
        for (const ImageTransform transform : {trans_flip_vertically, trans_rotate_90, trans_invert}) {
            QVERIFY(!transform(QImage(), result, nullptr));
            QVERIFY(result.isNull());
        }
    }

    void brightnessAndContrastOfNoPictureFailWithALine()
    {
        DiagnosticLines lines;
        const int percent = 10;
        QImage result;

        QVERIFY(!trans_brightness(QImage(), result, &percent));
        QVERIFY(!trans_contrast(QImage(), result, &percent));

        QCOMPARE(lines.lines(), (QStringList{"trans_brightness - empty image!", "trans_contrast - empty image!"}));
    }

    void zeroPercentGivesAPlainCopyWithALine()
    {
        DiagnosticLines lines;
        const int percent = 0;
        const QImage page = random_page(random, QSize(5, 4), QImage::Format_RGB32);
        QImage brightened;
        QImage contrasted;

        QVERIFY(trans_brightness(page, brightened, &percent));
        QVERIFY(trans_contrast(page, contrasted, &percent));

        QCOMPARE(brightened, page);
        QCOMPARE(contrasted, page);
        QCOMPARE(lines.lines(), (QStringList{"trans_brightness - zero parameter", "trans_contrast - zero parameter"}));
    }

    void percentagesBeyondTheEndsActAsTheEnds_data()
    {
        QTest::addColumn<ImageTransform>("transform");
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("end");
        QTest::newRow("brightness 500") << ImageTransform(trans_brightness) << 500 << 100;
        QTest::newRow("brightness -500") << ImageTransform(trans_brightness) << -500 << -100;
        QTest::newRow("contrast 500") << ImageTransform(trans_contrast) << 500 << 100;
        QTest::newRow("contrast -500") << ImageTransform(trans_contrast) << -500 << -100;
    }

    void percentagesBeyondTheEndsActAsTheEnds()
    {
        QFETCH(ImageTransform, transform);
        QFETCH(int, percent);
        QFETCH(int, end);
        const QImage page = random_page(random, QSize(30, 20), QImage::Format_ARGB32);
        QImage beyond;
        QImage atEnd;

        QVERIFY(transform(page, beyond, &percent));
        QVERIFY(transform(page, atEnd, &end));

        QCOMPARE(beyond, atEnd);
        QVERIFY(beyond != page);
    }

    void indexedPicturesKeepTheirLook_data()
    {
        QTest::addColumn<QImage::Format>("format");
        for (const QImage::Format format : {QImage::Format_Mono, QImage::Format_MonoLSB, QImage::Format_Indexed8})
            QTest::newRow(format_name(format)) << format;
    }

    void indexedPicturesKeepTheirLook()
    {
        QFETCH(QImage::Format, format);
        const QImage page = random_page(random, QSize(9, 9), format);
        const int percent = 60;
        QImage brightened;
        QImage contrasted;

        QVERIFY(trans_brightness(page, brightened, &percent));
        QVERIFY(trans_contrast(page, contrasted, &percent));

        QCOMPARE(brightened, page);
        QCOMPARE(brightened.colorTable(), page.colorTable());
        QCOMPARE(contrasted, page);
        QCOMPARE(contrasted.colorTable(), page.colorTable());
    }

    void aPictureWithoutColorsStaysAsItIs()
    {
        const QImage page = indexed_page({});
        const int percent = 60;
        QImage result;

        QVERIFY(trans_contrast(page, result, &percent));
        QCOMPARE(result.colorCount(), 0);
    }

    void paletteBeginsWithWhiteAndBlack_data()
    {
        QTest::addColumn<QList<QRgb>>("before");
        QTest::addColumn<QList<QRgb>>("after");

        const QList<QRgb> whiteAndBlack{0xffffffff, 0xff000000};
        QTest::newRow("black and white are exchanged") << QList<QRgb>{0xff000000, 0xffffffff} << whiteAndBlack;
        QTest::newRow("white and black stay") << whiteAndBlack << whiteAndBlack;
        QTest::newRow("first colours go where white and black were")
            << QList<QRgb>{0xff111111, 0xff222222, 0xff000000, 0xff333333, 0xffffffff}
            << QList<QRgb>{0xffffffff, 0xff000000, 0xff222222, 0xff333333, 0xff111111};
        QTest::newRow("the last black and white count")
            << QList<QRgb>{0xff111111, 0xff000000, 0xffffffff, 0xff000000, 0xffffffff}
            << QList<QRgb>{0xffffffff, 0xff000000, 0xffffffff, 0xff000000, 0xff111111};
    }

    void paletteBeginsWithWhiteAndBlack()
    {
        QFETCH(const QList<QRgb>, before);
        QFETCH(const QList<QRgb>, after);
        QImage image = indexed_page(before);

        patch_palette(image);

        QCOMPARE(image.colorTable(), after);
        QCOMPARE(image.pixelIndex(0, 0), 0);
    }

    void aPaletteWithoutWhiteStaysAndIsReported()
    {
        DiagnosticLines lines;
        QImage image = indexed_page({0xff000000, 0xff00a0b0});

        patch_palette(image);

        QCOMPARE(image.colorTable(), (QList<QRgb>{0xff000000, 0xff00a0b0}));
        QCOMPARE(lines.lines(),
                 (QStringList{"patch_palette: numColors = 2", "color[0] = #FF000000", "color[1] = #FF00A0B0",
                              "FATAL: found_b = 1, found_w = 0"}));
    }

    void entriesOfATableWithAlphaHaveEightDigits()
    {
        DiagnosticLines lines;
        QImage image = indexed_page({0x00000012});

        patch_palette(image);

        QCOMPARE(
            lines.lines(),
            (QStringList{"patch_palette: numColors = 1", "color[0] = #00000012", "FATAL: found_b = 0, found_w = 0"}));
    }

    void aPictureWithoutTableIsReported()
    {
        DiagnosticLines lines;
        QImage image(2, 2, QImage::Format_RGB32);

        patch_palette(image);

        QCOMPARE(lines.lines(), (QStringList{"patch_palette: numColors = 0", "16 or 32 bits"}));
    }
};

QTEST_GUILESS_MAIN(TestPixelOperations)
#include "tst_pixel_operations.moc"
