// Pictures of a file that are not open and would be lost by a save: that has to be asked first.

#include "image_files.h"
#include "ImageDocument.h"
#include "odd_files.h"
#include "pictures.h"
#include "TemporaryHome.h"
#include "tiff_files.h"
#include "tiff_pages.h"

#include <QFile>
#include <QImageWriter>
#include <QTemporaryDir>
#include <QtEndian>
#include <QTest>

#include <array>
#include <fcntl.h>
#include <functional>
#include <optional>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

/// A GIF of two frames: the second has the extension that tells its time before it, and colours of its own.
QByteArray animated_gif()
{
    const QByteArray one = small_gif();
    // Header, screen and table take 13 and 6 bytes; the last byte ends the file.
    const QByteArray frame = one.mid(13 + 6).chopped(1);
    return one.first(13 + 6) + frame + frame + ';';
}

} // namespace

class tst_ImageDocument_kept_loss : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void fileThatIsNotTheSameAnyMoreKeepsNothing_data();
    void fileThatIsNotTheSameAnyMoreKeepsNothing();
    void pagesThatCannotBeKeptAreNeverLostUnasked();
    void forgottenPagesAreLeftOut();
    void chainThatComesBackToItselfCannotBeKept();
    void directoryThatComesBackToItselfEndsTheChain();
    void halfReadTiffLosesPicturesInItsOwnFileOnly();
    void otherFormatLosesPicturesInTheOwnFileOnly();
    void severalPicturesOfOtherFormatsAreCounted_data();
    void severalPicturesOfOtherFormatsAreCounted();
    void widePagesOfTwoByteOrdersCannotBeMerged();

private:
    [[nodiscard]] QString path(const QString &name) const { return directory->filePath(name); }
    [[nodiscard]] QString made(const QString &kind, const QString &name) const
    {
        make_tiff(kind, path(name));
        return path(name);
    }

    std::optional<TemporaryHome> home;
    std::optional<QTemporaryDir> directory;
};

void tst_ImageDocument_kept_loss::init()
{
    home.emplace();
    directory.emplace();
    QVERIFY(directory->isValid());
}

void tst_ImageDocument_kept_loss::cleanup()
{
    directory.reset();
    home.reset();
}

void tst_ImageDocument_kept_loss::fileThatIsNotTheSameAnyMoreKeepsNothing_data()
{
    using Change = std::function<bool(const QString &)>;
    QTest::addColumn<Change>("change");

    QTest::newRow("gone") << Change([](const QString &path) { return QFile::remove(path); });
    QTest::newRow("another in its place") << Change([](const QString &path) {
        return QFile::copy(path, path + u'~') && QFile::remove(path) && QFile::rename(path + u'~', path);
    });
    QTest::newRow("longer") << Change([](const QString &path) {
        QFile file(path);
        return file.open(QIODevice::Append) && file.write("x") == 1;
    });
    QTest::newRow("shorter") << Change([](const QString &path) { return QFile::resize(path, QFile(path).size() - 1); });
    QTest::newRow("touched") << Change([](const QString &path) {
        constexpr timespec longAgo{.tv_sec = 1'000'000'000, .tv_nsec = 0};
        const std::array times{longAgo, longAgo};
        return ::utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times.data(), 0) == 0;
    });
    QTest::newRow("a pipe in its place") << Change([](const QString &path) {
        return QFile::remove(path) && ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
    });
}

void tst_ImageDocument_kept_loss::fileThatIsNotTheSameAnyMoreKeepsNothing()
{
    QFETCH(const std::function<bool(const QString &)>, change);
    const QString file = made(u"fax"_s, u"a.tif"_s);
    const ImageDocument document(file, {});
    QVERIFY(!document.wouldLosePictures(file, u"tif"_s));

    QVERIFY(change(file));

    QVERIFY(document.wouldLosePictures(file, u"tif"_s));
    QVERIFY(document.wouldLosePictures(path(u"b.tif"_s), u"TIFF"_s));
    QVERIFY(!document.wouldLosePictures(path(u"b.png"_s), u"png"_s));
    QCOMPARE(document.pictureCount(), 20U); // as it was
    QCOMPARE(document.pictureFileName(), u"a.tif"_s);
}

void tst_ImageDocument_kept_loss::pagesThatCannotBeKeptAreNeverLostUnasked()
{
    ImageDocument document(made(u"fax"_s, u"a.tif"_s), {});
    QVERIFY(QFile::remove(path(u"a.tif"_s)));

    QVERIFY(!document.save(path(u"b.tif"_s), u"tif"_s));

    QCOMPARE(document.lastError, u"The pages that are not open cannot be kept."_s);
    QVERIFY(!QFile::exists(path(u"b.tif"_s)));
    QVERIFY(!document.save(path(u"b.tif"_s), u"TIFF"_s));
    QCOMPARE(document.lastError, u"Error saving TIFF image!"_s);
    QCOMPARE(document.lastErrorReason, u"The pages that are not open cannot be kept."_s);
}

void tst_ImageDocument_kept_loss::forgottenPagesAreLeftOut()
{
    ImageDocument document(made(u"fax"_s, u"a.tif"_s), {});
    QVERIFY(QFile::remove(path(u"a.tif"_s)));

    (void)document.takeKeptPages();
    QVERIFY(document.save(path(u"a.tif"_s), u"tif"_s));

    QCOMPARE(told_pages(path(u"a.tif"_s)).size(), 2); // the file and one page
    QCOMPARE(document.pictureCount(), 1U);
    QVERIFY(!document.wouldLosePictures(path(u"a.tif"_s), u"tif"_s));
}

void tst_ImageDocument_kept_loss::chainThatComesBackToItselfCannotBeKept()
{
    QByteArray bytes = file_bytes(made(u"two pages"_s, u"a.tif"_s));
    const ImageDocument good(path(u"a.tif"_s), {});
    QVERIFY(!good.wouldLosePictures(path(u"a.tif"_s), u"tif"_s));
    // The last number of the last directory says that none follows: now the first one does. tiffcp writes it last.
    const QByteArray first = bytes.mid(4, 4);
    const qsizetype link = bytes.lastIndexOf(little32(0));
    QVERIFY(link > 0);
    bytes.replace(link, 4, first);
    write_file(path(u"a.tif"_s), bytes);

    const ImageDocument document(path(u"a.tif"_s), {});

    QCOMPARE(document.pageCount(), 1U);
    QCOMPARE(document.pictureCount(), 2U);
    QVERIFY(document.wouldLosePictures(path(u"a.tif"_s), u"tif"_s));
}

void tst_ImageDocument_kept_loss::directoryThatComesBackToItselfEndsTheChain()
{
    QByteArray bytes = file_bytes(made(u"one page"_s, u"a.tif"_s));
    const auto start = qFromLittleEndian<quint32>(bytes.constData() + 4);
    const auto entries = qFromLittleEndian<quint16>(bytes.constData() + start);
    bytes.replace(start + 2 + 12 * entries, 4, bytes.mid(4, 4));
    write_file(path(u"a.tif"_s), bytes);

    const ImageDocument document(path(u"a.tif"_s), {});

    QCOMPARE(document.pageCount(), 1U);
    QCOMPARE(document.pictureCount(), 1U);
    QVERIFY(!document.wouldLosePictures(path(u"a.tif"_s), u"tif"_s));
}

void tst_ImageDocument_kept_loss::halfReadTiffLosesPicturesInItsOwnFileOnly()
{
    // The codec of "TIFF" needs the resolution's unit, which the second page lacks.
    const TiffPage good = grey_tiff_page(patterned_page({30, 20}, 8));
    TiffPage bad = good;
    bad.withoutTag = TIFFTAG_RESOLUTIONUNIT;
    write_tiff(path(u"a.tif"_s), {good, bad, good});

    const ImageDocument document(path(u"a.tif"_s), u"TIFF"_s);

    QCOMPARE(document.pageCount(), 1U);
    QCOMPARE(document.pictureCount(), 3U);
    QVERIFY(!document.hasKeptPages());
    QVERIFY(document.wouldLosePictures(path(u"a.tif"_s), u"TIFF"_s));
    QVERIFY(!document.wouldLosePictures(path(u"b.tif"_s), u"TIFF"_s));
}

void tst_ImageDocument_kept_loss::otherFormatLosesPicturesInTheOwnFileOnly()
{
    const QString file = made(u"fax"_s, u"a.tif"_s);
    const ImageDocument document(file, {});
    QVERIFY(QFile::link(file, path(u"link"_s)));

    QVERIFY(document.wouldLosePictures(file, u"png"_s));
    QVERIFY(document.wouldLosePictures(path(u"link"_s), u"png"_s));
    QVERIFY(!document.wouldLosePictures(path(u"a.png"_s), u"png"_s));
}

void tst_ImageDocument_kept_loss::severalPicturesOfOtherFormatsAreCounted_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<uint>("pictures");

    QByteArray icon = "\0\0\1\0\2\0"_ba; // two entries of 16 bytes each, of one picture, whose bytes follow
    const QByteArray png = encoded(patterned_page({16, 16}), "png");
    for (int i = 0; i < 2; ++i)
        icon += "\x10\x10\0\0\1\0\x20\0"_ba + little32(png.size()) + little32(6 + 2 * 16);
    QTest::newRow("icon of two sizes") << icon + png << 2U;
    QTest::newRow("animated GIF") << animated_gif() << 2U;
    QTest::newRow("animated WebP") << animated_webp(patterned_page({8, 6}), 0, 0, false, 2) << 2U;
    QTest::newRow("GIF") << small_gif() << 1U;
    QTest::newRow("PNG") << png << 1U;
    QTest::newRow("JPEG") << encoded(patterned_page({16, 16}), "jpg") << 1U;
    QTest::newRow("BMP") << encoded(patterned_page({16, 16}), "bmp") << 1U;
}

void tst_ImageDocument_kept_loss::severalPicturesOfOtherFormatsAreCounted()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const uint, pictures);
    write_file(path(u"a"_s), bytes);

    const ImageDocument document(path(u"a"_s), {});

    QCOMPARE(document.pageCount(), 1U);
    QCOMPARE(document.pictureCount(), pictures);
    QCOMPARE(document.wouldLosePictures(path(u"a"_s), document.imgFormat()), pictures > 1);
    QVERIFY(!document.wouldLosePictures(path(u"b"_s), u"png"_s));
}

void tst_ImageDocument_kept_loss::widePagesOfTwoByteOrdersCannotBeMerged()
{
    const ImageDocument little(made(u"mixed"_s, u"1.tif"_s), {}); // one of its pages has 16 bits
    const ImageDocument big(made(u"big-endian"_s, u"2.tif"_s), {});
    ImageDocument merged({}, {});
    QVERIFY(merged.addPage(big.page(1)));
    QVERIFY(merged.keepPagesOf(big));
    QVERIFY(merged.addPage(little.page(1)));

    QVERIFY(!merged.keepPagesOf(little));

    QVERIFY(merged.save(path(u"all.tif"_s), u"TIFF"_s));
    QCOMPARE(told_pages(path(u"all.tif"_s)).size(), 1 + 5 + 1);
}

QTEST_GUILESS_MAIN(tst_ImageDocument_kept_loss)
#include "tst_ImageDocument_kept_loss.moc"
