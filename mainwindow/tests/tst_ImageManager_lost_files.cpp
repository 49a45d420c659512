// Saving a document whose file, or folder, is not what it was when it was opened.

#include "NextBox.h"
#include "WindowFixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize NewSize(30, 20);

/// The window with a changed document whose file is the only one in a folder of its own.
struct ChangedDocument : WindowFixture
{
    ChangedDocument()
    {
        isReady = QDir(home.path()).mkdir(u"scans"_s) && open(u"scans/a.png"_s)
            && currentView()->document()->setPage(1, patterned_page(NewSize));
    }

    [[nodiscard]] QString folder() const { return home.filePath(u"scans"_s); }
    [[nodiscard]] QString path() const { return home.filePath(u"scans/a.png"_s); }
    void save() const { action(u"file_save"_s)->trigger(); }

    void verifyIsSaved() const
    {
        QCOMPARE(titles(), QStringList{u"a.png"_s});
        QVERIFY(compare_pictures(QImage(path()).convertToFormat(QImage::Format_RGB32), patterned_page(NewSize)));
    }

    /// @param box  has told that the save failed
    void verifyIsUnsaved(const NextBox &box, const QString &reason) const
    {
        QCOMPARE(box.title(), u"Save failed"_s);
        QCOMPARE(box.text(), u"Error saving image: Can not open file for write: \n"_s + reason);
        QCOMPARE(titles(), QStringList{u"a.png*"_s});
        QCOMPARE(currentView()->document()->filePath(), path());
    }

    bool isReady = false;
};

} // namespace

class tst_ImageManager_lost_files : public QObject
{
    Q_OBJECT

private slots:
    void aFileThatHasGoneIsMadeAgain()
    {
        const ChangedDocument changed;
        QVERIFY(changed.isReady);
        QVERIFY(QFile::remove(changed.path()));

        changed.save();

        changed.verifyIsSaved();
    }

    void aFileThatTookItsPlaceIsReplaced()
    {
        const ChangedDocument changed;
        QVERIFY(changed.isReady);
        QVERIFY(QFile::remove(changed.path()) && QFile::rename(changed.file(u"other.png"_s), changed.path()));

        changed.save();

        changed.verifyIsSaved();
    }

    void aLinkThatTookItsPlaceIsFollowed()
    {
        const ChangedDocument changed;
        QVERIFY(changed.isReady);
        const QString other = changed.file(u"other.png"_s);
        QVERIFY(QFile::remove(changed.path()) && QFile::link(other, changed.path()));

        changed.save();

        changed.verifyIsSaved();
        QVERIFY(QFileInfo(changed.path()).isSymbolicLink());
        QCOMPARE(QImage(other).size(), NewSize);
    }

    void aFolderThatTookItsPlaceIsTold()
    {
        const ChangedDocument changed;
        QVERIFY(changed.isReady);
        QVERIFY(QFile::remove(changed.path()) && QDir().mkdir(changed.path()));
        const NextBox box = answer_next_box(QMessageBox::Ok);

        changed.save();

        changed.verifyIsUnsaved(box, u"Is a directory"_s);
    }

    void aFolderThatHasGoneIsToldAndTheNextSaveSucceeds()
    {
        const ChangedDocument changed;
        QVERIFY(changed.isReady);
        QVERIFY(QDir(changed.folder()).removeRecursively());
        {
            const NextBox box = answer_next_box(QMessageBox::Ok);
            changed.save();
            changed.verifyIsUnsaved(box, u"No such file or directory"_s);
        }
        QVERIFY(QDir().mkdir(changed.folder()));

        changed.save();

        changed.verifyIsSaved();
    }

    void aFolderThatBecameALinkIsFollowed()
    {
        const ChangedDocument changed;
        QVERIFY(changed.isReady);
        const QString moved = changed.home.filePath(u"moved"_s);
        QVERIFY(QFile::rename(changed.folder(), moved) && QFile::link(moved, changed.folder()));

        changed.save();

        changed.verifyIsSaved();
        QCOMPARE(QImage(moved + "/a.png"_L1).size(), NewSize);
        QCOMPARE(QDir(moved).entryList(QDir::Files | QDir::Hidden), QStringList{u"a.png"_s});
    }
};

QTEST_MAIN(tst_ImageManager_lost_files)
#include "tst_ImageManager_lost_files.moc"
