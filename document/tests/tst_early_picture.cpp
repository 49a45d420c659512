#include "early_picture.h"
#include "EarlyFiles.h"
#include "first_picture.h"
#include "ImageDocument.h"
#include "odd_files.h"
#include "pictures.h"
#include "plain_pngs.h"
#include "tiff_diagnostics.h"

#include <QImageWriter>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// What a load leaves behind.
struct Loaded
{
    QList<QImage> pages;
    QString dump;
    int status = 0;
    qint64 pictures = 0;
    QStringList lines;
};

QStringList *heardLines = nullptr;

void hear(QtMsgType /*type*/, const QMessageLogContext & /*context*/, const QString &line)
{
    heardLines->append(line);
}

Loaded load(const QString &path, const QString &word, bool isEarly)
{
    Loaded loaded;
    heardLines = &loaded.lines;
    const QtMessageHandler former = qInstallMessageHandler(hear);
    {
        const EarlyPicture early(isEarly ? path : QString());
        ImageDocument document(path, word);
        for (uint pi = 1; pi <= document.pageCount(); ++pi)
            loaded.pages.append(document.page(pi));
        loaded.dump = document.dump();
        loaded.status = document.loadStatus;
        loaded.pictures = document.pictureCount();
    }
    qInstallMessageHandler(former);
    return loaded;
}

QString differences(const Loaded &actual, const Loaded &expected)
{
    if (actual.lines != expected.lines)
        return "lines: "_L1 + actual.lines.join(u'|') + " for "_L1 + expected.lines.join(u'|');
    if (actual.dump != expected.dump || actual.status != expected.status || actual.pictures != expected.pictures)
        return actual.dump + " for "_L1 + expected.dump;
    if (actual.pages.size() != expected.pages.size())
        return u"pages"_s;
    for (qsizetype i = 0; i < actual.pages.size(); ++i) {
        const QImage &page = actual.pages[i];
        const QImage &other = expected.pages[i];
        if (page != other || page.format() != other.format() || page.colorTable() != other.colorTable()
            || page.text() != other.text() || page.dotsPerMeterX() != other.dotsPerMeterX())
            return "page: "_L1 + picture_differences(page, other);
    }
    return {};
}

} // namespace

/// A file that is decoded on a thread of its own before it is loaded is loaded as if it had not been.
class tst_early_picture : public QObject, private EarlyFiles
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(directory.isValid());
        tell_of_tiff_by_the_toolkit();
    }
    void filesOfAllFormatsAreLoadedAsWithoutAThread_data();
    void filesOfAllFormatsAreLoadedAsWithoutAThread();
    void cutFilesAreLoadedAsWithoutAThread_data();
    void cutFilesAreLoadedAsWithoutAThread();
    void jpegTiffAndPlainPngAreDecodedEarly_data();
    void jpegTiffAndPlainPngAreDecodedEarly();
    void otherFilesAreNot_data();
    void otherFilesAreNot();
    void aFileThatTheDecoderHasSomethingToSayAboutIsLeftToTheLoad();
    void anotherPathOrWordTakesNothing();
    void aPictureIsTakenOnce();
};

void tst_early_picture::filesOfAllFormatsAreLoadedAsWithoutAThread_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("word");
    for (const QByteArray &format : QImageWriter::supportedImageFormats()) {
        for (const int depth : {1, 8, 32}) {
            for (const QSize size : {QSize(13, 7), QSize(700, 500)})
                QTest::addRow("%s of depth %d, %d wide", format.constData(), depth, size.width())
                    << encoded(patterned_page(size, depth), format) << QString();
        }
    }
    for (const OddFile &file : odd_files())
        QTest::newRow(file.name) << file.bytes << file.word;
    QTest::newRow("gif") << small_gif() << QString();
    QTest::newRow("interlaced png by another word") << PlainPng{.bits = 16}.file() << u"TIFF"_s;
    QTest::newRow("nothing") << QByteArray() << QString();
    QTest::newRow("a text") << QByteArray("Dear reader,") << QString();
}

void tst_early_picture::filesOfAllFormatsAreLoadedAsWithoutAThread()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, word);
    const QString path = written(bytes);

    QCOMPARE(differences(load(path, word, true), load(path, word, false)), QString());
}

void tst_early_picture::cutFilesAreLoadedAsWithoutAThread_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("jpeg") << encoded(patterned_page({40, 30}), "jpg");
    QTest::newRow("tiff") << encoded(patterned_page({40, 30}), "tif");
    QTest::newRow("tiff with a table") << encoded(patterned_page({40, 30}, 8), "tif");
}

void tst_early_picture::cutFilesAreLoadedAsWithoutAThread()
{
    QFETCH(const QByteArray, bytes);
    for (qsizetype count = 0; count < bytes.size(); count += 1 + bytes.size() / 60) {
        const QString path = written(bytes.first(count));
        QCOMPARE(differences(load(path, {}, true), load(path, {}, false)), QString());
    }
}

void tst_early_picture::jpegTiffAndPlainPngAreDecodedEarly_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("word");
    const QSize size(700, 500);
    QTest::newRow("jpeg") << encoded(patterned_page(size), "jpg") << u"jpeg"_s;
    QTest::newRow("grey jpeg") << encoded(patterned_page(size, 8), "jpg") << u"jpeg"_s;
    QTest::newRow("tiff") << encoded(patterned_page(size), "tif") << u"tiff"_s;
    QTest::newRow("tiff of 1 bit") << encoded(patterned_page(size, 1), "tif") << u"tiff"_s;
    QTest::newRow("png") << largePng() << u"png"_s;
    QTest::newRow("small png") << PlainPng().file() << u"png"_s;
}

void tst_early_picture::jpegTiffAndPlainPngAreDecodedEarly()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, word);
    // The word comes from the content, whatever the name says.
    for (const QString &name : {u"file"_s, u"file.jpg"_s, u"file.png"_s, u"file.tif"_s}) {
        const QString path = written(bytes, name);
        QCOMPARE(ImageDocument(path, {}).imgFormat(), word);
        const EarlyPicture early(path);

        const QImage page = early_page(path, word);

        QVERIFY(!page.isNull());
        QVERIFY(compare_pictures(page, read_first_picture(path, word)));
    }
}

void tst_early_picture::otherFilesAreNot_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("word");
    for (const char *format : {"bmp", "webp", "xpm", "ppm"})
        QTest::newRow(format) << encoded(patterned_page({13, 7}), format) << QString::fromLatin1(format);
    QTest::newRow("gif") << small_gif() << u"gif"_s;
    QTest::newRow("png of 16 bits") << PlainPng{.bits = 16}.file() << u"png"_s;
}

void tst_early_picture::otherFilesAreNot()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, word);
    const QString path = written(bytes);
    const EarlyPicture early(path);

    QVERIFY(early_page(path, word).isNull());
}

void tst_early_picture::aFileThatTheDecoderHasSomethingToSayAboutIsLeftToTheLoad()
{
    // A text that is not what it says: the picture is shown, and a line told.
    PlainPng png;
    png.before = png_chunk("zTXt", QByteArray("Author\0\0nothing", 15));
    const QString path = written(png.file());
    const Loaded expected = load(path, {}, false);
    QCOMPARE(expected.pages.size(), 1);
    QCOMPARE(expected.lines.size(), 1);

    QCOMPARE(differences(load(path, {}, true), expected), QString());

    const EarlyPicture early(path);
    QVERIFY(early_page(path, u"png"_s).isNull());
}

void tst_early_picture::anotherPathOrWordTakesNothing()
{
    const QString path = written(PlainPng().file());
    const QString other = written(PlainPng().file(), u"other"_s);
    {
        const EarlyPicture early(path);
        QVERIFY(early_page(other, u"png"_s).isNull());
        QVERIFY(!early_page(path, u"png"_s).isNull());
    }
    const EarlyPicture early(path);
    QVERIFY(early_page(path, u"PNG"_s).isNull());
}

void tst_early_picture::aPictureIsTakenOnce()
{
    const QString path = written(PlainPng().file());
    const EarlyPicture early(path);

    QVERIFY(!early_page(path, u"png"_s).isNull());
    QVERIFY(early_page(path, u"png"_s).isNull());
}

QTEST_GUILESS_MAIN(tst_early_picture)
#include "tst_early_picture.moc"
