#include "colored_documents.h"
#include "descriptor.h"
#include "image_files.h"
#include "ImageDocument.h"
#include "noise_pages.h"
#include "pictures.h"
#include "process_limits.h"
#include "ToolkitLeaks.h"

#include <QDir>
#include <QFile>
#include <QImageWriter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <memory>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class tst_ImageDocument_save : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void savedDocumentLivesInItsNewFile();
    void savedPageIsReadBack_data();
    void savedPageIsReadBack();
    void saveWithoutPathOrFormatFailsInSilence();
    void twoPagesFitIntoTiffOnly();
    void twoPagesSavedAsTiffAreReadBack();
    void failedSaveChangesNothing_data();
    void failedSaveChangesNothing();
    void unknownFormatLeavesTheFileAlone();
    void whatIsNoPlainFileIsRefusedWithWords_data();
    void whatIsNoPlainFileIsRefusedWithWords();
    void pageThatItsWriterRefusesLeavesTheFileAlone();
    void pagesOfMoreThan4GiBLeaveTheTiffFileAlone();
    void pageOfAnOddDepthLeavesTheTiffFileAlone();
    void saveOfWhichOnlyAPartReachedTheDiskFails_data();
    void saveOfWhichOnlyAPartReachedTheDiskFails();
    void lastErrorIsForgottenByTheNextSave();

    void documentWithoutPagesCopiesItsFile_data();
    void documentWithoutPagesCopiesItsFile();
    void copyOntoItselfKeepsTheFile();
    void copyToAPlaceThatCannotBeOpenedFailsWithWords();
    void copyThatDidNotArriveWholeFailsWithWords();
    void copyOfAMissingFileFailsAndLeavesTheTargetAlone();

private:
    [[nodiscard]] QString path(const QString &name) const { return directory->filePath(name); }

    std::unique_ptr<QTemporaryDir> directory;
};

void tst_ImageDocument_save::init()
{
    directory = std::make_unique<QTemporaryDir>();
    QVERIFY(directory->isValid());
}

void tst_ImageDocument_save::cleanup()
{
    directory.reset();
}

void tst_ImageDocument_save::savedDocumentLivesInItsNewFile()
{
    const auto document = document_of({red});
    document->setModified(true);
    const QSignalSpy spy(document.get(), &ImageDocument::modifiedStateChanged);

    QVERIFY(document->save(path(u"b.png"_s), u"PNG"_s));

    QCOMPARE(document->filePath(), path(u"b.png"_s));
    QCOMPARE(document->imgFormat(), u"PNG"_s);
    QVERIFY(document->hasFile());
    QVERIFY(!document->isModified());
    QCOMPARE(spy.size(), 1);
    QCOMPARE(document->lastError, QString());
}

void tst_ImageDocument_save::savedPageIsReadBack_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<int>("depth");
    QTest::addColumn<QString>("name");

    QTest::newRow("png") << u"png"_s << 32 << u"a.png"_s;
    QTest::newRow("BMP of depth 8") << u"BMP"_s << 8 << u"a.bmp"_s;
    QTest::newRow("bmp of depth 1") << u"bmp"_s << 1 << u"a.bmp"_s;
    QTest::newRow("ppm under another suffix") << u"ppm"_s << 32 << u"a.png"_s;
    QTest::newRow("plug-in's tiff") << u"tif"_s << 32 << u"a.tif"_s;
    QTest::newRow("name in other letters") << u"png"_s << 32 << u"Grüße 写真.png"_s;
    QTest::newRow("multi-page codec, name in other letters") << u"TIFF"_s << 32 << u"Grüße 写真.tif"_s;
}

void tst_ImageDocument_save::savedPageIsReadBack()
{
    QFETCH(const QString, word);
    QFETCH(const int, depth);
    QFETCH(const QString, name);
    const QImage page = patterned_page({33, 9}, depth);
    ImageDocument document({}, {});
    QVERIFY(document.addPage(page));

    QVERIFY(document.save(path(name), word));

    const ImageDocument reloaded(path(name), {});
    QCOMPARE(reloaded.pageCount(), 1U);
    QVERIFY(compare_pictures(reloaded.page(1), page));
}

void tst_ImageDocument_save::saveWithoutPathOrFormatFailsInSilence()
{
    const auto document = document_of({red});
    document->lastError = u"earlier"_s;

    QVERIFY(!document->save({}, u"PNG"_s));
    QCOMPARE(document->lastError, QString());
    QVERIFY(!document->save(path(u"a.png"_s), {}));
    QCOMPARE(document->lastError, QString());

    QVERIFY(!QFile::exists(path(u"a.png"_s)));
}

void tst_ImageDocument_save::twoPagesFitIntoTiffOnly()
{
    const auto document = document_of({red, green});
    write_file(path(u"a.png"_s), "earlier");

    QVERIFY(!document->save(path(u"a.png"_s), u"PNG"_s));

    QCOMPARE(document->lastError, u"Multipage image doesn't supported with format <PNG>"_s);
    QCOMPARE(file_bytes(path(u"a.png"_s)), "earlier");
}

void tst_ImageDocument_save::twoPagesSavedAsTiffAreReadBack()
{
    QVERIFY(document_of({red, green})->save(path(u"a.tiff"_s), u"TIFF"_s));

    QCOMPARE(colors_of(ImageDocument(path(u"a.tiff"_s), u"TIFF"_s)), (QList<QRgb>{red, green}));
}

void tst_ImageDocument_save::failedSaveChangesNothing_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("error");

    QTest::newRow("png") << u"PNG"_s << u"Can not open file for write: \nNo such file or directory"_s;
    QTest::newRow("tiff") << u"TIFF"_s << u"Error saving TIFF image!"_s;
    QTest::newRow("unknown") << u"xyz"_s << u"Unsupported image format"_s;
}

void tst_ImageDocument_save::failedSaveChangesNothing()
{
    QFETCH(const QString, word);
    const auto document = document_of({red});
    document->fileInfo.setFile(u"/some/where/a.png"_s);
    document->imgFormat_ = u"BMP"_s;
    document->setModified(true);

    QVERIFY(!document->save(path(u"missing/a.png"_s), word));

    QTEST(document->lastError, "error");
    QCOMPARE(document->filePath(), u"/some/where/a.png"_s);
    QCOMPARE(document->imgFormat(), u"BMP"_s);
    QVERIFY(document->isModified());
}

void tst_ImageDocument_save::unknownFormatLeavesTheFileAlone()
{
    write_file(path(u"a.xyz"_s), "earlier");

    QVERIFY(!document_of({red})->save(path(u"a.xyz"_s), u"gif"_s)); // read, but never written

    QCOMPARE(file_bytes(path(u"a.xyz"_s)), "earlier");
}

void tst_ImageDocument_save::whatIsNoPlainFileIsRefusedWithWords_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<int>("pages");

    QTest::newRow("PNG") << u"PNG"_s << 1;
    QTest::newRow("TIFF") << u"TIFF"_s << 1;
    QTest::newRow("a copy") << u"ppm"_s << 0;
}

void tst_ImageDocument_save::whatIsNoPlainFileIsRefusedWithWords()
{
    QFETCH(const QString, word);
    QFETCH(const int, pages);
    const auto document = document_of(QList<QRgb>(pages, red));
    write_file(path(u"a.bin"_s), "source of the copy");
    document->fileInfo.setFile(path(u"a.bin"_s));
    QCOMPARE(::mkfifo(qPrintable(path(u"pipe"_s)), 0600), 0);
    const Descriptor reader(::open(qPrintable(path(u"pipe"_s)), O_RDONLY | O_NONBLOCK));
    QVERIFY(reader.isOpen()); // so that opening the other end would not be refused

    for (const QString &name : {path(u"pipe"_s), u"/dev/null"_s, u"/dev/full"_s}) {
        QVERIFY(!document->save(name, word));

        if (word == u"TIFF"_s) {
            QCOMPARE(document->lastError, u"Error saving TIFF image!"_s);
            QCOMPARE(document->lastErrorReason, u"This is no plain file."_s);
        } else {
            QCOMPARE(document->lastError, u"Can not open file for write: \nThis is no plain file."_s);
        }
    }
    pollfd state{.fd = reader.get(), .events = POLLIN, .revents = 0};
    QCOMPARE(::poll(&state, 1, 0), 0); // neither bytes nor an end
}

void tst_ImageDocument_save::pageThatItsWriterRefusesLeavesTheFileAlone()
{
    constexpr int LargestWebpSide = 16383;
    ImageDocument document({}, {});
    QVERIFY(document.addPage(solid_page({LargestWebpSide + 1, 1}, red)));
    write_file(path(u"a.webp"_s), "earlier");

    QVERIFY(!document.save(path(u"a.webp"_s), u"webp"_s));

    QVERIFY(!document.lastError.isEmpty());
    QCOMPARE(file_bytes(path(u"a.webp"_s)), "earlier");
    QCOMPARE(QDir(directory->path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"a.webp"_s});
}

void tst_ImageDocument_save::pagesOfMoreThan4GiBLeaveTheTiffFileAlone()
{
    const QImage page = solid_page({4000, 4000}, red); // 48 million bytes in the file, once in memory
    ImageDocument document({}, {});
    for (int i = 0; i < 90; ++i)
        QVERIFY(document.addPage(page));
    write_file(path(u"a.tif"_s), "earlier");

    QVERIFY(!document.save(path(u"a.tif"_s), u"TIFF"_s));

    QCOMPARE(document.lastError, u"Error saving TIFF image!"_s);
    QCOMPARE(document.lastErrorReason, u"A file of this format cannot be larger than 4 GiB."_s);
    QCOMPARE(file_bytes(path(u"a.tif"_s)), "earlier");
}

void tst_ImageDocument_save::pageOfAnOddDepthLeavesTheTiffFileAlone()
{
    ImageDocument document({}, {});
    QVERIFY(document.addPage(solid_page({4, 4}, red).convertToFormat(QImage::Format_RGB16)));
    write_file(path(u"a.tif"_s), "earlier");

    QVERIFY(!document.save(path(u"a.tif"_s), u"TIFF"_s));

    QCOMPARE(document.lastError, u"Error saving TIFF image!"_s);
    QCOMPARE(file_bytes(path(u"a.tif"_s)), "earlier");
}

void tst_ImageDocument_save::saveOfWhichOnlyAPartReachedTheDiskFails_data()
{
    QTest::addColumn<QString>("word");

    QTest::newRow("multi-page codec") << u"TIFF"_s;
    for (const QByteArray &word : QImageWriter::supportedImageFormats())
        QTest::newRow(word.constData()) << QString::fromLatin1(word);
}

void tst_ImageDocument_save::saveOfWhichOnlyAPartReachedTheDiskFails()
{
    QFETCH(const QString, word);
    const int side = word == u"ico" || word == u"cur" ? 256 : 512;
    ImageDocument document({}, {});
    QVERIFY(document.addPage(noise_page({side, side})));
    const FileSizeLimit limit(4096);
    const ToolkitLeaks leaks;

    QVERIFY(!document.save(path(u"a"_s), word));

    if (word == u"TIFF"_s) {
        QCOMPARE(document.lastError, u"Error saving TIFF image!"_s);
        QCOMPARE(document.lastErrorReason, u"File too large"_s);
    } else {
        QCOMPARE(document.lastError, u"File too large"_s);
        QCOMPARE(document.lastErrorReason, QString());
    }
    QVERIFY(document.isModified());
    QVERIFY(!document.hasFile());
    QVERIFY(!QFile::exists(path(u"a"_s)));
}

void tst_ImageDocument_save::lastErrorIsForgottenByTheNextSave()
{
    const auto document = document_of({red});
    QVERIFY(!document->save(path(u"a"_s), u"xyz"_s));
    QVERIFY(!document->lastError.isEmpty());

    QVERIFY(document->save(path(u"a"_s), u"PNG"_s));

    QCOMPARE(document->lastError, QString());
}

void tst_ImageDocument_save::documentWithoutPagesCopiesItsFile_data()
{
    QTest::addColumn<QString>("word");

    QTest::newRow("of no writer") << u"any word"_s;
    QTest::newRow("ppm") << u"ppm"_s;
    QTest::newRow("TIFF") << u"TIFF"_s;
    QTest::newRow("PNG") << u"PNG"_s;
}

void tst_ImageDocument_save::documentWithoutPagesCopiesItsFile()
{
    QFETCH(const QString, word);
    QByteArray bytes(200001, '\0');
    for (qsizetype i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i * 7 + i / 251);
    write_file(path(u"a.bin"_s), bytes);
    ImageDocument document({}, {});
    document.fileInfo.setFile(path(u"a.bin"_s));
    const QSignalSpy spy(&document, &ImageDocument::modifiedStateChanged);

    QVERIFY(document.save(path(u"Kopie ü.ppm"_s), word));

    QCOMPARE(file_bytes(path(u"Kopie ü.ppm"_s)), bytes);
    QCOMPARE(document.filePath(), path(u"a.bin"_s));
    QCOMPARE(document.imgFormat(), QString());
    QCOMPARE(spy.size(), 0);
    QVERIFY(!document.save(path(u"no word.ppm"_s), {}));
    QVERIFY(!QFile::exists(path(u"no word.ppm"_s)));
}

void tst_ImageDocument_save::copyOntoItselfKeepsTheFile()
{
    write_file(path(u"a.bin"_s), "precious");
    QCOMPARE(::link(qPrintable(path(u"a.bin"_s)), qPrintable(path(u"same.bin"_s))), 0);
    ImageDocument document({}, {});
    document.fileInfo.setFile(path(u"a.bin"_s));

    QVERIFY(document.save(path(u"a.bin"_s), u"ppm"_s));
    QVERIFY(document.save(path(u"same.bin"_s), u"ppm"_s));

    QCOMPARE(file_bytes(path(u"a.bin"_s)), "precious");
}

void tst_ImageDocument_save::copyToAPlaceThatCannotBeOpenedFailsWithWords()
{
    write_file(path(u"a.bin"_s), "bytes");
    ImageDocument document({}, {});
    document.fileInfo.setFile(path(u"a.bin"_s));

    QVERIFY(!document.save(path(u"missing/b.ppm"_s), u"ppm"_s));

    QCOMPARE(document.lastError, u"Can not open file for write: \nNo such file or directory"_s);
}

void tst_ImageDocument_save::copyThatDidNotArriveWholeFailsWithWords()
{
    write_file(path(u"a.bin"_s), QByteArray(20'000, 'a'));
    write_file(path(u"b.ppm"_s), "earlier");
    ImageDocument document({}, {});
    document.fileInfo.setFile(path(u"a.bin"_s));
    const FileSizeLimit limit(8192);

    QVERIFY(!document.save(path(u"b.ppm"_s), u"ppm"_s));
    QCOMPARE(document.lastError, u"File too large"_s);
    QVERIFY(!document.save(path(u"new.ppm"_s), u"ppm"_s));
    QCOMPARE(document.lastError, u"File too large"_s);

    QCOMPARE(file_bytes(path(u"b.ppm"_s)), "earlier");
    QVERIFY(!QFile::exists(path(u"new.ppm"_s)));
}

void tst_ImageDocument_save::copyOfAMissingFileFailsAndLeavesTheTargetAlone()
{
    write_file(path(u"b.ppm"_s), "earlier");
    ImageDocument document({}, {});
    document.fileInfo.setFile(path(u"missing.bin"_s));

    QVERIFY(!document.save(path(u"b.ppm"_s), u"ppm"_s));

    QCOMPARE(document.lastError, u"No such file or directory"_s);
    QCOMPARE(file_bytes(path(u"b.ppm"_s)), "earlier");
}

QTEST_GUILESS_MAIN(tst_ImageDocument_save)
#include "tst_ImageDocument_save.moc"
