#include "files.h"
#include "NextBox.h"
#include "NextFileDialog.h"
#include "window_settings.h"
#include "WindowFixture.h"

#include <QCheckBox>
#include <QImageReader>
#include <QPointer>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// Picks the filter whose text begins so, as the user does.
void pick_filter(QFileDialog &dialog, const QString &beginning)
{
    const QStringList filters = dialog.nameFilters();
    const auto filter = std::ranges::find_if(filters, [&](const QString &text) { return text.startsWith(beginning); });
    QVERIFY(filter != filters.end());
    dialog.selectNameFilter(*filter);
    emit dialog.filterSelected(*filter);
}

} // namespace

class tst_ImageManager_file : public QObject
{
    Q_OBJECT

private slots:
    void openingShowsTheChosenFile()
    {
        WindowFixture fixture;
        const QString path = fixture.file(u"a.png"_s);
        const NextFileDialog dialog([&path](QFileDialog &chooser) { NextFileDialog::accept(chooser, path); });

        fixture.action(u"file_open"_s)->trigger();

        QCOMPARE(fixture.titles(), QStringList{u"a.png"_s});
    }

    void aClosedTabFreesItsViewAndItsDocument()
    {
        WindowFixture fixture(u"a.png"_s);
        QVERIFY(fixture.open(u"b.png"_s));
        const QPointer<ImageDocumentView> view = fixture.currentView();
        const QPointer<ImageDocument> document = view->document();

        fixture.action(u"file_close"_s)->trigger();

        QVERIFY(view.isNull());
        QVERIFY(document.isNull());
        QCOMPARE(fixture.titles(), QStringList{u"a.png"_s});
    }

    void cancellingTheOpenDialogOpensNothing()
    {
        WindowFixture fixture;
        const NextFileDialog dialog([](QFileDialog &chooser) { chooser.reject(); });

        fixture.action(u"file_open"_s)->trigger();

        QCOMPARE(fixture.tabs()->count(), 0);
    }

    void aFileThatCannotBeOpenedGetsTwoBoxes()
    {
        WindowFixture fixture;
        const QString garbage = fixture.home.filePath(u"garbage.png"_s);
        write_file(garbage, "no picture at all");
        const NextFileDialog dialog([&garbage](QFileDialog &chooser) { NextFileDialog::accept(chooser, garbage); });
        const NextBox first = answer_next_box(QMessageBox::Ok);
        const NextBox second = answer_next_box(QMessageBox::Ok);

        fixture.action(u"file_open"_s)->trigger();

        QCOMPARE(first.title(), u"Load failed"_s);
        QCOMPARE(second.title(), u"Open failed"_s);
        QCOMPARE(second.text(), u"Error opening file"_s);
    }

    void savingWritesTheFileAndTakesTheMarkAway()
    {
        WindowFixture fixture(u"a.png"_s);
        ImageDocument *const document = fixture.currentView()->document();
        QVERIFY(document->setPage(1, patterned_page(QSize(30, 20))));
        QCOMPARE(fixture.titles(), QStringList{u"a.png*"_s});

        fixture.action(u"file_save"_s)->trigger();

        QCOMPARE(fixture.titles(), QStringList{u"a.png"_s});
        QCOMPARE(QImageReader(fixture.home.filePath(u"a.png"_s)).size(), QSize(30, 20));
    }

    void savingAnUnnamedDocumentAsksForAName()
    {
        WindowFixture fixture;
        QVERIFY(fixture.window.load_file(fixture.file(u"scan.png"_s), {}, true));
        const QString path = fixture.home.filePath(u"named.bmp"_s);
        const NextFileDialog dialog([&path](QFileDialog &chooser) { NextFileDialog::accept(chooser, path); });

        fixture.action(u"file_save"_s)->trigger();

        QCOMPARE(fixture.titles(), QStringList{u"named.bmp"_s});
        QVERIFY(fixture.currentView()->document()->hasFile());
        QCOMPARE(QImageReader::imageFormat(path), "bmp");
    }

    void savingUnderAnotherNameChangesTheTitle()
    {
        WindowFixture fixture(u"a.png"_s);
        const QString path = fixture.home.filePath(u"b.png"_s);
        const NextFileDialog dialog([&path](QFileDialog &chooser) { NextFileDialog::accept(chooser, path); });

        fixture.action(u"file_save_as"_s)->trigger();

        QCOMPARE(fixture.titles(), QStringList{u"b.png"_s});
        QVERIFY(QFile::exists(path));
    }

    void aSaveThatFailsSaysWhyAndKeepsTheMark()
    {
        WindowFixture fixture(u"a.png"_s);
        ImageDocument *const document = fixture.currentView()->document();
        document->setModified(true);
        document->fileInfo.setFile(u"/nowhere/a%1.png"_s);
        const NextBox box = answer_next_box(QMessageBox::Ok);

        fixture.action(u"file_save"_s)->trigger();

        QCOMPARE(box.title(), u"Save failed"_s);
        QCOMPARE(box.text(), u"Error saving image: Can not open file for write: \nNo such file or directory"_s);
        QVERIFY(document->isModified());
        QVERIFY(fixture.window.isEnabled());
        QCOMPARE(fixture.window.cursor().shape(), Qt::ArrowCursor);
    }

    void withoutADocumentNothingIsSavedOrPrinted()
    {
        WindowFixture fixture;
        QTest::ignoreMessage(QtWarningMsg, "ImageManager::file_save - nothing to save!");

        QVERIFY(fixture.window.file_save());
        fixture.window.file_print();

        QVERIFY(fixture.window.statusBar()->currentMessage() != u"Printing..."_s);
    }

    void saveAllGivesUnnamedDocumentsNumbersBehindTheBaseName_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QStringList>("names");

        QTest::newRow("with a suffix") << u"scan.png"_s << QStringList{u"scan1.png"_s, u"own.png"_s, u"scan2.png"_s};
        QTest::newRow("without a dot") << u"scan"_s << QStringList{u"scan1"_s, u"own.png"_s, u"scan2"_s};
    }

    void saveAllGivesUnnamedDocumentsNumbersBehindTheBaseName()
    {
        QFETCH(QString, typed);
        QFETCH(QStringList, names);
        WindowFixture fixture;
        const QString scan = fixture.file(u"temporary.png"_s);
        QVERIFY(fixture.window.load_file(scan, {}, true));
        QVERIFY(fixture.open(u"own.png"_s));
        QVERIFY(fixture.window.load_file(scan, {}, true));
        fixture.tabs()->setCurrentIndex(1);
        const NextFileDialog dialog([&](QFileDialog &chooser) {
            chooser.setDirectory(fixture.home.path());
            NextFileDialog::accept(chooser, typed);
        });

        fixture.action(u"file_save_all"_s)->trigger();

        QCOMPARE(fixture.titles(), names);
        for (const QString &name : names)
            QVERIFY2(QFile::exists(fixture.home.filePath(name)), qPrintable(name));
        QCOMPARE(fixture.tabs()->currentIndex(), 1);
    }

    void saveAllWithoutABaseNameNamesTheCurrentDocumentAlone()
    {
        WindowFixture fixture(u"a.png"_s);
        QVERIFY(fixture.open(u"b.png"_s));
        const NextFileDialog dialog([&](QFileDialog &chooser) {
            chooser.findChild<QCheckBox *>()->setChecked(false);
            chooser.setDirectory(fixture.home.path());
            NextFileDialog::accept(chooser, u"c.png"_s);
        });

        fixture.action(u"file_save_all"_s)->trigger();

        QCOMPARE(fixture.titles(), (QStringList{u"a.png"_s, u"c.png"_s}));
    }

    void saveAllCanMergeAllPagesIntoOneFileAndLeavesTheTabs()
    {
        WindowFixture fixture;
        QStringList formats;
        for (const QString &name : {u"a.png"_s, u"b.png"_s, u"c.png"_s}) {
            QVERIFY(fixture.open(name));
            QVERIFY(fixture.currentView()->document()->addPage(patterned_page(QSize(20, 10))));
            formats.append(fixture.currentView()->document()->imgFormat());
        }
        const QString path = fixture.home.filePath(u"all.tiff"_s);
        const NextFileDialog dialog([&path](QFileDialog &chooser) {
            pick_filter(chooser, u"Multipage TIFF"_s);
            NextFileDialog::accept(chooser, path);
        });

        fixture.action(u"file_save_all"_s)->trigger();

        const ImageDocument merged(path, u"TIFF"_s);
        QCOMPARE(merged.pageCount(), 6U);
        QCOMPARE(merged.page(1).size(), QSize(64, 48));
        QCOMPARE(merged.page(6).size(), QSize(20, 10));
        QCOMPARE(fixture.titles(), (QStringList{u"a.png*"_s, u"b.png*"_s, u"c.png*"_s}));
        for (int i = 0; i < fixture.tabs()->count(); ++i) {
            const ImageDocument &document = *fixture.view(i)->document();
            QCOMPARE(document.pageCount(), 2U);
            QCOMPARE(document.page(1).size(), QSize(64, 48));
            QCOMPARE(document.filePath(), fixture.home.filePath(fixture.titles().at(i).chopped(1)));
            QCOMPARE(document.imgFormat(), formats.at(i));
        }
    }

    void closingAModifiedDocumentAsks_data()
    {
        QTest::addColumn<QMessageBox::StandardButton>("answer");
        QTest::addColumn<bool>("closed");
        QTest::addColumn<QSize>("sizeOnDisk");

        QTest::newRow("Yes saves and closes") << QMessageBox::Yes << true << QSize(30, 20);
        QTest::newRow("No closes") << QMessageBox::No << true << QSize(64, 48);
        QTest::newRow("Cancel keeps it") << QMessageBox::Cancel << false << QSize(64, 48);
    }

    void closingAModifiedDocumentAsks()
    {
        QFETCH(QMessageBox::StandardButton, answer);
        QFETCH(bool, closed);
        WindowFixture fixture(u"a%1&b.png"_s);
        QVERIFY(fixture.currentView()->document()->setPage(1, patterned_page(QSize(30, 20))));
        const NextBox box = answer_next_box(answer);

        fixture.action(u"file_close"_s)->trigger();

        QCOMPARE(box.title(), u"Image Manager"_s);
        QCOMPARE(box.text(), u"Image 'a%1&b.png' has been changed.\nDo you want to save it?"_s);
        QCOMPARE(box.buttons(), QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        QCOMPARE(box.defaultButton(), QMessageBox::Cancel);
        QCOMPARE(fixture.tabs()->count(), closed ? 0 : 1);
        QTEST(QImageReader(fixture.home.filePath(u"a%1&b.png"_s)).size(), "sizeOnDisk");
    }

    void anUnnamedDocumentIsAskedForWithoutAName()
    {
        WindowFixture fixture;
        QVERIFY(fixture.window.load_file(fixture.file(u"scan.png"_s), {}, true));
        fixture.currentView()->document()->setModified(true);
        const NextBox box = answer_next_box(QMessageBox::No);

        fixture.action(u"file_close_all"_s)->trigger();

        QCOMPARE(box.text(), u"Do you want to save the image?"_s);
        QCOMPARE(fixture.tabs()->count(), 0);
    }

    void anUnmodifiedDocumentClosesWithoutAQuestion()
    {
        WindowFixture fixture(u"a.png"_s);
        QVERIFY(fixture.open(u"b.png"_s));

        fixture.action(u"file_close"_s)->trigger();

        QCOMPARE(fixture.titles(), QStringList{u"a.png"_s});
    }

    void cancellingTheSecondQuestionKeepsTheWindowAndShowsTheThirdTab()
    {
        WindowFixture fixture;
        for (const QString &name : {u"a.png"_s, u"b.png"_s, u"c.png"_s}) {
            QVERIFY(fixture.open(name));
            fixture.currentView()->document()->setModified(true);
        }
        fixture.tabs()->setCurrentIndex(0);
        const NextBox first = answer_next_box(QMessageBox::No);
        const NextBox second = answer_next_box(QMessageBox::Cancel);

        write_window_setting(WindowSetting::Layout, u"earlier"_s);

        QVERIFY(!fixture.window.close());

        QVERIFY(fixture.window.isVisible());
        QCOMPARE(read_window_setting(WindowSetting::Layout, QString()).toString(), u"earlier"_s);
        QCOMPARE(fixture.tabs()->count(), 3);
        QCOMPARE(fixture.tabs()->currentIndex(), 2);
    }

    void aFailedSaveStopsTheClosing()
    {
        WindowFixture fixture(u"a.png"_s);
        fixture.currentView()->document()->setModified(true);
        fixture.currentView()->document()->fileInfo.setFile(u"/nowhere/a.png"_s);
        const NextBox question = answer_next_box(QMessageBox::Yes);
        const NextBox failure = answer_next_box(QMessageBox::Ok);

        QVERIFY(!fixture.window.close());

        QCOMPARE(failure.title(), u"Save failed"_s);
        QCOMPARE(fixture.tabs()->count(), 1);
    }
};

QTEST_MAIN(tst_ImageManager_file)
#include "tst_ImageManager_file.moc"
