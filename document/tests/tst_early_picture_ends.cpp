#include "early_picture.h"
#include "EarlyFiles.h"
#include "first_picture.h"
#include "image_files.h"
#include "ImageDocument.h"
#include "page_buffers.h"
#include "pictures.h"
#include "plain_pngs.h"
#include "threads.h"

#include <QFile>
#include <QTest>

#include <array>
#include <cstdlib>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// The check sum of a zlib stream (RFC 1950).
quint32 plain_adler32(const QByteArray &bytes)
{
    constexpr quint32 base = 65521;
    quint32 sum = 1;
    quint32 sumOfSums = 0;
    for (const char byte : bytes) {
        sum = (sum + static_cast<uchar>(byte)) % base;
        sumOfSums = (sumOfSums + sum) % base;
    }
    return sumOfSums << 16 | sum;
}

} // namespace

/// What changes between the early decoding and the load, and ends it.
class tst_early_picture_ends : public QObject, private EarlyFiles
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(directory.isValid()); }
    void aFileReplacedMeanwhileIsReadAgain();
    void aFileOverwrittenMeanwhileIsReadAgainThoughItsTimeIsPutBack();
    void aFileRenamedMeanwhileIsReadAgain();
    void aFileThatHasGoneIsNoFile();
    void aLoadThatFailsEndsTheThread();
    void aPipeIsNotWaitedFor();
    void anEndDuringTheDecodingIsAnOrdinaryEnd();
    void manyPagesAreMadeAndDroppedOnBothSides();
};

void tst_early_picture_ends::aFileReplacedMeanwhileIsReadAgain()
{
    const qsizetype threads = live_threads().size();
    const QString path = written(PlainPng{.seed = 1}.file());
    const QString next = written(PlainPng{.seed = 2}.file(), u"next"_s);
    const QImage nextPage = read_first_picture(next, u"png"_s);
    const EarlyPicture early(path);
    QTRY_COMPARE(live_threads().size(), threads); // decoded

    QCOMPARE(::rename(QFile::encodeName(next).constData(), QFile::encodeName(path).constData()), 0);
    const ImageDocument document(path, {});

    QVERIFY(compare_pictures(document.page(1), nextPage));
}

void tst_early_picture_ends::aFileOverwrittenMeanwhileIsReadAgainThoughItsTimeIsPutBack()
{
    const qsizetype threads = live_threads().size();
    const PlainPng png{.size = QSize(40, 30), .filter = 0};
    const QByteArray rows = png.storedRows();
    const auto stored = [&png](const QByteArray &bytes) { // as it is, so that both files are as long
        const qsizetype length = bytes.size();
        return png.fileOf("\x78\x01" + QByteArray(1, '\1') + little16(static_cast<int>(length))
                          + little16(static_cast<int>(~length & 0xffff)) + bytes + big32(plain_adler32(bytes)));
    };
    QByteArray others = rows;
    others[1] = static_cast<char>(others[1] + 1);
    const QString path = written(stored(rows));
    const FileStatus before = file_status(path);
    const EarlyPicture early(path);
    QTRY_COMPARE(live_threads().size(), threads); // decoded

    do {
        write_file(path, stored(others));
        const std::array<timespec, 2> times{before.st_atim, before.st_mtim};
        QCOMPARE(::utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times.data(), 0), 0);
    } while (file_status(path).st_ctim.tv_nsec == before.st_ctim.tv_nsec); // the clock of files ticks slowly
    QCOMPARE(file_status(path).st_size, before.st_size);
    QCOMPARE(file_status(path).st_ino, before.st_ino);
    QCOMPARE(file_status(path).st_mtim.tv_nsec, before.st_mtim.tv_nsec);
    const ImageDocument document(path, {});

    QCOMPARE(document.pageCount(), 1U);
    QVERIFY(compare_pictures(document.page(1), read_first_picture(path, u"png"_s)));
    write_file(path, stored(rows));
    QVERIFY(document.page(1) != read_first_picture(path, u"png"_s));
}

void tst_early_picture_ends::aFileRenamedMeanwhileIsReadAgain()
{
    const QString path = written(PlainPng().file());
    const EarlyPicture early(path);
    const QString moved = directory.filePath(u"moved"_s);
    QFile::remove(moved);
    QVERIFY(QFile::rename(path, moved));

    const ImageDocument document(moved, {});

    QCOMPARE(document.pageCount(), 1U);
}

void tst_early_picture_ends::aFileThatHasGoneIsNoFile()
{
    const qsizetype threads = live_threads().size();
    const QString path = written(largePng());
    const EarlyPicture early(path);
    QVERIFY(QFile::remove(path));

    const ImageDocument document(path, {});

    QCOMPARE(document.loadStatus, int{ImageDocument::LoadNoFile});
    QCOMPARE(live_threads().size(), threads);
}

void tst_early_picture_ends::aLoadThatFailsEndsTheThread()
{
    const qsizetype threads = live_threads().size();
    const QString path = written(largePng());
    for (const QString &first : {QString(), u"/nowhere/file"_s, directory.path()}) {
        const EarlyPicture early(path);

        const ImageDocument document(first, {});

        QVERIFY(document.isEmpty());
        QCOMPARE(live_threads().size(), threads);
        QVERIFY(early_page(path, u"png"_s).isNull());
    }
}

void tst_early_picture_ends::aPipeIsNotWaitedFor()
{
    const QString path = directory.filePath(u"pipe"_s);
    QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    const EarlyPicture early(path);

    const ImageDocument document(path, {});

    QVERIFY(document.isEmpty());
}

void tst_early_picture_ends::anEndDuringTheDecodingIsAnOrdinaryEnd()
{
    constexpr int status = 3;
    const QString path = written(largePng());
    for (int round = 0; round < 30; ++round) {
        const pid_t child = ::fork();
        if (child == 0) {
            const EarlyPicture early(path);
            std::exit(status); // leaves this scope standing
        }
        int ended = 0;
        QCOMPARE(::waitpid(child, &ended, 0), child);
        QVERIFY(WIFEXITED(ended));
        QCOMPARE(WEXITSTATUS(ended), status);
    }
}

void tst_early_picture_ends::manyPagesAreMadeAndDroppedOnBothSides()
{
    const QString path = written(largePng());
    const QImage expected = read_first_picture(path, u"png"_s);
    for (int round = 0; round < 20; ++round) {
        const EarlyPicture early(path);
        for (int i = 0; i < 50; ++i)
            QVERIFY(!new_page(QSize(1200, 900), QImage::Format_RGB32).isNull());

        QCOMPARE(early_page(path, u"png"_s), expected);
    }
}

QTEST_GUILESS_MAIN(tst_early_picture_ends)
#include "tst_early_picture_ends.moc"
