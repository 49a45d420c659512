#include "DiagnosticLines.h"
#include "pictures.h"
#include "Thumbnail.h"

#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_Thumbnail : public QObject
{
    Q_OBJECT

private slots:
    void copyFitsItsSquare_data();
    void copyFitsItsSquare();
    void copyOfAFittingPageSharesNoPixels();
    void copyIsSampledAndKeepsItsFormat_data();
    void copyIsSampledAndKeepsItsFormat();

    void wantsThumbnailSize();
    void showsNothingBeforeTheFirstTransformation();
    void showsTheResultInItsMiddle_data();
    void showsTheResultInItsMiddle();
    void showsItsOwnGroundAroundAndThroughThePicture();
    void handsTheParameterOn();
    void worksOnItsCopyEachTimeAnew();
    void repaintsAfterATransformation();
    void refusedTransformationLeavesTheLastPicture();
    void emptyResultLeavesTheLastPicture();
    void blackAndWhiteOfATableChangePlaces();
    void emptyPageEndsTheProcess();
    void copyingTransformationCopies();
    void copyingTransformationRefusesNothing();
};

namespace {

bool fill(const QImage &src, QImage &dst, const int *parameter)
{
    dst = QImage(src.size(), QImage::Format_RGB32);
    dst.fill(parameter ? static_cast<QRgb>(*parameter) : qRgb(0, 0, 255));
    return true;
}

bool halve(const QImage &src, QImage &dst, const int * /*parameter*/)
{
    dst = src.scaled(src.width() / 2, src.height());
    return true;
}

bool refuse(const QImage & /*src*/, QImage &dst, const int * /*parameter*/)
{
    dst = QImage();
    return false;
}

bool lose(const QImage & /*src*/, QImage &dst, const int * /*parameter*/)
{
    dst = QImage();
    return true;
}

/// The rectangle of the pixels that have @p color.
QRect area_of(const QImage &picture, QRgb color)
{
    QRect area;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) == color)
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

constexpr QRgb Red = 0xffff0000;
constexpr QRgb Blue = 0xff0000ff;

QImage shown_by(Thumbnail &thumbnail)
{
    return thumbnail.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// Counts how often the widget is painted.
class PaintedThumbnail : public Thumbnail
{
public:
    using Thumbnail::Thumbnail;

    int paints = 0;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        ++paints;
        Thumbnail::paintEvent(event);
    }
};

} // namespace

void tst_Thumbnail::copyFitsItsSquare_data()
{
    QTest::addColumn<QSize>("page");
    QTest::addColumn<QSize>("copy");
    QTest::newRow("fits already") << QSize(160, 160) << QSize(160, 160);
    QTest::newRow("fits already, wide") << QSize(160, 20) << QSize(160, 20);
    QTest::newRow("fits already, tall") << QSize(20, 160) << QSize(20, 160);
    QTest::newRow("small is enlarged") << QSize(100, 100) << QSize(159, 159);
    QTest::newRow("wide fills the width") << QSize(1000, 500) << QSize(160, 80);
    QTest::newRow("tall stays within the square of its width") << QSize(500, 1000) << QSize(40, 80);
    QTest::newRow("one pixel") << QSize(1, 1) << QSize(1, 1);
    // 160/7016 of 4959 is 113.09, so the square has 114; 114 * 4960/7016 is 80.6.
    QTest::newRow("A4 at 600 dpi") << QSize(4960, 7016) << QSize(80, 114);
    QTest::newRow("a line down the page") << QSize(1, 5000) << QSize(1, 1);
}

void tst_Thumbnail::copyFitsItsSquare()
{
    QFETCH(const QSize, page);
    QFETCH(const QSize, copy);

    QCOMPARE(reduced_copy(QImage(page, QImage::Format_Mono)).size(), copy);
}

void tst_Thumbnail::copyOfAFittingPageSharesNoPixels()
{
    const QImage page = patterned_page({160, 160});

    const QImage copy = reduced_copy(page);

    QVERIFY(compare_pictures(copy, page));
    QVERIFY(copy.constBits() != page.constBits());
}

void tst_Thumbnail::copyIsSampledAndKeepsItsFormat_data()
{
    QTest::addColumn<int>("depth");
    QTest::newRow("1 bit") << 1;
    QTest::newRow("8 bit") << 8;
    QTest::newRow("32 bit") << 32;
}

void tst_Thumbnail::copyIsSampledAndKeepsItsFormat()
{
    QFETCH(const int, depth);
    const QImage page = patterned_page({320, 320}, depth);

    const QImage copy = reduced_copy(page);

    QCOMPARE(copy.format(), page.format());
    QCOMPARE(copy.colorTable(), page.colorTable());
    QCOMPARE(copy.size(), QSize(160, 160));
    // A sampled pixel stands in the page as it is; a smoothed one would not.
    QVERIFY(depth != 32 || position_of(copy.pixel(100, 50)).x() / 2 == 100);
}

void tst_Thumbnail::wantsThumbnailSize()
{
    const Thumbnail thumbnail(patterned_page({40, 30}), nullptr, "thumbnail");

    QCOMPARE(thumbnail.objectName(), u"thumbnail"_s);
    QCOMPARE(thumbnail.sizeHint(), QSize(161, 161));
    QCOMPARE(thumbnail.minimumSizeHint(), QSize(161, 161));
    QCOMPARE(thumbnail.size(), QSize(160, 160));
}

void tst_Thumbnail::showsNothingBeforeTheFirstTransformation()
{
    Thumbnail thumbnail(solid_page({160, 160}, Red));

    QCOMPARE(area_of(shown_by(thumbnail), Red), QRect());
}

void tst_Thumbnail::showsTheResultInItsMiddle_data()
{
    QTest::addColumn<QSize>("page");
    QTest::addColumn<QRect>("area");
    // (159 - 80) / 2 is 39; (159 - 160) / 2 is 0, since the division cuts towards zero.
    QTest::newRow("wide") << QSize(1000, 500) << QRect(0, 39, 160, 80);
    QTest::newRow("tall") << QSize(500, 1000) << QRect(59, 39, 40, 80);
    QTest::newRow("square") << QSize(100, 100) << QRect(0, 0, 159, 159);
}

void tst_Thumbnail::showsTheResultInItsMiddle()
{
    QFETCH(const QSize, page);
    QFETCH(const QRect, area);
    Thumbnail thumbnail(solid_page(page, Red));

    QVERIFY(thumbnail.convert(trans_copy, nullptr));

    QCOMPARE(area_of(shown_by(thumbnail), Red), area);
}

void tst_Thumbnail::showsItsOwnGroundAroundAndThroughThePicture()
{
    QImage clear(500, 1000, QImage::Format_ARGB32);
    clear.fill(Qt::transparent);
    Thumbnail thumbnail(clear);
    thumbnail.setPalette(QPalette(Qt::green));

    QVERIFY(thumbnail.convert(trans_copy, nullptr));

    const QRgb ground = thumbnail.palette().color(QPalette::Window).rgb();
    QCOMPARE(area_of(shown_by(thumbnail), ground), QRect(0, 0, 160, 160));
}

void tst_Thumbnail::handsTheParameterOn()
{
    Thumbnail thumbnail(patterned_page({160, 160}));
    const int red = static_cast<int>(Red);

    QVERIFY(thumbnail.convert(fill, &red));
    QCOMPARE(area_of(shown_by(thumbnail), Red), QRect(0, 0, 160, 160));

    QVERIFY(thumbnail.convert(fill, nullptr));
    QCOMPARE(area_of(shown_by(thumbnail), Blue), QRect(0, 0, 160, 160));
}

void tst_Thumbnail::worksOnItsCopyEachTimeAnew()
{
    Thumbnail thumbnail(solid_page({160, 160}, Red));

    QVERIFY(thumbnail.convert(halve, nullptr));
    QVERIFY(thumbnail.convert(halve, nullptr));

    QCOMPARE(area_of(shown_by(thumbnail), Red).size(), QSize(80, 160));
}

void tst_Thumbnail::repaintsAfterATransformation()
{
    PaintedThumbnail thumbnail(solid_page({160, 160}, Red));
    thumbnail.show();
    QVERIFY(QTest::qWaitForWindowExposed(&thumbnail));
    QTRY_VERIFY(thumbnail.paints > 0);
    const int before = thumbnail.paints;

    QVERIFY(thumbnail.convert(trans_copy, nullptr));

    QTRY_VERIFY(thumbnail.paints > before);
}

void tst_Thumbnail::refusedTransformationLeavesTheLastPicture()
{
    Thumbnail thumbnail(solid_page({160, 160}, Red));
    QVERIFY(thumbnail.convert(trans_copy, nullptr));
    const DiagnosticLines lines;

    QVERIFY(!thumbnail.convert(refuse, nullptr));

    QCOMPARE(lines.lines(), QStringList(u"Thumbnail::convert - unable to transform the image!"_s));
    QCOMPARE(area_of(shown_by(thumbnail), Red), QRect(0, 0, 160, 160));
}

void tst_Thumbnail::emptyResultLeavesTheLastPicture()
{
    Thumbnail thumbnail(solid_page({160, 160}, Red));
    QVERIFY(thumbnail.convert(trans_copy, nullptr));
    const DiagnosticLines lines;

    QVERIFY(!thumbnail.convert(lose, nullptr));

    QCOMPARE(lines.lines().constFirst(), u"Thumbnail::convert - after transform"_s);
    QCOMPARE(lines.lines().constLast(), u"Thumbnail::convert - unable to convert the image!"_s);
    QCOMPARE(area_of(shown_by(thumbnail), Red), QRect(0, 0, 160, 160));
}

void tst_Thumbnail::blackAndWhiteOfATableChangePlaces()
{
    QImage page(160, 160, QImage::Format_Mono);
    page.setColorTable({0xff000000, 0xffffffff});
    page.fill(0); // black by this table
    Thumbnail thumbnail(page);

    QVERIFY(thumbnail.convert(trans_copy, nullptr));

    QCOMPARE(area_of(shown_by(thumbnail), 0xffffffff), QRect(0, 0, 160, 160));
}

void tst_Thumbnail::emptyPageEndsTheProcess()
{
    QProcess process;
    process.start(QStringLiteral(EMPTY_PAGE_THUMBNAIL), QStringList());

    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::CrashExit);
    QVERIFY(process.readAllStandardError().contains("Thumbnail::Thumbnail - zero image size! w=0, h=0"));
}

void tst_Thumbnail::copyingTransformationCopies()
{
    const QImage page = patterned_page({30, 20}, 8);
    QImage result;

    QVERIFY(trans_copy(page, result, nullptr));

    QVERIFY(compare_pictures(result, page));
}

void tst_Thumbnail::copyingTransformationRefusesNothing()
{
    QImage result = patterned_page({30, 20});

    QVERIFY(!trans_copy(QImage(), result, nullptr));
}

QTEST_MAIN(tst_Thumbnail)
#include "tst_Thumbnail.moc"
