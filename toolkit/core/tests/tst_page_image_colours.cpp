// The values of pixels in page formats.

#include "colour_pictures.h"
#include "page_image.h"

#include <QTest>

#include <algorithm>
#include <array>
#include <utility>

class tst_page_image_colours : public QObject
{
    Q_OBJECT

private slots:
    void greysOfEightBitsKeepTheirValues();
    void greysOfSixteenBitsKeepTheirHighBytes();
    void greyPageCountsAsGrey();
    void coloursOfWholeBytesAreExact_data();
    void coloursOfWholeBytesAreExact();
    void coloursOfSixteenBitsAPixelAreSpread();
    void alphaSurvives_data();
    void alphaSurvives();
    void alphaOnlyPictureBecomesTransparentBlack();
};

void tst_page_image_colours::greysOfEightBitsKeepTheirValues()
{
    QImage grey(256, 1, QImage::Format_Grayscale8);
    for (int x = 0; x < 256; ++x)
        grey.scanLine(0)[x] = static_cast<uchar>(x);

    const QImage page = to_page_image(std::move(grey));

    QCOMPARE(page.colorCount(), 256);
    for (int x = 0; x < 256; ++x) {
        QCOMPARE(page.pixelIndex(x, 0), x);
        QCOMPARE(page.pixel(x, 0), qRgb(x, x, x));
    }
}

void tst_page_image_colours::greysOfSixteenBitsKeepTheirHighBytes()
{
    const std::array<quint16, 10> words = {0x0000, 0x00ff, 0x0100, 0x017f, 0x0180,
                                           0x7f80, 0x80ff, 0xfe80, 0xfeff, 0xffff};
    const std::array<int, 10> highBytes = {0x00, 0x00, 0x01, 0x01, 0x01, 0x7f, 0x80, 0xfe, 0xfe, 0xff};
    QImage grey(10, 1, QImage::Format_Grayscale16);
    std::copy(words.begin(), words.end(), reinterpret_cast<quint16 *>(grey.bits()));

    const QImage page = to_page_image(std::move(grey));

    QCOMPARE(page.format(), QImage::Format_Indexed8);
    for (size_t i = 0; i < words.size(); ++i) {
        QCOMPARE(page.pixelIndex(static_cast<int>(i), 0), highBytes[i]);
        QCOMPARE(page.pixel(static_cast<int>(i), 0), qRgb(highBytes[i], highBytes[i], highBytes[i]));
    }
}

void tst_page_image_colours::greyPageCountsAsGrey()
{
    QVERIFY(to_page_image(colour_picture(QImage::Format_Grayscale8)).isGrayscale());
    QVERIFY(to_page_image(colour_picture(QImage::Format_Grayscale16)).isGrayscale());
}

void tst_page_image_colours::coloursOfWholeBytesAreExact_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::newRow("RGB32") << QImage::Format_RGB32;
    QTest::newRow("ARGB32_Premultiplied") << QImage::Format_ARGB32_Premultiplied;
    QTest::newRow("RGB888") << QImage::Format_RGB888;
    QTest::newRow("BGR888") << QImage::Format_BGR888;
    QTest::newRow("RGBX8888") << QImage::Format_RGBX8888;
    QTest::newRow("RGBA8888") << QImage::Format_RGBA8888;
    QTest::newRow("RGBA8888_Premultiplied") << QImage::Format_RGBA8888_Premultiplied;
    QTest::newRow("RGB30") << QImage::Format_RGB30;
    QTest::newRow("BGR30") << QImage::Format_BGR30;
    QTest::newRow("A2RGB30_Premultiplied") << QImage::Format_A2RGB30_Premultiplied;
    QTest::newRow("A2BGR30_Premultiplied") << QImage::Format_A2BGR30_Premultiplied;
    QTest::newRow("RGBX64") << QImage::Format_RGBX64;
    QTest::newRow("RGBA64") << QImage::Format_RGBA64;
    QTest::newRow("RGBA64_Premultiplied") << QImage::Format_RGBA64_Premultiplied;
    QTest::newRow("RGBX16FPx4") << QImage::Format_RGBX16FPx4;
    QTest::newRow("RGBA16FPx4") << QImage::Format_RGBA16FPx4;
    QTest::newRow("RGBA16FPx4_Premultiplied") << QImage::Format_RGBA16FPx4_Premultiplied;
    QTest::newRow("RGBX32FPx4") << QImage::Format_RGBX32FPx4;
    QTest::newRow("RGBA32FPx4") << QImage::Format_RGBA32FPx4;
    QTest::newRow("RGBA32FPx4_Premultiplied") << QImage::Format_RGBA32FPx4_Premultiplied;
}

void tst_page_image_colours::coloursOfWholeBytesAreExact()
{
    QFETCH(QImage::Format, format);

    const QImage page = to_page_image(colour_picture(format));

    for (int y = 0; y < PictureHeight; ++y) {
        for (int x = 0; x < PictureWidth; ++x)
            QCOMPARE(page.pixel(x, y), colour_at(x, y));
    }
}

void tst_page_image_colours::coloursOfSixteenBitsAPixelAreSpread()
{
    QImage picture(2, 1, QImage::Format_RGB16);
    auto *const words = reinterpret_cast<quint16 *>(picture.bits());
    words[0] = 0xf800; // red 31 of 31
    words[1] = 0x0410; // green 32 of 63, blue 16 of 31

    const QImage page = to_page_image(std::move(picture));

    QCOMPARE(page.pixel(0, 0), qRgb(255, 0, 0));
    QCOMPARE(page.pixel(1, 0), qRgb(0, 130, 132)); // the high bits repeat below: 100000 10, 10000 100
}

void tst_page_image_colours::alphaSurvives_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::newRow("ARGB32") << QImage::Format_ARGB32;
    QTest::newRow("ARGB32_Premultiplied") << QImage::Format_ARGB32_Premultiplied;
    QTest::newRow("RGBA8888") << QImage::Format_RGBA8888;
    QTest::newRow("RGBA64") << QImage::Format_RGBA64;
    QTest::newRow("RGBA64_Premultiplied") << QImage::Format_RGBA64_Premultiplied;
}

void tst_page_image_colours::alphaSurvives()
{
    QFETCH(QImage::Format, format);
    QImage picture(2, 1, QImage::Format_ARGB32);
    picture.setPixel(0, 0, qRgba(255, 0, 255, 51));
    picture.setPixel(1, 0, qRgba(0, 0, 0, 0));

    const QImage page = to_page_image(std::move(picture).convertToFormat(format));

    QCOMPARE(page.format(), QImage::Format_ARGB32);
    QCOMPARE(page.pixel(0, 0), qRgba(255, 0, 255, 51));
    QCOMPARE(page.pixel(1, 0), qRgba(0, 0, 0, 0));
}

void tst_page_image_colours::alphaOnlyPictureBecomesTransparentBlack()
{
    QImage picture(2, 1, QImage::Format_Alpha8);
    picture.bits()[0] = 0;
    picture.bits()[1] = 200;

    const QImage page = to_page_image(std::move(picture));

    QCOMPARE(page.pixel(0, 0), qRgba(0, 0, 0, 0));
    QCOMPARE(page.pixel(1, 0), qRgba(0, 0, 0, 200));
}

QTEST_GUILESS_MAIN(tst_page_image_colours)
#include "tst_page_image_colours.moc"
