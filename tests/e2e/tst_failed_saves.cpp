#include "files.h"
#include "ImageFormat.h"
#include "ImageManagerProgram.h"
#include "pictures.h"
#include "private_mounts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTest>

#include <functional>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;
using State = Accessible::State;

/// Pages are saved where there is no room, no right, or not what was there when they were opened.
class tst_failed_saves : public QObject
{
    Q_OBJECT

private slots:
    void fullDiskIsToldInEveryFormatAndSavesOnceThereIsRoom();
    void placeThatCannotBeWrittenToIsToldAndNothingIsClaimed_data();
    void placeThatCannotBeWrittenToIsToldAndNothingIsClaimed();
    void folderThatCannotBeWrittenToIsToldToSaveAs();
    void placeThatIsAnotherNowIsWritten_data();
    void placeThatIsAnotherNowIsWritten();
};

namespace {

constexpr QSize roomy{1100, 700};
constexpr QSize pageSize{100, 80};

[[nodiscard]] bool shows(ImageManagerProgram &program, const QString &title)
{
    return QTest::qWaitFor([&] { return program.currentTab() == title; }, Program::patienceMs);
}

void save(ImageManagerProgram &program)
{
    QTRY_COMPARE_WITH_TIMEOUT(program.desktop().activeWindow(), program.window(), Program::patienceMs);
    program.desktop().pressKey("s", {"Control_L"});
}

QImage inverted_page()
{
    QImage page = patterned_page(pageSize);
    page.invertPixels();
    return page;
}

/// The program with a changed page, the only file of a folder.
struct ChangedPage
{
    ChangedPage() : program(place)
    {
        program.process().obeyFilePermissions();
        isReady = QDir().mkpath(folder()) && patterned_page(pageSize).save(path()) && program.open({path()}, roomy)
            && program.invert();
    }

    [[nodiscard]] QString folder() const { return place.path(u"scans"_s); }
    [[nodiscard]] QString path() const { return folder() + "/a.png"_L1; }

    const Place place;
    ImageManagerProgram program;
    bool isReady = false;
};

} // namespace

void tst_failed_saves::fullDiskIsToldInEveryFormatAndSavesOnceThereIsRoom()
{
    const Place place;
    const PrivateMount homeDisk("none", QFile::encodeName(place.home()), "tmpfs", 0, "size=2m");
    const PrivateMount pagesDisk("none", QFile::encodeName(place.path(u"."_s)), "tmpfs", 0, "size=2m");
    QStringList names;
    QStringList paths;
    for (const ImageFormat &format : writableImageFormats()) {
        names.append("page."_L1 + format.exts.first());
        paths.append(place.page(names.last()));
    }
    QVERIFY2(names.size() >= 10, qPrintable(names.join(u' ')));
    ImageManagerProgram program(place);
    QVERIFY(program.open(paths, roomy));

    for (qsizetype i = names.size() - 1; i >= 0; --i) { // the last file is in front
        const QString &name = names.at(i);
        QVERIFY2(shows(program, name), qPrintable(name));
        const QByteArray before = file_bytes(paths.at(i));
        QVERIFY2(program.invert(), qPrintable(name));
        {
            const DiskFiller pagesFiller(place.path(u"."_s));
            const DiskFiller homeFiller(place.home());
            save(program);
            const MessageBox box = program.answer(u"OK"_s);
            QCOMPARE(box.title, u"Save failed"_s);
            QVERIFY2(box.text.startsWith(u"Error saving image: "_s), qPrintable(name + box.text));
            QVERIFY2(box.text.endsWith(u"No space left on device"_s), qPrintable(name + box.text));
            QCOMPARE(program.currentTab(), QString(name + u'*'));
            QCOMPARE(file_bytes(paths.at(i)), before);
        }
        save(program);
        QVERIFY2(shows(program, name), qPrintable(name));
        QVERIFY2(file_bytes(paths.at(i)) != before, qPrintable(name));
        QVERIFY(program.menuEntry(u"File"_s, u"Close"_s).press());
        QTRY_COMPARE_WITH_TIMEOUT(program.tabTitles().size(), i, Program::patienceMs);
    }
    const QStringList left = QDir(place.path(u"."_s)).entryList(QDir::Files | QDir::Hidden);
    names.sort();
    QCOMPARE(left, names);
}

void tst_failed_saves::placeThatCannotBeWrittenToIsToldAndNothingIsClaimed_data()
{
    using Fault = std::function<std::shared_ptr<void>(const ChangedPage &page)>;
    QTest::addColumn<Fault>("makeFault");
    QTest::addColumn<QString>("reason");

    QTest::newRow("file on a read-only mount")
        << Fault([](const ChangedPage &page) { return std::make_shared<ReadOnlyPlace>(page.path()); })
        << u"Read-only file system"_s;
    QTest::newRow("folder on a read-only mount")
        << Fault([](const ChangedPage &page) { return std::make_shared<ReadOnlyPlace>(page.folder()); })
        << u"Read-only file system"_s;
    QTest::newRow("file without the right to write") << Fault([](const ChangedPage &page) {
        return std::make_shared<bool>(QFile(page.path()).setPermissions(QFile::ReadOwner));
    }) << u"Permission denied"_s;
    QTest::newRow("folder that has gone") << Fault([](const ChangedPage &page) {
        return std::make_shared<bool>(QDir(page.folder()).removeRecursively());
    }) << u"No such file or directory"_s;
    QTest::newRow("folder of that name") << Fault([](const ChangedPage &page) {
        return std::make_shared<bool>(QFile::remove(page.path()) && QDir().mkdir(page.path()));
    }) << u"Is a directory"_s;
}

void tst_failed_saves::placeThatCannotBeWrittenToIsToldAndNothingIsClaimed()
{
    QFETCH(const std::function<std::shared_ptr<void>(const ChangedPage &page)>, makeFault);
    QFETCH(const QString, reason);
    ChangedPage page;
    QVERIFY(page.isReady);
    const QByteArray before = file_bytes(page.path());
    const std::shared_ptr<void> fault = makeFault(page);

    save(page.program);

    const MessageBox box = page.program.answer(u"OK"_s);
    QCOMPARE(box.title, u"Save failed"_s);
    QCOMPARE(box.text, QString(u"Error saving image: Can not open file for write: \n"_s + reason));
    QCOMPARE(page.program.currentTab(), u"a.png*"_s);
    if (QFileInfo(page.path()).isFile())
        QCOMPARE(file_bytes(page.path()), before);
}

void tst_failed_saves::folderThatCannotBeWrittenToIsToldToSaveAs()
{
    ChangedPage page;
    QVERIFY(page.isReady);
    const ReadOnlyPlace fault(page.folder());
    Desktop &desktop = page.program.desktop();

    QVERIFY(page.program.choose(u"File"_s, u"Save As..."_s));
    const auto field = [&] { return page.program.application().find(Role::Dialog).find(Role::Text); };
    QTRY_VERIFY_WITH_TIMEOUT(field().has(State::Focused), Program::patienceMs);
    desktop.pressKey("a", {"Control_L"});
    for (const char *const key : {"b", "period", "p", "n", "g", "Return"})
        desktop.pressKey(key);

    const MessageBox box = page.program.answer(u"OK"_s);
    QCOMPARE(box.text, u"Error saving image: Can not open file for write: \nRead-only file system"_s);
    QCOMPARE(page.program.currentTab(), u"a.png*"_s);
    QCOMPARE(QDir(page.folder()).entryList(QDir::Files | QDir::Hidden), QStringList{u"a.png"_s});
}

void tst_failed_saves::placeThatIsAnotherNowIsWritten_data()
{
    QTest::addColumn<QString>("realPath");
    QTest::addColumn<bool>("isFolder");

    QTest::newRow("folder that became a link") << u"moved/a.png"_s << true;
    QTest::newRow("file that became a link") << u"other.png"_s << false;
}

void tst_failed_saves::placeThatIsAnotherNowIsWritten()
{
    QFETCH(const QString, realPath);
    QFETCH(const bool, isFolder);
    ChangedPage page;
    QVERIFY(page.isReady);
    const QString from = isFolder ? page.folder() : page.path();
    const QString to = isFolder ? page.place.path(u"moved"_s) : page.place.path(realPath);
    QVERIFY(QFile::rename(from, to) && QFile::link(to, from));

    save(page.program);

    QVERIFY(shows(page.program, u"a.png"_s));
    QVERIFY(QFileInfo(from).isSymbolicLink());
    const QImage saved(page.place.path(realPath));
    QVERIFY(compare_pictures(saved.convertToFormat(QImage::Format_RGB32), inverted_page()));
    QCOMPARE(QDir(QFileInfo(to).path()).entryList({u".imagemanager-*"_s}, QDir::Files | QDir::Hidden), QStringList());
}

TEST_MAIN_APART(QCoreApplication, tst_failed_saves, leave_common_mounts)
#include "tst_failed_saves.moc"
