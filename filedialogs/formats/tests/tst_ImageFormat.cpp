#include "ImageFormat.h"

#include <QCoreApplication>
#include <QImageReader>
#include <QImageWriter>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QStringList keys_of(const QList<ImageFormat> &list)
{
    QStringList keys;
    for (const ImageFormat &record : list)
        keys.append(record.format);
    return keys;
}

const ImageFormat jpegRecord{u"JPEG"_s, u"JPEG"_s, {u"jpg"_s, u"jpeg"_s}};

qsizetype writableCountAtStart = 0; ///< as main() found it

} // namespace

class tst_ImageFormat : public QObject
{
    Q_OBJECT

private slots:
    void knownListHoldsTheNamedFormatsInOrder();
    void fixedTableSpellsDescriptionsAndSuffixes_data();
    void fixedTableSpellsDescriptionsAndSuffixes();
    void allTiffAndMultipageTiffAreNotInTheKnownList();

    void namesOfTheToolkitBecomePlainRecords();
    void namesThatDifferInCaseOnlyBecomeOneRecord();

    void mergeDressesTheFirstHitAndKeepsItsKey();
    void mergeRemovesFurtherHits();
    void mergeHitsByTheKeyInLowerCase();
    void mergeAppendsAMissingRecordOnlyWhenAsked();
    void mergeOfSeveralRecordsTakesThemInOrder();

    void jpegUnderTwoNamesIsOneRowWithTheNameThatCameFirst();
    void tiffUnderTwoNamesIsOneRowWithTheNameThatCameFirst();
    void tiffThatTheToolkitLacksIsWritableButNotReadable();
    void knownFormatThatIsNotReportedStaysOut();
    void unknownFormatKeepsItsPlainRecord();

    void tiffWordsAreTheSuffixesOfTheRecordInAnyCase();
    void keyIsFoundInAnyCase();
    void firstOfSeveralKeysIsFound();
    void suffixIsFoundInItsOwnCaseOnly();
    void suffixOfTiffFindsTiffBeforeMultipageTiff();
    void allExtensionsKeepOrderAndDuplicates();
    void recordsWithoutSuffixesGiveNoExtensions();

    void filterText_data();
    void filterText();

    void listsAreBuiltBeforeTheApplicationObject();
    void readableListHoldsWhatTheToolkitReads();
    void writableListHoldsWhatTheToolkitWrites();
    void tiffOfThePlugInIsKeyedTif();
    void saveAllListEndsWithMultipageTiff();
};

void tst_ImageFormat::knownListHoldsTheNamedFormatsInOrder()
{
    QCOMPARE(keys_of(knownImageFormats), u"BMP JPEG PNG PBM PGM PPM XBM XPM"_s.split(u' '));
}

void tst_ImageFormat::fixedTableSpellsDescriptionsAndSuffixes_data()
{
    QTest::addColumn<ImageFormat>("record");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("desc");
    QTest::addColumn<QStringList>("exts");

    const auto known = [](qsizetype index) { return knownImageFormats.value(index); };
    QTest::newRow("ALL") << allFilesFormat << u"ALL"_s << u"All files"_s << QStringList{u"*"_s};
    QTest::newRow("BMP") << known(0) << u"BMP"_s << u"Windows Bitmaps"_s << QStringList{u"bmp"_s};
    QTest::newRow("JPEG") << known(1) << u"JPEG"_s << u"JPEG"_s << QStringList{u"jpg"_s, u"jpeg"_s};
    QTest::newRow("PNG") << known(2) << u"PNG"_s << u"Portable Network Graphics"_s << QStringList{u"png"_s};
    QTest::newRow("PBM") << known(3) << u"PBM"_s << u"Portable Bitmap Monochrome"_s << QStringList{u"pbm"_s};
    QTest::newRow("PGM") << known(4) << u"PGM"_s << u"Portable Bitmap Grayscale"_s << QStringList{u"pgm"_s};
    QTest::newRow("PPM") << known(5) << u"PPM"_s << u"Portable Bitmap Colorful"_s << QStringList{u"ppm"_s};
    QTest::newRow("XBM") << known(6) << u"XBM"_s << u"XBM"_s << QStringList{u"xbm"_s};
    QTest::newRow("XPM") << known(7) << u"XPM"_s << u"XPM"_s << QStringList{u"xpm"_s};
    QTest::newRow("TIFF") << tiffFormat << u"TIFF"_s << u"Tagged Image File Format"_s
                          << QStringList{u"tiff"_s, u"tif"_s};
    QTest::newRow("MTIFF") << multipageTiffFormat << u"MTIFF"_s << u"Multipage TIFF"_s
                           << QStringList{u"tiff"_s, u"tif"_s};
}

void tst_ImageFormat::fixedTableSpellsDescriptionsAndSuffixes()
{
    QFETCH(const ImageFormat, record);

    QTEST(record.format, "format");
    QTEST(record.desc, "desc");
    QTEST(record.exts, "exts");
}

void tst_ImageFormat::allTiffAndMultipageTiffAreNotInTheKnownList()
{
    QCOMPARE(indexOfFormat(knownImageFormats, AllFormatKey), -1);
    QCOMPARE(indexOfFormat(knownImageFormats, TiffFormatKey), -1);
    QCOMPARE(indexOfFormat(knownImageFormats, MtiffFormatKey), -1);
}

void tst_ImageFormat::namesOfTheToolkitBecomePlainRecords()
{
    const QList<ImageFormat> expected{{u"webp"_s, u"WEBP"_s, {u"webp"_s}}, {u"WBMP"_s, u"WBMP"_s, {u"wbmp"_s}}};

    QCOMPARE(imageFormatsFromSupported({"webp", "WBMP"}), expected);
}

void tst_ImageFormat::namesThatDifferInCaseOnlyBecomeOneRecord()
{
    const QList<ImageFormat> expected{{u"Png"_s, u"PNG"_s, {u"png"_s}}, {u"bmp"_s, u"BMP"_s, {u"bmp"_s}}};

    QCOMPARE(imageFormatsFromSupported({"Png", "bmp", "png", "PNG"}), expected);
}

void tst_ImageFormat::mergeDressesTheFirstHitAndKeepsItsKey()
{
    const QList<ImageFormat> list{{u"gif"_s, u"GIF"_s, {u"gif"_s}}, {u"jpeg"_s, u"JPEG!"_s, {u"jpeg"_s}}};

    const QList<ImageFormat> merged = mergeImageFormat(list, jpegRecord, false);

    QCOMPARE(merged.size(), 2);
    QCOMPARE(merged.at(0), list.at(0));
    QCOMPARE(merged.at(1), (ImageFormat{u"jpeg"_s, jpegRecord.desc, jpegRecord.exts}));
}

void tst_ImageFormat::mergeRemovesFurtherHits()
{
    const QList<ImageFormat> list = imageFormatsFromSupported({"jpg", "bmp", "jpeg", "gif"});

    QCOMPARE(keys_of(mergeImageFormat(list, jpegRecord, false)), u"jpg bmp gif"_s.split(u' '));
}

void tst_ImageFormat::mergeHitsByTheKeyInLowerCase()
{
    const QList<ImageFormat> merged = mergeImageFormat(imageFormatsFromSupported({"JPG"}), jpegRecord, true);

    QCOMPARE(merged, (QList<ImageFormat>{{u"JPG"_s, jpegRecord.desc, jpegRecord.exts}}));
}

void tst_ImageFormat::mergeAppendsAMissingRecordOnlyWhenAsked()
{
    const QList<ImageFormat> list = imageFormatsFromSupported({"bmp"});

    QCOMPARE(mergeImageFormat(list, jpegRecord, false), list);
    QCOMPARE(mergeImageFormat(list, jpegRecord, true), list + QList<ImageFormat>{jpegRecord});
}

void tst_ImageFormat::mergeOfSeveralRecordsTakesThemInOrder()
{
    const ImageFormat first{u"A"_s, u"first"_s, {u"a"_s}};
    const ImageFormat second{u"B"_s, u"second"_s, {u"a"_s, u"b"_s}};

    const QList<ImageFormat> merged = mergeImageFormats({}, {second, first}, true);

    QCOMPARE(merged, (QList<ImageFormat>{second, first}));
}

void tst_ImageFormat::jpegUnderTwoNamesIsOneRowWithTheNameThatCameFirst()
{
    const QList<ImageFormat> expected{
        {u"bmp"_s, u"Windows Bitmaps"_s, {u"bmp"_s}},
        {u"jpeg"_s, u"JPEG"_s, {u"jpg"_s, u"jpeg"_s}},
        {u"png"_s, u"Portable Network Graphics"_s, {u"png"_s}},
    };

    QCOMPARE(dressed_formats({"bmp", "jpeg", "jpg", "png"}, false), expected);
}

void tst_ImageFormat::tiffUnderTwoNamesIsOneRowWithTheNameThatCameFirst()
{
    const QList<ImageFormat> expected{{u"tif"_s, u"Tagged Image File Format"_s, {u"tiff"_s, u"tif"_s}}};

    QCOMPARE(dressed_formats({"tif", "tiff"}, false), expected);
    QCOMPARE(dressed_formats({"tif", "tiff"}, true), expected);
}

void tst_ImageFormat::tiffThatTheToolkitLacksIsWritableButNotReadable()
{
    QCOMPARE(keys_of(dressed_formats({"bmp"}, false)), QStringList{u"bmp"_s});
    QCOMPARE(keys_of(dressed_formats({"bmp"}, true)), (QStringList{u"bmp"_s, u"TIFF"_s}));
}

void tst_ImageFormat::knownFormatThatIsNotReportedStaysOut()
{
    QCOMPARE(keys_of(dressed_formats({"png"}, false)), QStringList{u"png"_s});
}

void tst_ImageFormat::unknownFormatKeepsItsPlainRecord()
{
    QCOMPARE(dressed_formats({"webp"}, false), (QList<ImageFormat>{{u"webp"_s, u"WEBP"_s, {u"webp"_s}}}));
}

void tst_ImageFormat::tiffWordsAreTheSuffixesOfTheRecordInAnyCase()
{
    for (const QString &word : {u"tif"_s, u"TIF"_s, u"tiff"_s, u"Tiff"_s, u"TIFF"_s})
        QVERIFY2(is_tiff_word(word), qPrintable(word));
    for (const QString &word : {u""_s, u"ti"_s, u"MTIFF"_s, u"mtiff"_s, u"tiff "_s, u"png"_s})
        QVERIFY2(!is_tiff_word(word), qPrintable(word));
}

void tst_ImageFormat::keyIsFoundInAnyCase()
{
    const QList<ImageFormat> list = dressed_formats({"bmp", "jpeg"}, true);

    QCOMPARE(indexOfFormat(list, u"JPEG"_s), 1);
    QCOMPARE(indexOfFormat(list, u"Jpeg"_s), 1);
    QCOMPARE(indexOfFormat(list, u"tiff"_s), 2);
    QCOMPARE(indexOfFormat(list, u"jpg"_s), -1);
    QCOMPARE(indexOfFormat({}, u"jpeg"_s), -1);
}

void tst_ImageFormat::firstOfSeveralKeysIsFound()
{
    const QList<ImageFormat> list{{u"a"_s, {}, {}}, {u"png"_s, {}, {}}, {u"PNG"_s, {}, {}}};

    QCOMPARE(indexOfFormat(list, u"PNG"_s), 1);
}

void tst_ImageFormat::suffixIsFoundInItsOwnCaseOnly()
{
    const QList<ImageFormat> list = dressed_formats({"bmp"}, true);

    QCOMPARE(indexOfExtension(list, u"tif"_s), 1);
    QCOMPARE(indexOfExtension(list, u"TIF"_s), -1);
    QCOMPARE(indexOfExtension(list, u"ti"_s), -1);
}

void tst_ImageFormat::suffixOfTiffFindsTiffBeforeMultipageTiff()
{
    const qsizetype index = indexOfExtension(writableAllImageFormats(), u"tiff"_s);

    QCOMPARE(writableAllImageFormats().value(index).desc, u"Tagged Image File Format"_s);
}

void tst_ImageFormat::allExtensionsKeepOrderAndDuplicates()
{
    const QList<ImageFormat> list{multipageTiffFormat, allFilesFormat, tiffFormat};

    QCOMPARE(allExtensions(list), u"tiff tif * tiff tif"_s.split(u' '));
}

void tst_ImageFormat::recordsWithoutSuffixesGiveNoExtensions()
{
    QCOMPARE(allExtensions({{u"a"_s, u"b"_s, {}}}), QStringList{});
}

void tst_ImageFormat::filterText_data()
{
    QTest::addColumn<ImageFormat>("record");
    QTest::addColumn<QString>("text");

    QTest::newRow("two suffixes") << jpegRecord << u"JPEG (*.jpg *.jpeg)"_s;
    QTest::newRow("any suffix") << allFilesFormat << u"All files (*.*)"_s;
    QTest::newRow("no suffix") << ImageFormat{u"x"_s, u"Nothing"_s, {}} << u"Nothing ()"_s;
    QTest::newRow("a description with a place") << ImageFormat{u"x"_s, u"50 %2"_s, {u"x"_s}} << u"50 %2 (*.x)"_s;
}

void tst_ImageFormat::filterText()
{
    QFETCH(const ImageFormat, record);

    QTEST(filter_text(record), "text");
}

void tst_ImageFormat::listsAreBuiltBeforeTheApplicationObject()
{
    QCOMPARE(writableCountAtStart, writableAllImageFormats().size());
    QVERIFY(writableCountAtStart > 0);
}

void tst_ImageFormat::readableListHoldsWhatTheToolkitReads()
{
    QCOMPARE(readableImageFormats(), dressed_formats(QImageReader::supportedImageFormats(), false));
    QVERIFY(indexOfFormat(readableImageFormats(), PngFormatKey) >= 0);
}

void tst_ImageFormat::writableListHoldsWhatTheToolkitWrites()
{
    QCOMPARE(writableImageFormats(), dressed_formats(QImageWriter::supportedImageFormats(), true));
    QVERIFY(indexOfFormat(writableImageFormats(), PngFormatKey) >= 0);
}

void tst_ImageFormat::tiffOfThePlugInIsKeyedTif()
{
    const ImageFormat expected{u"tif"_s, u"Tagged Image File Format"_s, {u"tiff"_s, u"tif"_s}};

    QVERIFY(readableImageFormats().contains(expected));
    QVERIFY(writableImageFormats().contains(expected));
}

void tst_ImageFormat::saveAllListEndsWithMultipageTiff()
{
    QCOMPARE(writableAllImageFormats(), writableImageFormats() + QList<ImageFormat>{multipageTiffFormat});
}

int main(int argc, char **argv)
{
    writableCountAtStart = writableAllImageFormats().size();
    const QCoreApplication application(argc, argv);
    tst_ImageFormat test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_ImageFormat.moc"
