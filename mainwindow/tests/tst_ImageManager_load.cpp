#include "files.h"
#include "NextBox.h"
#include "NextFileDialog.h"
#include "Q3Canvas.h"
#include "WindowFixture.h"

#include <QAccessible>
#include <QDataStream>
#include <QFile>
#include <QFileInfo>
#include <QTabBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 LoadLimit = 536870912; // bytes

/// A file of zeros that takes no room on disk.
QString sparse_file(const WindowFixture &fixture, const QString &name, qint64 size)
{
    QFile file(fixture.home.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || !file.resize(size))
        qFatal("cannot make %s", qPrintable(name));
    return file.fileName();
}

/// Writes three pages, 101, 102 and 103 pixels wide.
QString multipage_file(const WindowFixture &fixture)
{
    ImageDocument document({}, {});
    for (const int width : {101, 102, 103}) {
        if (!document.addPage(patterned_page(QSize(width, 80))))
            qFatal("cannot add a page");
    }
    QString path = fixture.home.filePath(u"scan.tif"_s);
    if (!document.save(path, u"TIFF"_s))
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

/// Writes a TIFF file of 8 by 8 white pixels that the multi-page reader takes, or one with another tag in the
/// place of the horizontal resolution.
QString small_tiff(const WindowFixture &fixture, bool hasXResolution)
{
    constexpr quint16 Short = 3, Long = 4, Rational = 5;
    constexpr quint32 Pixels = 8, Resolution = 16, Directory = 24;
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << quint16{0x4949} << quint16{42} << Directory << quint64{0} // the pixels, 0 being white
           << quint32{100} << quint32{1};
    struct Entry
    {
        quint16 tag;
        quint16 type;
        quint32 value;
    };
    const Entry xResolution = hasXResolution ? Entry{282, Rational, Resolution} : Entry{281, Short, 1};
    const QList<Entry> entries{{256, Short, 8},
                               {257, Short, 8},
                               {258, Short, 1},
                               {259, Short, 1},
                               {262, Short, 0},
                               {273, Long, Pixels},
                               {277, Short, 1},
                               {278, Short, 8},
                               {279, Long, 8},
                               xResolution,
                               {283, Rational, Resolution},
                               {284, Short, 1},
                               {296, Short, 2}};
    stream << static_cast<quint16>(entries.size());
    for (const Entry &entry : entries)
        stream << entry.tag << entry.type << quint32{1} << entry.value;
    stream << quint32{0};

    QString path = fixture.home.filePath(u"small.tif"_s);
    write_file(path, bytes);
    return path;
}

} // namespace

class tst_ImageManager_load : public QObject
{
    Q_OBJECT

private slots:
    void eachFileGetsATabAndTheLastOneIsCurrent()
    {
        WindowFixture fixture;

        QVERIFY(fixture.open(u"a.png"_s));
        QVERIFY(fixture.open(u"b.bmp"_s));
        QVERIFY(fixture.open(u"c.jpg"_s));

        QCOMPARE(fixture.titles(), (QStringList{u"a.png"_s, u"b.bmp"_s, u"c.jpg"_s}));
        QCOMPARE(fixture.tabs()->currentIndex(), 2);
        QCOMPARE(fixture.currentView()->currentPage(), 1U);
        QVERIFY(fixture.currentView()->isVisible());
    }

    void aTabShowsTheNameOfItsFileAsItIsWritten()
    {
        WindowFixture fixture(u"a&b && c.png"_s);
        QAccessibleInterface *const tabs = QAccessible::queryAccessibleInterface(fixture.window.findChild<QTabBar *>());

        QCOMPARE(tabs->child(0)->text(QAccessible::Name), u"a&b && c.png"_s);
        fixture.currentView()->document()->setModified(true);
        QCOMPARE(tabs->child(0)->text(QAccessible::Name), u"a&b && c.png*"_s);
    }

    void aTiffWithoutAHorizontalResolutionIsToldOfInABox()
    {
        WindowFixture fixture;
        QVERIFY(fixture.window.load_file(small_tiff(fixture, true), u"TIFF"_s, false));
        QCOMPARE(fixture.tabs()->count(), 1);
        const NextBox box(QMessageBox::Ok);

        QVERIFY(!fixture.window.load_file(small_tiff(fixture, false), u"TIFF"_s, false));

        QCOMPARE(box.title(), u"Load failed"_s);
        QCOMPARE(box.text(), u"Error loading file"_s);
        QCOMPARE(fixture.tabs()->count(), 1);
    }

    void theSameFileTwiceIsTwoTabsWithEqualTitles()
    {
        WindowFixture fixture;
        const QString path = fixture.file(u"a.png"_s);

        QVERIFY(fixture.window.load_file(path, {}, false));
        QVERIFY(fixture.window.load_file(path, {}, false));

        QCOMPARE(fixture.titles(), (QStringList{u"a.png"_s, u"a.png"_s}));
        fixture.view(1)->document()->setModified(true);
        QCOMPARE(fixture.titles(), (QStringList{u"a.png"_s, u"a.png*"_s}));
        fixture.view(0)->document()->setModified(true);
        fixture.view(1)->document()->setModified(false);
        QCOMPARE(fixture.titles(), (QStringList{u"a.png*"_s, u"a.png"_s}));
    }

    void aFileOfThreePagesShowsItsLastOneAsPage1()
    {
        WindowFixture fixture;
        QVERIFY(fixture.window.load_file(multipage_file(fixture), u"TIFF"_s, false));

        QCOMPARE(fixture.titles(), QStringList{u"scan.tif"_s});
        QCOMPARE(fixture.currentView()->document()->pageCount(), 3U);
        QCOMPARE(fixture.currentView()->currentPage(), 1U);
        QCOMPARE(fixture.currentView()->canvas()->size(), QSize(103, 80));
    }

    void aFileThatBreaksOffAfterItsFirstPagesOpensWithThose()
    {
        WindowFixture fixture;
        const QString path = multipage_file(fixture);
        QFile file(path);
        QVERIFY(file.resize(file.size() - 100)); // its end tells where the last page is

        QVERIFY(fixture.window.load_file(path, u"TIFF"_s, false));

        QCOMPARE(fixture.titles(), QStringList{u"scan.tif"_s});
        QVERIFY(fixture.currentView()->document()->isModified());
        QCOMPARE(fixture.currentView()->document()->pageCount(), 2U);
        QCOMPARE(fixture.currentView()->canvas()->size(), QSize(102, 80));
    }

    void aTemporaryFileBecomesAnUnnamedDocumentThatCountsEveryLoad()
    {
        // The counter is one for the process: what earlier tests loaded is in it.
        WindowFixture fixture;
        const QString path = fixture.file(u"scan.png"_s);
        QVERIFY(fixture.window.load_file(path, {}, true));
        const QString first = fixture.titles().at(0);
        const int number = first.mid(8).chopped(1).toInt();
        QCOMPARE(first, u"Untitled%1*"_s.arg(number));
        {
            const NextBox box = answer_next_box(QMessageBox::Ok);
            QVERIFY(!fixture.window.load_file(u"/nowhere/at.all"_s, {}, false)); // uses a number up
        }

        QVERIFY(fixture.window.load_file(path, {}, true));

        QCOMPARE(fixture.titles().at(1), u"Untitled%1*"_s.arg(number + 2));
        const ImageDocument *const document = fixture.currentView()->document();
        QVERIFY(!document->hasFile());
        QCOMPARE(document->imgFormat(), u"BMP"_s);
        QVERIFY(!document->isModified());
    }

    void aFileWithARelativePathStartsWithTheMark()
    {
        WindowFixture fixture;
        (void)fixture.file(u"a.png"_s);
        const QString former = QDir::currentPath();
        QVERIFY(QDir::setCurrent(fixture.home.path()));

        QVERIFY(fixture.window.load_file(u"a.png"_s, {}, false));
        QVERIFY(QDir::setCurrent(former));

        QCOMPARE(fixture.titles(), QStringList{u"a.png*"_s});
    }

    void theMarkFollowsTheModifiedState()
    {
        WindowFixture fixture(u"a.png"_s);
        QVERIFY(fixture.open(u"b.png"_s));

        fixture.view(0)->document()->setModified(true);
        QCOMPARE(fixture.titles(), (QStringList{u"a.png*"_s, u"b.png"_s}));
        fixture.view(0)->document()->setModified(false);
        QCOMPARE(fixture.titles(), (QStringList{u"a.png"_s, u"b.png"_s}));
    }

    void aFileThatCannotBeReadGetsABoxAndNoTab()
    {
        WindowFixture fixture;
        const QString garbage = fixture.home.filePath(u"garbage.png"_s);
        write_file(garbage, "no picture at all");
        const NextBox box = answer_next_box(QMessageBox::Ok);

        QVERIFY(!fixture.window.load_file(garbage, {}, false));

        QCOMPARE(box.title(), u"Load failed"_s);
        QCOMPARE(box.text(), u"Error loading file"_s);
        QCOMPARE(box.buttons(), QMessageBox::Ok);
        QCOMPARE(fixture.tabs()->count(), 0);
    }

    void aFileTooLargeIsOfferedAsACopyAndNoLeavesIt()
    {
        WindowFixture fixture;
        const QString path = sparse_file(fixture, u"large.ppm"_s, LoadLimit + 1);
        const NextBox box = answer_next_box(QMessageBox::No);

        QVERIFY(!fixture.window.load_file(path, {}, false));

        QCOMPARE(box.title(), u"Image Manager"_s);
        QCOMPARE(box.text(),
                 u"Could not load image\nNot enough memory to load bitmap image\nDo you want to save it?"_s);
        QCOMPARE(box.buttons(), QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        QCOMPARE(box.defaultButton(), QMessageBox::No);
        QCOMPARE(fixture.tabs()->count(), 0);
    }

    void aFileTooLargeCanBeSavedByteForByte()
    {
        WindowFixture fixture;
        const QString path = sparse_file(fixture, u"large.bin"_s, LoadLimit + 1);
        {
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadWrite));
            file.write("head");
            file.seek(LoadLimit - 3);
            file.write("tail");
        }
        const QString copy = fixture.home.filePath(u"copy.ppm"_s);
        const NextBox box = answer_next_box(QMessageBox::Yes);
        const NextFileDialog dialog([&copy](QFileDialog &chooser) {
            QCOMPARE(chooser.nameFilters().size(), 1);
            NextFileDialog::accept(chooser, copy);
        });

        QVERIFY(fixture.window.load_file(path, {}, false));

        QCOMPARE(QFileInfo(copy).size(), LoadLimit + 1);
        QFile file(copy);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.read(4), "head");
        QVERIFY(file.seek(LoadLimit - 3));
        QCOMPARE(file.readAll(), "tail");
        QCOMPARE(fixture.tabs()->count(), 0);
    }

    void aFileTooLargeThatHasGoneBeforeItsCopyIsTold()
    {
        WindowFixture fixture;
        const QString path = sparse_file(fixture, u"large.bin"_s, LoadLimit + 1);
        const QString copy = fixture.file(u"copy.ppm"_s);
        const NextBox question = answer_next_box(QMessageBox::Yes);
        const NextFileDialog dialog([&](QFileDialog &chooser) {
            QVERIFY(QFile::remove(path));
            NextFileDialog::accept(chooser, copy);
        });
        const NextBox replace = answer_next_box(QMessageBox::Yes);
        const NextBox box = answer_next_box(QMessageBox::Ok);

        QVERIFY(!fixture.window.load_file(path, {}, false));

        QCOMPARE(box.title(), u"Save failed"_s);
        QCOMPARE(box.text(), u"Error saving image: No such file or directory"_s);
        QCOMPARE(QImage(copy).size(), QSize(64, 48));
    }

    void aLastWordIsAFileWhateverItLooksLike()
    {
        WindowFixture fixture;
        const NextBox box = answer_next_box(QMessageBox::Ok);

        fixture.window.processArgs({u"program"_s, fixture.file(u"a.png"_s), u"-t"_s});

        QCOMPARE(box.title(), u"Load failed"_s);
        QCOMPARE(fixture.titles(), QStringList{u"a.png"_s});
    }

    void wordsOfAPathWithAColonAreTwoFilesUnlessAskedOtherwise()
    {
        WindowFixture fixture;
        const QString path = fixture.file(u"a:b.png"_s);
        const NextBox first = answer_next_box(QMessageBox::Ok);
        const NextBox second = answer_next_box(QMessageBox::Ok);

        fixture.window.processArgs(
            {u"program"_s, path.section(u':', 0, 0), path.section(u':', 1), fixture.file(u"c.png"_s)});

        QCOMPARE(second.title(), u"Load failed"_s);
        QCOMPARE(fixture.titles(), QStringList{u"c.png"_s});
    }

    void temporaryFileStaysWhereItsCopyFailed()
    {
        WindowFixture fixture;
        const QString path = sparse_file(fixture, u"large.bin"_s, LoadLimit + 1);
        const NextBox question = answer_next_box(QMessageBox::Yes);
        const NextFileDialog dialog([](QFileDialog &chooser) { NextFileDialog::accept(chooser, u"/dev/full"_s); });
        const NextBox replace = answer_next_box(QMessageBox::Yes);
        const NextBox box = answer_next_box(QMessageBox::Ok);

        fixture.window.processArgs({u"program"_s, u"-t"_s, path, fixture.file(u"a.png"_s)});

        QCOMPARE(box.title(), u"Save failed"_s);
        QCOMPARE(box.text(), u"Error saving image: Can not open file for write: \nThis is no plain file."_s);
        QCOMPARE(QFileInfo(path).size(), LoadLimit + 1);
        QCOMPARE(fixture.titles(), QStringList{u"a.png"_s});
    }

    void temporaryFileThatWasCopiedOntoItselfStays()
    {
        WindowFixture fixture;
        const QString path = sparse_file(fixture, u"large.ppm"_s, LoadLimit + 1);
        const NextBox question = answer_next_box(QMessageBox::Yes);
        const NextFileDialog dialog([&path](QFileDialog &chooser) { NextFileDialog::accept(chooser, path); });
        const NextBox replace = answer_next_box(QMessageBox::Yes);

        fixture.window.processArgs({u"program"_s, u"-t"_s, path});

        QCOMPARE(QFileInfo(path).size(), LoadLimit + 1);
    }

    void temporaryFileGoesWhereNoCopyIsWanted()
    {
        WindowFixture fixture;
        const QString path = sparse_file(fixture, u"large.ppm"_s, LoadLimit + 1);
        const NextBox question = answer_next_box(QMessageBox::No);

        fixture.window.processArgs({u"program"_s, u"-t"_s, path, fixture.file(u"a.png"_s)});

        QVERIFY(!QFile::exists(path));
    }

    void cancellingTheDialogOfTheCopyGivesFalse()
    {
        WindowFixture fixture;
        const QString path = sparse_file(fixture, u"large.bin"_s, LoadLimit + 1);
        const NextBox box = answer_next_box(QMessageBox::Yes);
        const NextFileDialog dialog([](QFileDialog &chooser) { chooser.reject(); });

        QVERIFY(!fixture.window.load_file(path, {}, false));
    }

    void theFormatWordDecidesHowAFileIsRead()
    {
        WindowFixture fixture;
        const QString path = fixture.file(u"a.png"_s);
        {
            const NextBox box = answer_next_box(QMessageBox::Ok);
            QVERIFY(!fixture.window.load_file(path, u"bmp"_s, false));
        }

        QVERIFY(fixture.window.load_file(path, u"png"_s, false));
    }
};

QTEST_MAIN(tst_ImageManager_load)
#include "tst_ImageManager_load.moc"
