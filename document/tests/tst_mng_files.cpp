#include "image_files.h"
#include "ImageDocument.h"
#include "pictures.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize Canvas(30, 60);
constexpr QRgb Blue = 0xff0000ff;

QByteArray sides(QSize size)
{
    return big32(size.width()) + big32(size.height());
}

/// The chunks of a PNG between its signature and its end, which is a picture of an MNG file.
QByteArray picture(QSize size)
{
    return encoded(solid_page(size, Blue), "png").sliced(8);
}

QByteArray mng_of(const QByteArray &chunks, QSize canvas = Canvas)
{
    return "\x8aMNG\r\n\x1a\n" + png_chunk("MHDR", sides(canvas) + QByteArray(20, '\0')) + chunks
        + png_chunk("MEND", {});
}

/// The header of a picture that its pixels do not follow.
QByteArray promise(QSize size)
{
    return png_chunk("IHDR", sides(size) + QByteArray("\x08\x02\0\0\0", 5))
        + png_chunk("IDAT", qCompress(QByteArray(100, '\0')).sliced(4)) + png_chunk("IEND", {});
}

QByteArray big16(int value)
{
    return big32(value).last(2);
}

/// Enlarges the pictures of all numbers.
QByteArray enlargement(int factor)
{
    QByteArray factors;
    for (int i = 0; i < 6; ++i)
        factors += big16(factor);
    return png_chunk("MAGN", big16(0) + big16(0xffff) + '\1' + factors + '\1');
}

} // namespace

class tst_mng_files : public QObject
{
    Q_OBJECT

private slots:
    void pictureWithinItsCanvasIsShown_data();
    void pictureWithinItsCanvasIsShown();
    void pictureThatIsTooLargeIsRefusedAtOnce_data();
    void pictureThatIsTooLargeIsRefusedAtOnce();
};

void tst_mng_files::pictureWithinItsCanvasIsShown_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QSize>("size");

    QTest::newRow("smaller") << mng_of(picture({10, 20})) << QSize(10, 20);
    QTest::newRow("of its size") << mng_of(picture(Canvas)) << Canvas;
    const QByteArray first = png_chunk("DEFI", big16(1) + QByteArray("\0\1", 2)) + picture(Canvas);
    QTest::newRow("copied") << mng_of(first + png_chunk("CLON", big16(1) + big16(2))) << Canvas;
}

void tst_mng_files::pictureWithinItsCanvasIsShown()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QSize, size);
    const QTemporaryDir directory;
    write_file(directory.filePath(u"file"_s), bytes);

    const ImageDocument document(directory.filePath(u"file"_s), {});

    QCOMPARE(document.imgFormat(), u"mng"_s);
    QCOMPARE(document.pageCount(), 1U);
    QCOMPARE(document.page(1).size(), Canvas);
    QCOMPARE(document.page(1).pixel(size.width() - 1, size.height() - 1), Blue);
}

void tst_mng_files::pictureThatIsTooLargeIsRefusedAtOnce_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QTest::newRow("one column more") << mng_of(picture(Canvas + QSize(1, 0)));
    QTest::newRow("one row more") << mng_of(picture(Canvas + QSize(0, 1)));
    QTest::newRow("large") << mng_of(promise({20'000, 20'000}));
    QTest::newRow("as large as can be") << mng_of(promise({0x7fffffff, 0x7fffffff}));
    QTest::newRow("behind one that fits") << mng_of(picture(Canvas) + promise({20'000, 20'000}));
    QTest::newRow("without pixels of its own")
        << mng_of(png_chunk("BASI", sides({20'000, 20'000}) + QByteArray("\x08\x02\0\0\0\0\0\0\0\0\0\0\0\1", 14))
                  + png_chunk("IEND", {}));
    QTest::newRow("made larger") << mng_of(picture(Canvas) + enlargement(20'000));
    QTest::newRow("changed to a larger one") << mng_of(
        picture(Canvas) + png_chunk("DHDR", QByteArray("\0\1\1\0", 4) + sides({20'000, 20'000}) + sides({0, 0})));
    const QByteArray copies = png_chunk("CLON", big16(0) + big16(1)).repeated(10'000); // of 200 MB each
    QTest::newRow("copied too often") << mng_of(promise({5000, 5000}) + copies, {5000, 5000});
    QTest::newRow("of a canvas without pixels")
        << mng_of(picture({10, 20})).replace(16, 8, sides({0, 0})); // its check sum is not right either
}

void tst_mng_files::pictureThatIsTooLargeIsRefusedAtOnce()
{
    QFETCH(const QByteArray, bytes);
    const QTemporaryDir directory;
    write_file(directory.filePath(u"file"_s), bytes);
    QElapsedTimer timer;
    restart_peak_memory();
    const qint64 before = peak_memory_bytes();
    timer.start();

    const ImageDocument document(directory.filePath(u"file"_s), u"mng"_s);

    QVERIFY(document.isEmpty());
    QVERIFY(timer.elapsed() < 3000 * MeasureAllowance);
    QVERIFY(peak_memory_bytes() - before < 50'000'000 * MeasureAllowance);
}

QTEST_GUILESS_MAIN(tst_mng_files)
#include "tst_mng_files.moc"
