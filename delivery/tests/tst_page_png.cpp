#include "page_png.h"
#include "pictures.h"

#include <QBuffer>
#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QByteArray png(const QImage &page)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!write_png(buffer, page))
        qFatal("the page was not written");
    return buffer.data();
}

/// What another reader sees.
QImage seen(const QImage &page)
{
    return QImage::fromData(png(page), "PNG").convertToFormat(QImage::Format_ARGB32);
}

QImage noisy_page(QSize size, QImage::Format format, int colors)
{
    QRandomGenerator random(5);
    QImage page(size, format);
    for (int i = 0; i < colors; ++i) {
        page.setColorCount(i + 1);
        page.setColor(i, random.generate() | 0xff000000);
    }
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x)
            page.setPixel(x, y, colors == 0 ? random.generate() : random.bounded(quint32(colors)));
    }
    return page;
}

/// Takes so many bytes and then none.
class ShortDevice : public QIODevice
{
public:
    explicit ShortDevice(qint64 room) : left(room) { open(QIODevice::WriteOnly | QIODevice::Unbuffered); }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *, qint64 count) override
    {
        if (count > left)
            return -1;
        left -= count;
        return count;
    }

private:
    qint64 left;
};

} // namespace

class tst_page_png : public QObject
{
    Q_OBJECT

private slots:
    void tableHoldsTheColorsOfPixelsAlone_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::addColumn<int>("entries");

        QTest::newRow("3 of 1 bit") << QImage::Format_Mono << 3;
        QTest::newRow("256 of 1 bit") << QImage::Format_Mono << 256;
        QTest::newRow("256 of 1 bit, lowest first") << QImage::Format_MonoLSB << 256;
    }

    void tableHoldsTheColorsOfPixelsAlone()
    {
        QFETCH(const QImage::Format, format);
        QFETCH(const int, entries);
        QImage page(9, 3, format);
        QList<QRgb> table(entries, 0);
        table[0] = 0xffffffff;
        table[1] = 0x8000ff00;
        page.setColorTable(table);
        page.fill(1);
        page.setPixel(4, 1, 0);

        const QByteArray bytes = png(page);

        const QByteArray twoColors = QByteArray::fromHex("00000006") + "PLTE" + QByteArray::fromHex("ffffff00ff00");
        QVERIFY(bytes.contains(twoColors));
        QVERIFY(bytes.contains(QByteArray::fromHex("00000002") + "tRNS" + QByteArray::fromHex("ff80")));
        QCOMPARE(seen(page).pixel(0, 0), 0x8000ff00U);
        QCOMPARE(seen(page).pixel(4, 1), 0xffffffffU);
    }

    void everyPixelArrives_data()
    {
        QTest::addColumn<QImage::Format>("format");
        QTest::addColumn<int>("colors");

        QTest::newRow("1 bit") << QImage::Format_Mono << 2;
        QTest::newRow("1 bit, lowest first") << QImage::Format_MonoLSB << 2;
        QTest::newRow("3 colours") << QImage::Format_Indexed8 << 3;
        QTest::newRow("256 colours") << QImage::Format_Indexed8 << 256;
        QTest::newRow("32 bit") << QImage::Format_RGB32 << 0;
        QTest::newRow("32 bit with alpha") << QImage::Format_ARGB32 << 0;
    }
    void everyPixelArrives()
    {
        QFETCH(const QImage::Format, format);
        QFETCH(const int, colors);
        for (const QSize size : {QSize(1, 1), QSize(7, 3), QSize(8, 8), QSize(9, 2), QSize(33, 40), QSize(700, 500)}) {
            const QImage page = noisy_page(size, format, colors);

            QCOMPARE(seen(page), page.convertToFormat(QImage::Format_ARGB32));
        }
    }

    void transparentColorsOfATableArrive()
    {
        QImage page = noisy_page({20, 20}, QImage::Format_Indexed8, 4);
        page.setColor(2, 0x40102030);

        QCOMPARE(seen(page), page.convertToFormat(QImage::Format_ARGB32));
    }

    void indicesOutsideTheTableLookAsTheyDoOnScreen_data()
    {
        QTest::addColumn<QList<QRgb>>("table");
        QTest::newRow("no table") << QList<QRgb>();
        QTest::newRow("two colours") << QList<QRgb>{0xff102030, 0xff405060};
    }
    void indicesOutsideTheTableLookAsTheyDoOnScreen()
    {
        QFETCH(const QList<QRgb>, table);
        QImage page(256, 1, QImage::Format_Indexed8);
        for (int i = 0; i < 256; ++i)
            page.scanLine(0)[i] = static_cast<uchar>(i);
        page.setColorTable(table);

        QCOMPARE(seen(page).convertToFormat(QImage::Format_RGB32), page.convertToFormat(QImage::Format_RGB32));
    }

    void resolutionArrives()
    {
        QImage page = noisy_page({4, 4}, QImage::Format_RGB32, 0);
        page.setDotsPerMeterX(23622);
        page.setDotsPerMeterY(11811);

        const QImage read = QImage::fromData(png(page), "PNG");

        QCOMPARE(read.dotsPerMeterX(), 23622);
        QCOMPARE(read.dotsPerMeterY(), 11811);
    }

    void plainPageTakesLittleRoom()
    {
        QImage page(2000, 1000, QImage::Format_RGB32);
        page.fill(Qt::white);

        QVERIFY(png(page).size() < page.sizeInBytes() / 200);
    }

    void noPageIsNotWritten()
    {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);

        QVERIFY(!write_png(buffer, QImage()));

        QCOMPARE(buffer.size(), 0);
    }

    // A file without its last bytes is none.
    void everyByteThatIsMissingIsTold()
    {
        const QImage page = noisy_page({12, 9}, QImage::Format_Indexed8, 5);
        const qsizetype whole = png(page).size();
        for (qsizetype room = 0; room < whole; ++room) {
            ShortDevice device(room);
            QVERIFY2(!write_png(device, page), qPrintable(u"room for %1"_s.arg(room)));
        }
        ShortDevice device(whole);
        QVERIFY(write_png(device, page));
    }

    void blockThatIsNotTakenIsTold()
    {
        const QImage page = noisy_page({900, 400}, QImage::Format_RGB32, 0); // several blocks

        ShortDevice device(400'000);

        QVERIFY(!write_png(device, page));
    }
};

QTEST_GUILESS_MAIN(tst_page_png)
#include "tst_page_png.moc"
