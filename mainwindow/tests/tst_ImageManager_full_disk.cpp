// The window on a disk that has no room left, or that cannot be written to.

#include "ImageFormat.h"
#include "NextBox.h"
#include "NextDialog.h"
#include "NextFileDialog.h"
#include "noise_pages.h"
#include "private_mounts.h"
#include "ToolkitLeaks.h"
#include "WindowFixture.h"

#include <QApplication>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize NoiseSize(512, 512); ///< noise of which no writer makes less than two blocks

/// The window with its home on a small disk.
class SmallHome
{
public:
    explicit SmallHome(const SmallDisk &disk) : former(qgetenv("TMPDIR")) { qputenv("TMPDIR", disk.path()); }
    ~SmallHome() { former.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", former); }
    Q_DISABLE_COPY_MOVE(SmallHome)

private:
    QByteArray former;
};

struct SmallHomeFixture : SmallHome, WindowFixture
{
    explicit SmallHomeFixture(const SmallDisk &disk) : SmallHome(disk) { }
};

void undo(const WindowFixture &fixture)
{
    fixture.action(u"edit_undo"_s)->trigger();
}

bool is_at_rest(const WindowFixture &fixture)
{
    return fixture.window.isEnabled() && fixture.window.cursor().shape() == Qt::ArrowCursor;
}

} // namespace

class tst_ImageManager_full_disk : public QObject
{
    Q_OBJECT

public:
    explicit tst_ImageManager_full_disk(const SmallDisk &smallDisk) : disk(smallDisk) { }

private slots:
    void savingInAnyFormatFailsAndClaimsNothing_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("suffix");
        QTest::addColumn<int>("freeBlocks");

        for (const ImageFormat &format : writableImageFormats()) {
            QTest::addRow("%s, no room", qPrintable(format.format)) << filter_text(format) << format.exts.first() << 0;
            QTest::addRow("%s, room for a part", qPrintable(format.format))
                << filter_text(format) << format.exts.first() << 2;
        }
    }

    void savingInAnyFormatFailsAndClaimsNothing()
    {
        QFETCH(const QString, filter);
        QFETCH(const QString, suffix);
        QFETCH(const int, freeBlocks);
        WindowFixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
        ImageDocument *const document = fixture.currentView()->document();
        const bool isIcon = suffix == u"ico"_s || suffix == u"cur"_s; // which has no more than 256 by 256 pixels
        QVERIFY(document->setPage(1, isIcon ? noise_page(NoiseSize).copy(0, 0, 256, 256) : noise_page(NoiseSize)));
        const DiskFiller filler(QFile::decodeName(disk.path()), freeBlocks);
        const NextFileDialog dialog([&](QFileDialog &chooser) {
            chooser.selectNameFilter(filter);
            emit chooser.filterSelected(filter);
            NextFileDialog::accept(chooser, disk.filePath(u"b."_s + suffix));
        });
        const NextBox box = answer_next_box(QMessageBox::Ok);

        const ToolkitLeaks leaks;
        fixture.action(u"file_save_as"_s)->trigger();

        QCOMPARE(box.title(), u"Save failed"_s);
        QVERIFY2(box.text().startsWith(u"Error saving image: "_s), qPrintable(box.text()));
        QVERIFY2(box.text().endsWith(u"No space left on device"_s), qPrintable(box.text()));
        QCOMPARE(fixture.titles(), QStringList{u"a.png*"_s});
        QVERIFY(document->isModified());
        QCOMPARE(document->filePath(), fixture.home.filePath(u"a.png"_s));
        QCOMPARE(document->imgFormat(), u"png"_s);
        QVERIFY(is_at_rest(fixture));
        QFile::remove(disk.filePath(u"b."_s + suffix));
    }

    void aFailedSaveKeepsTheWindowOpenAndSucceedsOnceThereIsRoom()
    {
        const QString path = disk.filePath(u"own.png"_s);
        WindowFixture fixture;
        QVERIFY(patterned_page(QSize(64, 48)).save(path));
        QVERIFY(fixture.window.load_file(path, {}, false));
        QVERIFY(fixture.currentView()->document()->setPage(1, noise_page(NoiseSize)));
        {
            const DiskFiller filler(QFile::decodeName(disk.path()));
            const NextBox question = answer_next_box(QMessageBox::Yes);
            const NextBox failure = answer_next_box(QMessageBox::Ok);
            const ToolkitLeaks leaks;

            QVERIFY(!fixture.window.close());

            QCOMPARE(question.text(), u"Image 'own.png' has been changed.\nDo you want to save it?"_s);
            QCOMPARE(failure.title(), u"Save failed"_s);
            QCOMPARE(fixture.titles(), QStringList{u"own.png*"_s});
        }

        fixture.action(u"file_save"_s)->trigger();

        QCOMPARE(fixture.titles(), QStringList{u"own.png"_s});
        QVERIFY(compare_pictures(QImage(path).convertToFormat(QImage::Format_RGB32), noise_page(NoiseSize)));
        QFile::remove(path);
    }

    void withoutRoomYesEditsWithoutASnapshot()
    {
        SmallHomeFixture fixture(disk);
        QVERIFY(fixture.open(u"a.png"_s));
        const QImage page = fixture.page();
        const DiskFiller filler(QFile::decodeName(disk.path()), 2);
        const NextBox box = answer_next_box(QMessageBox::Yes);

        fixture.edit(u"rotate_180"_s);

        QCOMPARE(box.title(), u"Warning"_s);
        QCOMPARE(box.text(), u"This operation cannot be undone or redone. Continue?"_s);
        QCOMPARE(box.buttons(), QMessageBox::Yes | QMessageBox::No);
        QCOMPARE(box.defaultButton(), QMessageBox::Yes);
        QVERIFY(compare_pictures(fixture.page(), page.mirrored(true, true)));
        QCOMPARE(fixture.titles(), QStringList{u"a.png*"_s});
        QCOMPARE(fixture.snapshots(), QStringList());
        QVERIFY(!fixture.enabled(u"edit_undo"_s));
        QVERIFY(is_at_rest(fixture));
    }

    void withoutRoomNoChangesNothing()
    {
        SmallHomeFixture fixture(disk);
        QVERIFY(fixture.open(u"a.png"_s));
        fixture.edit(u"image_invert"_s);
        const QImage page = fixture.page();
        const QStringList files = fixture.snapshots();
        const DiskFiller filler(QFile::decodeName(disk.path()), 2);
        const NextBox box = answer_next_box(QMessageBox::No);

        fixture.edit(u"rotate_180"_s);

        QVERIFY(compare_pictures(fixture.page(), page));
        QCOMPARE(fixture.snapshots(), files);
        QVERIFY(fixture.enabled(u"edit_undo"_s));
        QVERIFY(!fixture.enabled(u"edit_redo"_s));
        QVERIFY(is_at_rest(fixture));
    }

    void undoWithoutRoomAndNoLosesTheNewestPage()
    {
        SmallHomeFixture fixture(disk);
        QVERIFY(fixture.open(u"a.png"_s));
        const QImage page = fixture.page();
        fixture.edit(u"image_invert"_s);
        const DiskFiller filler(QFile::decodeName(disk.path()), 2);
        const NextBox box = answer_next_box(QMessageBox::No);

        undo(fixture);

        QCOMPARE(box.text(), u"This operation cannot be undone or redone. Continue?"_s);
        QVERIFY(compare_pictures(fixture.page(), page));
        // Redo only brings the same page again.
        QVERIFY(fixture.enabled(u"edit_redo"_s));
        fixture.action(u"edit_redo"_s)->trigger();
        QVERIFY(compare_pictures(fixture.page(), page));
    }

    void suchAnUndoOfSeveralEditsGoesToTheNewestSnapshot()
    {
        SmallHomeFixture fixture(disk);
        QVERIFY(fixture.open(u"a.png"_s));
        fixture.edit(u"image_invert"_s);
        const QImage beforeTheLast = fixture.page();
        fixture.edit(u"rotate_cw"_s);
        const DiskFiller filler(QFile::decodeName(disk.path()), 2);
        const NextBox box = answer_next_box(QMessageBox::No);

        undo(fixture);
        QVERIFY(compare_pictures(fixture.page(), beforeTheLast));
        fixture.action(u"edit_redo"_s)->trigger();
        QVERIFY(compare_pictures(fixture.page(), beforeTheLast));
    }

    void anEditAfterSuchAnUndoDeletesTheWholeHistory()
    {
        SmallHomeFixture fixture(disk);
        QVERIFY(fixture.open(u"a.png"_s));
        fixture.edit(u"image_invert"_s);
        fixture.edit(u"image_invert"_s);
        QCOMPARE(fixture.snapshots().size(), 2);
        const DiskFiller filler(QFile::decodeName(disk.path()), 2);
        const NextBox box = answer_next_box(QMessageBox::No);
        undo(fixture);

        fixture.edit(u"rotate_180"_s);

        QCOMPARE(fixture.snapshots(), QStringList());
        QVERIFY(!fixture.enabled(u"edit_undo"_s));
    }

    void undoWithoutRoomAndYesGoesOneStateTooFar()
    {
        SmallHomeFixture fixture(disk);
        QVERIFY(fixture.open(u"a.png"_s));
        const QImage first = fixture.page();
        fixture.edit(u"image_invert"_s);
        fixture.edit(u"rotate_180"_s);
        const DiskFiller filler(QFile::decodeName(disk.path()), 2);
        const NextBox box = answer_next_box(QMessageBox::Yes);

        undo(fixture);

        QVERIFY(compare_pictures(fixture.page(), first));
        QVERIFY(!fixture.enabled(u"edit_undo"_s));
    }

    void aSnapshotThatCannotBeWrittenIsToldAndTheEditGoesOn()
    {
        WindowFixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
        const QImage page = fixture.page();
        const ReadOnlyPlace place(fixture.home.filePath(u"tmp"_s));
        const NextBox box = answer_next_box(QMessageBox::Ok);

        fixture.edit(u"rotate_180"_s);

        QCOMPARE(box.title(), u"Warning"_s);
        QCOMPARE(box.text(), u"Error saving Undo/Redo information"_s);
        QCOMPARE(box.buttons(), QMessageBox::Ok);
        QVERIFY(compare_pictures(fixture.page(), page.mirrored(true, true)));
        QCOMPARE(fixture.titles(), QStringList{u"a.png*"_s});
        QVERIFY(!fixture.enabled(u"edit_undo"_s));
        QVERIFY(is_at_rest(fixture));
    }

    void undoThatCannotSaveThePageGoesOneStateTooFar()
    {
        WindowFixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
        const QImage first = fixture.page();
        fixture.edit(u"image_invert"_s);
        fixture.edit(u"rotate_180"_s);
        const ReadOnlyPlace place(fixture.home.filePath(u"tmp"_s));
        const NextBox box = answer_next_box(QMessageBox::Ok);

        undo(fixture);

        QCOMPARE(box.text(), u"Error saving Undo/Redo information"_s);
        QVERIFY(compare_pictures(fixture.page(), first));
    }

private:
    const SmallDisk &disk;
};

int main(int argc, char **argv)
{
    const SmallDisk disk; // before the application and its threads
    const QApplication application(argc, argv);
    tst_ImageManager_full_disk tests(disk);
    return QTest::qExec(&tests, argc, argv);
}

#include "tst_ImageManager_full_disk.moc"
