#include "DiagnosticLines.h"
#include "pictures.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_pictures : public QObject
{
    Q_OBJECT

private slots:
    void solidPageHasOneColour_data();
    void solidPageHasOneColour();
    void patternedPageHasTheDepthAskedFor_data();
    void patternedPageHasTheDepthAskedFor();
    void patternedPageEqualsNoTurnOrFlipOfItself_data();
    void patternedPageEqualsNoTurnOrFlipOfItself();
    void patternedPageOfAnotherDepthIsNull();
    void positionColourTellsItsPlace_data();
    void positionColourTellsItsPlace();
    void equalPicturesDifferInNothing();
    void twoNullPicturesAreEqual();
    void sizeAndFormatAreCompared_data();
    void sizeAndFormatAreCompared();
    void differingPixelIsNamedWithBothColours();
    void firstTenDifferingPixelsAreNamed();
    void equalColoursUnderTwoIndicesDiffer();
    void differencesArePrinted();
};

void tst_pictures::solidPageHasOneColour_data()
{
    QTest::addColumn<int>("format");

    QTest::newRow("one bit") << int(QImage::Format_Mono);
    QTest::newRow("one bit, low bit first") << int(QImage::Format_MonoLSB);
    QTest::newRow("indexed") << int(QImage::Format_Indexed8);
    QTest::newRow("32 bits") << int(QImage::Format_RGB32);
    QTest::newRow("32 bits and alpha") << int(QImage::Format_ARGB32);
}

void tst_pictures::solidPageHasOneColour()
{
    QFETCH(const int, format);

    const QImage page = solid_page({5, 3}, qRgb(1, 2, 3), QImage::Format(format));

    QCOMPARE(page.size(), QSize(5, 3));
    QCOMPARE(int(page.format()), format);
    QCOMPARE(page.pixel(0, 0), qRgb(1, 2, 3));
    QCOMPARE(page.pixel(4, 2), qRgb(1, 2, 3));
}

void tst_pictures::patternedPageHasTheDepthAskedFor_data()
{
    QTest::addColumn<int>("depth");

    QTest::newRow("1") << 1;
    QTest::newRow("8") << 8;
    QTest::newRow("32") << 32;
}

void tst_pictures::patternedPageHasTheDepthAskedFor()
{
    QFETCH(const int, depth);

    QCOMPARE(patterned_page({4, 4}, depth).depth(), depth);
}

void tst_pictures::patternedPageEqualsNoTurnOrFlipOfItself_data()
{
    patternedPageHasTheDepthAskedFor_data();
}

void tst_pictures::patternedPageEqualsNoTurnOrFlipOfItself()
{
    QFETCH(const int, depth);
    const QImage page = patterned_page({12, 12}, depth);

    for (const int angle : {90, 180, 270})
        QVERIFY(page.transformed(QTransform().rotate(angle)) != page);
    QVERIFY(page.mirrored(true, false) != page);
    QVERIFY(page.mirrored(false, true) != page);
}

void tst_pictures::patternedPageOfAnotherDepthIsNull()
{
    QVERIFY(patterned_page({4, 4}, 16).isNull());
}

void tst_pictures::positionColourTellsItsPlace_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QRgb>("color");

    QTest::newRow("origin") << QPoint(0, 0) << 0xff000000U;
    QTest::newRow("last of the low bytes") << QPoint(255, 254) << 0xfffffe00U;
    QTest::newRow("high bits of x") << QPoint(256 * 2 + 3, 4) << 0xff030420U;
    QTest::newRow("high bits of y") << QPoint(5, 256 * 15 + 6) << 0xff05060fU;
}

void tst_pictures::positionColourTellsItsPlace()
{
    QFETCH(const QPoint, point);
    QFETCH(const QRgb, color);

    QCOMPARE(position_color(point), color);
    QCOMPARE(position_of(color), point);
}

void tst_pictures::equalPicturesDifferInNothing()
{
    QCOMPARE(picture_differences(patterned_page({7, 5}, 8), patterned_page({7, 5}, 8)), QString());
    QVERIFY(compare_pictures(patterned_page({7, 5}), patterned_page({7, 5})));
}

void tst_pictures::twoNullPicturesAreEqual()
{
    QVERIFY(compare_pictures(QImage(), QImage()));
}

void tst_pictures::sizeAndFormatAreCompared_data()
{
    QTest::addColumn<QImage>("actual");
    QTest::addColumn<QString>("differences");

    const QString expected = u" instead of 2x2, format %1, 0 colours"_s.arg(int(QImage::Format_RGB32));
    QTest::newRow("null") << QImage() << "0x0, format 0, 0 colours" + expected;
    QTest::newRow("size") << solid_page({2, 3}, 0xff000000U)
                          << u"2x3, format %1, 0 colours"_s.arg(int(QImage::Format_RGB32)) + expected;
    QTest::newRow("format") << solid_page({2, 2}, 0xff000000U, QImage::Format_Mono)
                            << u"2x2, format %1, 2 colours"_s.arg(int(QImage::Format_Mono)) + expected;
}

void tst_pictures::sizeAndFormatAreCompared()
{
    QFETCH(const QImage, actual);
    QFETCH(const QString, differences);

    QCOMPARE(picture_differences(actual, solid_page({2, 2}, 0xff000000U)), differences);
}

void tst_pictures::differingPixelIsNamedWithBothColours()
{
    QImage changed = solid_page({3, 3}, 0xff102030U);
    changed.setPixel(2, 1, 0xffabcdefU);

    QCOMPARE(picture_differences(changed, solid_page({3, 3}, 0xff102030U)), u"(2,1) is ffabcdef, expected ff102030"_s);
}

void tst_pictures::firstTenDifferingPixelsAreNamed()
{
    const QString differences = picture_differences(solid_page({6, 4}, 0xff000001U), solid_page({6, 4}, 0xff000002U));

    const QStringList lines = differences.split(u'\n');
    QCOMPARE(lines.size(), 10);
    QCOMPARE(lines.first(), u"(0,0) is ff000001, expected ff000002"_s);
    QCOMPARE(lines.last(), u"(3,1) is ff000001, expected ff000002"_s);
}

void tst_pictures::equalColoursUnderTwoIndicesDiffer()
{
    QImage first(1, 1, QImage::Format_Indexed8);
    first.setColorTable({0xff000000U, 0xff000000U});
    first.setPixel(0, 0, 0);
    QImage second = first;
    second.setPixel(0, 0, 1);

    QCOMPARE(picture_differences(first, second), u"(0,0) is 00000000, expected 00000001"_s);
}

void tst_pictures::differencesArePrinted()
{
    const DiagnosticLines diagnostics;

    QVERIFY(!compare_pictures(solid_page({1, 1}, 0xff000001U), solid_page({1, 1}, 0xff000002U)));

    QCOMPARE(diagnostics.lines(), QStringList(u"(0,0) is ff000001, expected ff000002"_s));
}

QTEST_GUILESS_MAIN(tst_pictures)
#include "tst_pictures.moc"
