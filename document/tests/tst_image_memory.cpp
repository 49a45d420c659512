#include "image_memory.h"

#include <QImageReader>
#include <QTest>

#include <limits>
#include <sstream>

namespace {

constexpr qint64 MiB = qint64{1024} * 1024;
constexpr qint64 GiB = 1024 * MiB;
constexpr qint64 Unlimited = std::numeric_limits<qint64>::max();

} // namespace

class tst_image_memory : public QObject
{
    Q_OBJECT

private slots:
    void availableBytesAreFreeMemoryAndFreeSwap_data();
    void availableBytesAreFreeMemoryAndFreeSwap();

    void shareLeavesRoomForTheProgramAndForConversions_data();
    void shareLeavesRoomForTheProgramAndForConversions();
    void largePageFitsInFourGibibytes();

    void readersAreLimited();
};

void tst_image_memory::availableBytesAreFreeMemoryAndFreeSwap_data()
{
    QTest::addColumn<QByteArray>("meminfo");
    QTest::addColumn<qint64>("bytes");

    QTest::newRow("memory and swap") << QByteArray("MemTotal:       8000 kB\nMemFree:         100 kB\n"
                                                   "MemAvailable:   2000 kB\nSwapTotal:      9000 kB\n"
                                                   "SwapFree:       1000 kB\nHugePages_Total:       0\n")
                                     << qint64{3000} * 1024;
    QTest::newRow("no swap") << QByteArray("MemAvailable: 2000 kB\n") << qint64{2000} * 1024;
    QTest::newRow("swap alone says nothing") << QByteArray("SwapFree: 2000 kB\n") << Unlimited;
    QTest::newRow("lines without a unit") << QByteArray("Odd: 7\nMemAvailable: 1 kB\n") << qint64{1024};
    QTest::newRow("more than can be counted")
        << QByteArray("MemAvailable: 9223372036854775807 kB\nSwapFree: 9223372036854775807 kB\n")
        << qint64{9223372036854773760}; // twice (2^63 - 1) / 2048, cut, kibibytes
    QTest::newRow("nothing") << QByteArray() << Unlimited;
    QTest::newRow("garbage") << QByteArray("\xff\xff not a number") << Unlimited;
}

void tst_image_memory::availableBytesAreFreeMemoryAndFreeSwap()
{
    QFETCH(const QByteArray, meminfo);
    std::istringstream stream(meminfo.toStdString());

    QTEST(count_available_bytes(stream), "bytes");
}

void tst_image_memory::shareLeavesRoomForTheProgramAndForConversions_data()
{
    QTest::addColumn<qint64>("available");
    QTest::addColumn<qint64>("share");

    QTest::newRow("two thirds behind 64 MiB") << 364 * MiB << 200 * MiB;
    QTest::newRow("next to nothing is never 0, which would mean no limit") << 65 * MiB << MiB;
    QTest::newRow("less than nothing") << -GiB << MiB;
}

void tst_image_memory::shareLeavesRoomForTheProgramAndForConversions()
{
    QFETCH(const qint64, available);

    QTEST(image_share(available), "share");
}

void tst_image_memory::largePageFitsInFourGibibytes()
{
    constexpr qint64 largestPage = qint64{14032} * 19843 * 4; // A3 at 1200 dpi in colour

    QVERIFY(image_share(4 * GiB) > largestPage);
}

void tst_image_memory::readersAreLimited()
{
    QImageReader::setAllocationLimit(0);

    limit_image_readers();

    QVERIFY(QImageReader::allocationLimit() > 0);
    QVERIFY(QImageReader::allocationLimit() <= affordable_image_bytes() / MiB + 1024);
}

QTEST_APPLESS_MAIN(tst_image_memory)
#include "tst_image_memory.moc"
