#include "png_rows.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <vector>

namespace {

using Bytes = std::vector<uchar>;

Bytes random_bytes(QRandomGenerator &random, qsizetype count)
{
    Bytes bytes(static_cast<std::size_t>(count + PngRowSlack));
    // Few values make many ties.
    const int values = random.bounded(2) == 0 ? 256 : 3;
    std::ranges::generate(bytes, [&] { return static_cast<uchar>(random.bounded(values)); });
    return bytes;
}

} // namespace

class tst_png_rows : public QObject
{
    Q_OBJECT

private slots:
    void filtersAreUndoneAsByThePlainLoop_data()
    {
        QTest::addColumn<int>("pixelBytes");
        QTest::newRow("a byte") << 1;
        QTest::newRow("three bytes") << 3;
        QTest::newRow("four bytes") << 4;
    }

    void filtersAreUndoneAsByThePlainLoop()
    {
        QFETCH(const int, pixelBytes);
        QRandomGenerator random(7);
        for (int pixels = 1; pixels <= 100; ++pixels) {
            const qsizetype count = qsizetype{pixels} * pixelBytes;
            for (int filter = 0; filter < PngFilterCount; ++filter) {
                const Bytes stored = random_bytes(random, count);
                const Bytes above = random_bytes(random, count);
                Bytes row = random_bytes(random, count);
                Bytes expected(row.size());

                undo_png_filter(filter, stored.data(), above.data(), row.data(), count, pixelBytes);

                plain_rows::undo_png_filter(filter, stored.data(), above.data(), expected.data(), count, pixelBytes);
                QVERIFY2(std::equal(row.begin(), row.begin() + count, expected.begin()),
                         qPrintable(QStringLiteral("filter %1, %2 pixels").arg(filter).arg(pixels)));
            }
        }
    }

    void everyTripleOfNeighborsGivesTheNearest()
    {
        // Two pixels, of which the first is the left neighbour, in rows of four bytes a pixel.
        for (int left = 0; left < 256; left += 5) {
            for (int above = 0; above < 256; above += 5) {
                for (int corner = 0; corner < 256; ++corner) {
                    const auto byte = [](int value) { return static_cast<uchar>(value); };
                    // The first pixel's nearest is the corner's byte, above it: nothing is left of it.
                    const Bytes stored{byte(left - corner), 0, 0, 0, 1, 0, 0, 0};
                    Bytes aboveRow{byte(corner), 0, 0, 0, byte(above), 0, 0, 0};
                    aboveRow.resize(8 + PngRowSlack);
                    Bytes row(8 + PngRowSlack);

                    undo_png_filter(4, stored.data(), aboveRow.data(), row.data(), 8, 4);

                    const int estimate = left + above - corner;
                    int nearest = left;
                    if (std::abs(estimate - above) < std::abs(estimate - nearest))
                        nearest = above;
                    if (std::abs(estimate - corner) < std::abs(estimate - nearest))
                        nearest = corner;
                    if (row[0] != left || row[4] != byte(nearest + 1))
                        QFAIL(qPrintable(QStringLiteral("%1, %2, %3").arg(left).arg(above).arg(corner)));
                }
            }
        }
    }

    void averagesRoundDown()
    {
        const Bytes stored{3, 0, 0, 0, 0, 0, 0, 0};
        Bytes above{2, 0, 0, 0, 255, 0, 0, 0};
        above.resize(8 + PngRowSlack);
        Bytes row(8 + PngRowSlack);

        undo_png_filter(3, stored.data(), above.data(), row.data(), 8, 4);

        QCOMPARE(row[0], uchar{4}); // 3 and half of 2
        QCOMPARE(row[4], uchar{129}); // half of 4 and 255, less a half
    }

    void wordsOfFourBytesAreTurned()
    {
        const Bytes rgba{1, 2, 3, 4, 0xff, 0, 0x80, 0};
        std::vector<QRgb> words(2);

        pack_rgba_row(rgba.data(), words.data(), 2);

        QCOMPARE(words[0], 0x04010203U);
        QCOMPARE(words[1], 0x00ff0080U);
    }
};

QTEST_APPLESS_MAIN(tst_png_rows)
#include "tst_png_rows.moc"
