#include "image_files.h"
#include "ImageDocument.h"
#include "noise_pages.h"
#include "other_programs.h"
#include "pictures.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QImageWriter>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QByteArray jpeg_of(const QImage &image, bool progressive)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, "jpg");
    writer.setProgressiveScanWrite(progressive);
    writer.setQuality(90);
    if (!buffer.open(QIODevice::WriteOnly) || !writer.write(image))
        qFatal("jpegOf - cannot write");
    return bytes;
}

/// Where the scans of a JPEG file begin.
QList<qsizetype> scans_of(const QByteArray &jpeg)
{
    QList<qsizetype> scans;
    const QByteArrayView startOfScan("\xff\xda\0", 3);
    for (qsizetype at = jpeg.indexOf(startOfScan); at >= 0; at = jpeg.indexOf(startOfScan, at + 1))
        scans.append(at);
    return scans;
}

} // namespace

/// Files that end too early: behind their pixels, or within them.
class tst_missing_ends : public QObject
{
    Q_OBJECT

private slots:
    void fileThatLacksItsEndAloneIsShown_data();
    void fileThatLacksItsEndAloneIsShown();
    void fileThatEndsEarlierIsShownWholeOrNotAtAll_data();
    void fileThatEndsEarlierIsShownWholeOrNotAtAll();
    void lostEndIsNotTakenForPixels_data();
    void lostEndIsNotTakenForPixels();
    void earlierScansAloneAreNotShown();
    void codesOfAnotherProgramAreCounted_data();
    void codesOfAnotherProgramAreCounted();
    void coefficientsThatNoMachineHoldsAreRefusedAtOnce();

private:
    static void addFiles();
    [[nodiscard]] QImage pageOf(const QByteArray &bytes) const;

    QTemporaryDir directory;
};

void tst_missing_ends::addFiles()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("endBytes");

    const QImage color = noise_page({37, 27}); // its last bytes tell of its last pixels
    const QImage grey = color.convertToFormat(QImage::Format_Grayscale8);
    QTest::newRow("jpeg") << jpeg_of(color, false) << 2;
    QTest::newRow("grey jpeg") << jpeg_of(grey, false) << 2;
    QTest::newRow("progressive jpeg") << jpeg_of(color, true) << 2;
    QTest::newRow("grey progressive jpeg") << jpeg_of(grey, true) << 2;
    QTest::newRow("jpeg of one colour") << jpeg_of(solid_page({61, 47}, 0xffc86432), false) << 2;
    QTest::newRow("gif") << small_gif() << 2;
}

QImage tst_missing_ends::pageOf(const QByteArray &bytes) const
{
    const QString path = directory.filePath(u"file"_s);
    write_file(path, bytes);
    const ImageDocument document(path, {});
    return document.isEmpty() ? QImage() : document.page(1);
}

void tst_missing_ends::fileThatLacksItsEndAloneIsShown_data()
{
    addFiles();
}

void tst_missing_ends::fileThatLacksItsEndAloneIsShown()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const int, endBytes);
    const QImage whole = pageOf(bytes);
    QVERIFY(!whole.isNull());

    for (int missing = 1; missing <= endBytes; ++missing)
        QVERIFY(compare_pictures(pageOf(bytes.chopped(missing)), whole));
}

void tst_missing_ends::fileThatEndsEarlierIsShownWholeOrNotAtAll_data()
{
    addFiles();
}

void tst_missing_ends::fileThatEndsEarlierIsShownWholeOrNotAtAll()
{
    QFETCH(const QByteArray, bytes);
    const QImage whole = pageOf(bytes);

    for (qsizetype length = bytes.size() - 3; length >= 0; length -= length > bytes.size() - 20 ? 1 : 153) {
        const QImage page = pageOf(bytes.first(length));
        QVERIFY(page.isNull() || compare_pictures(page, whole));
    }
}

void tst_missing_ends::lostEndIsNotTakenForPixels_data()
{
    QTest::addColumn<bool>("progressive");
    QTest::addColumn<char>("filler");

    for (const bool progressive : {false, true}) {
        QTest::addRow("zeros, progressive %d", int{progressive}) << progressive << '\0';
        QTest::addRow("erased memory, progressive %d", int{progressive}) << progressive << '\xff';
    }
}

void tst_missing_ends::lostEndIsNotTakenForPixels()
{
    QFETCH(const bool, progressive);
    QFETCH(const char, filler);
    const QByteArray bytes = jpeg_of(noise_page({37, 27}), progressive);

    for (const int lost : {3, 10, 100, 300}) {
        const QByteArray filled = bytes.chopped(lost) + QByteArray(4096, filler);
        QVERIFY(pageOf(filled).isNull());
    }
}

void tst_missing_ends::earlierScansAloneAreNotShown()
{
    const QByteArray bytes = jpeg_of(noise_page({37, 27}), true);
    const QList<qsizetype> scans = scans_of(bytes);
    QVERIFY(scans.size() > 2);

    // Before the tables of the scan: the one before it is whole.
    for (const qsizetype scan : scans) {
        const qsizetype tables = bytes.lastIndexOf(QByteArrayView("\xff\xc4\0", 3), scan);
        QVERIFY(pageOf(bytes.first(scan)).isNull());
        QVERIFY(pageOf(bytes.first(tables)).isNull());
    }
}

void tst_missing_ends::codesOfAnotherProgramAreCounted_data()
{
    QTest::addColumn<QStringList>("arguments");

    QTest::newRow("256 colours") << QStringList{};
    QTest::newRow("interlaced") << QStringList{u"-interlace"_s, u"GIF"_s};
    QTest::newRow("16 colours") << QStringList{u"-colors"_s, u"16"_s};
    QTest::newRow("two colours") << QStringList{u"-monochrome"_s};
    QTest::newRow("one colour") << QStringList{u"-fill"_s, u"red"_s, u"-colorize"_s, u"100"_s};
}

void tst_missing_ends::codesOfAnotherProgramAreCounted()
{
    QFETCH(const QStringList, arguments);
    const QString png = directory.filePath(u"a.png"_s);
    const QString gif = directory.filePath(u"a.gif"_s);
    write_file(png, encoded(noise_page({199, 151}), "png"));
    (void)output_of(ConvertProgram, QStringList{png} + arguments + QStringList{u"gif:"_s + gif});
    const QByteArray bytes = file_bytes(gif);
    const QImage whole = pageOf(bytes);
    QCOMPARE(whole.size(), QSize(199, 151));

    QVERIFY(compare_pictures(pageOf(bytes.chopped(2)), whole));
    for (const int missing : {8, 40, 100}) // the last block holds the code of the end and some bits of padding
        QVERIFY(pageOf(bytes.chopped(missing)).isNull());
}

void tst_missing_ends::coefficientsThatNoMachineHoldsAreRefusedAtOnce()
{
    QByteArray bytes = jpeg_of(noise_page({16, 16}), true);
    const qsizetype frame = bytes.indexOf(QByteArrayView("\xff\xc2", 2));
    QVERIFY(frame > 0);
    bytes.replace(frame + 5, 4, QByteArray("\xff\xdc\xff\xdc", 4)); // 65500 by 65500 pixels
    QElapsedTimer timer;
    restart_peak_memory();
    const qint64 before = peak_memory_bytes();
    timer.start();

    QVERIFY(pageOf(bytes).isNull());

    QVERIFY(timer.elapsed() < 3000 * MeasureAllowance);
    QVERIFY(peak_memory_bytes() - before < 50'000'000 * MeasureAllowance);
}

QTEST_GUILESS_MAIN(tst_missing_ends)
#include "tst_missing_ends.moc"
