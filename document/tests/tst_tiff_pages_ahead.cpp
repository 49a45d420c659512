#include "odd_files.h"
#include "ReadByTwo.h"

#include <array>
#include <random>

using namespace Qt::StringLiterals;

namespace {

struct Kind
{
    const char *name;
    int depth;
    int compression;
};
constexpr std::array<Kind, 12> Kinds{{{"bits", 1, COMPRESSION_NONE},
                                      {"group 3", 1, COMPRESSION_CCITTFAX3},
                                      {"group 4", 1, COMPRESSION_CCITTFAX4},
                                      {"huffman", 1, COMPRESSION_CCITTRLE},
                                      {"bits by lzw", 1, COMPRESSION_LZW},
                                      {"greys", 8, COMPRESSION_NONE},
                                      {"greys packed", 8, COMPRESSION_PACKBITS},
                                      {"greys by lzw", 8, COMPRESSION_LZW},
                                      {"colours", 32, COMPRESSION_NONE},
                                      {"colours by lzw", 32, COMPRESSION_LZW},
                                      {"colours deflated", 32, COMPRESSION_ADOBE_DEFLATE},
                                      {"colours by jpeg", 32, COMPRESSION_JPEG}}};

void add_kinds()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<int>("compression");
    for (const Kind &kind : Kinds)
        QTest::newRow(kind.name) << kind.depth << kind.compression;
}

} // namespace

/// The pages of a file come out as by one thread, one after the other, and whatever is told of them is told once.
class tst_tiff_pages_ahead : public QObject, private ReadByTwo
{
    Q_OBJECT

private slots:
    void init() { begin(); }
    void cleanup() { end(); }

    void everySecondPageIsDecodedAhead_data() { add_kinds(); }
    void everySecondPageIsDecodedAhead();
    void aFileOfOnePageNeedsNoThread();
    void pagesBehindALargeOneAreReadInTurn();
    void cutFilesAreReadAsByOneThread_data() { add_kinds(); }
    void cutFilesAreReadAsByOneThread();
    void damagedFilesAreReadAsByOneThread_data() { add_kinds(); }
    void damagedFilesAreReadAsByOneThread();
    void oddFilesAreReadAsByOneThread_data();
    void oddFilesAreReadAsByOneThread();
    void unknownTagsAreToldOncePerPage();
};

void tst_tiff_pages_ahead::everySecondPageIsDecodedAhead()
{
    QFETCH(const int, depth);
    QFETCH(const int, compression);
    for (const char *mode : {"wl", "wb", "w8"}) {
        for (const int count : {2, 3, 7}) {
            write_tiff(path(), pages_of(count, depth, compression), mode);

            const Loaded loaded = load(path());

            QCOMPARE(loaded.pages.size(), count);
            QCOMPARE(differences(loaded, load_plainly(path())), QString());
            QCOMPARE(count_ahead(path()), count / 2);
        }
    }
}

void tst_tiff_pages_ahead::aFileOfOnePageNeedsNoThread()
{
    write_tiff(path(), pages_of(1, 32, COMPRESSION_NONE));
    const TiffHandle tif = open_tiff(path(), "rm");

    const TiffPagesAhead reader(tif.get());

    QCOMPARE(newThreads(), QStringList());
}

void tst_tiff_pages_ahead::pagesBehindALargeOneAreReadInTurn()
{
    for (const int large : {2, 3}) { // one that the thread meets, one that it leaves out
        QList<TiffPage> pages = pages_of(6, 1, COMPRESSION_CCITTFAX4);
        TiffPage blank{.width = 20000, .height = 16001, .bits = 1, .compression = COMPRESSION_CCITTFAX4};
        blank.rows = QByteArray(qsizetype{2500} * 16001, '\0');
        QVERIFY(blank.rows.size() > TiffPagesAhead::LargestPageAhead);
        pages[large] = blank;
        write_tiff(path(), pages);

        QCOMPARE(differences(load(path()), load_plainly(path())), QString());
        QVERIFY2(count_ahead(path()) <= large, qPrintable(QString::number(count_ahead(path()))));
    }
}

void tst_tiff_pages_ahead::cutFilesAreReadAsByOneThread()
{
    QFETCH(const int, depth);
    QFETCH(const int, compression);
    write_tiff(path(), pages_of(5, depth, compression));
    const QByteArray bytes = file_bytes(path());
    for (qsizetype count = 0; count < bytes.size(); count += 1 + bytes.size() / 25) {
        write_file(path(), bytes.first(count));
        QCOMPARE(differences(load(path()), load_plainly(path())), QString());
    }
}

void tst_tiff_pages_ahead::damagedFilesAreReadAsByOneThread()
{
    QFETCH(const int, depth);
    QFETCH(const int, compression);
    write_tiff(path(), pages_of(5, depth, compression));
    const QByteArray bytes = file_bytes(path());
    std::minstd_rand random(7); // the same damage every time
    int lineCount = 0;
    for (int round = 0; round < 40; ++round) {
        QByteArray damaged = bytes;
        for (int i = 0; i < 3; ++i)
            damaged[static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size()))] =
                static_cast<char>(random());
        write_file(path(), damaged);
        const Loaded expected = load_plainly(path());
        lineCount += static_cast<int>(expected.lines.size());
        QCOMPARE(differences(load(path()), expected), QString());
    }
    QVERIFY(lineCount > 0);
}

void tst_tiff_pages_ahead::oddFilesAreReadAsByOneThread_data()
{
    QTest::addColumn<QByteArray>("bytes");
    for (const OddFile &file : odd_files())
        QTest::newRow(file.name) << file.bytes;
}

void tst_tiff_pages_ahead::oddFilesAreReadAsByOneThread()
{
    QFETCH(const QByteArray, bytes);
    write_file(path(), bytes);

    QCOMPARE(differences(load(path()), load_plainly(path())), QString());
}

void tst_tiff_pages_ahead::unknownTagsAreToldOncePerPage()
{
    // Scanners write tags of their own. Words about them keep nobody from decoding ahead.
    QList<TiffPage> pages = pages_of(4, 8, COMPRESSION_LZW);
    for (TiffPage &page : pages)
        page.fillOrder = FILLORDER_MSB2LSB; // as it is without
    write_tiff(path(), pages);
    const auto tag = [](int number) { return little16(number) + little16(TIFF_SHORT) + little32(1); };
    QByteArray bytes = file_bytes(path());
    QCOMPARE(bytes.count(tag(TIFFTAG_FILLORDER)), 4);
    write_file(path(), bytes.replace(tag(TIFFTAG_FILLORDER), tag(50000)));
    const Loaded expected = load_plainly(path());
    QVERIFY(expected.lines.size() >= 4);

    QCOMPARE(differences(load(path()), expected), QString());
    QCOMPARE(count_ahead(path()), 2);
}

QTEST_GUILESS_MAIN(tst_tiff_pages_ahead)
#include "tst_tiff_pages_ahead.moc"
