#include "image_files.h"
#include "ImageDocument.h"
#include "pictures.h"
#include "tiff_files.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// Overwrites the value of a tag's entry in the first directory of a file of the low byte first.
void patch_tag(const QString &path, int tag, qint64 value)
{
    QByteArray bytes = file_bytes(path);
    const auto number = [&bytes](qsizetype at, int count) {
        qint64 result = 0;
        for (int i = count; i-- > 0;)
            result = result << 8 | static_cast<uchar>(bytes.at(at + i));
        return result;
    };
    const qint64 directory = number(4, 4);
    for (qint64 i = 0; i < number(directory, 2); ++i) {
        const qint64 entry = directory + 2 + i * 12;
        if (number(entry, 2) == tag) {
            bytes.replace(entry + 2, 2, little16(4)); // a long
            bytes.replace(entry + 4, 4, little32(1));
            bytes.replace(entry + 8, 4, little32(value));
        }
    }
    write_file(path, bytes);
}

} // namespace

class tst_tiff_damage : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void brokenSecondDirectoryKeepsTheFirstPage();
    void fileCutAtEachKilobyteKeepsItsWholePages();
    void loopOfDirectoriesEnds();
    void claimedSideThatDoesNotFitIsRefused_data();
    void claimedSideThatDoesNotFitIsRefused();
    void rowsOutsideTheFileAreRefused();
    void garbageIsRefused();
    void widePageThatMemoryDoesNotHoldIsRefused();

    void pageIsHeldOnceWhileItIsReadAndWritten_data();
    void pageIsHeldOnceWhileItIsReadAndWritten();

private:
    [[nodiscard]] QString path(const QString &name = u"a.tif"_s) const { return directory->filePath(name); }

    std::unique_ptr<QTemporaryDir> directory;
};

void tst_tiff_damage::init()
{
    directory = std::make_unique<QTemporaryDir>();
    QVERIFY(directory->isValid());
}

void tst_tiff_damage::cleanup()
{
    directory.reset();
}

void tst_tiff_damage::brokenSecondDirectoryKeepsTheFirstPage()
{
    const TiffPage good = rgb_tiff_page(patterned_page({9, 9}));
    TiffPage bad = good;
    bad.withoutTag = TIFFTAG_RESOLUTIONUNIT;
    write_tiff(path(), {good, bad, good});
    ImageDocument document({}, {});

    QVERIFY(!document.load(path(), u"TIFF"_s));

    QCOMPARE(document.pageCount(), 1U);
    QVERIFY(compare_pictures(document.page(1), patterned_page({9, 9})));
    QVERIFY(document.isModified());
}

void tst_tiff_damage::fileCutAtEachKilobyteKeepsItsWholePages()
{
    const QList<QImage> pages{patterned_page({100, 60}, 32), patterned_page({101, 61}, 8),
                              patterned_page({222, 99}, 1)};
    QVERIFY(save_as_tiff(path(), pages));

    for (qint64 bytes = QFile(path()).size() - 1; bytes > 0; bytes -= 1024) {
        QVERIFY(QFile::resize(path(), bytes));
        ImageDocument document({}, {});
        QVERIFY(!document.load(path(), u"TIFF"_s));
        QVERIFY(document.pageCount() < 3);
        for (uint pi = 1; pi <= document.pageCount(); ++pi)
            QVERIFY(compare_pictures(document.page(pi), as_read_back(pages.at(pi - 1))));
    }
}

void tst_tiff_damage::loopOfDirectoriesEnds()
{
    QVERIFY(save_as_tiff(path(), {patterned_page({9, 9})}));
    QByteArray bytes = file_bytes(path());
    const QByteArray firstDirectory = bytes.sliced(4, 4);
    const qsizetype start =
        static_cast<uchar>(firstDirectory[0]) + qsizetype{256} * static_cast<uchar>(firstDirectory[1]);
    const qsizetype next = start + 2 + qsizetype{12} * static_cast<uchar>(bytes[start]);
    QCOMPARE(bytes.sliced(next, 4), QByteArray(4, '\0')); // the last directory
    write_file(path(), bytes.replace(next, 4, firstDirectory));
    ImageDocument document({}, {});

    QVERIFY(!document.load(path(), u"TIFF"_s));

    QCOMPARE(document.pageCount(), 1U);
}

void tst_tiff_damage::claimedSideThatDoesNotFitIsRefused_data()
{
    QTest::addColumn<qint64>("width");
    QTest::addColumn<qint64>("height");

    QTest::newRow("wide") << qint64{0x7fffffff} << qint64{48};
    QTest::newRow("high") << qint64{64} << qint64{0x7fffffff};
    QTest::newRow("2^31 wide") << qint64{0x80000000} << qint64{48};
    QTest::newRow("2^31 high") << qint64{64} << qint64{0x80000000};
    QTest::newRow("both") << qint64{0x7fffffff} << qint64{0x7fffffff};
    QTest::newRow("largest") << qint64{0xffffffff} << qint64{0xffffffff};
    QTest::newRow("60000 squared") << qint64{60000} << qint64{60000};
    QTest::newRow("no width") << qint64{0} << qint64{48};
    QTest::newRow("no height") << qint64{64} << qint64{0};
}

void tst_tiff_damage::claimedSideThatDoesNotFitIsRefused()
{
    QFETCH(const qint64, width);
    QFETCH(const qint64, height);
    for (const int depth : {32, 8, 1}) {
        QVERIFY(save_as_tiff(path(), {patterned_page({64, 48}, depth)}));
        patch_tag(path(), TIFFTAG_IMAGEWIDTH, width);
        patch_tag(path(), TIFFTAG_IMAGELENGTH, height);
        restart_peak_memory();
        const qint64 before = peak_memory_bytes();
        QElapsedTimer timer;
        timer.start();

        const ImageDocument document(path(), u"TIFF"_s);

        QVERIFY(document.isEmpty());
        QVERIFY2(timer.elapsed() < 2000 * MeasureAllowance, qPrintable(QString::number(timer.elapsed())));
        QVERIFY2(peak_memory_bytes() - before < 20'000'000 * MeasureAllowance,
                 qPrintable(QString::number(peak_memory_bytes() - before)));
    }
}

void tst_tiff_damage::rowsOutsideTheFileAreRefused()
{
    for (const int depth : {32, 8, 1}) {
        QVERIFY(save_as_tiff(path(), {patterned_page({64, 48}, depth)}));
        patch_tag(path(), TIFFTAG_STRIPOFFSETS, 0x70000000);

        QVERIFY(ImageDocument(path(), u"TIFF"_s).isEmpty());
    }
}

void tst_tiff_damage::garbageIsRefused()
{
    write_file(path(), QByteArray(5000, '\x5b'));
    QVERIFY(ImageDocument(path(), u"TIFF"_s).isEmpty());

    write_file(path(), QByteArray("II*\0", 4) + little32(8) + QByteArray(5000, '\xff'));
    QVERIFY(ImageDocument(path(), u"TIFF"_s).isEmpty());
}

void tst_tiff_damage::widePageThatMemoryDoesNotHoldIsRefused()
{
    constexpr int width = 1000;
    constexpr int height = 800; // 3.2 MB as a page
    write_tiff(path(),
               {{.width = width,
                 .height = height,
                 .samples = 3,
                 .bits = 16,
                 .photometric = PHOTOMETRIC_RGB,
                 .rows = QByteArray(qsizetype{3} * 2 * width * height, 'a'),
                 .planarConfig = PLANARCONFIG_SEPARATE}});
    QVERIFY(!ImageDocument(path(), u"tif"_s).isEmpty());
    const auto ownPages = file_bytes(u"/proc/self/statm"_s).split(' ').first().toULongLong();
    rlimit former{};
    QCOMPARE(::getrlimit(RLIMIT_AS, &former), 0);
    rlimit limit = former;
    limit.rlim_cur = ownPages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE)) + (rlim_t{60} << 20);
    QCOMPARE(::setrlimit(RLIMIT_AS, &limit), 0); // leaves 1 MiB for a picture, and room for this one all the same

    const bool isRefused = ImageDocument(path(), u"tif"_s).isEmpty();

    QCOMPARE(::setrlimit(RLIMIT_AS, &former), 0);
    QVERIFY(isRefused);
}

void tst_tiff_damage::pageIsHeldOnceWhileItIsReadAndWritten_data()
{
    QTest::addColumn<QImage::Format>("format");

    QTest::newRow("depth 32") << QImage::Format_RGB32;
    QTest::newRow("depth 8") << QImage::Format_Indexed8;
    QTest::newRow("depth 1") << QImage::Format_Mono;
}

void tst_tiff_damage::pageIsHeldOnceWhileItIsReadAndWritten()
{
    QFETCH(const QImage::Format, format);
    const QImage page = solid_page({6000, 4000}, 0xff808080, format);
    restart_peak_memory();
    const qint64 before = peak_memory_bytes();

    QVERIFY(save_as_tiff(path(), {page}));
    const qint64 forWriting = peak_memory_bytes() - before;
    const ImageDocument document(path(), u"TIFF"_s);
    const qint64 forReading = peak_memory_bytes() - before - page.sizeInBytes();

    QCOMPARE(document.pageCount(), 1U);
    QVERIFY2(forWriting < 3'000'000 * MeasureAllowance, qPrintable(QString::number(forWriting)));
    QVERIFY2(forReading < 3'000'000 * MeasureAllowance, qPrintable(QString::number(forReading)));
}

QTEST_GUILESS_MAIN(tst_tiff_damage)
#include "tst_tiff_damage.moc"
