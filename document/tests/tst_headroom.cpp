#include "headroom.h"

#include <QByteArray>
#include <QTest>

#include <cstdio>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// What the probe counts in a file of this content.
int counted(QByteArray meminfo, int mask)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE *)> stream(
        meminfo.isEmpty() ? std::fopen("/dev/null", "r")
                          : fmemopen(meminfo.data(), static_cast<size_t>(meminfo.size()), "r"),
        std::fclose);
    return count_free_space(stream.get(), mask);
}

QByteArray sample_meminfo()
{
    return "MemTotal:         500000 kB\n"
           "MemFree:          100000 kB\n"
           "Buffers:           30000 kB\n"
           "Cached:            40000 kB\n"
           "SwapCached:       999999 kB\n"
           "SwapTotal:        700000 kB\n"
           "SwapFree:          70000 kB\n";
}

} // namespace

class tst_headroom : public QObject
{
    Q_OBJECT

private slots:
    void totalIsTheSumOfTheMaskedLines_data()
    {
        QTest::addColumn<int>("mask");
        QTest::addColumn<int>("kilobytes");

        QTest::newRow("free memory") << 1 << 100000;
        QTest::newRow("free swap") << 2 << 70000;
        QTest::newRow("buffers: 12000 less 8192") << 4 << 3808;
        QTest::newRow("cache: 32000 less 24576") << 8 << 7424;
        QTest::newRow("memory and swap") << 3 << 170000;
        QTest::newRow("all") << 15 << 181232;
        QTest::newRow("nothing wanted") << 0 << -1;
        QTest::newRow("31 takes the greater of memory and swap") << 31 << 100000;
        QTest::newRow("30 is a plain mask of three lines") << 30 << 81232;
        QTest::newRow("higher bits beside 31 make it a plain mask") << 63 << 181232;
    }

    void totalIsTheSumOfTheMaskedLines()
    {
        QFETCH(const int, mask);
        QFETCH(const int, kilobytes);

        QCOMPARE(counted(sample_meminfo(), mask), kilobytes);
    }

    void workedExampleGivesItsLimit()
    {
        const QByteArray meminfo = "MemFree: 100000 kB\nBuffers: 30000 kB\nCached: 40000 kB\nSwapFree: 0 kB\n";

        const int kilobytes = counted(meminfo, 15);

        QCOMPARE(kilobytes, 111232);
        QCOMPARE(kbToBytes(kilobytes), 113901568);
        QCOMPARE(affordable_pixels(113901568), 6147276);
    }

    void linesAreCountedSo_data()
    {
        QTest::addColumn<QByteArray>("meminfo");
        QTest::addColumn<int>("kilobytes");

        // Buffers by four tenths less a reserve, the cache by eight tenths less another one.
        QTest::newRow("buffers of 20480: the reserve is reached") << "Buffers: 20480 kB\n"_ba << 0;
        QTest::newRow("buffers of 20482: truncated to the reserve") << "Buffers: 20482 kB\n"_ba << 0;
        QTest::newRow("buffers of 20483: one more") << "Buffers: 20483 kB\n"_ba << 1;
        QTest::newRow("no buffers") << "Buffers: 0 kB\n"_ba << 0;
        QTest::newRow("negative buffers") << "Buffers: -90000 kB\n"_ba << 0;
        QTest::newRow("cache of 30720: the reserve is reached") << "Cached: 30720 kB\n"_ba << 0;
        QTest::newRow("cache of 30721: truncated to the reserve") << "Cached: 30721 kB\n"_ba << 0;
        QTest::newRow("cache of 30722: one more") << "Cached: 30722 kB\n"_ba << 1;

        // Lines are told by their first characters.
        QTest::newRow("swap cache is no cache") << "SwapCached: 500 kB\nMemFree: 7 kB\n"_ba << 7;
        QTest::newRow("no unit") << "MemFree: 7\n"_ba << 7;
        QTest::newRow("no end of line") << "MemFree: 7"_ba << 7;
        QTest::newRow("tabs between") << "MemFree:\t\t7 kB\n"_ba << 7;
        QTest::newRow("longer word of the same beginning") << "MemFreeCma: 7 kB\n"_ba << 7;
        QTest::newRow("no colon") << "MemFree 7 kB\n"_ba << 7;
        QTest::newRow("number glued to the word") << "MemFree:7 kB\n"_ba << 0;
        QTest::newRow("word alone") << "MemFree:\n"_ba << 0;
        QTest::newRow("no number") << "MemFree: many kB\n"_ba << 0;
        QTest::newRow("indented line") << " MemFree: 7 kB\n"_ba << -1;
        QTest::newRow("lower case") << "memfree: 7 kB\n"_ba << -1;
        QTest::newRow("twice the same line") << "MemFree: 7 kB\nMemFree: 8 kB\n"_ba << 15;
        // The buffer takes 255 characters, and what follows is looked at like a line of its own.
        QTest::newRow("long line in pieces") << QByteArray(QByteArray(255, 'x') + "MemFree: 7 kB\n") << 7;

        // Huge numbers stop at the largest.
        QTest::newRow("three tebibytes") << "MemFree: 3221225472 kB\n"_ba << 2147483647;
        QTest::newRow("sum of two") << "MemFree: 2000000000 kB\nSwapFree: 2000000000 kB\n"_ba << 2147483647;
        QTest::newRow("too long to be read") << "MemFree: 99999999999999999999 kB\n"_ba << 2147483647;
        QTest::newRow("cache of a terabyte") << "Cached: 1000000000 kB\n"_ba << 799975424;
    }

    void linesAreCountedSo()
    {
        QFETCH(const QByteArray, meminfo);
        QFETCH(const int, kilobytes);

        QCOMPARE(counted(meminfo, 15), kilobytes);
    }

    void missingLinesAreUnknown()
    {
        QCOMPARE(counted("MemTotal: 500000 kB\nSwapTotal: 700000 kB\n", 15), -1);
        QCOMPARE(affordable_pixels(kbToBytes(-1)), 0);
    }

    void emptyFileHasNoRamAndNoSwap()
    {
        QCOMPARE(counted({}, 15), -1);
        QCOMPARE(counted({}, 31), 0);
    }

    void negativeTotalCountsAsNothing()
    {
        QCOMPARE(counted("MemFree: -50 kB\n", 15), -50);
        QCOMPARE(counted("MemFree: -50 kB\nSwapFree: 20 kB\n", 15), 20);
    }

    void kilobytesBecomeBytes_data()
    {
        QTest::addColumn<int>("kilobytes");
        QTest::addColumn<int>("bytes");

        QTest::newRow("none") << 0 << 0;
        QTest::newRow("one") << 1 << 1024;
        QTest::newRow("most that fit") << 2097151 << 2147482624;
        QTest::newRow("one more saturates") << 2097152 << 2147483647;
        QTest::newRow("unknown is shifted too") << -1 << -1024;
    }

    void kilobytesBecomeBytes()
    {
        QFETCH(const int, kilobytes);
        QFETCH(const int, bytes);

        QCOMPARE(kbToBytes(kilobytes), bytes);
    }

    void limitIsATenthLessAReserve_data()
    {
        QTest::addColumn<int>("bytes");
        QTest::addColumn<int>("pixels");

        QTest::newRow("reserve is reached") << 52428800 << 0;
        QTest::newRow("ten bytes more") << 52428810 << 1;
        QTest::newRow("less than the reserve") << 1024 << 0;
        QTest::newRow("failed probe") << -1024 << 0;
        QTest::newRow("saturated") << 2147483647 << 209505484;
        QTest::newRow("128 MiB") << 134217728 << 8178892;
        QTest::newRow("minus one, which no probe gives") << -1 << 8178892;
    }

    void limitIsATenthLessAReserve()
    {
        QFETCH(const int, bytes);
        QFETCH(const int, pixels);

        QCOMPARE(affordable_pixels(bytes), pixels);
    }

    void thisMachineHasHeadroom()
    {
        QVERIFY(get_free_space(CountMemFree) > 0);
        QVERIFY(free_ram() > 0);
        QVERIFY(free_swap() >= 0);
        QVERIFY(free_ram_or_swap() > 0);
        QCOMPARE(get_free_space(0), -1);
        // Memory comes and goes between two probes, but the limit keeps within its bounds.
        const int limit = free_ram_or_swap_limit();
        QVERIFY(limit >= 0);
        QVERIFY(limit <= 209505484);
    }
};

QTEST_APPLESS_MAIN(tst_headroom)
#include "tst_headroom.moc"
