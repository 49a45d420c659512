// Whatever is saved: how its file comes into its place.

#include "descriptor.h"
#include "image_files.h"
#include "target_file.h"
#include "TemporaryHome.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// Writes some bytes, or all but the last and then gives up.
auto bytes_of(const QByteArray &bytes, bool isWhole = true)
{
    return [=](TargetFile &file) {
        const qsizetype count = isWhole ? bytes.size() : bytes.size() - 1;
        return file.write(bytes.constData(), count) == count && isWhole;
    };
}

TargetOutcome write(const QString &path, const QByteArray &bytes)
{
    return write_target(path, bytes_of(bytes));
}

/// A mask that takes nothing away or some rights, for a while.
class Mask
{
public:
    explicit Mask(mode_t mask) : former(::umask(mask)) { }
    ~Mask() { ::umask(former); }
    Q_DISABLE_COPY_MOVE(Mask)

private:
    mode_t former;
};

/// An access list in the form of the file system: owner, one other user, group, the most they all get, others.
QByteArray access_list()
{
    const auto entry = [](int tag, int rights, qint64 id) { return little16(tag) + little16(rights) + little32(id); };
    return little32(2) + entry(0x01, 6, -1) + entry(0x02, 4, 12345) + entry(0x04, 4, -1) + entry(0x10, 4, -1)
        + entry(0x20, 0, -1);
}

QByteArray attribute(const QString &path, const char *name)
{
    QByteArray value(1000, '\0');
    const ssize_t size = ::getxattr(QFile::encodeName(path).constData(), name, value.data(), 1000);
    return size < 0 ? QByteArray() : value.first(size);
}

bool set_attribute(const QString &path, const char *name, const QByteArray &value)
{
    return ::setxattr(QFile::encodeName(path).constData(), name, value.constData(),
                      static_cast<std::size_t>(value.size()), 0)
        == 0;
}

} // namespace

class tst_target_file : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        home.emplace();
        directory.emplace();
        QVERIFY(directory->isValid());
    }
    void cleanup()
    {
        QCOMPARE(home->filesIn(u"tmp"_s), QStringList()); // no test leaves anything there
        directory.reset();
        home.reset();
    }

    void newFileHasTheRightsThatTheUserGives()
    {
        const Mask mask(0027);

        QCOMPARE(write(path(u"a"_s), "new").step, TargetOutcome::Done);

        QCOMPARE(file_bytes(path(u"a"_s)), "new");
        QCOMPARE(file_status(path(u"a"_s)).st_mode & 07777, 0640U);
        QCOMPARE(names(), QStringList{u"a"_s});
    }

    void oldFileIsThereUntilTheNewOneIsWhole()
    {
        write_file(path(u"a"_s), "earlier");
        QByteArray meanwhile;

        const TargetOutcome outcome = write_target(path(u"a"_s), [&](TargetFile &file) {
            const bool isWritten = file.write("new") == 3 && file.finish().isEmpty();
            meanwhile = file_bytes(path(u"a"_s));
            return isWritten;
        });

        QCOMPARE(outcome.step, TargetOutcome::Done);
        QCOMPARE(meanwhile, "earlier");
        QCOMPARE(file_bytes(path(u"a"_s)), "new");
        QCOMPARE(names(), QStringList{u"a"_s});
    }

    void writerThatGivesUpLeavesTheOldFileAndNoOther()
    {
        write_file(path(u"a"_s), "earlier");

        for (const QString &name : {u"a"_s, u"b"_s}) {
            const TargetOutcome outcome = write_target(path(name), bytes_of("new", false));

            QCOMPARE(outcome.step, TargetOutcome::NotWritten);
            QCOMPARE(outcome.reason, QString());
        }

        QCOMPARE(file_bytes(path(u"a"_s)), "earlier");
        QCOMPARE(names(), QStringList{u"a"_s});
    }

    void writerMayReadAndGoBack()
    {
        const TargetOutcome outcome = write_target(path(u"a"_s), [](TargetFile &file) {
            return file.write("abcdef") == 6 && file.size() == 6 && file.seek(2) && file.read(2) == "cd" && file.seek(1)
                && file.write("B") == 1 && file.size() == 6 && file.seek(8) && file.write("i") == 1 && file.size() == 9
                && file.read(1).isEmpty() && file.write("j") == 1;
        });

        QCOMPARE(outcome.step, TargetOutcome::Done);
        QCOMPARE(file_bytes(path(u"a"_s)), QByteArray("aBcdef\0\0ij", 10));
    }

    void bytesArriveInOrderWhateverTheirPortions()
    {
        QByteArray bytes;
        for (int i = 0; i < 300'000; ++i)
            bytes.append(static_cast<char>(i * 7 + i / 251));

        const TargetOutcome outcome = write_target(path(u"a"_s), [&](TargetFile &file) {
            qsizetype done = 0;
            for (const int portion : {1, 10'000, 60'000, 70'000, 1, 65'536, 5, 65'535, 2, 3}) {
                if (file.write(bytes.constData() + done, portion) != portion)
                    return false;
                done += portion;
            }
            return file.write(bytes.constData() + done, bytes.size() - done) == bytes.size() - done;
        });

        QCOMPARE(outcome.step, TargetOutcome::Done);
        QVERIFY(file_bytes(path(u"a"_s)) == bytes);
    }

    void modeAndAttributesStay_data()
    {
        QTest::addColumn<mode_t>("mode");

        QTest::newRow("for all") << mode_t{0666};
        QTest::newRow("for the owner") << mode_t{0600};
        QTest::newRow("odd") << mode_t{0751};
    }

    void modeAndAttributesStay()
    {
        QFETCH(const mode_t, mode);
        write_file(path(u"a"_s), "earlier");
        QVERIFY(set_attribute(path(u"a"_s), "user.comment", "a scan"));
        QCOMPARE(::chmod(qPrintable(path(u"a"_s)), mode), 0);
        const FileStatus before = file_status(path(u"a"_s));

        QCOMPARE(write(path(u"a"_s), "new").step, TargetOutcome::Done);

        QCOMPARE(file_status(path(u"a"_s)).st_mode, before.st_mode);
        QVERIFY(file_status(path(u"a"_s)).st_ino != before.st_ino); // it is another file
        QCOMPARE(attribute(path(u"a"_s), "user.comment"), "a scan");
    }

    void accessListStays()
    {
        write_file(path(u"a"_s), "earlier");
        QVERIFY(set_attribute(path(u"a"_s), "system.posix_acl_access", access_list()));

        QCOMPARE(write(path(u"a"_s), "new").step, TargetOutcome::Done);

        QCOMPARE(file_bytes(path(u"a"_s)), "new");
        QCOMPARE(attribute(path(u"a"_s), "system.posix_acl_access"), access_list());
    }

    void fileWithoutAnAccessListGetsNoneFromItsDirectory()
    {
        write_file(path(u"a"_s), "earlier");
        const FileStatus before = file_status(path(u"a"_s));
        QVERIFY(set_attribute(directory->path(), "system.posix_acl_default", access_list()));

        QCOMPARE(write(path(u"a"_s), "new").step, TargetOutcome::Done);

        QCOMPARE(attribute(path(u"a"_s), "system.posix_acl_access"), QByteArray());
        QCOMPARE(file_status(path(u"a"_s)).st_mode, before.st_mode);
    }

    void linkIsFollowed_data()
    {
        QTest::addColumn<bool>("exists");

        QTest::newRow("to a file") << true;
        QTest::newRow("to no file") << false;
    }

    void linkIsFollowed()
    {
        QFETCH(const bool, exists);
        QVERIFY(QDir(directory->path()).mkdir(u"far"_s));
        if (exists)
            write_file(path(u"far/a"_s), "earlier");
        QCOMPARE(::symlink("far/a", qPrintable(path(u"link"_s))), 0);
        QCOMPARE(::symlink("link", qPrintable(path(u"link2"_s))), 0);

        QCOMPARE(write(path(u"link2"_s), "new").step, TargetOutcome::Done);

        QVERIFY(S_ISLNK(file_status(path(u"link"_s)).st_mode));
        QVERIFY(S_ISLNK(file_status(path(u"link2"_s)).st_mode));
        QCOMPARE(file_bytes(path(u"far/a"_s)), "new");
        QCOMPARE(QDir(path(u"far"_s)).entryList(QDir::Files | QDir::Hidden), QStringList{u"a"_s});
    }

    void linksInACircleAreRefused()
    {
        QCOMPARE(::symlink("two", qPrintable(path(u"one"_s))), 0);
        QCOMPARE(::symlink("one", qPrintable(path(u"two"_s))), 0);

        const TargetOutcome outcome = write(path(u"one"_s), "new");

        QCOMPARE(outcome.step, TargetOutcome::NotOpened);
        QCOMPARE(outcome.reason, u"Too many levels of symbolic links"_s);
    }

    void everyNameOfAFileSeesTheNewBytes()
    {
        write_file(path(u"a"_s), "earlier, and longer");
        QCOMPARE(::link(qPrintable(path(u"a"_s)), qPrintable(path(u"other"_s))), 0);
        const FileStatus before = file_status(path(u"a"_s));

        QCOMPARE(write(path(u"a"_s), "new").step, TargetOutcome::Done);

        QCOMPARE(file_bytes(path(u"a"_s)), "new");
        QCOMPARE(file_bytes(path(u"other"_s)), "new");
        QCOMPARE(file_status(path(u"a"_s)).st_ino, before.st_ino);
        QCOMPARE(names(), (QStringList{u"a"_s, u"other"_s}));
    }

    void writerThatGivesUpLeavesAFileOfTwoNamesAsItWas()
    {
        write_file(path(u"a"_s), "earlier");
        QCOMPARE(::link(qPrintable(path(u"a"_s)), qPrintable(path(u"other"_s))), 0);

        QCOMPARE(write_target(path(u"a"_s), bytes_of("new", false)).step, TargetOutcome::NotWritten);

        QCOMPARE(file_bytes(path(u"other"_s)), "earlier");
    }

    void whatIsNoPlainFileIsNotOpened_data()
    {
        QTest::addColumn<mode_t>("kind");

        QTest::newRow("pipe") << mode_t{S_IFIFO};
        QTest::newRow("socket") << mode_t{S_IFSOCK};
    }

    void whatIsNoPlainFileIsNotOpened()
    {
        QFETCH(const mode_t, kind);
        QCOMPARE(::mknod(qPrintable(path(u"a"_s)), kind | 0666, 0), 0);
        QCOMPARE(::symlink("a", qPrintable(path(u"link"_s))), 0);

        QCOMPARE(write(path(u"a"_s), "new").step, TargetOutcome::NotPlain);
        QCOMPARE(write(path(u"link"_s), "new").step, TargetOutcome::NotPlain);
        QCOMPARE(write(u"/dev/null"_s, "new").step, TargetOutcome::NotPlain);

        QCOMPARE(file_status(path(u"a"_s)).st_mode & S_IFMT, kind);
    }

    void directoryIsNotOpened()
    {
        const TargetOutcome outcome = write(directory->path(), "new");

        QCOMPARE(outcome.step, TargetOutcome::NotOpened);
        QCOMPARE(outcome.reason, u"Is a directory"_s);
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

QTEST_GUILESS_MAIN(tst_target_file)
#include "tst_target_file.moc"
