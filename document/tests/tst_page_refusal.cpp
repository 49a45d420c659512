#include "image_files.h"
#include "ImageDocument.h"
#include "page_refusal.h"
#include "pictures.h"

#include <QBuffer>
#include <QImageReader>
#include <QTemporaryDir>
#include <QTest>

#include <sys/mman.h>

using namespace Qt::StringLiterals;

namespace {

/// Whether the toolkit gives a page back at its size.
bool comes_back_at_its_size(QSize size, const char *word)
{
    QByteArray bytes = encoded(solid_page(size, 0xff336699), word);
    QBuffer buffer(&bytes);
    return QImageReader(&buffer, word).read().size() == size;
}

bool can_be_written_by_the_toolkit(const QImage &page, const char *word)
{
    QBuffer buffer;
    return buffer.open(QIODevice::WriteOnly) && page.save(&buffer, word);
}

/// Keywords that end with their number, so that none is met twice.
QString keyword_with(const QString &text, int number)
{
    return text + QString::number(number);
}

} // namespace

class tst_page_refusal : public QObject
{
    Q_OBJECT

private slots:
    void iconsAreRefusedExactlyWhereTheyWouldShrink_data()
    {
        QTest::addColumn<QByteArray>("word");

        for (const char *const word : {"ico", "ICO", "cur", "icns", "ICNS"})
            QTest::newRow(word) << QByteArray(word);
    }

    void iconsAreRefusedExactlyWhereTheyWouldShrink()
    {
        QFETCH(const QByteArray, word);
        QList<QSize> sizes{{32, 16}, {16, 32}, {256, 1}, {1, 256}, {257, 1}, {1, 257}, {300, 400}, {1024, 512}};
        for (const int side : {1, 2, 7, 15, 16, 17, 31, 32, 33, 48, 64, 100, 128, 255, 256, 257, 512, 513, 1024, 1025})
            sizes.append({side, side});

        for (const QSize size : std::as_const(sizes)) {
            const QString refusal = page_refusal(solid_page(size, 0xff336699), QString::fromLatin1(word));

            QCOMPARE(refusal.isEmpty(), comes_back_at_its_size(size, word.constData()));
        }
    }

    void aPageTooLargeForAnIconIsRefusedWithWordsAndTheFileStays()
    {
        const QTemporaryDir directory;
        const QString path = directory.filePath(u"a.ico"_s);
        write_file(path, "earlier");
        ImageDocument document({}, {});
        QVERIFY(document.addPage(patterned_page({300, 200})));

        QVERIFY(!document.save(path, u"ico"_s));

        QCOMPARE(document.lastError, u"An image of 300 x 200 pixels cannot be saved in format <ico> at its size."_s);
        QCOMPARE(file_bytes(path), "earlier");
    }

    void aBmpFileOfMoreThan2GiBIsRefused_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::addColumn<int>("height");
        QTest::addColumn<bool>("refused");

        // 80,000 bytes a row in the file
        QTest::newRow("24 bits, one row too many") << QImage::Format_RGB32 << 26'844 << true;
        QTest::newRow("24 bits, fits") << QImage::Format_RGB32 << 26'843 << false;
        QTest::newRow("8 bits") << QImage::Format_Indexed8 << 30'000 << false;
    }

    void aBmpFileOfMoreThan2GiBIsRefused()
    {
        QFETCH(const QImage::Format, format);
        QFETCH(const int, height);
        QFETCH(const bool, refused);
        constexpr int Width = 26'666; // 79,998 bytes of 24-bit pixels and two to make it a multiple of four
        // A picture on memory that is never touched.
        constexpr std::size_t Bytes = std::size_t{4} * 1024 * 1024 * 1024;
        void *const memory = ::mmap(nullptr, Bytes, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        QVERIFY(memory != MAP_FAILED);
        {
            const QImage page(static_cast<const uchar *>(memory), Width, height, format);
            QVERIFY(!page.isNull());

            QCOMPARE(page_refusal(page, u"BMP"_s),
                     refused ? u"A file of this format cannot be larger than 2 GiB."_s : QString());
            QCOMPARE(page_refusal(page, u"png"_s), QString());
        }
        ::munmap(memory, Bytes);
    }

    void aPngIsWrittenWithoutTheKeywordsThatItsLibraryRefuses_data()
    {
        QTest::addColumn<QString>("keyword");

        for (int code = 1; code <= 0x20; ++code)
            QTest::addRow("0x%02x", code) << QString(QChar(code));
        for (int code = 0x7f; code <= 0xa0; ++code)
            QTest::addRow("0x%02x", code) << QString(QChar(code));
        QTest::newRow("several of them") << u" \t\u0094\u007f"_s;
        QTest::newRow("letters behind a zero") << QString::fromLatin1("\0abc", 4);
        QTest::newRow("letters behind the last that counts") << QString(79, u' ') + u"abc"_s;
    }

    void aPngIsWrittenWithoutTheKeywordsThatItsLibraryRefuses()
    {
        QFETCH(const QString, keyword);
        const QTemporaryDir directory;
        const QString path = directory.filePath(u"a.png"_s);
        QImage page = patterned_page({9, 5}, 8);
        page.setDotsPerMeterX(11811);
        page.setText(u"Title"_s, u"scan"_s);
        page.setText(keyword, u"text"_s);
        QVERIFY(!can_be_written_by_the_toolkit(page, "PNG"));
        ImageDocument document({}, {});
        QVERIFY(document.addPage(page));

        QVERIFY2(document.save(path, u"PNG"_s), qPrintable(document.lastError));

        const QImage readBack(path);
        QVERIFY(compare_pictures(readBack, page));
        QCOMPARE(readBack.textKeys(), QStringList{u"Title"_s});
        QCOMPARE(readBack.text(u"Title"_s), u"scan"_s);
        QCOMPARE(readBack.dotsPerMeterX(), 11811);
        QCOMPARE(document.page(1).text(keyword), u"text"_s); // the document's own page keeps it
    }

    void otherKeywordsAreWritten()
    {
        QStringList texts{u" blank first"_s, u"ü"_s, u"\u00a1"_s, u"\u20ac"_s};
        for (int code = 0x21; code < 0x7f; ++code)
            texts.append(QString(QChar(code)));
        for (int code = 0xa1; code <= 0xff; ++code)
            texts.append(QString(QChar(code)));
        QImage page = patterned_page({9, 5});
        for (int i = 0; i < texts.size(); ++i)
            page.setText(keyword_with(texts.at(i), i), u"text"_s);

        QCOMPARE(without_bad_texts(page, u"png"_s).textKeys(), page.textKeys());
    }

    void otherFormatsKeepTheirTexts()
    {
        QImage page = patterned_page({9, 5});
        page.setText(u" "_s, u"text"_s);

        QCOMPARE(without_bad_texts(page, u"tif"_s).textKeys(), QStringList{u" "_s});
        QCOMPARE(without_bad_texts(page, u"PNG"_s).textKeys(), QStringList());
    }
};

QTEST_GUILESS_MAIN(tst_page_refusal)
#include "tst_page_refusal.moc"
