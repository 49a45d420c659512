#include "files.h"
#include "icon_forms.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QImage one_pixel(QRgb word)
{
    QImage image(1, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, word);
    return image;
}

} // namespace

class tst_icon_forms : public QObject
{
    Q_OBJECT

private slots:
    void theGrayFormKeepsBrightnessAndAlpha_data()
    {
        // Brightness is (11 red + 16 green + 5 blue) / 32.
        QTest::addColumn<QRgb>("word");
        QTest::addColumn<QRgb>("expected");
        QTest::newRow("red") << QRgb{0xffff0000} << QRgb{0xff575757};
        QTest::newRow("green") << QRgb{0xff00ff00} << QRgb{0xff7f7f7f};
        QTest::newRow("half transparent blue") << QRgb{0x800000ff} << QRgb{0x80272727};
        QTest::newRow("white") << QRgb{0xffffffff} << QRgb{0xffffffff};
        QTest::newRow("nothing") << QRgb{0x00000000} << QRgb{0x00000000};
    }
    void theGrayFormKeepsBrightnessAndAlpha()
    {
        QFETCH(const QRgb, word);
        QFETCH(const QRgb, expected);

        QCOMPARE(gray_form(one_pixel(word)).pixel(0, 0), expected);
    }

    void theDisabledFormIsHalfWayToLightGrayAndHalfAsOpaque_data()
    {
        QTest::addColumn<QRgb>("word");
        QTest::addColumn<QRgb>("expected");
        QTest::newRow("black") << QRgb{0xff000000} << QRgb{0x7f646464};
        QTest::newRow("white") << QRgb{0xffffffff} << QRgb{0x7fe3e3e3};
        QTest::newRow("half transparent red") << QRgb{0x80ff0000} << QRgb{0x408f8f8f};
    }
    void theDisabledFormIsHalfWayToLightGrayAndHalfAsOpaque()
    {
        QFETCH(const QRgb, word);
        QFETCH(const QRgb, expected);

        QCOMPARE(disabled_form(one_pixel(word)).pixel(0, 0), expected);
    }

    void aDrawingFillsTheSizeAskedForOnTransparentGround()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"quarter.svg"_s);
        write_file(path,
                   "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 2 2'>"
                   "<rect width='1' height='1' fill='#ffff00' fill-opacity='0.4'/></svg>");

        const QImage image = render_drawing(path, QSize(8, 8));

        QCOMPARE(image.size(), QSize(8, 8));
        QCOMPARE(image.format(), QImage::Format_ARGB32);
        QCOMPARE(image.pixel(0, 0), 0x66ffff00); // not premultiplied
        QCOMPARE(image.pixel(3, 3), 0x66ffff00);
        QCOMPARE(image.pixel(4, 4), 0x00000000);
    }

    void aMissingDrawingGivesNoPicture()
    {
        const QTemporaryDir folder;
        const QString missing = folder.filePath(u"missing.svg"_s);
        const QString warning = u"Cannot open file '"_s + missing + u"', because: No such file or directory"_s;
        QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));

        QVERIFY(render_drawing(missing, QSize(8, 8)).isNull());
    }
};

QTEST_GUILESS_MAIN(tst_icon_forms)
#include "tst_icon_forms.moc"
