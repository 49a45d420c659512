#include "image_files.h"
#include "page_buffers.h"
#include "pictures.h"
#include "process_limits.h"
#include "snapshot_file.h"
#include "snapshot_pages.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// 200 sizes with every remainder of a row's padding, some of them long.
QList<QSize> many_sizes()
{
    QList<QSize> sizes;
    for (int i = 0; i < 190; ++i)
        sizes.append({1 + i % 67, 1 + i * 7 % 13});
    for (int i = 0; i < 10; ++i)
        sizes.append({997 + i, 3 + i});
    return sizes;
}

/// The forms in which pages come.
void add_page_forms()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<int>("colorCount");

    QTest::newRow("1 bit") << QImage::Format_Mono << 2;
    QTest::newRow("1 bit, one colour") << QImage::Format_Mono << 1;
    QTest::newRow("1 bit, lowest bit first") << QImage::Format_MonoLSB << 2;
    QTest::newRow("1 bit, lowest bit first, one colour") << QImage::Format_MonoLSB << 1;
    for (const int count : {1, 2, 3, 15, 16, 17, 18, 100, 255, 256})
        QTest::addRow("8 bits, %d colours", count) << QImage::Format_Indexed8 << count;
    QTest::newRow("32 bits") << QImage::Format_RGB32 << 0;
}

/// Forms that no page has, or whose file does not come back as the page that it was.
void add_odd_forms()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<int>("colorCount");

    QTest::newRow("1 bit, three colours") << QImage::Format_Mono << 3;
    QTest::newRow("8 bits, no colours") << QImage::Format_Indexed8 << 0;
    QTest::newRow("8 bits, too many colours") << QImage::Format_Indexed8 << 257;
    QTest::newRow("grey") << QImage::Format_Grayscale8 << 0;
    QTest::newRow("grey of 16 bits") << QImage::Format_Grayscale16 << 0;
    QTest::newRow("alpha alone") << QImage::Format_Alpha8 << 0;
    QTest::newRow("16 bits") << QImage::Format_RGB16 << 0;
    QTest::newRow("24 bits") << QImage::Format_RGB888 << 0;
    QTest::newRow("premultiplied alpha") << QImage::Format_ARGB32_Premultiplied << 0;
    QTest::newRow("64 bits") << QImage::Format_RGBA64 << 0;
}

} // namespace

class tst_snapshot_file : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void fileIsThatOfTheToolkitByteForByte_data() { add_page_forms(); }
    void fileIsThatOfTheToolkitByteForByte();
    void pageReadBackIsThatOfTheToolkit_data() { add_page_forms(); }
    void pageReadBackIsThatOfTheToolkit();
    void pagesOfSeveralBlocksAreTheToolkitsToo_data();
    void pagesOfSeveralBlocksAreTheToolkitsToo();
    void resolutionIsKept_data();
    void resolutionIsKept();
    void oddFormsAreLeftToTheToolkit_data() { add_odd_forms(); }
    void oddFormsAreLeftToTheToolkit();
    void pageOfOneBitWithoutColoursIsWrittenAsByTheToolkit();
    void pageOfOneBitComesBackWithTheLighterColourFirst_data();
    void pageOfOneBitComesBackWithTheLighterColourFirst();
    void rowsOfUnusualLengthAreLeftToTheToolkit();
    void nameThatIsTakenIsLeftAlone_data();
    void nameThatIsTakenIsLeftAlone();
    void pageReadBackTakesItsMemoryFromThePool();

    void nullImageMakesNoFile();
    void directoryThatIsNotThereIsAFailure();
    void fullDiskIsAFailure_data();
    void fullDiskIsAFailure();
    void partlyWrittenFileStays();

private:
    QTemporaryDir m_directory;
    QString m_path;
};

void tst_snapshot_file::init()
{
    QVERIFY(m_directory.isValid());
    m_path = m_directory.filePath("page.bmp"_L1);
    QFile::remove(m_path);
}

void tst_snapshot_file::fileIsThatOfTheToolkitByteForByte()
{
    QFETCH(const QImage::Format, format);
    QFETCH(const int, colorCount);
    QRandomGenerator random(Seed);

    const QList<QSize> sizes = many_sizes();
    QCOMPARE(sizes.size(), 200);
    for (const QSize size : sizes) {
        const QImage page = random_page(size, format, colorCount, random);
        QFile::remove(m_path);

        QVERIFY(write_snapshot(m_path, page));

        QVERIFY2(file_bytes(m_path) == encoded(page, "BMP"),
                 qPrintable(u"%1 by %2"_s.arg(size.width()).arg(size.height())));
    }
}

void tst_snapshot_file::pageReadBackIsThatOfTheToolkit()
{
    QFETCH(const QImage::Format, format);
    QFETCH(const int, colorCount);
    QRandomGenerator random(Seed);

    for (const QSize size : many_sizes()) {
        const QByteArray bytes = encoded(random_page(size, format, colorCount, random), "BMP");
        put_file(m_path, bytes);

        const QImage page = read_snapshot(m_path);

        QVERIFY(!page.isNull());
        QVERIFY2(is_same_page(page, toolkit_page(bytes)),
                 qPrintable(u"%1 by %2"_s.arg(size.width()).arg(size.height())));
    }
}

void tst_snapshot_file::pagesOfSeveralBlocksAreTheToolkitsToo_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<int>("colorCount");

    QTest::newRow("32 bits, three blocks") << QSize(1001, 1000) << QImage::Format_RGB32 << 0;
    QTest::newRow("32 bits, twenty blocks") << QSize(1501, 1200) << QImage::Format_RGB32 << 0;
    QTest::newRow("32 bits, rows longer than a block") << QSize(400'003, 5) << QImage::Format_RGB32 << 0;
    QTest::newRow("8 bits, two blocks") << QSize(1500, 1001) << QImage::Format_Indexed8 << 256;
    QTest::newRow("4 bits, two blocks") << QSize(2001, 1500) << QImage::Format_Indexed8 << 16;
    QTest::newRow("1 bit, two blocks") << QSize(4001, 3000) << QImage::Format_MonoLSB << 2;
}

void tst_snapshot_file::pagesOfSeveralBlocksAreTheToolkitsToo()
{
    QFETCH(const QSize, size);
    QFETCH(const QImage::Format, format);
    QFETCH(const int, colorCount);
    QRandomGenerator random(Seed);
    const QImage page = random_page(size, format, colorCount, random);
    const QByteArray bytes = encoded(page, "BMP");

    QVERIFY(write_snapshot(m_path, page));

    QVERIFY(file_bytes(m_path) == bytes);
    QVERIFY(is_same_page(read_snapshot(m_path), toolkit_page(bytes)));
}

void tst_snapshot_file::resolutionIsKept_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("y");

    QTest::newRow("300 by 600 dots an inch") << 11811 << 23622;
    QTest::newRow("one") << 1 << 2147483647;
}

void tst_snapshot_file::resolutionIsKept()
{
    QFETCH(const int, x);
    QFETCH(const int, y);
    for (const int depth : {1, 8, 32}) {
        QImage page = patterned_page({7, 5}, depth);
        page.setDotsPerMeterX(x);
        page.setDotsPerMeterY(y);

        QFile::remove(m_path);
        QVERIFY(write_snapshot(m_path, page));

        QCOMPARE(file_bytes(m_path), encoded(page, "BMP"));
        const QImage readBack = read_snapshot(m_path);
        QCOMPARE(readBack.dotsPerMeterX(), x);
        QCOMPARE(readBack.dotsPerMeterY(), y);
    }
}

void tst_snapshot_file::oddFormsAreLeftToTheToolkit()
{
    QFETCH(const QImage::Format, format);
    QFETCH(const int, colorCount);
    QRandomGenerator random(Seed);
    const QImage image = random_page({13, 6}, format, colorCount, random);

    QVERIFY(write_snapshot(m_path, image));

    const QByteArray bytes = encoded(image, "BMP");
    QCOMPARE(file_bytes(m_path), bytes);
    QVERIFY(is_same_page(read_snapshot(m_path), toolkit_page(bytes)));
}

void tst_snapshot_file::pageOfOneBitWithoutColoursIsWrittenAsByTheToolkit()
{
    QRandomGenerator random(Seed);
    for (const QImage::Format format : {QImage::Format_Mono, QImage::Format_MonoLSB}) {
        const QImage page = random_page({13, 6}, format, 0, random);
        QFile::remove(m_path);

        QVERIFY(write_snapshot(m_path, page));

        QCOMPARE(file_bytes(m_path), encoded(page, "BMP"));
    }
}

void tst_snapshot_file::pageOfOneBitComesBackWithTheLighterColourFirst_data()
{
    QTest::addColumn<QRgb>("color0");
    QTest::addColumn<QRgb>("color1");
    QTest::addColumn<bool>("exchanged");

    QTest::newRow("black and white") << 0xff000000U << 0xffffffffU << true;
    QTest::newRow("white and black") << 0xffffffffU << 0xff000000U << false;
    QTest::newRow("equally light") << 0xff808080U << 0xff808080U << false;
    QTest::newRow("slightly lighter") << 0xff808080U << 0xff818181U << true;
    QTest::newRow("same lightness, other colour") << 0xff808080U << 0xff808081U << false;
}

void tst_snapshot_file::pageOfOneBitComesBackWithTheLighterColourFirst()
{
    QFETCH(const QRgb, color0);
    QFETCH(const QRgb, color1);
    QFETCH(const bool, exchanged);
    QImage page = patterned_page({9, 4}, 1);
    page.setColorTable({color0, color1});
    QVERIFY(write_snapshot(m_path, page));

    const QImage readBack = read_snapshot(m_path);

    QCOMPARE(readBack.format(), QImage::Format_Mono);
    QCOMPARE(readBack.colorTable(), exchanged ? QList<QRgb>({color1, color0}) : QList<QRgb>({color0, color1}));
    QCOMPARE(readBack.pixelIndex(0, 0), exchanged ? 0 : 1); // (0,0) is set in the pattern
    QCOMPARE(readBack.pixel(0, 0), color1);
    QVERIFY(is_same_page(readBack, toolkit_page(file_bytes(m_path))));
}

void tst_snapshot_file::rowsOfUnusualLengthAreLeftToTheToolkit()
{
    const QImage whole = patterned_page({40, 9}, 8);
    QImage left(whole.constBits(), 13, 9, whole.bytesPerLine(), QImage::Format_Indexed8);
    left.setColorTable(whole.colorTable());

    QVERIFY(write_snapshot(m_path, left));

    QCOMPARE(file_bytes(m_path), encoded(left, "BMP"));
    QVERIFY(compare_pictures(read_snapshot(m_path), whole.copy(0, 0, 13, 9)));
}

void tst_snapshot_file::nameThatIsTakenIsLeftAlone_data()
{
    QTest::addColumn<QString>("kind");

    for (const QString &kind : {u"file"_s, u"link to a file"_s, u"link to nothing"_s, u"pipe"_s, u"directory"_s})
        QTest::newRow(qPrintable(kind)) << kind;
}

void tst_snapshot_file::nameThatIsTakenIsLeftAlone()
{
    QFETCH(const QString, kind);
    const QString other = m_directory.filePath("other"_L1);
    const QByteArray name = QFile::encodeName(m_path);
    QFile::remove(other);
    if (kind == u"file"_s) {
        put_file(m_path, "precious");
    } else if (kind == u"link to a file"_s) {
        put_file(other, "precious");
        QCOMPARE(::symlink("other", name.constData()), 0);
    } else if (kind == u"link to nothing"_s) {
        QCOMPARE(::symlink("other", name.constData()), 0);
    } else if (kind == u"pipe"_s) {
        QCOMPARE(::mkfifo(name.constData(), 0600), 0);
    } else {
        QVERIFY(QDir().mkdir(m_path));
    }

    bool isTaken = false;
    QVERIFY(!write_snapshot(m_path, patterned_page({5, 4}), &isTaken));

    QVERIFY(isTaken);
    if (kind == u"file"_s || kind == u"link to a file"_s)
        QCOMPARE(file_bytes(m_path), "precious");
    if (kind == u"link to nothing"_s)
        QVERIFY(!QFile::exists(other));
    QVERIFY(::remove(name.constData()) == 0);
    QVERIFY(write_snapshot(m_path, patterned_page({5, 4}), &isTaken));
    QVERIFY(!isTaken);
}

void tst_snapshot_file::pageReadBackTakesItsMemoryFromThePool()
{
    const QImage source = patterned_page({400, 300});
    QVERIFY(source.sizeInBytes() >= SmallestPooledBytes);
    QVERIFY(write_snapshot(m_path, source));
    QImage page = read_snapshot(m_path);
    QVERIFY(!page.isNull());
    const uchar *const memory = page.constBits();

    page = QImage();
    QVERIFY(spare_page_bytes() >= source.sizeInBytes());
    page = read_snapshot(m_path);

    QCOMPARE(page.constBits(), memory);
}

void tst_snapshot_file::nullImageMakesNoFile()
{
    QVERIFY(!write_snapshot(m_path, QImage()));
    QVERIFY(!QFile::exists(m_path));
}

void tst_snapshot_file::directoryThatIsNotThereIsAFailure()
{
    QVERIFY(!write_snapshot(m_directory.filePath("missing/page.bmp"_L1), patterned_page({5, 4})));
    QVERIFY(!write_snapshot(m_directory.path(), patterned_page({5, 4})));
}

void tst_snapshot_file::fullDiskIsAFailure_data()
{
    QTest::addColumn<QImage>("image");

    QTest::newRow("small page, 1 bit") << patterned_page({5, 4}, 1);
    QTest::newRow("small page, 8 bits") << patterned_page({5, 4}, 8);
    QTest::newRow("small page, 32 bits") << patterned_page({5, 4}, 32);
    QTest::newRow("several blocks") << patterned_page({1000, 900}, 32);
    QTest::newRow("the toolkit's own, small") << patterned_page({5, 4}).convertToFormat(QImage::Format_RGB888);
    QTest::newRow("the toolkit's own, large") << patterned_page({500, 400}).convertToFormat(QImage::Format_RGB888);
}

void tst_snapshot_file::fullDiskIsAFailure()
{
    QFETCH(const QImage, image);

    bool isTaken = true;
    // The toolkit alone would not have noticed a small picture.
    const FileSizeLimit limit(20);
    QVERIFY(!write_snapshot(m_path, image, &isTaken));
    QVERIFY(!isTaken);
}

void tst_snapshot_file::partlyWrittenFileStays()
{
    const QImage page = patterned_page({100, 100});
    {
        const FileSizeLimit limit(20'000);
        QVERIFY(!write_snapshot(m_path, page));
    }

    QCOMPARE(file_bytes(m_path), encoded(page, "BMP").first(20'000));
    QVERIFY(read_snapshot(m_path).isNull());
}

QTEST_GUILESS_MAIN(tst_snapshot_file)
#include "tst_snapshot_file.moc"
