#include "colour_pictures.h"
#include "page_image.h"

#include <QTest>

#include <limits>
#include <utility>

class tst_page_image : public QObject
{
    Q_OBJECT

private slots:
    void everyFormatBecomesAPageFormat_data();
    void everyFormatBecomesAPageFormat();
    void pageFormatSharesItsPixels_data();
    void pageFormatSharesItsPixels();
    void oddTableStays_data();
    void oddTableStays();
    void indicesBeyondAShortTableBecomeBlack_data();
    void indicesBeyondAShortTableBecomeBlack();
    void nullStaysNull();
    void sharedGreyPictureStaysUntouched();
    void movedGreyPictureIsRelabelledInPlace();
    void movedColourPictureIsConvertedInPlace();
    void resolutionAndTextsSurvive_data();
    void resolutionAndTextsSurvive();
    void resolutionOfNothingBecomesTheDefault_data();
    void resolutionOfNothingBecomesTheDefault();
    void resultTooWideForMemoryIsNull();
};

void tst_page_image::everyFormatBecomesAPageFormat_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<QImage::Format>("expected");

    const auto row = [](const char *name, QImage::Format format, QImage::Format expected) {
        QTest::newRow(name) << format << expected;
    };
    row("Mono", QImage::Format_Mono, QImage::Format_Mono);
    row("MonoLSB", QImage::Format_MonoLSB, QImage::Format_MonoLSB);
    row("Indexed8", QImage::Format_Indexed8, QImage::Format_Indexed8);
    row("RGB32", QImage::Format_RGB32, QImage::Format_RGB32);
    row("ARGB32", QImage::Format_ARGB32, QImage::Format_ARGB32);
    row("ARGB32_Premultiplied", QImage::Format_ARGB32_Premultiplied, QImage::Format_ARGB32);
    row("RGB16", QImage::Format_RGB16, QImage::Format_RGB32);
    row("ARGB8565_Premultiplied", QImage::Format_ARGB8565_Premultiplied, QImage::Format_ARGB32);
    row("RGB666", QImage::Format_RGB666, QImage::Format_RGB32);
    row("ARGB6666_Premultiplied", QImage::Format_ARGB6666_Premultiplied, QImage::Format_ARGB32);
    row("RGB555", QImage::Format_RGB555, QImage::Format_RGB32);
    row("ARGB8555_Premultiplied", QImage::Format_ARGB8555_Premultiplied, QImage::Format_ARGB32);
    row("RGB888", QImage::Format_RGB888, QImage::Format_RGB32);
    row("RGB444", QImage::Format_RGB444, QImage::Format_RGB32);
    row("ARGB4444_Premultiplied", QImage::Format_ARGB4444_Premultiplied, QImage::Format_ARGB32);
    row("RGBX8888", QImage::Format_RGBX8888, QImage::Format_RGB32);
    row("RGBA8888", QImage::Format_RGBA8888, QImage::Format_ARGB32);
    row("RGBA8888_Premultiplied", QImage::Format_RGBA8888_Premultiplied, QImage::Format_ARGB32);
    row("BGR30", QImage::Format_BGR30, QImage::Format_RGB32);
    row("A2BGR30_Premultiplied", QImage::Format_A2BGR30_Premultiplied, QImage::Format_ARGB32);
    row("RGB30", QImage::Format_RGB30, QImage::Format_RGB32);
    row("A2RGB30_Premultiplied", QImage::Format_A2RGB30_Premultiplied, QImage::Format_ARGB32);
    row("Alpha8", QImage::Format_Alpha8, QImage::Format_ARGB32);
    row("Grayscale8", QImage::Format_Grayscale8, QImage::Format_Indexed8);
    row("RGBX64", QImage::Format_RGBX64, QImage::Format_RGB32);
    row("RGBA64", QImage::Format_RGBA64, QImage::Format_ARGB32);
    row("RGBA64_Premultiplied", QImage::Format_RGBA64_Premultiplied, QImage::Format_ARGB32);
    row("Grayscale16", QImage::Format_Grayscale16, QImage::Format_Indexed8);
    row("BGR888", QImage::Format_BGR888, QImage::Format_RGB32);
    row("RGBX16FPx4", QImage::Format_RGBX16FPx4, QImage::Format_RGB32);
    row("RGBA16FPx4", QImage::Format_RGBA16FPx4, QImage::Format_ARGB32);
    row("RGBA16FPx4_Premultiplied", QImage::Format_RGBA16FPx4_Premultiplied, QImage::Format_ARGB32);
    row("RGBX32FPx4", QImage::Format_RGBX32FPx4, QImage::Format_RGB32);
    row("RGBA32FPx4", QImage::Format_RGBA32FPx4, QImage::Format_ARGB32);
    row("RGBA32FPx4_Premultiplied", QImage::Format_RGBA32FPx4_Premultiplied, QImage::Format_ARGB32);
}

void tst_page_image::everyFormatBecomesAPageFormat()
{
    QFETCH(QImage::Format, format);
    QFETCH(QImage::Format, expected);

    const QImage page = to_page_image(colour_picture(format));

    QCOMPARE(page.format(), expected);
    QCOMPARE(page.size(), QSize(PictureWidth, PictureHeight));
}

void tst_page_image::pageFormatSharesItsPixels_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::newRow("Mono") << QImage::Format_Mono;
    QTest::newRow("MonoLSB") << QImage::Format_MonoLSB;
    QTest::newRow("Indexed8") << QImage::Format_Indexed8;
    QTest::newRow("RGB32") << QImage::Format_RGB32;
    QTest::newRow("ARGB32") << QImage::Format_ARGB32;
}

void tst_page_image::pageFormatSharesItsPixels()
{
    QFETCH(QImage::Format, format);
    const QImage picture = colour_picture(format);

    const QImage page = to_page_image(picture);

    QCOMPARE(page.constBits(), picture.constBits());
}

void tst_page_image::oddTableStays_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<QList<QRgb>>("table");
    QTest::newRow("Mono in colours") << QImage::Format_Mono << QList<QRgb>{qRgb(1, 2, 3), qRgb(200, 100, 0)};
    QTest::newRow("Mono with alpha") << QImage::Format_Mono << QList<QRgb>{qRgba(1, 2, 3, 4), qRgb(0, 0, 0)};
    QTest::newRow("MonoLSB inverted") << QImage::Format_MonoLSB << QList<QRgb>{qRgb(255, 255, 255), qRgb(0, 0, 0)};
    QTest::newRow("Indexed8 with one entry") << QImage::Format_Indexed8 << QList<QRgb>{qRgb(9, 9, 9)};
    QTest::newRow("Indexed8 with alpha") << QImage::Format_Indexed8 << QList<QRgb>{qRgba(9, 9, 9, 0), qRgb(1, 1, 1)};
    QTest::newRow("Indexed8 without table") << QImage::Format_Indexed8 << QList<QRgb>{};
}

void tst_page_image::oddTableStays()
{
    QFETCH(QImage::Format, format);
    QFETCH(QList<QRgb>, table);
    QImage picture(PictureWidth, PictureHeight, format);
    picture.setColorTable(table);
    picture.fill(0);

    const QImage page = to_page_image(picture);

    QCOMPARE(page.format(), format);
    QCOMPARE(page.colorTable(), table);
}

void tst_page_image::indicesBeyondAShortTableBecomeBlack_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<uint>("index");
    QTest::newRow("Mono") << QImage::Format_Mono << 1U;
    QTest::newRow("MonoLSB") << QImage::Format_MonoLSB << 1U;
    QTest::newRow("Indexed8, the next") << QImage::Format_Indexed8 << 1U;
    QTest::newRow("Indexed8, the last") << QImage::Format_Indexed8 << 255U;
}

void tst_page_image::indicesBeyondAShortTableBecomeBlack()
{
    QFETCH(QImage::Format, format);
    QFETCH(uint, index);
    QImage picture(PictureWidth, PictureHeight, format);
    picture.setColorTable({qRgb(9, 9, 9)});
    picture.fill(index);
    picture.scanLine(1)[0] = 0;

    const QImage page = to_page_image(std::move(picture));

    QCOMPARE(page.colorCount(), static_cast<int>(index) + 1);
    QCOMPARE(page.pixel(0, 0), qRgb(0, 0, 0));
    QCOMPARE(page.pixel(0, 1), qRgb(9, 9, 9));
    QVERIFY(!page.hasAlphaChannel());
}

void tst_page_image::nullStaysNull()
{
    QVERIFY(to_page_image(QImage()).isNull());
}

void tst_page_image::sharedGreyPictureStaysUntouched()
{
    const QImage grey = colour_picture(QImage::Format_Grayscale8);

    const QImage page = to_page_image(grey);

    QCOMPARE(page.format(), QImage::Format_Indexed8);
    QCOMPARE(grey.format(), QImage::Format_Grayscale8);
    QCOMPARE(grey.colorCount(), 0);
    QVERIFY(page.constBits() != grey.constBits());
}

void tst_page_image::movedGreyPictureIsRelabelledInPlace()
{
    QImage grey = colour_picture(QImage::Format_Grayscale8);
    const uchar *const bits = grey.constBits();

    const QImage page = to_page_image(std::move(grey));

    QCOMPARE(page.constBits(), bits);
}

void tst_page_image::movedColourPictureIsConvertedInPlace()
{
    QImage picture = colour_picture(QImage::Format_ARGB32_Premultiplied);
    const uchar *const bits = picture.constBits();

    const QImage page = to_page_image(std::move(picture));

    QCOMPARE(page.constBits(), bits);
}

void tst_page_image::resolutionAndTextsSurvive_data()
{
    everyFormatBecomesAPageFormat_data();
}

void tst_page_image::resolutionAndTextsSurvive()
{
    QFETCH(QImage::Format, format);
    QImage picture = colour_picture(format);
    picture.setDotsPerMeterX(23622);
    picture.setDotsPerMeterY(11811);
    picture.setText(QStringLiteral("Title"), QStringLiteral("Page"));

    const QImage page = to_page_image(std::move(picture));

    QCOMPARE(page.dotsPerMeterX(), 23622);
    QCOMPARE(page.dotsPerMeterY(), 11811);
    QCOMPARE(page.text(QStringLiteral("Title")), QStringLiteral("Page"));
}

void tst_page_image::resolutionOfNothingBecomesTheDefault_data()
{
    everyFormatBecomesAPageFormat_data();
}

void tst_page_image::resolutionOfNothingBecomesTheDefault()
{
    QFETCH(QImage::Format, format);
    QImage picture = colour_picture(format);
    const int usual = picture.dotsPerMeterX();
    picture.setDotsPerMeterX(-1);
    picture.setDotsPerMeterY(23622);
    QImage other = picture;
    other.setDotsPerMeterX(11811);
    other.setDotsPerMeterY(std::numeric_limits<int>::min());

    const QImage page = to_page_image(std::move(picture));
    const QImage otherPage = to_page_image(std::move(other));

    QCOMPARE(page.dotsPerMeterX(), usual);
    QCOMPARE(page.dotsPerMeterY(), 23622);
    QCOMPARE(otherPage.dotsPerMeterX(), 11811);
    QCOMPARE(otherPage.dotsPerMeterY(), usual);
}

void tst_page_image::resultTooWideForMemoryIsNull()
{
    // The bits of a row of 32-bit colours do not fit an int, so the result is refused before a pixel is read.
    constexpr int Pixels = 100'000'000;
    const uchar byte = 0;
    const QImage picture(&byte, Pixels, 1, qsizetype{2} * Pixels, QImage::Format_RGB16);
    QVERIFY(!picture.isNull());

    QTest::ignoreMessage(QtWarningMsg, "QImage: out of memory, returning null image");
    QVERIFY(to_page_image(picture).isNull());
}

QTEST_GUILESS_MAIN(tst_page_image)
#include "tst_page_image.moc"
