#include "brightness.h"
#include "plain_pixels.h"

#include <QColor>
#include <QList>
#include <QRandomGenerator>
#include <QTest>

#include <vector>

namespace {

/// The percentages that are tried over all colours: all 200 if the environment asks for them, as
/// scripts/test-brightness does.
QList<int> tried_percentages()
{
    if (!qEnvironmentVariableIsSet("IM_TEST_ALL_FACTORS"))
        return {-100, -73, -50, -37, -10, -1, 1, 10, 35, 50, 77, 100};
    QList<int> all;
    for (int percent = 1; percent <= 100; ++percent)
        all << -percent << percent;
    return all;
}

/// Every 61st colour, in changing order; each one if the environment asks for it, as .ci/run does.
quint32 color_step()
{
    return qEnvironmentVariableIsSet("IM_TEST_ALL_COLORS") ? 1 : 61;
}

QList<QRgb> random_words(qsizetype count)
{
    QRandomGenerator random(6);
    QList<QRgb> words(count);
    for (QRgb &word : words)
        word = random.generate();
    return words;
}

} // namespace

class TestPixelBrightness : public QObject
{
    Q_OBJECT

private slots:
    void allColorsEqualQColor_data()
    {
        QTest::addColumn<int>("percent");
        for (const int percent : tried_percentages())
            QTest::addRow("%d percent", percent) << percent;
    }

    void allColorsEqualQColor()
    {
        QFETCH(int, percent);
        const quint32 step = color_step();
        std::vector<QRgb> words;
        words.reserve((1U << 24) / step + 1);
        for (quint32 color = 0; color < 1U << 24; color += step)
            words.push_back(color);
        std::vector<QRgb> result(words.size());

        brighten_many_words(words, result, percent);

        for (std::size_t i = 0; i < words.size(); ++i) {
            if (result[i] != plain_brightness(words[i], percent))
                QCOMPARE(QByteArray::number(result[i], 16),
                         QByteArray::number(plain_brightness(words[i], percent), 16));
        }
    }

    void anyNumberOfWordsEqualsQColor_data()
    {
        QTest::addColumn<qsizetype>("count");
        for (const qsizetype count : {0, 1, 7, 64, 1023, 1024, 1025, 4000, 65535, 65536, 66000})
            QTest::addRow("%lld words", static_cast<long long>(count)) << count;
    }

    void anyNumberOfWordsEqualsQColor()
    {
        QFETCH(qsizetype, count);
        const QList<QRgb> words = random_words(count);
        for (const int percent : {-60, 20}) {
            QList<QRgb> expected;
            for (const QRgb word : words)
                expected.append(plain_brightness(word, percent));
            QList<QRgb> result(count);
            QList<QRgb> resultOfMany(count);

            brighten_words(words, result, percent);
            brighten_many_words(words, resultOfMany, percent);

            QCOMPARE(result, expected);
            QCOMPARE(resultOfMany, expected);
        }
    }

    void alphaStays()
    {
        const QList<QRgb> words{0x12101010, 0x00505050, 0xff909090};
        QList<QRgb> result(words.size());

        brighten_words(words, result, 30);

        QCOMPARE(result[0] >> 24, 0x12U);
        QCOMPARE(result[1] >> 24, 0x00U);
        QCOMPARE(result[2] >> 24, 0xffU);
    }
};

QTEST_APPLESS_MAIN(TestPixelBrightness)
#include "tst_pixel_brightness.moc"
