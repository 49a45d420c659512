#include "AppContext.h"
#include "files.h"
#include "plain_oem_ini.h"

#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <cstring>
#include <random>

using namespace Qt::StringLiterals;

class tst_oem_ini : public QObject
{
    Q_OBJECT

private:
    /// Reads a file of these bytes into the record.
    [[nodiscard]] int readBytes(const QByteArray &bytes)
    {
        write_file(m_directory.filePath(u"OEM.ini"_s), bytes);
        return read_oem_ini(path().constData());
    }

    [[nodiscard]] QByteArray path() const { return QFile::encodeName(m_directory.filePath(u"OEM.ini"_s)); }

    QTemporaryDir m_directory;

private slots:
    void init() { actx = AppContext(); }

    void emptyFileGivesTheDefaults()
    {
        QCOMPARE(readBytes({}), 0);

        QCOMPARE(actx.multivendor, 0);
        QCOMPARE(actx.parport, 1);
        QCOMPARE(actx.portplugin, 1);
        QCOMPARE(actx.scanner, 1);
        QCOMPARE(actx.update_printer_group, 1);
        QCOMPARE(actx.model_count, 0);
        QCOMPARE(actx.plugin_count, 0);
        QCOMPARE(actx.vendor, "");
        QCOMPARE(actx.url, "");
    }

    void missingFileChangesNothing()
    {
        QCOMPARE(readBytes("VENDOR=Acme\nMODEL=x1\nSCANNER=0\n"), 0);
        const AppContext before = actx;

        QCOMPARE(read_oem_ini("/nonexistent/OEM.ini"), -1);

        QVERIFY(std::memcmp(&before, &actx, sizeof actx) == 0);
    }

    void secondFileReplacesFlagsAndListsAndKeepsTexts()
    {
        QCOMPARE(readBytes("VENDOR=Acme\nURL=u\nMODEL=x1\nPLUGIN=p\nMULTIVENDOR=1\nSCANNER=0\n"), 0);

        QCOMPARE(readBytes("MODEL=y1\n"), 0);

        QCOMPARE(actx.vendor, "Acme");
        QCOMPARE(actx.url, "u");
        QCOMPARE(actx.multivendor, 0);
        QCOMPARE(actx.scanner, 1);
        QCOMPARE(actx.model_count, 1);
        QCOMPARE(actx.model[0], "y1");
        QCOMPARE(actx.plugin_count, 0);
    }

    void flagsAreWholeNumbers_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<int>("number");

        QTest::newRow("0") << QByteArray("0") << 0;
        QTest::newRow("2") << QByteArray("2") << 2;
        QTest::newRow("negative") << QByteArray("-3") << -3;
        QTest::newRow("blanks and plus in front") << QByteArray("  +7") << 7;
        QTest::newRow("decimal only") << QByteArray("010") << 10;
        QTest::newRow("what follows is passed over") << QByteArray("5 pieces") << 5;
        QTest::newRow("no number") << QByteArray("yes") << 0;
        QTest::newRow("nothing") << QByteArray("") << 0;
    }

    void flagsAreWholeNumbers()
    {
        QFETCH(const QByteArray, value);
        QFETCH(const int, number);
        QByteArray lines;
        for (const char *key : {"MULTIVENDOR=", "PARPORT=", "PORTPLUGIN=", "SCANNER=", "UPDATE_PRINTER_GROUP="})
            lines += key + value + '\n';

        QCOMPARE(readBytes(lines), 0);

        QCOMPARE(actx.multivendor, number);
        QCOMPARE(actx.parport, number);
        QCOMPARE(actx.portplugin, number);
        QCOMPARE(actx.scanner, number);
        QCOMPARE(actx.update_printer_group, number);
    }

    void numbersBeyondEveryRangeDoNoHarm()
    {
        QCOMPARE(readBytes("SCANNER=" + QByteArray(400, '9') + "\nPARPORT=-" + QByteArray(400, '9') + '\n'), 0);

        QVERIFY(is_sound(actx));
        QVERIFY(is_same(actx, plain_oem_ini(path().constData(), AppContext())));
    }

    void multivendorIsNoVendor()
    {
        QCOMPARE(readBytes("MULTIVENDOR=2\n"), 0);

        QCOMPARE(actx.multivendor, 2);
        QCOMPARE(actx.vendor, "");
    }

    void portpluginIsNoPlugin()
    {
        QCOMPARE(readBytes("PORTPLUGIN=0\n"), 0);

        QCOMPARE(actx.portplugin, 0);
        QCOMPARE(actx.plugin_count, 0);
    }

    void keyIsFoundAnywhereInItsLine()
    {
        QCOMPARE(readBytes("#VENDOR=x\n  the URL=http://a/b?c=d \nMY_MODEL=m\n"), 0);

        QCOMPARE(actx.vendor, "x");
        QCOMPARE(actx.url, "http://a/b?c=d ");
        QCOMPARE(actx.model_count, 1);
        QCOMPARE(actx.model[0], "m");
    }

    void earlierKeyOfTheTableDecidesTheLine()
    {
        QCOMPARE(readBytes("MODEL=m URL=u\nPLUGIN=p SCANNER=0 VENDOR=v\n"), 0);

        QCOMPARE(actx.url, "u");
        QCOMPARE(actx.model_count, 0);
        QCOMPARE(actx.scanner, 0);
        QCOMPARE(actx.plugin_count, 0);
        QCOMPARE(actx.vendor, "");
    }

    void firstOfTwoEqualKeysDecides()
    {
        QCOMPARE(readBytes("VENDOR=a VENDOR=b\n"), 0);

        QCOMPARE(actx.vendor, "a VENDOR=b");
    }

    void keysAreCaseSensitiveAndNeedTheirSign()
    {
        QCOMPARE(readBytes("vendor=a\nVENDOR =b\nVENDOR\n=c\n"), 0);

        QCOMPARE(actx.vendor, "");
    }

    void vendorIsKeptInThreeCases()
    {
        QCOMPARE(readBytes("VENDOR=Acme Print 3\n"), 0);

        QCOMPARE(actx.vendor, "Acme Print 3");
        QCOMPARE(actx.vendor_lc, "acme print 3");
        QCOMPARE(actx.vendor_uc, "ACME PRINT 3");
    }

    void vendorOfMoreThan31CharactersIsCutInEveryCase()
    {
        QCOMPARE(readBytes("VENDOR=Abcdefghijklmnopqrstuvwxyz0123456789\n"), 0);

        QCOMPARE(actx.vendor, "Abcdefghijklmnopqrstuvwxyz01234");
        QCOMPARE(actx.vendor_lc, "abcdefghijklmnopqrstuvwxyz01234");
        QCOMPARE(actx.vendor_uc, "ABCDEFGHIJKLMNOPQRSTUVWXYZ01234");
    }

    void everyTextIsCutToItsField()
    {
        const QByteArray tooLong(400, 'y');

        QCOMPARE(readBytes("URL=" + tooLong + "\nMODEL=" + tooLong + "\nPLUGIN=" + tooLong + '\n'), 0);

        QCOMPARE(actx.url, QByteArray(255, 'y').constData());
        QCOMPARE(actx.model[0], QByteArray(15, 'y').constData());
        QCOMPARE(actx.plugin[0], tooLong.constData()); // a line is shorter than the field
    }

    void carriageReturnStaysInAText()
    {
        QCOMPARE(readBytes("VENDOR=a\r\nSCANNER=0\r\n"), 0);

        QCOMPARE(actx.vendor, "a\r");
        QCOMPARE(actx.vendor_uc, "A\r");
        QCOMPARE(actx.scanner, 0);
    }

    void modelsBeyond32AndPluginsBeyond5AreDropped()
    {
        QByteArray lines;
        for (int i = 1; i <= 33; ++i)
            lines += "MODEL=m" + QByteArray::number(i) + '\n';
        for (int i = 1; i <= 6; ++i)
            lines += "PLUGIN=p" + QByteArray::number(i) + '\n';

        QCOMPARE(readBytes(lines), 0);

        QCOMPARE(actx.model_count, 32);
        QCOMPARE(actx.model[31], "m32");
        QCOMPARE(actx.plugin_count, 5);
        QCOMPARE(actx.plugin[4], "p5");
        QCOMPARE(actx.multivendor, 0);
    }

    void lineOf511BytesIsReadWhole()
    {
        const QByteArray value(511 - 7, 'p');

        QCOMPARE(readBytes("PLUGIN=" + value + "\nPLUGIN=q\n"), 0);

        QCOMPARE(actx.plugin[0], value.constData());
        QCOMPARE(actx.plugin_count, 2);
    }

    void longerLineCountsAsSeveral()
    {
        // The first line ends after "URL", which makes its "=" a part of the second.
        QCOMPARE(readBytes(QByteArray(508, '-') + "URL=a\n" + QByteArray(511, '-') + "VENDOR=b\n"), 0);

        QCOMPARE(actx.url, "");
        QCOMPARE(actx.vendor, "b");
    }

    void lastLineNeedsNoEnd()
    {
        QCOMPARE(readBytes("VENDOR=a\nURL=u"), 0);

        QCOMPARE(actx.url, "u");
    }

    void zeroByteHidesTheRestOfItsLine()
    {
        QCOMPARE(readBytes(QByteArray("VENDOR=a\0b\nx\0URL=u\nMODEL=m\n", 27)), 0);

        QCOMPARE(actx.vendor, "a");
        QCOMPARE(actx.url, "");
        QCOMPARE(actx.model[0], "m");
    }

    void hostileFilesKeepEveryLimit_data()
    {
        QTest::addColumn<QByteArray>("bytes");

        constexpr int mebibyte = 1 << 20;
        QTest::newRow("a line of 1 MiB") << QByteArray(mebibyte, 'x');
        QTest::newRow("a value of 1 MiB") << "VENDOR=" + QByteArray(mebibyte, 'v');
        QTest::newRow("1 MiB of signs") << QByteArray(mebibyte, '=');
        QTest::newRow("1 MiB of keys in one line") << QByteArray("MODEL=").repeated(mebibyte / 6);
        QTest::newRow("1 MiB of zero bytes") << QByteArray(mebibyte, '\0');
        QTest::newRow("1 MiB of bytes beyond ASCII") << "VENDOR=" + QByteArray(mebibyte, '\xff');
        QTest::newRow("a million models") << QByteArray("MODEL=0123456789abcdefghij\n").repeated(1'000'000);
        QTest::newRow("a million plug-ins") << QByteArray("PLUGIN=p\n").repeated(1'000'000);
        QTest::newRow("a million vendors")
            << QByteArray("VENDOR=0123456789abcdefghijklmnopqrstuvwxyz\n").repeated(1'000'000);
        QTest::newRow("a million empty lines") << QByteArray(1'000'000, '\n');
        QTest::newRow("a number of 1 MiB") << "SCANNER=" + QByteArray(mebibyte, '9');
    }

    void hostileFilesKeepEveryLimit()
    {
        QFETCH(const QByteArray, bytes);

        QCOMPARE(readBytes(bytes), 0);

        QVERIFY(is_sound(actx));
        QVERIFY(is_same(actx, plain_oem_ini(path().constData(), AppContext())));
    }

    void randomFilesReadAsThePlainWayReadsThem()
    {
        // Parts that make keys, ends of lines and lines of about the limit meet in all ways.
        const std::array<QByteArray, 16> parts{"MULTIVENDOR=",
                                               "PARPORT=",
                                               "PORTPLUGIN=",
                                               "SCANNER=",
                                               "UPDATE_PRINTER_GROUP=",
                                               "VENDOR=",
                                               "URL=",
                                               "MODEL=",
                                               "PLUGIN=",
                                               "\n",
                                               "12",
                                               "=",
                                               QByteArray(1, '\0'),
                                               "\r\n",
                                               "Acme",
                                               QByteArray(100, '-')};
        std::mt19937 random(1);
        for (int i = 0; i < 500; ++i) {
            QByteArray bytes;
            for (auto n = random() % 200; n > 0; --n)
                bytes += parts.at(random() % parts.size());
            const AppContext before = actx;

            QCOMPARE(readBytes(bytes), 0);

            QVERIFY(is_sound(actx));
            QVERIFY2(is_same(actx, plain_oem_ini(path().constData(), before)), bytes.toPercentEncoding().constData());
        }
    }
};

QTEST_APPLESS_MAIN(tst_oem_ini)
#include "tst_oem_ini.moc"
