// TIFF files that cannot be taken over safely: they are refused, soon and without taking memory.

#include "image_files.h"
#include "plain_tiffs.h"
#include "tiff_join.h"
#include "tiff_pages.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 SlackBytes = 40'000'000;
constexpr qint64 LongTimeMs = 5000;

QByteArray directory_of(const QList<QByteArray> &entries, qint64 next = 0)
{
    return little16(static_cast<int>(entries.size())) + entries.join() + little32(next);
}

QByteArray header(qint64 first = 8)
{
    return "II\x2a\0"_ba + little32(first);
}

enum Answer { NoChain, Refused, Taken };

/// What becomes of a file all of whose directories are to be copied.
Answer answer_to(const QString &path)
{
    QFile file(path);
    QFile copy(path + ".copy"_L1);
    if (!file.open(QIODevice::ReadOnly) || !copy.open(QIODevice::ReadWrite | QIODevice::Truncate))
        qFatal("cannot open %s", qPrintable(path));
    const TiffStructure structure(file.handle());
    const TiffChain chain = tiff_chain(structure);
    if (!chain.isWhole)
        return NoChain;
    TiffJoin join(structure.kind());
    return join.add(file.handle(), 0, chain.positions.size()) && join.write(copy) ? Taken : Refused;
}

} // namespace

class tst_tiff_join_hostile : public QObject
{
    Q_OBJECT

private slots:
    void init() { QVERIFY(directory.isValid()); }

    void unsafeFilesAreRefused_data();
    void unsafeFilesAreRefused();
    void fileThatBecomesShorterMeanwhileIsRefused();
    void sharedDataIsCopiedOnce();
    void arraySharedByManyDirectoriesIsRefused();
    void mutatedFilesAreRefusedOrCopiedInBoundedTimeAndMemory_data();
    void mutatedFilesAreRefusedOrCopiedInBoundedTimeAndMemory();

private:
    QTemporaryDir directory;
};

void tst_tiff_join_hostile::unsafeFilesAreRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("answer");
    const QByteArray width = entry(256, 3, 1);
    constexpr qint64 OneEntry = 2 + 12 + 4;
    constexpr qint64 FourGiB = 0xffffffff;

    QTest::newRow("empty") << QByteArray() << int{NoChain};
    QTest::newRow("header alone") << header() << int{NoChain};
    QTest::newRow("no directory") << header(0) + QByteArray(100, '\0') << int{NoChain};
    QTest::newRow("directory in the header") << header(2) + directory_of({width}) << int{NoChain};
    QTest::newRow("directory behind the end") << header(FourGiB) + directory_of({width}) << int{NoChain};
    QTest::newRow("directory without entries") << header() + directory_of({}) << int{NoChain};
    QTest::newRow("directory of itself") << header() + directory_of({width}, 8) << int{NoChain};
    QTest::newRow("loop of two") << header() + directory_of({width}, 8 + OneEntry) + directory_of({width}, 8)
                                 << int{NoChain};
    QTest::newRow("next one behind the end") << header() + directory_of({width}, 5000) << int{NoChain};
    QTest::newRow("more entries than bytes") << header() + little16(65535) + width + little32(0) << int{NoChain};
    QTest::newRow("value behind the end") << header() + directory_of({entry(270, 2, 5000, 100)}) << int{Refused};
    QTest::newRow("value of 4 GiB") << header() + directory_of({entry(270, 2, 8, FourGiB)}) << int{Refused};
    QTest::newRow("value of 32 GiB") << header() + directory_of({entry(65000, 12, 8, FourGiB)}) << int{Refused};
    QTest::newRow("strip behind the end")
        << header() + directory_of({entry(273, 4, 5000), entry(279, 4, 5)}) << int{Refused};
    QTest::newRow("strip of 4 GiB") << header() + directory_of({entry(273, 4, 8), entry(279, 4, FourGiB)})
                                    << int{Refused};
    QTest::newRow("fewer lengths than strips")
        << header() + directory_of({entry(273, 3, 0x00090008, 2), entry(279, 4, 1)}) << int{Refused};
    QTest::newRow("4 GiB strips") << header() + directory_of({entry(273, 4, 8, FourGiB), entry(279, 4, 8, FourGiB)})
                                  << int{Refused};
    QTest::newRow("directory below is the page itself") << header() + directory_of({entry(330, 4, 8)}) << int{Refused};
    QTest::newRow("directories below in a circle")
        << header() + directory_of({entry(330, 4, 8 + OneEntry)}) + directory_of({entry(330, 4, 8 + OneEntry)})
        << int{Refused};
    QTest::newRow("chain below in a circle")
        << header() + directory_of({entry(330, 4, 8 + OneEntry)}) + directory_of({width}, 8 + OneEntry) << int{Refused};
    QTest::newRow("directory below behind the end") << header() + directory_of({entry(34665, 4, 5000)}) << int{Refused};
    QTest::newRow("4 GiB directories below") << header() + directory_of({entry(330, 4, 8, FourGiB)}) << int{Refused};
    QTest::newRow("table behind the end") << header() + directory_of({entry(519, 4, 20)}) << int{Refused};
    QByteArray nested = header();
    for (qint64 i = 1; i <= 100; ++i)
        nested += directory_of({entry(330, 4, 8 + i * OneEntry)});
    QTest::newRow("a hundred below each other") << nested + directory_of({width}) << int{Refused};
    // What is harmless is taken.
    QTest::newRow("strip that is not stored")
        << header() + directory_of({entry(273, 4, 0), entry(279, 4, 0)}) << int{Taken};
    QTest::newRow("type that nobody knows") << header() + directory_of({entry(65000, 99, 5000, FourGiB)}) << int{Taken};
    QTest::newRow("the same tag twice") << header() + directory_of({width, width}) << int{Taken};
    QTest::newRow("tags in no order") << header() + directory_of({entry(65000, 3, 1), width}) << int{Taken};
}

void tst_tiff_join_hostile::unsafeFilesAreRefused()
{
    QFETCH(const QByteArray, bytes);
    write_file(directory.filePath(u"a.tif"_s), bytes);
    restart_peak_memory();
    const qint64 before = peak_memory_bytes();
    QElapsedTimer time;
    time.start();

    QTEST(int{answer_to(directory.filePath(u"a.tif"_s))}, "answer");

    QVERIFY(time.elapsed() < LongTimeMs * MeasureAllowance);
    QVERIFY(peak_memory_bytes() - before < SlackBytes * MeasureAllowance);
}

void tst_tiff_join_hostile::fileThatBecomesShorterMeanwhileIsRefused()
{
    write_file(directory.filePath(u"a.tif"_s),
               tiff_of(QByteArray(100'000, 'x'), {entry(256, 3, 1), entry(273, 4, 8), entry(279, 4, 100'000)}));
    const Opened file(directory.filePath(u"a.tif"_s));
    QFile copy(directory.filePath(u"copy.tif"_s));
    QVERIFY(copy.open(QIODevice::ReadWrite));
    TiffJoin join({});
    QVERIFY(join.add(file.handle(), 0, 1));

    QVERIFY(QFile::resize(directory.filePath(u"a.tif"_s), 1000));

    QVERIFY(!join.write(copy));
}

void tst_tiff_join_hostile::sharedDataIsCopiedOnce()
{
    // A thousand pages, all with the same strip of 100,000 bytes.
    constexpr qint64 StripBytes = 100'000;
    constexpr int Pages = 1000;
    QByteArray bytes = header(8 + StripBytes) + QByteArray(StripBytes, 's');
    for (int i = 1; i <= Pages; ++i) {
        const qint64 next = i < Pages ? 8 + StripBytes + qint64{i} * (2 + 2 * 12 + 4) : 0;
        bytes += directory_of({entry(273, 4, 8), entry(279, 4, StripBytes)}, next);
    }
    write_file(directory.filePath(u"a.tif"_s), bytes);

    QCOMPARE(answer_to(directory.filePath(u"a.tif"_s)), Taken);

    QCOMPARE(QFile(directory.filePath(u"a.tif.copy"_s)).size(), bytes.size());
    QCOMPARE(told_pages(directory.filePath(u"a.tif.copy"_s)), told_pages(directory.filePath(u"a.tif"_s)));
}

void tst_tiff_join_hostile::arraySharedByManyDirectoriesIsRefused()
{
    // Two megabytes of places, which each of a thousand directories takes for its own: 2 GB if they were copied.
    constexpr qint64 Places = 500'000;
    constexpr int Pages = 1000;
    const QByteArray places(4 * Places, '\1');
    QByteArray bytes = header(8 + places.size()) + places;
    for (int i = 1; i <= Pages; ++i) {
        const qint64 next = i < Pages ? 8 + places.size() + qint64{i} * (2 + 12 + 4) : 0;
        bytes += directory_of({entry(65000, 4, 8, Places)}, next);
    }
    write_file(directory.filePath(u"a.tif"_s), bytes);

    QCOMPARE(answer_to(directory.filePath(u"a.tif"_s)), Refused);
}

void tst_tiff_join_hostile::mutatedFilesAreRefusedOrCopiedInBoundedTimeAndMemory_data()
{
    QTest::addColumn<QString>("kind");
    for (const QString &kind : {u"directories below"_s, u"BigTIFF, big-endian"_s, u"tiled"_s, u"colour JPEG"_s})
        QTest::newRow(qPrintable(kind)) << kind;
}

void tst_tiff_join_hostile::mutatedFilesAreRefusedOrCopiedInBoundedTimeAndMemory()
{
    QFETCH(const QString, kind);
    constexpr quint32 Seed = 20261121;
    constexpr int Files = 400;
    make_tiff(kind, directory.filePath(u"good.tif"_s));
    const QByteArray good = file_bytes(directory.filePath(u"good.tif"_s));
    QRandomGenerator random(Seed);
    restart_peak_memory();
    const qint64 before = peak_memory_bytes();
    QElapsedTimer time;
    time.start();

    int refused = 0;
    for (int i = 0; i < Files; ++i) {
        QByteArray bytes = good;
        for (int changes = 0; changes < 12; ++changes)
            bytes[random.bounded(bytes.size())] = static_cast<char>(random.bounded(256));
        write_file(directory.filePath(u"a.tif"_s), bytes);
        refused += answer_to(directory.filePath(u"a.tif"_s)) == Taken ? 0 : 1;
        const qint64 copied = QFile(directory.filePath(u"a.tif.copy"_s)).size();
        QVERIFY2(copied < 4 * good.size() + 2'000'000, qPrintable(u"file %1: %2"_s.arg(i).arg(copied)));
    }

    QVERIFY(refused > 0);
    QVERIFY(time.elapsed() < LongTimeMs * MeasureAllowance);
    QVERIFY(peak_memory_bytes() - before < SlackBytes * MeasureAllowance);
}

QTEST_GUILESS_MAIN(tst_tiff_join_hostile)
#include "tst_tiff_join_hostile.moc"
