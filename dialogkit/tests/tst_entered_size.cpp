#include "DiagnosticLines.h"
#include "entered_size.h"

#include <QTest>

class tst_entered_size : public QObject
{
    Q_OBJECT

private slots:
    void readsBothSides_data();
    void readsBothSides();
    void saysWhichSideIsNoNumber_data();
    void saysWhichSideIsNoNumber();
    void judgesASize_data();
    void judgesASize();
    void judgesWhatCouldNotBeRead();
};

void tst_entered_size::readsBothSides_data()
{
    QTest::addColumn<QString>("width");
    QTest::addColumn<QString>("height");
    QTest::addColumn<QSize>("size");
    QTest::newRow("plain numbers") << "640"
                                   << "480" << QSize(640, 480);
    QTest::newRow("white space around") << " 640 "
                                        << "\t480" << QSize(640, 480);
    QTest::newRow("more than five digits") << "1000000"
                                           << "100000" << QSize(1000000, 100000);
    QTest::newRow("signs") << "+640"
                           << "-480" << QSize(640, -480);
    QTest::newRow("leading zeros are no octal") << "010"
                                                << "010" << QSize(10, 10);
}

void tst_entered_size::readsBothSides()
{
    QFETCH(const QString, width);
    QFETCH(const QString, height);
    QFETCH(const QSize, size);
    const DiagnosticLines lines;

    QCOMPARE(read_size(width, height), std::optional(size));
    QCOMPARE(lines.lines(), QStringList());
}

void tst_entered_size::saysWhichSideIsNoNumber_data()
{
    QTest::addColumn<QString>("width");
    QTest::addColumn<QString>("height");
    QTest::addColumn<QString>("line");
    const QString widthLine = QStringLiteral("ResizeDialog::result - width toString failed!");
    const QString heightLine = QStringLiteral("ResizeDialog::result - height toString failed!");
    QTest::newRow("letter in the width") << "1x"
                                         << "100" << widthLine;
    QTest::newRow("empty width") << ""
                                 << "100" << widthLine;
    QTest::newRow("letter in the height") << "100"
                                          << "x1" << heightLine;
    QTest::newRow("empty height") << "100"
                                  << "" << heightLine;
    QTest::newRow("both empty") << ""
                                << "" << widthLine;
    QTest::newRow("no hexadecimal numbers") << "0x10"
                                            << "100" << widthLine;
    QTest::newRow("one above the largest int") << "100"
                                               << "2147483648" << heightLine;
}

void tst_entered_size::saysWhichSideIsNoNumber()
{
    QFETCH(const QString, width);
    QFETCH(const QString, height);
    QFETCH(const QString, line);
    const DiagnosticLines lines;

    QVERIFY(!read_size(width, height).has_value());
    QCOMPARE(lines.lines(), QStringList(line));
}

void tst_entered_size::judgesASize_data()
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

void tst_entered_size::judgesASize()
{
    QFETCH(const QSize, size);
    QFETCH(const int, pixelLimit);
    QFETCH(const SizeVerdict, verdict);

    QCOMPARE(judge_size(size, pixelLimit), verdict);
}

void tst_entered_size::judgesWhatCouldNotBeRead()
{
    QCOMPARE(judge_size(std::nullopt, 1000000), SizeVerdict::NoNumber);
}

QTEST_APPLESS_MAIN(tst_entered_size)
#include "tst_entered_size.moc"
