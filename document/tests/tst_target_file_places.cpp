// Saving where no file of ours can take the place of the old one.

#include "children.h"
#include "image_files.h"
#include "private_mounts.h"
#include "target_file.h"
#include "TemporaryHome.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <cerrno>
#include <cstddef>
#include <functional>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <optional>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 MiB = qint64{1024} * 1024;

TargetOutcome write(const QString &path, const QByteArray &bytes)
{
    return write_target(path,
                        [&](TargetFile &file) { return file.write(bytes.constData(), bytes.size()) == bytes.size(); });
}

/// Saves as a user who may do no more than others, in a process of that user's own.
/// @return the step that the outcome names; -1 if the process broke off
int step_for_another_user(const QString &path, const QByteArray &bytes)
{
    const int status = status_of_child([&] { return give_up_privileges() ? write(path, bytes).step : 100; });
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Has the system say from now on that it cannot reserve room, as some file systems do.
bool refuse_to_reserve_room()
{
    std::array<sock_filter, 4> program{{
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_fallocate, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EOPNOTSUPP),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    }};
    const sock_fprog filter{.len = program.size(), .filter = program.data()};
    return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

/// Saves where no room can be reserved, in a process of its own.
/// @return the step that the outcome names; -1 if the process broke off
int step_without_reserving(const QString &path, const QByteArray &bytes)
{
    const int status = status_of_child([&] { return refuse_to_reserve_room() ? write(path, bytes).step : 100; });
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

class tst_target_file_places : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        home.emplace();
        directory.emplace();
        QVERIFY(QDir(home->path()).mkdir(u"tmp"_s));
        // The other user's as well.
        QCOMPARE(::chmod(qPrintable(home->path()), 0777), 0);
        QCOMPARE(::chmod(qPrintable(home->filePath(u"tmp"_s)), 0777), 0);
        QCOMPARE(::chmod(qPrintable(directory->path()), 0777), 0);
    }
    void cleanup()
    {
        QCOMPARE(home->filesIn(u"tmp"_s), QStringList()); // no test leaves anything there
        directory.reset();
        home.reset();
    }

    void fileThatIsAMountPointGetsTheNewBytes()
    {
        write_file(path(u"a"_s), "earlier, and longer");
        write_file(path(u"elsewhere"_s), "earlier, and longer");
        const PrivateMount mount(QFile::encodeName(path(u"elsewhere"_s)), QFile::encodeName(path(u"a"_s)), nullptr,
                                 MS_BIND);

        QCOMPARE(write(path(u"a"_s), "new").step, TargetOutcome::Done);

        QCOMPARE(file_bytes(path(u"elsewhere"_s)), "new");
        QCOMPARE(names(), (QStringList{u"a"_s, u"elsewhere"_s}));
    }

    void ownerThatCannotBeGivenOnStays()
    {
        write_file(path(u"a"_s), "earlier, and longer");
        QCOMPARE(::chmod(qPrintable(path(u"a"_s)), 0666), 0);
        const FileStatus before = file_status(path(u"a"_s));

        QCOMPARE(step_for_another_user(path(u"a"_s), "new"), int{TargetOutcome::Done});

        QCOMPARE(file_bytes(path(u"a"_s)), "new");
        QCOMPARE(file_status(path(u"a"_s)).st_uid, before.st_uid);
        QCOMPARE(file_status(path(u"a"_s)).st_mode, before.st_mode);
        QCOMPARE(names(), QStringList{u"a"_s});
    }

    void ownerIsGivenOnByWhoMay()
    {
        if (::geteuid() != 0)
            QSKIP("only root gives files away");
        write_file(path(u"a"_s), "earlier");
        QCOMPARE(::chown(qPrintable(path(u"a"_s)), 12345, 23456), 0);
        QCOMPARE(::chmod(qPrintable(path(u"a"_s)), 0640), 0);
        const FileStatus before = file_status(path(u"a"_s));

        QCOMPARE(write(path(u"a"_s), "new").step, TargetOutcome::Done);

        const FileStatus after = file_status(path(u"a"_s));
        QVERIFY(after.st_ino != before.st_ino);
        QCOMPARE(after.st_uid, 12345U);
        QCOMPARE(after.st_gid, 23456U);
        QCOMPARE(after.st_mode & 07777, 0640U);
    }

    void directoryWithoutRightToMakeFilesIsNoHindrance()
    {
        write_file(path(u"a"_s), "earlier, and longer");
        QCOMPARE(::chmod(qPrintable(path(u"a"_s)), 0666), 0);
        QCOMPARE(::chmod(qPrintable(directory->path()), 0555), 0);

        QCOMPARE(step_for_another_user(path(u"a"_s), "new"), int{TargetOutcome::Done});
        QCOMPARE(step_for_another_user(path(u"b"_s), "new"), int{TargetOutcome::NotOpened});

        QCOMPARE(file_bytes(path(u"a"_s)), "new");
        QCOMPARE(names(), QStringList{u"a"_s});
        QCOMPARE(::chmod(qPrintable(directory->path()), 0777), 0);
    }

    void fileWithoutRightToWriteIsRefused()
    {
        write_file(path(u"a"_s), "earlier");
        QCOMPARE(::chmod(qPrintable(path(u"a"_s)), 0644), 0);

        QCOMPARE(step_for_another_user(path(u"a"_s), "new"), int{TargetOutcome::NotOpened});

        QCOMPARE(file_bytes(path(u"a"_s)), "earlier");
    }

    void diskWithoutRoomForBothTakesTheNewOneAlone()
    {
        const SmallDisk disk;
        const QString name = disk.filePath(u"a"_s);
        write_file(name, QByteArray(MiB * 5 / 4, 'a'));
        const QByteArray bytes(MiB * 3 / 2, 'b');

        QCOMPARE(write(name, bytes).step, TargetOutcome::Done);

        QVERIFY(file_bytes(name) == bytes);
        QCOMPARE(QDir(QFile::decodeName(disk.path())).entryList(QDir::Files | QDir::Hidden), QStringList{u"a"_s});
    }

    void diskWithoutRoomForTheNewOneKeepsTheOld()
    {
        const SmallDisk disk;
        const QString name = disk.filePath(u"a"_s);
        const QByteArray earlier(MiB, 'a');
        write_file(name, earlier);

        const TargetOutcome outcome = write(name, QByteArray(SmallDisk::Bytes + 1, 'b'));

        QCOMPARE(outcome.step, TargetOutcome::NotWritten);
        QCOMPARE(outcome.reason, u"No space left on device"_s);
        QVERIFY(file_bytes(name) == earlier);
        QVERIFY(file_status(name).st_blocks * 512 < MiB + MiB / 10); // and no room that it does not need
        QCOMPARE(QDir(QFile::decodeName(disk.path())).entryList(QDir::Files | QDir::Hidden), QStringList{u"a"_s});
    }

    void roomThatCannotBeReservedIsCounted()
    {
        const SmallDisk disk;
        const QString name = disk.filePath(u"a"_s);
        const QByteArray earlier(MiB * 3 / 2, 'a');
        write_file(name, earlier);

        QCOMPARE(step_without_reserving(name, QByteArray(SmallDisk::Bytes + 1, 'b')), int{TargetOutcome::NotWritten});
        QVERIFY(file_bytes(name) == earlier);

        QCOMPARE(step_without_reserving(name, QByteArray(MiB, 'c')), int{TargetOutcome::Done}); // in the old one's room
        QVERIFY(file_bytes(name) == QByteArray(MiB, 'c'));
    }

    void noRoomForTheSnapshotsEitherKeepsTheOld()
    {
        const SmallDisk disk;
        const PrivateMount sameDisk(disk.path(), QFile::encodeName(home->filePath(u"tmp"_s)), nullptr, MS_BIND);
        const QString name = disk.filePath(u"a"_s);
        const QByteArray earlier(MiB * 3 / 2, 'a');
        write_file(name, earlier);
        int calls = 0;

        const TargetOutcome outcome = write_target(name, [&calls](TargetFile &file) {
            ++calls;
            return file.write(QByteArray(MiB, 'b')) == MiB;
        });

        QCOMPARE(outcome.step, TargetOutcome::NotWritten);
        QCOMPARE(outcome.reason, u"No space left on device"_s);
        QCOMPARE(calls, 1); // a second disk is not there
        QVERIFY(file_bytes(name) == earlier);
        QVERIFY(QFile::remove(name)); // seen in the home too
    }

    void newFileThatDoesNotFitLeavesNothing()
    {
        const SmallDisk disk;

        const TargetOutcome outcome = write(disk.filePath(u"a"_s), QByteArray(SmallDisk::Bytes + 1, 'b'));

        QCOMPARE(outcome.step, TargetOutcome::NotWritten);
        QCOMPARE(outcome.reason, u"No space left on device"_s);
        QCOMPARE(QDir(QFile::decodeName(disk.path())).entryList(QDir::Files | QDir::Hidden), QStringList());
    }

private:
    [[nodiscard]] QString path(const QString &name) const { return directory->filePath(name); }
    [[nodiscard]] QStringList names() const
    {
        return QDir(directory->path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }

    std::optional<TemporaryHome> home;
    std::optional<QTemporaryDir> directory;
};

TEST_MAIN_APART(QCoreApplication, tst_target_file_places, leave_common_mounts)

#include "tst_target_file_places.moc"
