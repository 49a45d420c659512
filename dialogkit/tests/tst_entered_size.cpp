#include "DiagnosticLines.h"
#include "entered_size.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_entered_size : public QObject
{
    Q_OBJECT

private slots:
    void readsBothSides_data()
    {
        QTest::addColumn<QString>("width");
        QTest::addColumn<QString>("height");
        QTest::addColumn<QSize>("size");
        QTest::newRow("plain numbers") << u"640"_s << u"480"_s << QSize(640, 480);
        QTest::newRow("white space around") << u" 640 "_s << u"\t480"_s << QSize(640, 480);
        QTest::newRow("more than five digits") << u"1000000"_s << u"100000"_s << QSize(1000000, 100000);
        QTest::newRow("signs") << u"+640"_s << u"-480"_s << QSize(640, -480);
        QTest::newRow("leading zeros are no octal") << u"010"_s << u"010"_s << QSize(10, 10);
    }

    void readsBothSides()
    {
        QFETCH(const QString, width);
        QFETCH(const QString, height);
        QFETCH(const QSize, size);
        const DiagnosticLines lines;

        QCOMPARE(read_size(width, height), std::optional(size));
        QCOMPARE(lines.lines(), QStringList());
    }

    void saysWhichSideIsNoNumber_data()
    {
        QTest::addColumn<QString>("width");
        QTest::addColumn<QString>("height");
        QTest::addColumn<QString>("line");
        const QString widthLine = QStringLiteral("ResizeDialog::result - width toString failed!");
        const QString heightLine = QStringLiteral("ResizeDialog::result - height toString failed!");
        QTest::newRow("letter in the width") << u"1x"_s << u"100"_s << widthLine;
        QTest::newRow("empty width") << u""_s << u"100"_s << widthLine;
        QTest::newRow("letter in the height") << u"100"_s << u"x1"_s << heightLine;
        QTest::newRow("empty height") << u"100"_s << u""_s << heightLine;
        QTest::newRow("both empty") << u""_s << u""_s << widthLine;
        QTest::newRow("no hexadecimal numbers") << u"0x10"_s << u"100"_s << widthLine;
        QTest::newRow("one above the largest int") << u"100"_s << u"2147483648"_s << heightLine;
    }

    void saysWhichSideIsNoNumber()
    {
        QFETCH(const QString, width);
        QFETCH(const QString, height);
        QFETCH(const QString, line);
        const DiagnosticLines lines;

        QVERIFY(!read_size(width, height).has_value());
        QCOMPARE(lines.lines(), QStringList(line));
    }

    void judgesASize_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("pixelLimit");
        QTest::addColumn<SizeVerdict>("verdict");
        QTest::newRow("smallest sides") << QSize(10, 10) << 100 << SizeVerdict::Good;
        QTest::newRow("one pixel more than fits") << QSize(10, 10) << 99 << SizeVerdict::TooLarge;
        QTest::newRow("narrow") << QSize(9, 100) << 1000000 << SizeVerdict::TooSmall;
        QTest::newRow("flat") << QSize(100, 9) << 1000000 << SizeVerdict::TooSmall;
        QTest::newRow("zero") << QSize(0, 0) << 1000000 << SizeVerdict::TooSmall;
        QTest::newRow("negative") << QSize(-100, 100) << 1000000 << SizeVerdict::TooSmall;
        QTest::newRow("small comes before large") << QSize(9, 100) << 0 << SizeVerdict::TooSmall;
        QTest::newRow("no memory") << QSize(10, 10) << 0 << SizeVerdict::TooLarge;
        // 1000 / 30 is 33: a remainder of the division does not count.
        QTest::newRow("just within") << QSize(30, 33) << 1000 << SizeVerdict::Good;
        QTest::newRow("just beyond") << QSize(30, 34) << 1000 << SizeVerdict::TooLarge;
        QTest::newRow("product beyond an int") << QSize(2147483647, 2147483647) << 209505484 << SizeVerdict::TooLarge;
    }

    void judgesASize()
    {
        QFETCH(const QSize, size);
        QFETCH(const int, pixelLimit);
        QFETCH(const SizeVerdict, verdict);

        QCOMPARE(judge_size(size, pixelLimit), verdict);
    }

    void judgesWhatCouldNotBeRead() { QCOMPARE(judge_size(std::nullopt, 1000000), SizeVerdict::NoNumber); }
};

QTEST_APPLESS_MAIN(tst_entered_size)
#include "tst_entered_size.moc"
