// Pages of which not all is opaque come back as they were.

#include "image_files.h"
#include "pictures.h"
#include "snapshot_file.h"
#include "snapshot_pages.h"

#include <QFile>
#include <QImageReader>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtEndian>
#include <QTest>

#include <array>

using namespace Qt::StringLiterals;

namespace {

quint32 number_at(const QByteArray &bytes, qsizetype at)
{
    return qFromLittleEndian<quint32>(bytes.constData() + at);
}

/// A page with a colour table, some of its colours transparent.
QImage table_page(QImage::Format format, int colorCount, QRandomGenerator &random)
{
    QImage page = random_page({13, 6}, format, colorCount, random);
    QList<QRgb> table = page.colorTable();
    for (qsizetype i = 0; i < table.size(); ++i)
        table[i] = (table[i] & RGB_MASK) | static_cast<QRgb>(i * 85 % 256) << 24; // alpha 0, 85, 170, 255 ...
    page.setColorTable(table);
    return page;
}

} // namespace

class tst_snapshot_transparency : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QVERIFY(m_directory.isValid());
        m_path = m_directory.filePath("page.bmp"_L1);
        QFile::remove(m_path);
    }

    void wordsOf32BitsComeBackAsTheyWere_data()
    {
        QTest::addColumn<QSize>("size");

        QTest::newRow("one pixel") << QSize(1, 1);
        QTest::newRow("odd") << QSize(13, 7);
        QTest::newRow("several blocks") << QSize(700, 401);
        QTest::newRow("rows longer than a block") << QSize(100'003, 3);
    }

    void wordsOf32BitsComeBackAsTheyWere()
    {
        QFETCH(const QSize, size);
        QRandomGenerator random(Seed);
        QImage page = random_page(size, QImage::Format_ARGB32, 0, random);
        page.setPixel(0, 0, 0x00123456); // the colour of what is not seen stays as well
        page.setDotsPerMeterX(11811);
        page.setDotsPerMeterY(5906);

        QVERIFY(write_snapshot(m_path, page));

        const QImage readBack = read_snapshot(m_path);
        QCOMPARE(readBack.format(), QImage::Format_ARGB32);
        QVERIFY(is_same_page(readBack, page));
        QVERIFY(readBack == page);
        QCOMPARE(readBack.pixel(0, 0), 0x00123456U);
    }

    void theToolkitReadsTheSame()
    {
        QRandomGenerator random(Seed);
        QImage page = random_page({37, 21}, QImage::Format_ARGB32, 0, random);
        page.setPixel(3, 3, 0x00123456);
        page.setDotsPerMeterX(11811);

        QVERIFY(write_snapshot(m_path, page));

        QImage readBack;
        QVERIFY(readBack.load(m_path, "BMP"));
        QCOMPARE(readBack.format(), QImage::Format_ARGB32);
        QVERIFY(is_same_page(readBack, page));
        QVERIFY(readBack == page);
    }

    void fileHasTheHeaderThatNamesAnAlphaMask()
    {
        QImage page(2, 1, QImage::Format_ARGB32);
        page.setPixel(0, 0, 0x80112233);
        page.setPixel(1, 0, 0xff445566);

        QVERIFY(write_snapshot(m_path, page));

        const QByteArray bytes = file_bytes(m_path);
        QCOMPARE(bytes.size(), 14 + 108 + 8);
        QCOMPARE(bytes.first(2), "BM");
        QCOMPARE(number_at(bytes, 2), 130U); // bytes of the file
        QCOMPARE(number_at(bytes, 10), 122U); // where the pixels begin
        QCOMPARE(number_at(bytes, 14), 108U); // BITMAPV4HEADER
        QCOMPARE(bytes.sliced(28, 2), little16(32)); // bits of a pixel
        QCOMPARE(number_at(bytes, 30), 3U); // BI_BITFIELDS
        QCOMPARE(number_at(bytes, 54), 0x00ff0000U);
        QCOMPARE(number_at(bytes, 58), 0x0000ff00U);
        QCOMPARE(number_at(bytes, 62), 0x000000ffU);
        QCOMPARE(number_at(bytes, 66), 0xff000000U);
        QCOMPARE(bytes.last(8), QByteArray("\x33\x22\x11\x80\x66\x55\x44\xff", 8));
    }

    void onePixelThatIsNotOpaqueMakesTheDifference_data()
    {
        QTest::addColumn<QPoint>("place");

        QTest::newRow("first") << QPoint(0, 0);
        QTest::newRow("last") << QPoint(16, 8);
        QTest::newRow("end of a row") << QPoint(16, 3);
    }

    void onePixelThatIsNotOpaqueMakesTheDifference()
    {
        QFETCH(const QPoint, place);
        QImage page = patterned_page({17, 9}).convertToFormat(QImage::Format_ARGB32);
        QVERIFY(write_snapshot(m_path, page));
        QCOMPARE(file_bytes(m_path), encoded(page, "BMP")); // that of the toolkit
        QVERIFY(QFile::remove(m_path));
        page.setPixel(place, 0xfe102030);

        QVERIFY(write_snapshot(m_path, page));

        QCOMPARE(read_snapshot(m_path).pixel(place), 0xfe102030U);
    }

    void formatWithoutAlphaStaysThatOfTheToolkitWhateverItsFourthByte()
    {
        QImage page({2, 2}, QImage::Format_RGB32);
        for (int y = 0; y < 2; ++y)
            std::fill_n(reinterpret_cast<QRgb *>(page.scanLine(y)), 2, 0x10203040);

        QVERIFY(write_snapshot(m_path, page));

        QCOMPARE(file_bytes(m_path), encoded(page, "BMP"));
    }

    void tableKeepsItsAlphaInTheFourthByte_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::addColumn<int>("colorCount");

        for (const int count : {1, 2, 15, 16, 17, 255, 256})
            QTest::addRow("8 bits, %d colours", count) << QImage::Format_Indexed8 << count;
        QTest::newRow("1 bit") << QImage::Format_Mono << 2;
    }

    void tableKeepsItsAlphaInTheFourthByte()
    {
        QFETCH(const QImage::Format, format);
        QFETCH(const int, colorCount);
        QRandomGenerator random(Seed);
        const QImage page = table_page(format, colorCount, random);

        QVERIFY(write_snapshot(m_path, page));

        const QByteArray bytes = file_bytes(m_path);
        for (int i = 0; i < colorCount; ++i)
            QCOMPARE(number_at(bytes, 54 + 4 * i), page.color(i));
        const QImage readBack = read_snapshot(m_path);
        QCOMPARE(readBack.format(), format);
        QVERIFY(compare_pictures(readBack, page));
        if (format == QImage::Format_Indexed8)
            QCOMPARE(readBack.colorTable(), page.colorTable());
    }

    void everyColourMayBeTransparent()
    {
        QImage page({3, 2}, QImage::Format_Indexed8);
        page.setColorTable({0x00112233, 0x00445566});
        page.fill(1);

        QVERIFY(write_snapshot(m_path, page));

        QCOMPARE(read_snapshot(m_path).colorTable(), page.colorTable());
    }

    void pageOfOneBitKeepsItsAlphaWithItsColours()
    {
        QImage page = patterned_page({9, 4}, 1);
        page.setColorTable({0xff000000, 0x40ffffff}); // the darker one first: they will be exchanged

        QVERIFY(write_snapshot(m_path, page));

        const QImage readBack = read_snapshot(m_path);
        QCOMPARE(readBack.colorTable(), QList<QRgb>({0x40ffffff, 0xff000000}));
        for (int x = 0; x < 9; ++x)
            QCOMPARE(readBack.pixel(x, 2), page.pixel(x, 2));
    }

    // Intended: such a table is shown as opaque black.
    void tableThatNobodyFilledIsThatOfTheToolkit()
    {
        QImage page({3, 2}, QImage::Format_Indexed8);
        page.setColorCount(4);
        page.fill(1);

        QVERIFY(write_snapshot(m_path, page));

        QCOMPARE(file_bytes(m_path), encoded(page, "BMP"));
        QCOMPARE(read_snapshot(m_path).colorTable(), QList<QRgb>(4, 0xff000000));
    }

    void rowsOfUnusualLengthKeepTheAlphaOfTheirTable()
    {
        const QImage whole = patterned_page({40, 9}, 8);
        QImage left(whole.constBits(), 13, 9, whole.bytesPerLine(), QImage::Format_Indexed8);
        QList<QRgb> table = whole.colorTable();
        table[1] = 0x20ff0000;
        left.setColorTable(table);

        QVERIFY(write_snapshot(m_path, left));

        QCOMPARE(read_snapshot(m_path).color(1), 0x20ff0000U);
        QVERIFY(compare_pictures(read_snapshot(m_path), left.copy()));
    }

    void fourthByteOfOtherFilesIsNoAlpha()
    {
        put_file(m_path, bmp_file(2, 1, 8, {0x20000000, 0x80ff0000}, QByteArray("\0\1\0\0", 4)));

        QCOMPARE(read_snapshot(m_path).color(1), 0xffff0000U);
    }

    void fileCutAnywhereIsAFailure()
    {
        QRandomGenerator random(Seed);
        for (const QImage &page :
             {random_page({5, 3}, QImage::Format_ARGB32, 0, random), table_page(QImage::Format_Indexed8, 20, random)}) {
            QFile::remove(m_path);
            QVERIFY(write_snapshot(m_path, page));
            const QByteArray bytes = file_bytes(m_path);

            for (qsizetype length = 0; length < bytes.size(); ++length) {
                put_file(m_path, bytes.first(length));
                QVERIFY2(read_snapshot(m_path).isNull(), qPrintable(u"%1 bytes"_s.arg(length)));
            }
        }
    }

private:
    QTemporaryDir m_directory;
    QString m_path;
};

QTEST_GUILESS_MAIN(tst_snapshot_transparency)
#include "tst_snapshot_transparency.moc"
