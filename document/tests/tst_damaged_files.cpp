#include "image_files.h"
#include "ImageDocument.h"
#include "noise_pages.h"
#include "odd_files.h"
#include "page_buffers.h"
#include "pictures.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

QImage noise(int depth)
{
    constexpr QSize size(64, 48);
    return depth == 32 ? noise_page(size) : patterned_page(size, depth);
}

} // namespace

/// A file that cannot be shown whole is a failed load: no page, status 2, no crash and no waiting.
class tst_damaged_files : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        directory = std::make_unique<QTemporaryDir>();
        QVERIFY(directory->isValid());
    }

    void cleanup() { directory.reset(); }

    void emptyFileAndGarbageFail_data()
    {
        QTest::addColumn<QString>("suffix");
        QTest::addColumn<QByteArray>("bytes");

        // Without wbmp, which has no signature: any bytes make a picture for whoever asks for this format.
        for (const char *suffix : {"bmp", "cur", "gif", "icns", "ico", "jpeg", "jpg",  "mng",  "pbm", "pgm",
                                   "png", "ppm", "svg", "svgz", "tga", "tif",  "tiff", "webp", "xbm", "xpm"}) {
            QTest::addRow("empty %s", suffix) << QString::fromLatin1(suffix) << QByteArray();
            QTest::addRow("garbage %s", suffix) << QString::fromLatin1(suffix) << QByteArray(5000, '\x5b');
        }
    }

    void emptyFileAndGarbageFail()
    {
        QFETCH(const QString, suffix);
        QFETCH(const QByteArray, bytes);
        const QString name = u"damaged."_s + suffix;
        write_file(path(name), bytes);

        verifyFails(name);
        verifyFails(name, suffix);
        verifyFails(name, suffix.toUpper());
    }

    void truncatedFileFails_data()
    {
        QTest::addColumn<QByteArray>("format");
        QTest::addColumn<int>("depth");

        for (const char *format : {"jpg", "bmp", "png", "tif", "ppm", "webp", "ico", "wbmp"}) {
            for (const int depth : {32, 8, 1})
                QTest::addRow("%s of depth %d", format, depth) << QByteArray(format) << depth;
        }
        QTest::newRow("xbm") << QByteArray("xbm") << 1;
        QTest::newRow("xpm") << QByteArray("xpm") << 8;
    }

    void truncatedFileFails()
    {
        QFETCH(const QByteArray, format);
        QFETCH(const int, depth);
        const QByteArray whole = encoded(noise(depth), format.constData());

        for (const int percent : {1, 10, 50, 90}) {
            const QString name = u"cut%1."_s.arg(percent) + QString::fromLatin1(format);
            write_file(path(name), whole.first(whole.size() * percent / 100));
            verifyFails(name);
        }
    }

    void fileCutAnywhereNeitherCrashesNorLosesPixels_data() { truncatedFileFails_data(); }
    void fileCutAnywhereNeitherCrashesNorLosesPixels()
    {
        QFETCH(const QByteArray, format);
        QFETCH(const int, depth);
        const QByteArray whole = encoded(noise(depth), format.constData());
        write_file(path(u"whole"_s), whole);
        const ImageDocument good(path(u"whole"_s), {});
        QCOMPARE(good.pageCount(), 1U);

        const qsizetype step = std::max<qsizetype>(1, whole.size() / 50);
        for (qsizetype length = whole.size() - 1; length >= 0; length -= length > whole.size() - 40 ? 1 : step) {
            QVERIFY(QFile::resize(path(u"whole"_s), length));
            const ImageDocument document(path(u"whole"_s), {});
            if (!document.isEmpty())
                QVERIFY2(compare_pictures(document.page(1), good.page(1)), qPrintable(QString::number(length)));
        }
    }

    void directoryFails()
    {
        QVERIFY(QDir().mkdir(path(u"folder.png"_s)));

        verifyFails(u"folder.png"_s);
        verifyFails(u"folder.png"_s, u"PNG"_s);
        verifyFails(u"folder.png"_s, u"TIFF"_s);
    }

    void namedPipeFailsAtOnce_data()
    {
        QTest::addColumn<QString>("word");

        QTest::newRow("no word") << QString();
        QTest::newRow("png") << u"png"_s;
        QTest::newRow("multi-page codec") << u"TIFF"_s;
    }

    void namedPipeFailsAtOnce()
    {
        QFETCH(const QString, word);
        QCOMPARE(::mkfifo(QFile::encodeName(path(u"pipe.png"_s)).constData(), 0600), 0);

        verifyFails(u"pipe.png"_s, word); // a wait would be ended by the time limit of the test
    }

    void deviceFails()
    {
        const ImageDocument document(u"/dev/zero"_s, {});

        QCOMPARE(document.loadStatus, 2);
        QVERIFY(document.isEmpty());
    }

    void danglingLinkIsNoFile()
    {
        QVERIFY(QFile::link(path(u"missing.png"_s), path(u"link.png"_s)));

        const ImageDocument document(path(u"link.png"_s), {});

        QCOMPARE(document.loadStatus, 0);
    }

    void pictureWithoutPixelsFailsAtOnce()
    {
        write_file(path(u"a.tga"_s), tga_file({.width = 0, .height = 0, .descriptor = TgaRightToLeft, .name = "scan"}));

        verifyFails(u"a.tga"_s, u"tga"_s); // a loop without end would be ended by the time limit of the test
    }

    void promiseThatCannotBeKeptFailsAtOnce_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("word");

        for (const qint64 side : {qint64{60000}, qint64{300000}, qint64{0x7fffffff}}) {
            const QByteArray sides = QByteArray::number(side) + ' ' + QByteArray::number(side);
            const auto row = [side](const char *format) -> QTestData & {
                return QTest::addRow("%s of %lld by %lld", format, side, side);
            };
            row("png") << png_promising(side, side) << QString();
            row("bmp") << bmp_file(static_cast<int>(side), static_cast<int>(side), 24, {}, "pixels") << QString();
            row("run-length bmp")
                << bmp_file(static_cast<int>(side), static_cast<int>(side), 8, {0}, "pixels").replace(30, 1, "\x01")
                << QString();
            row("ppm") << "P6 " + sides + " 255\npixels" << QString();
            row("pgm") << "P5 " + sides + " 255\npixels" << QString();
            row("pbm") << "P4 " + sides + "\npixels" << QString();
            row("ascii ppm") << "P3 " + sides + " 255\n1 2 3 4" << QString();
            row("xpm") << "/* XPM */\nstatic char *a[] = {\n\"" + sides + " 1 1\",\n\"a c red\",\n\"aaa\"};\n"
                       << QString();
            const QByteArray number = QByteArray::number(side);
            row("xbm") << "#define a_width " + number + "\n#define a_height " + number + "\nstatic char a[] = {0x00};"
                       << QString();
            row("tga") << QByteArray("\0\0\2\0\0\0\0\0\0\0\0\0", 12) + little16(60000) + little16(60000)
                    + QByteArray("\x18\0pixels", 8)
                       << u"tga"_s;
            row("gif") << small_gif().replace(6, 4, little16(65535) + little16(65535)).chopped(3) << QString();
        }
    }

    void promiseThatCannotBeKeptFailsAtOnce()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const QString, word);
        write_file(path(u"promise"_s), bytes);
        QElapsedTimer timer;
        restart_peak_memory();
        const qint64 before = peak_memory_bytes();
        timer.start();

        verifyFails(u"promise"_s, word);

        QCOMPARE(spare_page_bytes(), 0);
        QVERIFY2(timer.elapsed() < 3000 * MeasureAllowance, qPrintable(QString::number(timer.elapsed())));
        QVERIFY2(peak_memory_bytes() - before < 50'000'000 * MeasureAllowance,
                 qPrintable(QString::number(peak_memory_bytes() - before)));
    }

    void pageIsHeldOnceWhileItLoads_data()
    {
        QTest::addColumn<QByteArray>("format");
        QTest::addColumn<bool>("grey");

        QTest::newRow("jpg") << QByteArray("jpg") << false;
        QTest::newRow("grey jpg") << QByteArray("jpg") << true;
        QTest::newRow("png") << QByteArray("png") << false;
        QTest::newRow("grey png") << QByteArray("png") << true;
        QTest::newRow("bmp") << QByteArray("bmp") << false;
        QTest::newRow("tif") << QByteArray("tif") << false;
        QTest::newRow("grey tif") << QByteArray("tif") << true;
    }

    void pageIsHeldOnceWhileItLoads()
    {
        QFETCH(const QByteArray, format);
        QFETCH(const bool, grey);
        const QImage page =
            solid_page({4000, 3000}, 0xff808080, grey ? QImage::Format_Grayscale8 : QImage::Format_RGB32);
        write_file(path(u"page"_s), encoded(page, format.constData()));
        const qint64 fileBytes = QFile(path(u"page"_s)).size();
        restart_peak_memory();
        const qint64 before = peak_memory_bytes();

        const ImageDocument document(path(u"page"_s), {});

        QCOMPARE(document.pageCount(), 1U);
        const qint64 more = peak_memory_bytes() - before - document.page(1).sizeInBytes();
        QVERIFY2(more < 6'000'000 * MeasureAllowance + fileBytes / 10, qPrintable(QString::number(more)));
    }

private:
    void verifyFails(const QString &name, const QString &word = {}) const;
    [[nodiscard]] QString path(const QString &name) const { return directory->filePath(name); }

    std::unique_ptr<QTemporaryDir> directory;
};

void tst_damaged_files::verifyFails(const QString &name, const QString &word) const
{
    const ImageDocument document(path(name), word);

    QCOMPARE(document.loadStatus, 2);
    QCOMPARE(document.pageCount(), 0U);
    QVERIFY(!document.isModified());
    QCOMPARE(document.filePath(), path(name));
}

QTEST_GUILESS_MAIN(tst_damaged_files)
#include "tst_damaged_files.moc"
