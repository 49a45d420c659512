#include "snapshot_rows.h"

#include <QRandomGenerator>
#include <QTest>

#include <vector>

namespace {

using Bytes = std::vector<uchar>;
using Words = std::vector<QRgb>;

Words random_words(std::size_t count, QRandomGenerator &random)
{
    Words words(count);
    for (QRgb &word : words)
        word = random.generate();
    return words;
}

Bytes random_bytes(std::size_t count, QRandomGenerator &random)
{
    Bytes bytes(count);
    for (uchar &byte : bytes)
        byte = static_cast<uchar>(random.generate());
    return bytes;
}

} // namespace

class tst_snapshot_rows : public QObject
{
    Q_OBJECT

private slots:
    void colourLosesItsAlphaAndBeginsWithBlue();
    void everyWidthPacksLikePixelByPixel();
    void everyWidthUnpacksLikePixelByPixel();
    void indicesShareAByteAndKeepFourBits();
    void nibblesComeApartAgain();
    void bitsTurnRoundWithinTheirByte();
    void flippedBitsAreTheOthers();
};

void tst_snapshot_rows::colourLosesItsAlphaAndBeginsWithBlue()
{
    const Words words{0x80112233, 0x00445566};
    Bytes bytes(8, 0xee);

    pack_bgr(words, bytes);

    QCOMPARE(bytes, (Bytes{0x33, 0x22, 0x11, 0x66, 0x55, 0x44, 0, 0}));
}

void tst_snapshot_rows::everyWidthPacksLikePixelByPixel()
{
    QRandomGenerator random(1);
    for (std::size_t width = 1; width < 70; ++width) {
        const Words words = random_words(width, random);
        Bytes expected;
        for (const QRgb word : words) {
            expected.push_back(static_cast<uchar>(qBlue(word)));
            expected.push_back(static_cast<uchar>(qGreen(word)));
            expected.push_back(static_cast<uchar>(qRed(word)));
        }
        Bytes bytes(3 * width, 0xee); // not a byte more, so that a step too far is found

        pack_bgr(words, bytes);

        QCOMPARE(bytes, expected);
    }
}

void tst_snapshot_rows::everyWidthUnpacksLikePixelByPixel()
{
    QRandomGenerator random(2);
    for (std::size_t width = 1; width < 70; ++width) {
        const Bytes bytes = random_bytes(3 * width, random);
        Words expected;
        for (std::size_t i = 0; i < bytes.size(); i += 3)
            expected.push_back(qRgb(bytes[i + 2], bytes[i + 1], bytes[i]));
        Words words(width);

        unpack_bgr(bytes, words);

        QCOMPARE(words, expected);
    }
}

void tst_snapshot_rows::indicesShareAByteAndKeepFourBits()
{
    const Bytes indices{0x01, 0x02, 0xf3, 0xf4, 0x05};
    Bytes bytes(4, 0xee);

    pack_nibbles(indices, bytes);

    QCOMPARE(bytes, (Bytes{0x12, 0x34, 0x50, 0}));
}

void tst_snapshot_rows::nibblesComeApartAgain()
{
    const Bytes bytes{0x12, 0x34, 0x5f, 0xff};
    Bytes indices(5);

    unpack_nibbles(bytes, indices);

    QCOMPARE(indices, (Bytes{1, 2, 3, 4, 5}));
}

void tst_snapshot_rows::bitsTurnRoundWithinTheirByte()
{
    Bytes reversed(5);

    reverse_bits(Bytes{0x01, 0x80, 0x13, 0x00, 0xfe}, reversed);

    QCOMPARE(reversed, (Bytes{0x80, 0x01, 0xc8, 0x00, 0x7f}));
}

void tst_snapshot_rows::flippedBitsAreTheOthers()
{
    Bytes flipped(3);

    flip_bits(Bytes{0x00, 0xff, 0x13}, flipped);

    QCOMPARE(flipped, (Bytes{0xff, 0x00, 0xec}));
}

QTEST_APPLESS_MAIN(tst_snapshot_rows)
#include "tst_snapshot_rows.moc"
