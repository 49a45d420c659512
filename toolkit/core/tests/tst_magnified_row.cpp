#include "magnified_row.h"

#include <QList>
#include <QTest>

#include <numeric>

namespace {

constexpr QRgb Untouched = 0xdeadbeef;
constexpr int Behind = 3; ///< words that must stay as they are

/// Each word by a division of its own.
QList<QRgb> magnified_plainly(const QList<QRgb> &pixels, int factor, int skipped, int count)
{
    QList<QRgb> target(count + Behind, Untouched);
    for (int i = 0; i < count; ++i)
        target[i] = pixels.at((skipped + i) / factor);
    return target;
}

} // namespace

class tst_magnified_row : public QObject
{
    Q_OBJECT

private slots:
    void equalsThePlainWay_data();
    void equalsThePlainWay();
};

void tst_magnified_row::equalsThePlainWay_data()
{
    QTest::addColumn<int>("factor");
    for (const int factor : {1, 2, 3, 4, 7, 8, 16, 64, 4096})
        QTest::addRow("%d times", factor) << factor;
}

void tst_magnified_row::equalsThePlainWay()
{
    QFETCH(const int, factor);
    QList<QRgb> pixels(70);
    std::iota(pixels.begin(), pixels.end(), 0xff102030U);
    for (const int skipped : {0, 1, factor / 2, factor - 1}) {
        if (skipped >= factor)
            continue;
        for (int count = 0; count <= 67; ++count) {
            QList<QRgb> target(count + Behind, Untouched);
            magnify_row(pixels.constData(), factor, skipped, target.data(), count);
            QCOMPARE(target, magnified_plainly(pixels, factor, skipped, count));
        }
    }
}

QTEST_APPLESS_MAIN(tst_magnified_row)
#include "tst_magnified_row.moc"
