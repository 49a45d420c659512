#include "LocalFile.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

bool write_file(const QString &path, const QByteArray &bytes, QIODevice::OpenMode mode = QIODevice::WriteOnly)
{
    QFile file(path);
    return file.open(mode) && file.write(bytes) == bytes.size();
}

} // namespace

class tst_LocalFile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void isReadInBlocksFromItsBeginning();
    void skimmingGoesOnWithoutKeepingAnything();
    void onlyAPlainFileIsOpened_data();
    void onlyAPlainFileIsOpened();
    void fileThatWasReadIsRemoved();
    void linkGoesInPlaceOfItsFile();
    void whatWasNotReadStays_data();
    void whatWasNotReadStays();

private:
    std::unique_ptr<QTemporaryDir> directory;
    QString path;
};

void tst_LocalFile::init()
{
    directory = std::make_unique<QTemporaryDir>();
    path = directory->filePath(u"x.png"_s);
    QVERIFY(write_file(path, "0123456789"));
}

void tst_LocalFile::isReadInBlocksFromItsBeginning()
{
    LocalFile file;
    QVERIFY(file.open(path));

    QCOMPARE(file.size(), 10);
    QCOMPARE(file.read(4), QByteArray("0123"));
    QCOMPARE(file.read(40), QByteArray("456789"));
    QCOMPARE(file.read(4), QByteArray());
    QVERIFY(file.rewind());
    QCOMPARE(file.read(2), QByteArray("01"));
}

void tst_LocalFile::skimmingGoesOnWithoutKeepingAnything()
{
    QVERIFY(write_file(path, QByteArray(200'000, 'x') + "end"));
    LocalFile file;
    QVERIFY(file.open(path));

    QCOMPARE(file.skim(150'000), 150'000);
    QCOMPARE(file.skim(50'000), 50'000);
    QCOMPARE(file.read(40), QByteArray("end"));
    QCOMPARE(file.skim(1), 0);
}

void tst_LocalFile::onlyAPlainFileIsOpened_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("nothing there") << u"nothing"_s;
    QTest::newRow("folder") << u"folder"_s;
    QTest::newRow("pipe without a writer") << u"pipe"_s;
}

void tst_LocalFile::onlyAPlainFileIsOpened()
{
    QFETCH(const QString, kind);
    QVERIFY(QFile::remove(path));
    if (kind == "folder"_L1)
        QVERIFY(QDir().mkdir(path));
    if (kind == "pipe"_L1)
        QCOMPARE(::mkfifo(qPrintable(path), 0600), 0);
    LocalFile file;

    QVERIFY(!file.open(path));
}

void tst_LocalFile::fileThatWasReadIsRemoved()
{
    LocalFile file;
    QVERIFY(file.open(path));
    QCOMPARE(file.read(40)->size(), 10);

    QVERIFY(file.remove());

    QVERIFY(!QFileInfo::exists(path));
}

void tst_LocalFile::linkGoesInPlaceOfItsFile()
{
    const QString link = directory->filePath(u"link"_s);
    QVERIFY(QFile::link(path, link));
    LocalFile file;
    QVERIFY(file.open(link));

    QVERIFY(file.remove());

    QVERIFY(!QFileInfo(link).isSymLink());
    QVERIFY(QFileInfo::exists(path));
}

void tst_LocalFile::whatWasNotReadStays_data()
{
    QTest::addColumn<QString>("change");
    for (const char *change : {"grown", "shorter", "overwritten", "replaced", "gone"})
        QTest::addRow("%s", change) << QString::fromLatin1(change);
}

void tst_LocalFile::whatWasNotReadStays()
{
    QFETCH(const QString, change);
    LocalFile file;
    QVERIFY(file.open(path));
    if (change == "grown"_L1)
        QVERIFY(write_file(path, "more", QIODevice::Append));
    if (change == "shorter"_L1)
        QVERIFY(QFile::resize(path, 3));
    if (change == "overwritten"_L1) {
        QVERIFY(write_file(path, "9876543210"));
        // Clocks of file systems may be coarse.
        const std::array<timespec, 2> times{timespec{.tv_sec = 1, .tv_nsec = 0}, timespec{.tv_sec = 1, .tv_nsec = 0}};
        QCOMPARE(::utimensat(AT_FDCWD, qPrintable(path), times.data(), 0), 0);
    }
    if (change == "replaced"_L1) {
        QVERIFY(write_file(path + u"2"_s, "0123456789"));
        QVERIFY(QFile::remove(path) && QFile::rename(path + u"2"_s, path));
    }
    if (change == "gone"_L1)
        QVERIFY(QFile::remove(path));

    QVERIFY(!file.remove());

    QCOMPARE(QFileInfo::exists(path), change != "gone"_L1);
}

QTEST_GUILESS_MAIN(tst_LocalFile)
#include "tst_LocalFile.moc"
