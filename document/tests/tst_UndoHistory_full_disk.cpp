#include "DiagnosticLines.h"
#include "history_steps.h"
#include "pictures.h"
#include "private_mounts.h"
#include "process_limits.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// A page whose colours tell its number, each with a larger file than the one before.
QImage numbered_page(int number)
{
    return solid_page({100, 100 + 100 * number}, qRgb(number, 0, 0));
}

} // namespace

class tst_UndoHistory_full_disk : public QObject
{
    Q_OBJECT

public:
    explicit tst_UndoHistory_full_disk(const SmallDisk &smallDisk) : disk(smallDisk) { }

private slots:
    void init();
    void cleanup();

    void chainOutlivesTheDiskThatGotFull();
    void fileThatDoesNotFitIsAFailedSaveAndStays();

private:
    const SmallDisk &disk;
    std::optional<OtherHome> home;
};

void tst_UndoHistory_full_disk::init()
{
    home.emplace(disk.path());
}

void tst_UndoHistory_full_disk::cleanup()
{
    home.reset();
}

void tst_UndoHistory_full_disk::chainOutlivesTheDiskThatGotFull()
{
    UndoHistory history;
    int count = 0;
    QStringList lines;
    for (bool done = true; done; count += done ? 1 : 0) {
        const DiagnosticLines diagnostics;
        const QImage page = numbered_page(count + 1);
        done = history.insert(page, page.size(), 1.0, u"operation"_s);
        lines = diagnostics.lines();
    }

    QCOMPARE(lines.constLast(), u"UndoHistory::insert - image cannot be inserted!"_s);
    QVERIFY(count > 3);
    QCOMPARE(history.state(), UndoHistory::Edited);
    QCOMPARE(undo(history), QColor(count, 0, 0));
    QCOMPARE(undo(history), QColor(count - 1, 0, 0));
    // Room is made by the item that goes, and the page is on file as it is.
    const QImage page = numbered_page(count - 1);
    QVERIFY(history.canInsert(page));
    QVERIFY(history.insert(page, page.size(), 1.0, u"operation"_s));
    const QImage small = numbered_page(0);
    QVERIFY(history.insert(small, small.size(), 1.0, u"operation"_s));
    QCOMPARE(undo(history), QColor(0, 0, 0));
}

void tst_UndoHistory_full_disk::fileThatDoesNotFitIsAFailedSaveAndStays()
{
    const QString base = QFile::decodeName(disk.path()) + "/page"_L1;
    const QImage page = solid_page({1500, 1500}, qRgb(1, 2, 3)); // 7 MB
    UndoHistoryItem item(u"operation"_s, base);
    const DiagnosticLines diagnostics;

    QVERIFY(!item.save(page, page.size(), 1.0));

    QCOMPARE(diagnostics.lines(),
             QStringList{"UndoHistoryItem::save - error saving image "_L1 + item.fileName() + u'!'});
    const qint64 written = QFile(item.fileName()).size();
    QVERIFY(written > 0);
    QVERIFY(written <= SmallDisk::Bytes);
}

int main(int argc, char **argv)
{
    const SmallDisk disk;
    const QCoreApplication application(argc, argv);
    tst_UndoHistory_full_disk tests(disk);
    return QTest::qExec(&tests, argc, argv);
}

#include "tst_UndoHistory_full_disk.moc"
