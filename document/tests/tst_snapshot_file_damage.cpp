#include "image_files.h"
#include "page_image.h"
#include "pictures.h"
#include "snapshot_file.h"
#include "snapshot_pages.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class tst_snapshot_file_damage : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void fileCutAnywhereIsAFailure_data();
    void fileCutAnywhereIsAFailure();
    void whatIsNoBmpFileIsAFailure_data();
    void whatIsNoBmpFileIsAFailure();
    void whatIsNoFileIsAFailure();
    void linkIsAFailureWhateverItNames();
    void fileOfAnotherUserIsAFailure();
    void pipeIsAFailureAndNotWaitedFor();
    void foreignBmpFilesAreReadAsTheToolkitReadsThem_data();
    void foreignBmpFilesAreReadAsTheToolkitReadsThem();
    void damagedHeaderGivesNothingThatTheToolkitDoesNotRead_data();
    void damagedHeaderGivesNothingThatTheToolkitDoesNotRead();
    void sizeThatOverflowsIsAFailure();

private:
    QTemporaryDir m_directory;
    QString m_path;
};

void tst_snapshot_file_damage::init()
{
    QVERIFY(m_directory.isValid());
    m_path = m_directory.filePath("page.bmp"_L1);
    QFile::remove(m_path);
}

void tst_snapshot_file_damage::fileCutAnywhereIsAFailure_data()
{
    QTest::addColumn<QByteArray>("file");

    QRandomGenerator random(Seed);
    const QSize size(13, 5);
    QTest::newRow("1 bit") << encoded(random_page(size, QImage::Format_Mono, 2, random), "BMP");
    QTest::newRow("4 bits") << encoded(random_page(size, QImage::Format_Indexed8, 7, random), "BMP");
    QTest::newRow("8 bits") << encoded(random_page(size, QImage::Format_Indexed8, 30, random), "BMP");
    QTest::newRow("24 bits") << encoded(random_page(size, QImage::Format_RGB32, 0, random), "BMP");
}

void tst_snapshot_file_damage::fileCutAnywhereIsAFailure()
{
    QFETCH(const QByteArray, file);

    for (qsizetype length = 0; length < file.size(); ++length) {
        put_file(m_path, file.first(length));
        QVERIFY2(read_snapshot(m_path).isNull(), qPrintable(u"%1 bytes"_s.arg(length)));
    }
    put_file(m_path, file);
    QVERIFY(!read_snapshot(m_path).isNull());
}

void tst_snapshot_file_damage::whatIsNoBmpFileIsAFailure_data()
{
    QTest::addColumn<QByteArray>("file");

    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("two letters") << QByteArray("BM");
    QTest::newRow("text") << QByteArray(1000, 'a');
    QTest::newRow("text that begins well") << "BM" + QByteArray(1000, 'a');
    QTest::newRow("zeros") << QByteArray(1000, '\0');
    QTest::newRow("PNG") << encoded(patterned_page({20, 20}), "PNG");
}

void tst_snapshot_file_damage::whatIsNoBmpFileIsAFailure()
{
    QFETCH(const QByteArray, file);
    put_file(m_path, file);

    QVERIFY(read_snapshot(m_path).isNull());
}

void tst_snapshot_file_damage::whatIsNoFileIsAFailure()
{
    QVERIFY(read_snapshot(m_path).isNull());
    QVERIFY(read_snapshot(m_directory.path()).isNull());
    QVERIFY(read_snapshot(u"/dev/zero"_s).isNull());
}

void tst_snapshot_file_damage::linkIsAFailureWhateverItNames()
{
    const QString other = m_directory.filePath("other.bmp"_L1);
    put_file(other, encoded(patterned_page({3, 2}), "BMP"));
    QVERIFY(!read_snapshot(other).isNull());
    QVERIFY(QFile::link(other, m_path));

    QVERIFY(read_snapshot(m_path).isNull());
}

void tst_snapshot_file_damage::fileOfAnotherUserIsAFailure()
{
    if (::geteuid() != 0)
        QSKIP("only root gives files away");
    put_file(m_path, encoded(patterned_page({3, 2}), "BMP"));
    QCOMPARE(::chown(QFile::encodeName(m_path).constData(), 12345, 0), 0);

    QVERIFY(read_snapshot(m_path).isNull());
}

void tst_snapshot_file_damage::pipeIsAFailureAndNotWaitedFor()
{
    QCOMPARE(mkfifo(QFile::encodeName(m_path).constData(), 0600), 0);

    QVERIFY(read_snapshot(m_path).isNull());
}

void tst_snapshot_file_damage::foreignBmpFilesAreReadAsTheToolkitReadsThem_data()
{
    QTest::addColumn<QByteArray>("file");

    const QByteArray own = encoded(patterned_page({3, 2}), "BMP");
    QTest::newRow("more behind the pixels") << own + "and more";
    QTest::newRow("from the top") << bmp_file(2, -2, 24, {}, QByteArray("abcdef\0\0ghijkl\0\0", 16));
    QTest::newRow("other resolution fields") << bmp_file(2, 2, 24, {}, QByteArray("abcdef\0\0ghijkl\0\0", 16));
    QTest::newRow("16 bits") << bmp_file(2, 2, 16, {}, QByteArray("abcdefgh"));
    QTest::newRow("32 bits") << bmp_file(2, 2, 32, {}, QByteArray("abcdefghijklmnop"));
    QTest::newRow("4 bits, whole table") << bmp_file(2, 1, 4, QList<QRgb>(16, 0x123456), QByteArray("\x12\0\0\0", 4));
    QTest::newRow("8 bits, short table") << bmp_file(2, 1, 8, {0x000000, 0xff0000, 0x00ff00},
                                                     QByteArray("\1\2\0\0", 4));
}

void tst_snapshot_file_damage::foreignBmpFilesAreReadAsTheToolkitReadsThem()
{
    QFETCH(const QByteArray, file);
    put_file(m_path, file);

    const QImage page = read_snapshot(m_path);

    QVERIFY(!page.isNull());
    QVERIFY(is_same_page(page, toolkit_page(file)));
}

void tst_snapshot_file_damage::damagedHeaderGivesNothingThatTheToolkitDoesNotRead_data()
{
    fileCutAnywhereIsAFailure_data();
}

void tst_snapshot_file_damage::damagedHeaderGivesNothingThatTheToolkitDoesNotRead()
{
    constexpr qsizetype CompressionAt = 30;
    QFETCH(const QByteArray, file);

    for (qsizetype i = 0; i < 54; ++i) {
        for (const int value : {0x00, 0x01, 0x7f, 0x80, 0xff}) {
            QByteArray damaged = file;
            damaged[i] = static_cast<char>(value);
            put_file(m_path, damaged);

            const QImage page = read_snapshot(m_path);

            // A file that cannot be complete is refused, even if the toolkit makes something of it.
            if (page.isNull())
                continue;
            const QImage expected = with_positive_resolution(toolkit_page(damaged)); // as every page has it
            QCOMPARE(page.size(), expected.size());
            // Where runs of pixels are announced and none come, the toolkit's own pixels are by chance.
            if (i != CompressionAt)
                QVERIFY2(is_same_page(page, expected), qPrintable(u"byte %1 is %2"_s.arg(i).arg(value)));
        }
    }
}

void tst_snapshot_file_damage::sizeThatOverflowsIsAFailure()
{
    QByteArray file = encoded(patterned_page({3, 2}), "BMP");
    for (const qint64 side : {0x7fffffffLL, 0x40000000LL, 0x10000LL, -0x80000000LL}) {
        file.replace(18, 8, little32(side) + little32(side));
        put_file(m_path, file);

        QVERIFY(read_snapshot(m_path).isNull());
    }
}

QTEST_GUILESS_MAIN(tst_snapshot_file_damage)
#include "tst_snapshot_file_damage.moc"
