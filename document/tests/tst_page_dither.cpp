#include "page_dither.h"
#include "random_pages.h"

#include <QTest>

#include <functional>

/// Colour of a pixel from its place and a random number.
using ColorOf = std::function<QRgb(int x, int y, quint32 noise)>;

class tst_page_dither : public QObject
{
    Q_OBJECT

    QRandomGenerator random{11};

private slots:
    void blackAndWhiteEqualsTheToolkitsToTheBit_data()
    {
        QTest::addColumn<ColorOf>("colorOf");
        const auto gray = [](quint32 value) { return qRgb(int(value), int(value), int(value)); };
        QTest::newRow("noise") << ColorOf([](int, int, quint32 noise) { return QRgb{noise}; });
        QTest::newRow("black and white") << ColorOf([=](int, int, quint32 noise) { return gray(noise % 2 * 255); });
        QTest::newRow("about the limit") << ColorOf([=](int, int, quint32 noise) { return gray(120 + noise % 16); });
        QTest::newRow("hardly dark") << ColorOf([=](int, int, quint32 noise) { return gray(250 + noise % 6); });
        QTest::newRow("hardly light") << ColorOf([=](int, int, quint32 noise) { return gray(noise % 6); });
        QTest::newRow("slope") << ColorOf([=](int x, int y, quint32) { return qRgb(2 * x, 3 * y, x + y); });
        QTest::newRow("one tone") << ColorOf([=](int, int, quint32) { return gray(100); });
    }
    void blackAndWhiteEqualsTheToolkitsToTheBit()
    {
        QFETCH(const ColorOf, colorOf);
        for (const QSize size : small_sizes()) {
            for (const QImage::Format format : {QImage::Format_RGB32, QImage::Format_ARGB32}) {
                const QImage page = page_of(size, format, colorOf);
                for (const QImage::Format result : {QImage::Format_Mono, QImage::Format_MonoLSB})
                    QCOMPARE(dithered_page(page, result), page.convertToFormat(result));
            }
        }
    }

    void largePageEqualsTheToolkitsToTheBit()
    {
        const QImage page = random_page(random, QSize(1237, 803), QImage::Format_RGB32);

        QCOMPARE(dithered_page(page, QImage::Format_Mono), page.convertToFormat(QImage::Format_Mono));
    }

    void resolutionAndTextsStay()
    {
        QImage page = random_page(random, QSize(9, 9), QImage::Format_RGB32);
        page.setDotsPerMeterX(11811);
        page.setDotsPerMeterY(5906);
        page.setText(QStringLiteral("Author"), QStringLiteral("somebody"));

        const QImage result = dithered_page(page, QImage::Format_MonoLSB);

        QCOMPARE(result.format(), QImage::Format_MonoLSB);
        QCOMPARE(result.dotsPerMeterX(), 11811);
        QCOMPARE(result.dotsPerMeterY(), 5906);
        QCOMPARE(result.text(QStringLiteral("Author")), QStringLiteral("somebody"));
    }

private:
    QImage page_of(QSize size, QImage::Format format, const ColorOf &colorOf)
    {
        QImage page(size, format);
        for (int y = 0; y < size.height(); ++y) {
            auto *const words = reinterpret_cast<QRgb *>(page.scanLine(y));
            for (int x = 0; x < size.width(); ++x)
                words[x] = colorOf(x, y, random.generate());
        }
        return page;
    }
};

QTEST_GUILESS_MAIN(tst_page_dither)
#include "tst_page_dither.moc"
