#include "image_files.h"
#include "ImageDocument.h"
#include "pictures.h"
#include "random_pages.h"
#include "tiff_codec.h"
#include "tiff_files.h"
#include "tiff_stored_rows.h"

#include <QTemporaryDir>
#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr int RowsOfStrip = 7;

/// Writes a page in strips of a few rows, in the order that is given.
void write_strips(const QString &path, const QImage &page, const QList<int> &order, int fillOrder = FILLORDER_MSB2LSB)
{
    const TiffHandle tif = open_tiff(path, "w");
    TIFFSetField(tif.get(), TIFFTAG_COMPRESSION, COMPRESSION_NONE);
    TIFFSetField(tif.get(), TIFFTAG_IMAGEWIDTH, page.width());
    TIFFSetField(tif.get(), TIFFTAG_IMAGELENGTH, page.height());
    TIFFSetField(tif.get(), TIFFTAG_SAMPLESPERPIXEL, 1);
    TIFFSetField(tif.get(), TIFFTAG_BITSPERSAMPLE, page.depth());
    TIFFSetField(tif.get(), TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
    TIFFSetField(tif.get(), TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tif.get(), TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
    TIFFSetField(tif.get(), TIFFTAG_XRESOLUTION, 300.0);
    TIFFSetField(tif.get(), TIFFTAG_YRESOLUTION, 300.0);
    TIFFSetField(tif.get(), TIFFTAG_ROWSPERSTRIP, RowsOfStrip);
    TIFFSetField(tif.get(), TIFFTAG_FILLORDER, fillOrder);
    const QByteArray rows = plain_rows_of(page);
    const qsizetype stripBytes = rows.size() / page.height() * RowsOfStrip;
    for (const int strip : order) {
        QByteArray bytes = rows.mid(strip * stripBytes, stripBytes);
        if (TIFFWriteEncodedStrip(tif.get(), static_cast<quint32>(strip), bytes.data(), bytes.size()) != bytes.size())
            qFatal("cannot write a strip");
    }
}

/// The numbers of the strips of a page.
QList<int> strips_of(const QImage &page)
{
    QList<int> strips;
    for (int y = 0; y < page.height(); y += RowsOfStrip)
        strips.append(y / RowsOfStrip);
    return strips;
}

std::optional<qint64> start_in(const QString &path, const QImage &page)
{
    const TiffHandle tif = open_tiff(path, "rm");
    return start_of_stored_rows(tif.get(), page.height(), (page.width() * page.depth() + 7) / 8);
}

} // namespace

class tst_tiff_stored_rows : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        directory.emplace();
        QVERIFY(directory->isValid());
    }
    void cleanup() { directory.reset(); }

    void pagesOfAllSizesAreReadAsTheyWere()
    {
        QRandomGenerator random(3);
        for (const QSize size : small_sizes() + QList<QSize>{{2000, 1500}, {1999, 701}}) {
            for (const QImage::Format format : {QImage::Format_Mono, QImage::Format_Indexed8}) {
                const QImage page = random_page(random, size, format);
                QVERIFY(save_as_tiff(path(), {page}));
                QVERIFY(start_in(path(), page).has_value());

                const ImageDocument document(path(), u"TIFF"_s);

                QCOMPARE(plain_rows_of(document.page(1)), plain_rows_of(page));
            }
        }
    }

    void stripsThatFollowEachOtherAreReadAtOnce()
    {
        for (const int depth : {1, 8}) {
            const QImage page = patterned_page({61, 40}, depth);
            write_strips(path(), page, strips_of(page));
            QVERIFY(start_in(path(), page).has_value());

            QCOMPARE(plain_rows_of(ImageDocument(path(), u"TIFF"_s).page(1)), plain_rows_of(page));
        }
    }

    void stripsInAnotherOrderAreLeftToTheLibrary()
    {
        for (const int depth : {1, 8}) {
            const QImage page = patterned_page({61, 40}, depth);
            QList<int> strips = strips_of(page);
            strips.swapItemsAt(1, 3);
            write_strips(path(), page, strips);
            QVERIFY(!start_in(path(), page).has_value());

            QCOMPARE(plain_rows_of(ImageDocument(path(), u"TIFF"_s).page(1)), plain_rows_of(page));
        }
    }

    void rowsWithTheLowBitFirstAreLeftToTheLibrary()
    {
        const QImage page = patterned_page({61, 40}, 1);
        write_strips(path(), page, strips_of(page), FILLORDER_LSB2MSB);
        QVERIFY(!start_in(path(), page).has_value());

        QCOMPARE(plain_rows_of(ImageDocument(path(), u"TIFF"_s).page(1)), plain_rows_of(page));
    }

    void compressedRowsAreLeftToTheLibrary()
    {
        const QImage image = patterned_page({61, 40}, 8);
        TiffPage page = grey_tiff_page(image);
        page.compression = COMPRESSION_LZW;
        write_tiff(path(), {page});

        QVERIFY(!start_in(path(), image).has_value());
    }

    void rowsThatAreNotAllPromisedAreRefused()
    {
        const QImage page = patterned_page({61, 40}, 8);
        write_strips(path(), page, strips_of(page));
        const TiffHandle tif = open_tiff(path(), "rm");

        QVERIFY(!start_of_stored_rows(tif.get(), page.height() + 1, page.width()).has_value());
        QVERIFY(!start_of_stored_rows(tif.get(), page.height(), page.width() + 1).has_value());
    }

    void rowsBehindTheEndOfTheFileAreAFailure()
    {
        const QImage page = patterned_page({61, 40}, 8);
        QVERIFY(save_as_tiff(path(), {page}));
        QFile file(path());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QImage target(page.size(), page.format());

        QVERIFY(read_stored_rows(file.handle(), file.size() - qint64{61} * 40, 61, target));
        QVERIFY(!read_stored_rows(file.handle(), file.size() - qint64{61} * 40 + 1, 61, target));
        QVERIFY(!read_stored_rows(file.handle(), qint64{1} << 60, 61, target));
    }

private:
    [[nodiscard]] QString path() const { return directory->filePath(u"a.tif"_s); }

    std::optional<QTemporaryDir> directory;
};

QTEST_GUILESS_MAIN(tst_tiff_stored_rows)
#include "tst_tiff_stored_rows.moc"
