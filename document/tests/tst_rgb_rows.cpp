#include "rgb_rows.h"

#include <QList>
#include <QRandomGenerator>
#include <QTest>

namespace {

constexpr uchar Untouched = 0xee;
constexpr int LongestRow = 70;

} // namespace

class tst_rgb_rows : public QObject
{
    Q_OBJECT

private slots:
    void wordsAreOpaqueAndHoldRedHighest();
    void bytesAreRedGreenBlueWithoutAlpha();
    void rowsOfEveryLengthEqualThoseOfThePlainLoop();
    void nothingIsWrittenBehindTheRow();
};

void tst_rgb_rows::wordsAreOpaqueAndHoldRedHighest()
{
    const QList<uchar> rgb{1, 2, 3, 250, 251, 252};
    QList<QRgb> words(2, 0);

    plain_rows::expand(rgb.constData(), words.data(), 2);

    QCOMPARE(words, (QList<QRgb>{0xff010203, 0xfffafbfc}));
}

void tst_rgb_rows::bytesAreRedGreenBlueWithoutAlpha()
{
    const QList<QRgb> words{0x00010203, 0x80fafbfc};
    QList<uchar> rgb(6, 0);

    plain_rows::pack(words.constData(), rgb.data(), 2);

    QCOMPARE(rgb, (QList<uchar>{1, 2, 3, 250, 251, 252}));
}

void tst_rgb_rows::rowsOfEveryLengthEqualThoseOfThePlainLoop()
{
    QRandomGenerator random(1);
    for (int width = 0; width <= LongestRow; ++width) {
        QList<QRgb> words(width, 0);
        random.fillRange(words.data(), words.size());
        QList<uchar> packed(qsizetype{3} * width, 0);
        QList<uchar> packedPlainly(qsizetype{3} * width, 0);
        pack_rgb_row(words.constData(), packed.data(), width);
        plain_rows::pack(words.constData(), packedPlainly.data(), width);
        QCOMPARE(packed, packedPlainly);

        QList<QRgb> expanded(width, 0);
        QList<QRgb> expandedPlainly(width, 0);
        expand_rgb_row(packed.constData(), expanded.data(), width);
        plain_rows::expand(packed.constData(), expandedPlainly.data(), width);
        QCOMPARE(expanded, expandedPlainly);
    }
}

void tst_rgb_rows::nothingIsWrittenBehindTheRow()
{
    const QList<QRgb> words(LongestRow, 0);
    const QList<uchar> bytes(qsizetype{3} * LongestRow, 0);
    for (int width = 0; width < LongestRow; ++width) {
        QList<uchar> rgb(qsizetype{3} * LongestRow, Untouched);
        pack_rgb_row(words.constData(), rgb.data(), width);
        QCOMPARE(rgb.count(Untouched), qsizetype{3} * (LongestRow - width));

        QList<QRgb> expanded(LongestRow, Untouched);
        expand_rgb_row(bytes.constData(), expanded.data(), width);
        QCOMPARE(expanded.count(QRgb{Untouched}), LongestRow - width);
    }
}

QTEST_APPLESS_MAIN(tst_rgb_rows)
#include "tst_rgb_rows.moc"
