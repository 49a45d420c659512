#include "colored_documents.h"
#include "image_files.h"
#include "ImageDocument.h"
#include "page_buffers.h"
#include "pictures.h"
#include "tiff_files.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 LargestFileBytes = 536870912;

} // namespace

class tst_ImageDocument_load : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void emptyPathLoadsNothing();
    void missingFileLoadsNothingAndKeepsTheName();
    void loadedDocumentIsNamedAndNotModified();
    void loadAppendsToEarlierPages();
    void loadTellsItsStateBySignal();
    void formatWordIsReadOffTheContent_data();
    void formatWordIsReadOffTheContent();
    void formatWordGivenIsKeptAsSpelt();
    void formatWordDecidesAsInTheToolkit_data();
    void formatWordDecidesAsInTheToolkit();
    void tiffWordInCapitalsTakesAllPages();
    void otherTiffWordsTakeTheFirstPage_data();
    void otherTiffWordsTakeTheFirstPage();
    void brokenMultipageFileKeepsItsGoodPagesAndStaysModified();
    void resolutionOfNothingBecomesTheDefault_data();
    void resolutionOfNothingBecomesTheDefault();
    void fileOfTheLargestSizeLoads();
    void largerFileIsRefusedButNamed();
    void fileThatIsNotDecodedKeepsStatusOther();
    void fileWithoutSuffixIsNotMistakenForItsNeighbour();
    void memoryOfAClosedPageServesTheNextFile_data();
    void memoryOfAClosedPageServesTheNextFile();

private:
    [[nodiscard]] QString path(const QString &name) const { return directory->filePath(name); }
    void writeLargeBmp(const QString &name, qint64 bytes) const;

    std::unique_ptr<QTemporaryDir> directory;
};

void tst_ImageDocument_load::init()
{
    directory = std::make_unique<QTemporaryDir>();
    QVERIFY(directory->isValid());
}

void tst_ImageDocument_load::cleanup()
{
    directory.reset();
}

void tst_ImageDocument_load::emptyPathLoadsNothing()
{
    ImageDocument document({}, {});

    QCOMPARE(document.loadStatus, 0);
    QVERIFY(document.isEmpty());
    QVERIFY(!document.hasFile());
    QVERIFY(!document.isModified());
    QVERIFY(document.addPage(page_of(red)));
}

void tst_ImageDocument_load::missingFileLoadsNothingAndKeepsTheName()
{
    write_file(path(u"a.png"_s), encoded(page_of(red), "png"));
    ImageDocument document(path(u"a.png"_s), {});
    QCOMPARE(document.loadStatus, 2);

    QVERIFY(!document.load(path(u"missing.bmp"_s), u"BMP"_s));

    QCOMPARE(document.loadStatus, 0);
    QCOMPARE(document.filePath(), path(u"a.png"_s));
    QCOMPARE(document.imgFormat(), u"png"_s);
}

void tst_ImageDocument_load::loadedDocumentIsNamedAndNotModified()
{
    write_file(path(u"a.png"_s), encoded(patterned_page({7, 5}), "png"));

    const ImageDocument document(path(u"a.png"_s), {});

    QCOMPARE(document.loadStatus, 2);
    QCOMPARE(document.pageCount(), 1U);
    QVERIFY(!document.isModified());
    QVERIFY(document.hasFile());
    QCOMPARE(document.fileName(), u"a.png"_s);
    QCOMPARE(document.filePath(), path(u"a.png"_s));
    QVERIFY(compare_pictures(document.page(1), patterned_page({7, 5})));
}

void tst_ImageDocument_load::loadAppendsToEarlierPages()
{
    write_file(path(u"a.png"_s), encoded(page_of(green), "png"));
    const auto document = document_of({red});

    QVERIFY(document->load(path(u"a.png"_s), {}));

    QCOMPARE(colors_of(*document), (QList<QRgb>{red, green}));
    QVERIFY(!document->isModified());
}

void tst_ImageDocument_load::loadTellsItsStateBySignal()
{
    write_file(path(u"a.png"_s), encoded(page_of(green), "png"));
    ImageDocument document({}, {});
    const QSignalSpy spy(&document, &ImageDocument::modifiedStateChanged);

    QVERIFY(document.load(path(u"a.png"_s), {}));

    QCOMPARE(spy.size(), 2);
    QCOMPARE(spy.at(0).at(0).toBool(), true);
    QCOMPARE(spy.at(1).at(0).toBool(), false);
}

void tst_ImageDocument_load::formatWordIsReadOffTheContent_data()
{
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<QString>("word");

    QTest::newRow("png") << QByteArray("png") << u"png"_s;
    QTest::newRow("jpeg, not jpg") << QByteArray("jpg") << u"jpeg"_s;
    QTest::newRow("tiff, not tif") << QByteArray("tif") << u"tiff"_s;
    QTest::newRow("bmp") << QByteArray("bmp") << u"bmp"_s;
}

void tst_ImageDocument_load::formatWordIsReadOffTheContent()
{
    QFETCH(const QByteArray, format);
    write_file(path(u"misleading.xyz"_s), encoded(page_of(red), format.constData()));

    const ImageDocument document(path(u"misleading.xyz"_s), {});

    QTEST(document.imgFormat(), "word");
    QCOMPARE(document.pageCount(), 1U);
}

void tst_ImageDocument_load::formatWordGivenIsKeptAsSpelt()
{
    write_file(path(u"a.png"_s), encoded(page_of(red), "png"));

    const ImageDocument document(path(u"a.png"_s), u"pNg"_s);

    QCOMPARE(document.imgFormat(), u"pNg"_s);
    QCOMPARE(document.pageCount(), 1U);
}

void tst_ImageDocument_load::formatWordDecidesAsInTheToolkit_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<bool>("loads");

    QTest::newRow("right") << u"PNG"_s << true;
    QTest::newRow("known but wrong") << u"bmp"_s << false;
    QTest::newRow("wrong word of a plug-in") << u"tif"_s << false;
    QTest::newRow("unknown") << u"xyz"_s << true;
    QTest::newRow("a path, as the open dialog gives it for a name without a dot") << u"/home/scan"_s << true;
}

void tst_ImageDocument_load::formatWordDecidesAsInTheToolkit()
{
    QFETCH(const QString, word);
    QFETCH(const bool, loads);
    write_file(path(u"a.png"_s), encoded(page_of(red), "png"));

    const ImageDocument document(path(u"a.png"_s), word);

    QCOMPARE(!document.isEmpty(), loads);
    QCOMPARE(!QImage(path(u"a.png"_s), word.toLatin1().constData()).isNull(), loads);
}

void tst_ImageDocument_load::tiffWordInCapitalsTakesAllPages()
{
    QVERIFY(document_of({red, green, blue})->save(path(u"a.tif"_s), u"TIFF"_s));

    const ImageDocument document(path(u"a.tif"_s), u"TIFF"_s);

    QCOMPARE(colors_of(document), (QList<QRgb>{red, green, blue}));
    QVERIFY(!document.isModified());
}

void tst_ImageDocument_load::otherTiffWordsTakeTheFirstPage_data()
{
    QTest::addColumn<QString>("word");

    QTest::newRow("none") << QString();
    QTest::newRow("lower case") << u"tiff"_s;
    QTest::newRow("mixed case") << u"Tiff"_s;
    QTest::newRow("short") << u"TIF"_s;
}

void tst_ImageDocument_load::otherTiffWordsTakeTheFirstPage()
{
    QFETCH(const QString, word);
    QVERIFY(document_of({red, green})->save(path(u"a.tif"_s), u"TIFF"_s));

    const ImageDocument document(path(u"a.tif"_s), word);

    QCOMPARE(colors_of(document), QList<QRgb>{red});
}

void tst_ImageDocument_load::brokenMultipageFileKeepsItsGoodPagesAndStaysModified()
{
    QVERIFY(document_of({red, green, blue})->save(path(u"a.tif"_s), u"TIFF"_s));
    const QByteArray bytes = file_bytes(path(u"a.tif"_s));
    write_file(path(u"cut.tif"_s), bytes.first(bytes.size() * 5 / 9)); // within the second page
    ImageDocument document({}, {});

    QVERIFY(!document.load(path(u"cut.tif"_s), u"TIFF"_s));

    QCOMPARE(colors_of(document), QList<QRgb>{red});
    QVERIFY(document.isModified());
}

void tst_ImageDocument_load::resolutionOfNothingBecomesTheDefault_data()
{
    QTest::addColumn<QByteArray>("bytes");

    const QByteArray bmp = encoded(page_of(red), "bmp");
    QTest::newRow("bmp, -1") << QByteArray(bmp).replace(38, 8, little32(-1) + little32(-1));
    QTest::newRow("bmp, lowest number") << QByteArray(bmp).replace(38, 8, little32(0x80000000) + little32(0x80000000));
    QTest::newRow("bmp, 0") << QByteArray(bmp).replace(38, 8, little32(0) + little32(0));
    const QTemporaryDir maker;
    const QString file = maker.filePath(u"a.tif"_s);
    for (const double dots : {0.0, 3e30}) {
        TiffPage page = rgb_tiff_page(page_of(red));
        page.dotsPerInch = dots;
        write_tiff(file, {page});
        QTest::addRow("tiff, %g", dots) << file_bytes(file);
        page = grey_tiff_page(patterned_page({3, 3}, 8));
        page.dotsPerInch = dots;
        write_tiff(file, {page});
        QTest::addRow("grey tiff, %g", dots) << file_bytes(file);
    }
}

void tst_ImageDocument_load::resolutionOfNothingBecomesTheDefault()
{
    QFETCH(const QByteArray, bytes);
    write_file(path(u"page"_s), bytes);
    const QImage fresh(1, 1, QImage::Format_RGB32);

    const ImageDocument document(path(u"page"_s), {});

    QCOMPARE(document.pageCount(), 1U);
    QCOMPARE(document.page(1).dotsPerMeterX(), fresh.dotsPerMeterX());
    QCOMPARE(document.page(1).dotsPerMeterY(), fresh.dotsPerMeterY());
}

void tst_ImageDocument_load::fileOfTheLargestSizeLoads()
{
    writeLargeBmp(u"a.bmp"_s, LargestFileBytes);

    const ImageDocument document(path(u"a.bmp"_s), {});

    QCOMPARE(document.loadStatus, 2);
    QCOMPARE(colors_of(document), QList<QRgb>{red});
}

void tst_ImageDocument_load::largerFileIsRefusedButNamed()
{
    writeLargeBmp(u"a.bmp"_s, LargestFileBytes + 1);

    const ImageDocument document(path(u"a.bmp"_s), {});

    QCOMPARE(document.loadStatus, 1);
    QVERIFY(document.isEmpty());
    QCOMPARE(document.filePath(), path(u"a.bmp"_s));
    QCOMPARE(document.imgFormat(), u"bmp"_s);
}

void tst_ImageDocument_load::fileThatIsNotDecodedKeepsStatusOther()
{
    write_file(path(u"a.png"_s), "no picture");

    const ImageDocument document(path(u"a.png"_s), {});

    QCOMPARE(document.loadStatus, 2);
    QVERIFY(document.isEmpty());
    QVERIFY(!document.isModified());
    QCOMPARE(document.filePath(), path(u"a.png"_s));
    QCOMPARE(document.imgFormat(), QString());
}

void tst_ImageDocument_load::fileWithoutSuffixIsNotMistakenForItsNeighbour()
{
    write_file(path(u"a"_s), "no picture");
    write_file(path(u"a.png"_s), encoded(page_of(red), "png"));

    const ImageDocument document(path(u"a"_s), {});

    QVERIFY(document.isEmpty());
}

void tst_ImageDocument_load::writeLargeBmp(const QString &name, qint64 bytes) const
{
    write_file(path(name), encoded(page_of(red), "bmp"));
    if (!QFile::resize(path(name), bytes))
        qFatal("writeLargeBmp - cannot stretch the file");
}

void tst_ImageDocument_load::memoryOfAClosedPageServesTheNextFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("format");

    QTest::newRow("PNG") << u"page.png"_s << QString();
    QTest::newRow("JPEG") << u"page.jpg"_s << QString();
    QTest::newRow("TIFF, first page") << u"page.tif"_s << QString();
    QTest::newRow("TIFF, all pages") << u"page.tif"_s << u"TIFF"_s;
}

void tst_ImageDocument_load::memoryOfAClosedPageServesTheNextFile()
{
    QFETCH(const QString, name);
    QFETCH(const QString, format);
    const QImage page = patterned_page(QSize(700, 500)).convertToFormat(QImage::Format_RGB32);
    QVERIFY(page.save(path(name)));

    QImage first;
    {
        ImageDocument document(path(name), format);
        first = document.page(1).copy();
        QCOMPARE(first.size(), QSize(700, 500));
    }
    QCOMPARE(spare_page_bytes(), qsizetype{700} * 500 * 4);

    ImageDocument document(path(name), format);
    QCOMPARE(spare_page_bytes(), 0);
    QCOMPARE(document.page(1), first);
}

QTEST_GUILESS_MAIN(tst_ImageDocument_load)
#include "tst_ImageDocument_load.moc"
