#include "embedded_images.h"

#include <QColor>
#include <QTest>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

QStringList names_of(const EmbeddedImage *row)
{
    QStringList names;
    for (; row->data; ++row)
        names << QString::fromUtf8(row->name);
    return names;
}

QImage tool_picture(const QString &name)
{
    const EmbeddedImage *row = embedded_tool_pictures();
    while (row->data && QString::fromUtf8(row->name) != name)
        ++row;
    return row->data ? unpack_embedded_image(*row) : QImage();
}

/// The words of @p picture that show anything at all.
QList<QRgb> visible_words(const QImage &picture)
{
    QList<QRgb> words;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (const QRgb word = picture.pixel(x, y); qAlpha(word) != 0)
                words << word;
        }
    }
    return words;
}

bool is_gray(QRgb word)
{
    return qRed(word) == qGreen(word) && qGreen(word) == qBlue(word);
}

bool is_colourful(QRgb word)
{
    return QColor::fromRgb(word).saturation() > 64;
}

/// How far the darkest and the lightest grey lie apart where the colour form is nearly opaque.
int gray_range(const QImage &picture, const QImage &color)
{
    int darkest = 255;
    int lightest = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qAlpha(color.pixel(x, y)) < 250)
                continue;
            darkest = std::min(darkest, qGray(picture.pixel(x, y)));
            lightest = std::max(lightest, qGray(picture.pixel(x, y)));
        }
    }
    return lightest - darkest;
}

void add_bases()
{
    QTest::addColumn<QString>("base");
    for (const char *const base : {"Crop", "Effects", "Flip", "Properties", "Redo", "Resize", "Rotate", "Save",
                                   "Scroll", "Undo", "ZoomIn", "ZoomOut"})
        QTest::newRow(base) << QString::fromLatin1(base);
}

} // namespace

class tst_embedded_images : public QObject
{
    Q_OBJECT

private slots:
    void toolPicturesStandByCommandAndForm()
    {
        const QStringList expected{
            u"Crop_color.png"_s,       u"Crop_disable.png"_s,       u"Crop_gray.png"_s, //
            u"Effects_color.png"_s,    u"Effects_disable.png"_s,    u"Effects_gray.png"_s, //
            u"Flip_color.png"_s,       u"Flip_disable.png"_s,       u"Flip_gray.png"_s, //
            u"Properties_color.png"_s, u"Properties_disable.png"_s, u"Properties_gray.png"_s, //
            u"Redo_color.png"_s,       u"Redo_disable.png"_s,       u"Redo_gray.png"_s, //
            u"Resize_color.png"_s,     u"Resize_disable.png"_s,     u"Resize_gray.png"_s, //
            u"Rotate_color.png"_s,     u"Rotate_disable.png"_s,     u"Rotate_gray.png"_s, //
            u"Save_color.png"_s,       u"Save_disable.png"_s,       u"Save_gray.png"_s, //
            u"Scroll_color.png"_s,     u"Scroll_disable.png"_s,     u"Scroll_gray.png"_s, //
            u"Undo_color.png"_s,       u"Undo_disable.png"_s,       u"Undo_gray.png"_s, //
            u"ZoomIn_color.png"_s,     u"ZoomIn_disable.png"_s,     u"ZoomIn_gray.png"_s, //
            u"ZoomOut_color.png"_s,    u"ZoomOut_disable.png"_s,    u"ZoomOut_gray.png"_s,
        };

        QCOMPARE(names_of(embedded_tool_pictures()), expected);
    }

    void aRowOfZerosClosesTheToolPictures()
    {
        const EmbeddedImage &last = embedded_tool_pictures()[36];

        QCOMPARE(last.width, 0);
        QCOMPARE(last.height, 0);
        QCOMPARE(last.depth, 0);
        QVERIFY(!last.data);
        QCOMPARE(last.compressedSize, 0);
        QCOMPARE(last.colorCount, 0);
        QVERIFY(!last.colorTable);
        QVERIFY(!last.alpha);
        QVERIFY(!last.name);
    }

    void everyToolPictureIs24By24WithAlphaAndNoColourTable()
    {
        for (const EmbeddedImage *row = embedded_tool_pictures(); row->data; ++row) {
            QCOMPARE(row->width, 24);
            QCOMPARE(row->height, 24);
            QCOMPARE(row->depth, 32);
            QCOMPARE(row->colorCount, 0);
            QVERIFY(!row->colorTable);
            QVERIFY(row->alpha);
        }
    }

    void everyToolPictureUnpacksToItsRawPixels()
    {
        constexpr qsizetype RawBytes = qsizetype{24} * 24 * 4;
        for (const EmbeddedImage *row = embedded_tool_pictures(); row->data; ++row) {
            const QByteArray raw = qUncompress(row->data, row->compressedSize);
            const QImage image = unpack_embedded_image(*row);

            QCOMPARE(raw.size(), RawBytes);
            QCOMPARE(image.format(), QImage::Format_ARGB32);
            QCOMPARE(QByteArray::fromRawData(reinterpret_cast<const char *>(image.constBits()), RawBytes), raw);
        }
    }

    void theToolPicturesStaySmall()
    {
        int total = 0;
        for (const EmbeddedImage *row = embedded_tool_pictures(); row->data; ++row)
            total += row->compressedSize;

        QVERIFY2(total < 24'000, qPrintable(QString::number(total)));
    }

    void aDrawingLeavesRoomAroundItself_data() { add_bases(); }
    void aDrawingLeavesRoomAroundItself()
    {
        QFETCH(const QString, base);
        const QImage color = tool_picture(base + "_color.png"_L1);

        const auto shown = visible_words(color).size();

        QVERIFY2(shown > 24 * 24 / 6 && shown < 24 * 24 * 9 / 10, qPrintable(QString::number(shown)));
    }

    void theColorFormHasColour_data() { add_bases(); }
    void theColorFormHasColour()
    {
        QFETCH(const QString, base);
        const QList<QRgb> words = visible_words(tool_picture(base + "_color.png"_L1));

        QVERIFY(std::any_of(words.begin(), words.end(), is_colourful));
    }

    void theGrayFormIsTheColorFormWithoutItsColours_data() { add_bases(); }
    void theGrayFormIsTheColorFormWithoutItsColours()
    {
        QFETCH(const QString, base);
        const QImage color = tool_picture(base + "_color.png"_L1);
        const QImage gray = tool_picture(base + "_gray.png"_L1);
        const QList<QRgb> words = visible_words(gray);

        QVERIFY(!words.isEmpty());
        QVERIFY(std::all_of(words.begin(), words.end(), is_gray));
        QCOMPARE(gray.convertToFormat(QImage::Format_Alpha8), color.convertToFormat(QImage::Format_Alpha8));
        QVERIFY2(gray_range(gray, color) > 100, "the outline no longer stands out");
    }

    void theDisabledFormIsGrayPaleAndThin_data() { add_bases(); }
    void theDisabledFormIsGrayPaleAndThin()
    {
        QFETCH(const QString, base);
        const QImage color = tool_picture(base + "_color.png"_L1);
        const QImage disabled = tool_picture(base + "_disable.png"_L1);
        const QList<QRgb> words = visible_words(disabled);

        QVERIFY(!words.isEmpty());
        QVERIFY(std::all_of(words.begin(), words.end(), is_gray));
        QVERIFY(std::all_of(words.begin(), words.end(),
                            [](QRgb word) { return qAlpha(word) < 128 && qGray(word) >= 100; }));
        QVERIFY(gray_range(disabled, color) < gray_range(tool_picture(base + "_gray.png"_L1), color));
    }

    void theProgramHasItsPictureInTheUsualSizes()
    {
        QCOMPARE(names_of(embedded_application_pictures()),
                 (QStringList{u"imagemanager_16.png"_s, u"imagemanager_24.png"_s, u"imagemanager_32.png"_s,
                              u"imagemanager_48.png"_s, u"imagemanager_64.png"_s, u"imagemanager_128.png"_s}));
    }

    void aPictureOfDepth8BringsItsColourTable()
    {
        constexpr std::array<uchar, 6> Indices{0, 1, 2, 2, 1, 0};
        constexpr std::array<QRgb, 3> Colors{0xffff0000, 0xff00ff00, 0x800000ff};
        const QByteArray packed = qCompress(Indices.data(), Indices.size());
        const EmbeddedImage row{.width = 3,
                                .height = 2,
                                .depth = 8,
                                .data = reinterpret_cast<const uchar *>(packed.constData()),
                                .compressedSize = static_cast<int>(packed.size()),
                                .colorCount = 3,
                                .colorTable = Colors.data(),
                                .name = "indexed"};

        const QImage image = unpack_embedded_image(row);

        QCOMPARE(image.size(), QSize(3, 2));
        QCOMPARE(image.pixel(0, 0), 0xffff0000);
        QCOMPARE(image.pixel(1, 1), 0xff00ff00);
        QCOMPARE(image.pixel(0, 1), 0x800000ff);
    }

    void aPictureWithoutAlphaIsOpaque()
    {
        constexpr std::array<QRgb, 1> Words{0x00123456};
        const QByteArray packed = qCompress(reinterpret_cast<const uchar *>(Words.data()), 4);
        const EmbeddedImage row{.width = 1,
                                .height = 1,
                                .depth = 32,
                                .data = reinterpret_cast<const uchar *>(packed.constData()),
                                .compressedSize = static_cast<int>(packed.size()),
                                .name = "opaque"};

        QCOMPARE(unpack_embedded_image(row).pixel(0, 0), 0xff123456);
    }

    void aBufferThatIsTooShortGivesNoPicture()
    {
        constexpr std::array<uchar, 4> OnePixel{1, 2, 3, 4};
        const QByteArray packed = qCompress(OnePixel.data(), OnePixel.size());
        const EmbeddedImage row{.width = 24,
                                .height = 24,
                                .depth = 32,
                                .data = reinterpret_cast<const uchar *>(packed.constData()),
                                .compressedSize = static_cast<int>(packed.size()),
                                .alpha = true,
                                .name = "short"};

        QVERIFY(unpack_embedded_image(row).isNull());
    }
};

QTEST_GUILESS_MAIN(tst_embedded_images)
#include "tst_embedded_images.moc"
