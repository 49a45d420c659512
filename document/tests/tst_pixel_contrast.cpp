#include "children.h"
#include "contrast.h"
#include "pixel_operations.h"
#include "plain_pixels.h"

#include <QImage>
#include <QList>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>

namespace {

QList<QRgb> contrasted(const QList<QRgb> &words, int percent)
{
    QList<QRgb> result(words.size());
    contrast_words(words, result, percent);
    return result;
}

QList<QRgb> reds(std::initializer_list<QRgb> values)
{
    QList<QRgb> words;
    for (const QRgb value : values)
        words.append(0xff000000 | value << 16);
    return words;
}

QList<int> reds_of(const QList<QRgb> &words)
{
    QList<int> values;
    for (const QRgb word : words)
        values.append(qRed(word));
    return values;
}

/// The signal that ends a process which runs contrast over a picture; 0 if it ends by itself.
int signal_that_ends_contrast_of(const QImage &image)
{
    const int status = status_of_child([&image] {
        const rlimit noCore{0, 0};
        (void)setrlimit(RLIMIT_CORE, &noCore);
        (void)std::signal(SIGFPE, SIG_DFL); // the test's own handler would report and exit
        (void)contrasted_page(image, 50);
        return 0;
    });
    return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

} // namespace

class TestPixelContrast : public QObject
{
    Q_OBJECT

private slots:
    void channelBounds_data()
    {
        QTest::addColumn<QList<QRgb>>("words");
        QTest::addColumn<int>("minimum");
        QTest::addColumn<int>("maximum");
        QTest::newRow("no words keep the defaults") << QList<QRgb>{} << 255 << 0;
        QTest::newRow("rising reds move both ends") << reds({10, 105, 200}) << 10 << 200;
        QTest::newRow("falling reds leave the maximum at 0") << reds({200, 10}) << 10 << 0;
        QTest::newRow("one value once leaves the maximum at 0") << reds({90}) << 90 << 0;
        QTest::newRow("one value twice raises the maximum") << reds({90, 90}) << 90 << 90;
        QTest::newRow("255 is offered to the maximum") << reds({255}) << 255 << 255;
    }

    void channelBounds()
    {
        QFETCH(QList<QRgb>, words);
        QFETCH(int, minimum);
        QFETCH(int, maximum);

        const ChannelBounds bounds = channel_bounds(words, 16);

        QCOMPARE(bounds.minimum, minimum);
        QCOMPARE(bounds.maximum, maximum);
    }

    void boundsByBlocksEqualBoundsWordByWord()
    {
        QRandomGenerator random(4);
        for (int round = 0; round < 60; ++round) {
            // Long runs that fall slowly, so that blocks begin and end inside them.
            QList<QRgb> words(random.bounded(1, 9000));
            quint32 level = 255;
            for (QRgb &word : words) {
                level -= level > 0 && random.bounded(40) == 0 ? 1 : 0;
                word = (level + (round % 3 == 0 ? 0 : random.bounded(256 - level))) * 0x010101U;
            }
            for (const int shift : {16, 8, 0})
                QCOMPARE(channel_bounds(words, shift), plain_bounds(words, shift));
        }
    }

    void everyPercentageEqualsTheArithmeticWordByWord()
    {
        QRandomGenerator random(5);
        for (int percent = -100; percent <= 100; ++percent) {
            if (percent == 0)
                continue;
            QList<QRgb> words(40);
            for (QRgb &word : words)
                word = random.generate();
            QCOMPARE(contrasted(words, percent), plain_contrast(words, percent));
        }
    }

    void manyWordsEqualTheArithmeticWordByWord_data()
    {
        QTest::addColumn<int>("lastOfTheFall");

        // The second half, which is looked at by another thread, has to know what came in the first.
        QTest::newRow("the minimum falls all along") << 20;
        QTest::newRow("the minimum falls in the first half alone") << 130;
    }

    void manyWordsEqualTheArithmeticWordByWord()
    {
        QFETCH(const int, lastOfTheFall);
        constexpr int count = 400'001;
        QRandomGenerator random(6);
        QList<QRgb> words;
        for (int i = 0; i < count; ++i) {
            const int floor = std::max(lastOfTheFall, 250 - 230 * i / count);
            words.append(random.generate() & 0xff000000U);
            words.last() |= QRgb(floor) << 16 | QRgb(floor + random.bounded(3)) << 8 | QRgb(200 - floor / 2);
        }
        const ChannelBounds red = plain_bounds(words, 16);
        const ChannelBounds green = plain_bounds(words, 8);
        const ChannelBounds blue = plain_bounds(words, 0);

        const QList<QRgb> result = contrasted(words, 40);

        for (int i = 0; i < count; ++i) {
            const QRgb word = words.at(i);
            const QRgb expected = (word & 0xff000000U) | plain_value(word, 16, red, 40)
                | plain_value(word, 8, green, 40) | plain_value(word, 0, blue, 40);
            QVERIFY2(result.at(i) == expected, qPrintable(QString::number(i)));
        }
    }

    void raisingStretchesFromTheLowestValue()
    {
        QCOMPARE(reds_of(contrasted(reds({10, 105, 200}), 100)), (QList<int>{0, 254, 255}));
    }

    void loweringToTheLastEndsAt127()
    {
        QCOMPARE(reds_of(contrasted(reds({10, 105, 200}), -100)), (QList<int>{0, 63, 127}));
    }

    void fallingRedsAllBecomeZero() { QCOMPARE(reds_of(contrasted(reds({200, 10}), 100)), (QList<int>{0, 0})); }

    void alphaStays()
    {
        const QList<QRgb> result = contrasted({0x12101010, 0x00505050, 0xff909090}, 30);

        QCOMPARE(result[0] >> 24, 0x12U);
        QCOMPARE(result[1] >> 24, 0x00U);
        QCOMPARE(result[2] >> 24, 0xffU);
    }

    void aSinglePixelOfOneEndsTheProcessByDivisionByZero_data()
    {
        QTest::addColumn<QRgb>("color");

        QTest::newRow("red") << qRgb(1, 50, 50);
        QTest::newRow("green") << qRgb(50, 1, 50);
        QTest::newRow("blue") << qRgb(50, 50, 1);
    }

    void aSinglePixelOfOneEndsTheProcessByDivisionByZero()
    {
        QFETCH(const QRgb, color);
        QImage image(1, 1, QImage::Format_RGB32);
        image.fill(color);

        QCOMPARE(signal_that_ends_contrast_of(image), SIGFPE);
    }

    void aTableOfASingleOneEndsTheProcessByDivisionByZero()
    {
        QImage image(3, 3, QImage::Format_Indexed8);
        image.setColorTable({qRgb(1, 50, 50)});
        image.fill(0);

        QCOMPARE(signal_that_ends_contrast_of(image), SIGFPE);
    }

    void twoPixelsOfOneDoNotEndTheProcess()
    {
        QImage image(2, 1, QImage::Format_RGB32);
        image.fill(qRgb(1, 1, 1));

        QCOMPARE(signal_that_ends_contrast_of(image), 0);
    }
};

QTEST_APPLESS_MAIN(TestPixelContrast)
#include "tst_pixel_contrast.moc"
