// A process that is killed while it saves, or whose disk fails, leaves the old file or the new one.

#include "children.h"
#include "image_files.h"
#include "ImageDocument.h"
#include "noise_pages.h"
#include "pictures.h"
#include "TemporaryHome.h"
#include "tiff_pages.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <csignal>
#include <optional>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// How many steps of a save this process may still do; below 0 it may do all.
int stepsLeft = -1;

void do_step()
{
    if (stepsLeft == 0)
        ::raise(SIGKILL);
    if (stepsLeft > 0)
        --stepsLeft;
}

constexpr std::size_t PieceBytes = 1024;

ino_t unwritableFile = 0; ///< whose bytes do not reach the disk

} // namespace

// These stand before those of the C library, for the toolkit and the TIFF library as well. A long writing is done in
// pieces, as the system may do it.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the C library reserves the names it gives

extern "C" ssize_t pwrite64(int fd, const void *bytes, size_t count, off64_t position)
{
    do_step();
    const size_t piece = stepsLeft < 0 ? count : std::min(count, PieceBytes);
    return ::syscall(SYS_pwrite64, fd, bytes, piece, position);
}

extern "C" ssize_t pwrite(int fd, const void *bytes, size_t count, off_t position)
{
    return ::pwrite64(fd, bytes, count, position);
}

extern "C" int rename(const char *from, const char *to) noexcept
{
    do_step();
    return static_cast<int>(::syscall(SYS_rename, from, to));
}

extern "C" int fsync(int fd)
{
    do_step();
    struct stat status = {};
    if (::fstat(fd, &status) == 0 && status.st_ino == unwritableFile) {
        errno = EIO;
        return -1;
    }
    // Power cuts are not made here, and the disk of the machine is slow.
    return stepsLeft < 0 ? static_cast<int>(::syscall(SYS_fsync, fd)) : 0;
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

namespace {

/// Saves in a process of its own, which is killed before it does the step behind @p steps.
/// @return whether it was
bool is_killed_behind(int steps, ImageDocument &document, const QString &path, const QString &word)
{
    const int status = status_of_child([&] {
        stepsLeft = steps;
        return document.save(path, word) ? 0 : 1;
    });
    if (WIFEXITED(status) && WEXITSTATUS(status) != 0)
        qFatal("the save failed");
    return WIFSIGNALED(status);
}

/// Removes what killed processes left, and answers how many files that were.
qsizetype remove_drafts(const QString &path)
{
    QDir directory(path);
    const QStringList names = directory.entryList({u".imagemanager-*"_s}, QDir::Files | QDir::Hidden);
    for (const QString &name : names) {
        if (!directory.remove(name))
            qFatal("cannot remove a file");
    }
    return names.size();
}

} // namespace

class tst_target_file_kill : public QObject
{
    Q_OBJECT

private slots:
    void killedSaveLeavesAllPagesOfATiff()
    {
        const TemporaryHome home;
        const QTemporaryDir directory;
        const QString path = directory.filePath(u"a.tif"_s);
        ImageDocument pages({}, {});
        for (int side : {20, 250, 150})
            QVERIFY(pages.addPage(noise_page({side, side})));
        QVERIFY(pages.save(path, u"TIFF"_s));
        const QByteArray earlier = file_bytes(path);
        ImageDocument document(path, u"tif"_s);
        QVERIFY(document.invert(1));

        const QStringList pagesBefore = told_pages(path);

        int kills = 0;
        for (; is_killed_behind(kills, document, path, u"tif"_s) && file_bytes(path) == earlier; ++kills)
            remove_drafts(directory.path());

        QVERIFY(kills > 150);
        QVERIFY(file_bytes(path) != earlier); // once it is there, the new file is whole
        QCOMPARE(told_pages(path).mid(2), pagesBefore.mid(2));
        QVERIFY(compare_pictures(ImageDocument(path, u"tif"_s).page(1), document.page(1)));
        QCOMPARE(home.filesIn(u"tmp"_s), QStringList());
    }

    void killedSaveLeavesTheOldFileOrTheNewOne_data()
    {
        QTest::addColumn<QString>("word");
        QTest::addColumn<bool>("exists");
        QTest::addColumn<int>("leastKills");

        QTest::newRow("PNG") << u"PNG"_s << true << 100;
        QTest::newRow("BMP") << u"BMP"_s << true << 100;
        QTest::newRow("multi-page codec") << u"TIFF"_s << true << 100;
        QTest::newRow("plug-in's tiff") << u"tif"_s << true << 100;
        QTest::newRow("new file") << u"PPM"_s << false << 100;
    }

    void killedSaveLeavesTheOldFileOrTheNewOne()
    {
        QFETCH(const QString, word);
        QFETCH(const bool, exists);
        const TemporaryHome home;
        const QTemporaryDir directory;
        const QString path = directory.filePath(u"a"_s);
        ImageDocument document({}, {});
        QVERIFY(document.addPage(noise_page({200, 200}))); // 120,000 bytes of colours
        QVERIFY(document.save(path, word));
        const QByteArray whole = file_bytes(path);
        if (exists)
            write_file(path, "earlier");
        else
            QVERIFY(QFile::remove(path));
        const QByteArray earlier = exists ? "earlier" : "";

        int kills = 0;
        for (bool isWhole = false; is_killed_behind(kills, document, path, word); ++kills) {
            const bool isThere = QFile::exists(path);
            const QByteArray bytes = isThere ? file_bytes(path) : QByteArray();
            isWhole = isWhole || bytes == whole;
            QVERIFY2(isWhole ? bytes == whole : bytes == earlier && isThere == exists, qPrintable(u"%1"_s.arg(kills)));
            // What the killed process was writing lies beside, and nothing else.
            QCOMPARE(remove_drafts(directory.path()), isWhole ? 0 : 1);
        }

        QFETCH(const int, leastKills);
        QVERIFY(kills >= leastKills);
        QVERIFY(file_bytes(path) == whole);
        QCOMPARE(home.filesIn(u"tmp"_s), QStringList());
    }

    void copyThatBreaksOffLeavesTheWholeNewFileAndTellsWhere()
    {
        const TemporaryHome home;
        QVERIFY(QDir(home.path()).mkdir(u"tmp"_s));
        const QTemporaryDir directory;
        const QByteArray path = QFile::encodeName(directory.filePath(u"a"_s));
        ImageDocument document({}, {});
        QVERIFY(document.addPage(noise_page({20, 20})));
        QVERIFY(document.save(directory.filePath(u"whole"_s), u"PNG"_s));
        write_file(directory.filePath(u"a"_s), "earlier");
        QCOMPARE(::link(path.constData(), (path + " link").constData()), 0); // so no new file can take its place
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^write_target - the whole new file is .*/tmp/"_s));

        unwritableFile = file_status(directory.filePath(u"a"_s)).st_ino;
        const bool isSaved = document.save(directory.filePath(u"a"_s), u"PNG"_s);
        unwritableFile = 0;

        QVERIFY(!isSaved);
        QCOMPARE(home.filesIn(u"tmp"_s).size(), 1);
        const QString kept = home.filePath(u"tmp/"_s + home.filesIn(u"tmp"_s).first());
        QCOMPARE(file_bytes(kept), file_bytes(directory.filePath(u"whole"_s)));
    }
};

QTEST_GUILESS_MAIN(tst_target_file_kill)
#include "tst_target_file_kill.moc"
