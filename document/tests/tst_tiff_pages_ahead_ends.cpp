#include "ReadByTwo.h"

#include <QFile>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int OrdinaryEnd = 3;

/// Ends a child when all that was made after this is taken down, otherwise than it meant to if threads are left. What
/// the toolkit has left behind in the parent's other threads is not asked for.
struct EndWatch
{
    EndWatch() = default;
    ~EndWatch()
    {
        if (isAwake)
            std::_Exit(live_threads().size() > 1 ? EXIT_FAILURE : OrdinaryEnd);
    }
    Q_DISABLE_COPY_MOVE(EndWatch)

    bool isAwake = false;
};
EndWatch end_watch;

qint64 peak_bytes()
{
    for (const QByteArray &line : file_bytes(u"/proc/self/status"_s).split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toLongLong() * 1024;
    }
    return 0;
}

} // namespace

/// What keeps pages from being decoded ahead, changes a file meanwhile, and ends a load.
class tst_tiff_pages_ahead_ends : public QObject, private ReadByTwo
{
    Q_OBJECT

private slots:
    void init() { begin(); }
    void cleanup() { end(); }

    void littleMemoryLeavesAllToOneThread();
    void aFileReplacedMeanwhileIsReadToItsEnd();
    void aChangeBetweenTwoPagesEndsTheLoad();
    void largePagesWaitOneAtATime_data();
    void largePagesWaitOneAtATime();
    void aLoadWithinALoadGoesItsOwnWay();
    void anEndDuringTheLoadIsAnOrdinaryEnd();
};

void tst_tiff_pages_ahead_ends::littleMemoryLeavesAllToOneThread()
{
    write_tiff(path(), pages_of(4, 8, COMPRESSION_LZW));
    const auto ownPages = file_bytes(u"/proc/self/statm"_s).split(' ').first().toULongLong();
    rlimit former{};
    QCOMPARE(::getrlimit(RLIMIT_AS, &former), 0);
    rlimit limit = former;
    limit.rlim_cur = ownPages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE)) + (rlim_t{700} << 20);
    QCOMPARE(::setrlimit(RLIMIT_AS, &limit), 0);

    const int ahead = count_ahead(path());

    QCOMPARE(::setrlimit(RLIMIT_AS, &former), 0);
    QCOMPARE(ahead, 0);
}

void tst_tiff_pages_ahead_ends::aFileReplacedMeanwhileIsReadToItsEnd()
{
    write_tiff(path(), pages_of(5, 32, COMPRESSION_LZW));
    const Loaded expected = load_plainly(path());
    write_tiff(path(u"other"_s), pages_of(5, 8, COMPRESSION_LZW));
    const TiffHandle tif = open_tiff(path(), "rm");

    QCOMPARE(std::rename(QFile::encodeName(path(u"other"_s)).constData(), QFile::encodeName(path()).constData()), 0);
    TiffPagesAhead reader(tif.get());
    for (const QImage &page : expected.pages) {
        QImage image;
        QVERIFY(reader.readPage(image));
        QCOMPARE(image, page);
        (void)TIFFReadDirectory(tif.get());
    }

    QCOMPARE(reader.countTaken(), 2);
}

void tst_tiff_pages_ahead_ends::aChangeBetweenTwoPagesEndsTheLoad()
{
    for (uint last = 1; last < 6; ++last) {
        write_tiff(path(), pages_of(6, 8, COMPRESSION_LZW));
        const Loaded whole = load_plainly(path());
        ImageDocument document({}, {});
        connect(&document, &ImageDocument::modifiedStateChanged, this, [&] {
            QFile file(path());
            if (document.pageCount() == last)
                QVERIFY(file.open(QIODevice::Append) && file.write("more") == 4); // all pages are still there
        });

        QVERIFY(!document.load(path(), u"TIFF"_s));

        QCOMPARE(document.pageCount(), last);
        for (uint pi = 1; pi <= last; ++pi)
            QCOMPARE(document.page(pi), whole.pages.at(pi - 1));
    }
}

void tst_tiff_pages_ahead_ends::largePagesWaitOneAtATime_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<int>("pagesWaiting");
    QTest::newRow("the largest that are decoded ahead") << 17880 << 1;
    QTest::newRow("a little larger") << 17896 << 0;
}

void tst_tiff_pages_ahead_ends::largePagesWaitOneAtATime()
{
    QFETCH(const int, side);
    QFETCH(const int, pagesWaiting);
    const qint64 pageBytes = qint64{side} * side / 8;
    QCOMPARE(pageBytes <= TiffPagesAhead::LargestPageAhead, pagesWaiting == 1);
    TiffPage blank{.width = side, .height = side, .bits = 1, .compression = COMPRESSION_CCITTFAX4};
    blank.rows = QByteArray(pageBytes, '\0');
    QList<TiffPage> pages(7, blank);
    pages.first() = bilevel_tiff_page(patterned_page({9, 9}, 1));
    write_tiff(path(), pages);
    const TiffHandle tif = open_tiff(path(), "rm");
    write_file(u"/proc/self/clear_refs"_s, "5"); // the peak from now on
    const qint64 before = peak_bytes();

    TiffPagesAhead reader(tif.get());
    QImage first;
    QVERIFY(reader.readPage(first));
    QTRY_VERIFY(std::ranges::all_of(newThreads(), is_at_rest));

    const qint64 bytes = peak_bytes() - before;
    QVERIFY2(2 * bytes < (2 * pagesWaiting + 1) * pageBytes, qPrintable(QString::number(bytes)));
}

void tst_tiff_pages_ahead_ends::aLoadWithinALoadGoesItsOwnWay()
{
    write_tiff(path(), pages_of(6, 8, COMPRESSION_LZW));
    const Loaded expected = load_plainly(path());
    ImageDocument document({}, {});
    int innerPages = 0;
    connect(&document, &ImageDocument::modifiedStateChanged, this,
            [&] { innerPages += static_cast<int>(ImageDocument(path(), u"TIFF"_s).pageCount()); });

    QVERIFY(document.load(path(), u"TIFF"_s));

    QCOMPARE(document.pageCount(), 6U);
    QCOMPARE(document.page(6), expected.pages.last());
    QCOMPARE(innerPages, 6 * 7); // as often as a page comes, and at the end
}

void tst_tiff_pages_ahead_ends::anEndDuringTheLoadIsAnOrdinaryEnd()
{
    write_tiff(path(), pages_of(9, 32, COMPRESSION_LZW, {900, 700}));
    for (int round = 0; round < 30; ++round) {
        const pid_t child = ::fork();
        if (child == 0) {
            end_watch.isAwake = true;
            ImageDocument document({}, {});
            connect(&document, &ImageDocument::modifiedStateChanged, &document, [&] {
                (void)ImageDocument(path(), u"TIFF"_s); // must not make the outer load forgotten
                if (document.pageCount() > static_cast<uint>(round % 6))
                    std::exit(EXIT_SUCCESS); // leaves the load standing
            });
            (void)document.load(path(), u"TIFF"_s);
            std::_Exit(0);
        }
        int ended = 0;
        QCOMPARE(::waitpid(child, &ended, 0), child);
        QVERIFY(WIFEXITED(ended));
        QCOMPARE(WEXITSTATUS(ended), OrdinaryEnd);
    }
}

QTEST_GUILESS_MAIN(tst_tiff_pages_ahead_ends)
#include "tst_tiff_pages_ahead_ends.moc"
