#include "DiagnosticLines.h"
#include "history_steps.h"
#include "ImageDocument.h"
#include "pictures.h"
#include "process_limits.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

// A file system without any free block, and without a place for a directory.
const QByteArray FullDisk = "/proc";

} // namespace

class tst_UndoHistory_room : public QObject
{
    Q_OBJECT

private slots:
    // The directory
    void directoryIsMadeInTheHome()
    {
        const TemporaryHome home;

        QCOMPARE(safeCreateTempDir(), home.filePath(u"tmp"_s));
        QVERIFY(QDir(home.filePath(u"tmp"_s)).exists());
    }

    void directoryThatExistsIsTakenAsItIs()
    {
        const TemporaryHome home;
        QVERIFY(QDir(home.path()).mkpath(u"tmp/inside"_s));

        QCOMPARE(safeCreateTempDir(), home.filePath(u"tmp"_s));
        QVERIFY(QDir(home.filePath(u"tmp/inside"_s)).exists());
    }

    void homeItselfServesWhereNoDirectoryCanBeMade()
    {
        const TemporaryHome home;
        QVERIFY(QFile(home.filePath(u"tmp"_s)).open(QIODevice::WriteOnly)); // a file of that name
        const DiagnosticLines diagnostics;

        QCOMPARE(safeCreateTempDir(), home.path());

        QCOMPARE(diagnostics.lines(),
                 QStringList{"safeCreateTempDir - unable to creade directory "_L1 + home.filePath(u"tmp"_s) + u'!'});
    }

    void snapshotsGoToTheHomeWhereNoDirectoryCanBeMade()
    {
        const TemporaryHome home;
        QVERIFY(QFile(home.filePath(u"tmp"_s)).open(QIODevice::WriteOnly));
        UndoHistory history;

        insert_pages(history, {Qt::red});

        const QStringList files = home.filesIn();
        QCOMPARE(files.size(), 2);
        QVERIFY(files.constFirst().endsWith("00000001.bmp"_L1));
        QCOMPARE(undo(history), QColor(Qt::red));
    }

    void directoryComesBackWhenItHasBeenRemoved()
    {
        FilledHistory history;
        QVERIFY(QDir().rmdir(history.home.filePath(u"tmp"_s)));

        insert_pages(history, {Qt::red});

        QCOMPARE(numbers_in(history.home), QStringList{u"00000001"_s});
    }

    void documentMakesTheDirectoryAndNoFile()
    {
        const TemporaryHome home;

        const ImageDocument document{QString(), QString()};

        QVERIFY(QDir(home.filePath(u"tmp"_s)).exists());
        QCOMPARE(home.filesIn(u"tmp"_s), QStringList());
    }

    // The disk
    void fileFitsIfItNeedsFewerBlocksThanThereAre_data()
    {
        QTest::addColumn<quint32>("imageBytes");
        QTest::addColumn<quint32>("blockBytes");
        QTest::addColumn<quint64>("freeBlocks");
        QTest::addColumn<bool>("fits");

        const auto row = [](const char *name, quint32 imageBytes, quint32 blockBytes, quint64 freeBlocks, bool fits) {
            QTest::newRow(name) << imageBytes << blockBytes << freeBlocks << fits;
        };
        row("exactly as many as there are", 4096 * 9, 4096, 10, false);
        row("one fewer", 4096 * 9, 4096, 11, true);
        row("part of a block is not counted", 4096 * 9 + 4095, 4096, 11, true);
        row("whole block is", 4096 * 10, 4096, 11, false);
        row("headers alone", 0, 4096, 1, false);
        row("headers alone, two blocks", 0, 4096, 2, true);
        row("headers alone in small blocks", 0, 512, 8, false);
        row("headers alone in small blocks, nine", 0, 512, 9, true);
        row("headers alone in a large block", 0, 65536, 1, true);
        row("no free block", 0, 65536, 0, false);
        row("page of 2 GiB", 2147483647, 4096, 524288, false);
        row("page of 2 GiB, one block more", 2147483647, 4096, 524289, true);
        row("sum that wraps around needs nothing", std::numeric_limits<quint32>::max(), 4096, 1, true);
        row("more free blocks than 32 bits count", 4096, 4096, quint64{1} << 32, true);
        row("file system that does not tell", 0, 0, 1000, false);
    }

    void fileFitsIfItNeedsFewerBlocksThanThereAre()
    {
        QFETCH(const quint32, imageBytes);
        QFETCH(const quint32, blockBytes);
        QFETCH(const quint64, freeBlocks);
        QFETCH(const bool, fits);

        QCOMPARE(snapshot_fits(imageBytes, blockBytes, freeBlocks), fits);
    }

    void thisDiskHasRoomForASmallPage()
    {
        const TemporaryHome home;
        const UndoHistory history;

        QVERIFY(history.canInsert(page_of(Qt::red)));
    }

    void fullDiskHasRoomForNothing()
    {
        const TemporaryHome home;
        const OtherHome full(FullDisk);
        const UndoHistory history;

        QVERIFY(!history.canInsert(page_of(Qt::red)));
    }

    void fullDiskIsNotAskedAfterAStep()
    {
        FilledHistory history({Qt::red, Qt::green});
        const OtherHome full(FullDisk);
        QVERIFY(!history.canInsert(page_of(Qt::blue)));

        QCOMPARE(undo(history, 1), QColor(Qt::red));
        QVERIFY(history.canInsert(page_of(Qt::blue)));

        QCOMPARE(redo(history), QColor(Qt::green));
        QVERIFY(history.canInsert(page_of(Qt::blue)));
    }

    void insertOnAFullDiskIsRefused()
    {
        FilledHistory history({Qt::red});
        const OtherHome full(FullDisk);
        const DiagnosticLines diagnostics;

        QVERIFY(!insert_page(history, Qt::green));

        QCOMPARE(history.state(), UndoHistory::Edited);
        QCOMPARE(diagnostics.lines(),
                 (QStringList{u"UndoHistory::freeRedo - no redo items"_s,
                              u"safeCreateTempDir - unable to creade directory /proc/tmp!"_s,
                              u"UndoHistory::insert - image cannot be inserted!"_s}));
        QCOMPARE(numbers_in(history.home), QStringList{u"00000001"_s});
    }

    void missingDiskHasNoRoom()
    {
        const TemporaryHome home;
        const UndoHistory history;
        const OtherHome missing(QFile::encodeName(home.filePath(u"no/home"_s)));
        const DiagnosticLines diagnostics;

        QVERIFY(!history.canInsert(page_of(Qt::red)));

        QCOMPARE(diagnostics.lines().constLast(),
                 u"UndoHistory::canInsert - statfs failed! No such file or directory"_s);
    }
};

QTEST_GUILESS_MAIN(tst_UndoHistory_room)
#include "tst_UndoHistory_room.moc"
