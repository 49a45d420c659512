#include "image_files.h"
#include "NextBox.h"
#include "NextDialog.h"
#include "NextFileDialog.h"
#include "tiff_pages.h"
#include "WindowFixture.h"

#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Opens a file of the kind, and answers its path.
QString open_kind(WindowFixture &fixture, const QString &kind, const QString &name)
{
    QString path = fixture.home.filePath(name);
    make_tiff(kind, path);
    if (!fixture.window.load_file(path, {}, false))
        qFatal("cannot open %s", qPrintable(path));
    return path;
}

/// Puts another file with the same bytes in the place of a file.
void replace_by_copy(const QString &path)
{
    if (!QFile::copy(path, path + u'~') || !QFile::remove(path) || !QFile::rename(path + u'~', path))
        qFatal("cannot replace %s", qPrintable(path));
}

/// An icon of two sizes, each a picture of its own: 32 by 32 and 16 by 16.
void write_icon(const QString &path)
{
    QByteArray pictures;
    QByteArray icon("\0\0\1\0\2\0", 6);
    for (const char side : {'\x20', '\x10'}) {
        const qint64 start = 6 + 2 * 16 + pictures.size();
        const QByteArray png = encoded(patterned_page({side, side}), "png");
        for (const char byte : {side, side, '\0', '\0', '\1', '\0', '\x20', '\0'})
            icon += byte;
        icon += little32(png.size()) + little32(start);
        pictures += png;
    }
    write_file(path, icon + pictures);
}

QString question_about(const QString &name, int pictures)
{
    return u"%1 holds %2 pictures, and not all of them are open. What is not open cannot be kept. Save?"_s.arg(name)
        .arg(pictures);
}

} // namespace

/// Files of many pictures, of which one is open.
class tst_ImageManager_kept : public QObject
{
    Q_OBJECT

private slots:
    void tabTellsWhichPageIsOpen();
    void tabOfOnePageTellsNothing();
    void saveKeepsThePagesBehindWithoutAQuestion();
    void saveAsTakesThePagesAlong();
    void saveAsUnderAnotherFormatTakesTheFirstPageWithoutAQuestion();
    void fileThatChangedRaisesTheQuestionAndNoSavesNothing();
    void fileThatChangedIsSavedAfterYes();
    void saveThatFailsAfterYesForgetsNoPages();
    void saveAsToANewNameAsksWhereThePagesHaveGone();
    void saveAsAfterTheReplaceQuestionAsksNoSecondOne();
    void saveOverAnIconOfSeveralSizesAsks();
    void closeWithoutTheLossStays();
    void tabClosedDuringTheQuestionSavesNothing();
    void markupInANameIsShown();
    void saveAllIntoOneFilePlacesKeptPagesBehindTheirOwn();
    void saveAllIntoOneFileAsksForEachDocumentThatCannotBeKept();
    void severalOwnPagesAreSavedAsProposed();
};

void tst_ImageManager_kept::tabTellsWhichPageIsOpen()
{
    WindowFixture fixture;
    const QString path = open_kind(fixture, u"fax"_s, u"scan.tif"_s);
    QCOMPARE(fixture.tabs()->tabToolTip(0), u"Page 1 of 20"_s);

    fixture.edit(u"image_invert"_s);
    fixture.action(u"file_save"_s)->trigger();
    QCOMPARE(fixture.tabs()->tabToolTip(0), u"Page 1 of 20"_s);

    QVERIFY(fixture.currentView()->document()->save(fixture.home.filePath(u"scan.png"_s), u"png"_s));
    QCOMPARE(fixture.tabs()->tabToolTip(0), QString());
}

void tst_ImageManager_kept::tabOfOnePageTellsNothing()
{
    WindowFixture fixture;
    (void)open_kind(fixture, u"one page"_s, u"one.tif"_s);
    QVERIFY(fixture.open(u"page.png"_s));

    QCOMPARE(fixture.tabs()->tabToolTip(0), QString());
    QCOMPARE(fixture.tabs()->tabToolTip(1), QString());
}

void tst_ImageManager_kept::saveKeepsThePagesBehindWithoutAQuestion()
{
    WindowFixture fixture;
    const QString path = open_kind(fixture, u"fax"_s, u"scan.tif"_s);
    const QStringList before = told_pages(path);
    fixture.edit(u"image_invert"_s);

    fixture.action(u"file_save"_s)->trigger();

    QCOMPARE(fixture.titles(), QStringList{u"scan.tif"_s});
    QCOMPARE(told_pages(path).mid(2), before.mid(2));
    QVERIFY(told_pages(path).at(1) != before.at(1));
}

void tst_ImageManager_kept::saveAsTakesThePagesAlong()
{
    WindowFixture fixture;
    const QString path = open_kind(fixture, u"colour LZW"_s, u"scan.TIF"_s);
    const QString copy = fixture.home.filePath(u"copy.tif"_s);
    QString proposed;
    const NextFileDialog dialog([&](QFileDialog &at) {
        proposed = at.selectedNameFilter();
        NextFileDialog::accept(at, copy);
    });

    fixture.action(u"file_save_as"_s)->trigger();

    QVERIFY(proposed.contains("*.tif"_L1));
    QCOMPARE(told_pages(copy).mid(2), told_pages(path).mid(2));
    QCOMPARE(fixture.titles(), QStringList{u"copy.tif"_s});
    QCOMPARE(fixture.tabs()->tabToolTip(0), u"Page 1 of 20"_s);
}

void tst_ImageManager_kept::saveAsUnderAnotherFormatTakesTheFirstPageWithoutAQuestion()
{
    WindowFixture fixture;
    const QString path = open_kind(fixture, u"fax"_s, u"scan.tif"_s);
    const QByteArray bytes = file_bytes(path);
    replace_by_copy(path); // would be asked about under a TIFF row
    const NextFileDialog dialog([&](QFileDialog &at) {
        at.selectNameFilter(u"Portable Network Graphics (*.png)"_s);
        NextFileDialog::accept(at, fixture.home.filePath(u"scan.png"_s));
    });

    fixture.action(u"file_save_as"_s)->trigger();

    QCOMPARE(fixture.titles(), QStringList{u"scan.png"_s});
    QCOMPARE(QImage(fixture.home.filePath(u"scan.png"_s)).size(), QSize(96, 64));
    QCOMPARE(file_bytes(path), bytes);
    QCOMPARE(fixture.tabs()->tabToolTip(0), QString());
}

void tst_ImageManager_kept::fileThatChangedRaisesTheQuestionAndNoSavesNothing()
{
    WindowFixture fixture;
    const QString path = open_kind(fixture, u"fax"_s, u"scan.tif"_s);
    fixture.edit(u"image_invert"_s);
    replace_by_copy(path);
    const QByteArray bytes = file_bytes(path);
    const NextBox box = answer_next_box(QMessageBox::No);

    fixture.action(u"file_save"_s)->trigger();

    QCOMPARE(box.text(), question_about(u"scan.tif"_s, 20));
    QCOMPARE(box.title(), fixture.window.windowTitle());
    QCOMPARE(box.buttons(), QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(box.defaultButton(), QMessageBox::No);
    QCOMPARE(file_bytes(path), bytes);
    QCOMPARE(fixture.titles(), QStringList{u"scan.tif*"_s});
    QCOMPARE(fixture.tabs()->tabToolTip(0), u"Page 1 of 20"_s);
}

void tst_ImageManager_kept::fileThatChangedIsSavedAfterYes()
{
    WindowFixture fixture;
    const QString path = open_kind(fixture, u"fax"_s, u"scan.tif"_s);
    QVERIFY(QFile::remove(path));
    const NextBox box = answer_next_box(QMessageBox::Yes);

    fixture.action(u"file_save"_s)->trigger();

    QCOMPARE(box.text(), question_about(u"scan.tif"_s, 20));
    QCOMPARE(told_pages(path).size(), 2); // the file and one page
    QCOMPARE(fixture.tabs()->tabToolTip(0), QString());
    fixture.action(u"file_save"_s)->trigger(); // no question any more
    QCOMPARE(told_pages(path).size(), 2);
}

void tst_ImageManager_kept::saveThatFailsAfterYesForgetsNoPages()
{
    WindowFixture fixture;
    const QString path = open_kind(fixture, u"fax"_s, u"scan.tif"_s);
    QVERIFY(QFile::rename(path, path + u'~') && QDir().mkdir(path));
    const NextBox question = answer_next_box(QMessageBox::Yes);
    const NextBox failure = answer_next_box(QMessageBox::Ok);
    fixture.action(u"file_save"_s)->trigger();
    QVERIFY(QDir().rmdir(path) && QFile::rename(path + u'~', path));
    fixture.action(u"file_save"_s)->trigger(); // no question: they are there again
    QCOMPARE(failure.title(), u"Save failed"_s);
    QCOMPARE(told_pages(path).size(), 21); // the file and 20 pages
}

void tst_ImageManager_kept::saveAsToANewNameAsksWhereThePagesHaveGone()
{
    WindowFixture fixture;
    QVERIFY(QFile::remove(open_kind(fixture, u"fax"_s, u"scan.tif"_s)));
    const QString copy = fixture.home.filePath(u"copy.tif"_s);
    const NextFileDialog dialog([&](QFileDialog &at) { NextFileDialog::accept(at, copy); });
    const NextBox box = answer_next_box(QMessageBox::No);

    fixture.action(u"file_save_as"_s)->trigger();

    QCOMPARE(box.text(), question_about(u"scan.tif"_s, 20));
    QVERIFY(!QFile::exists(copy));
    QCOMPARE(fixture.titles(), QStringList{u"scan.tif"_s});
}

void tst_ImageManager_kept::saveAsAfterTheReplaceQuestionAsksNoSecondOne()
{
    WindowFixture fixture;
    QVERIFY(QFile::remove(open_kind(fixture, u"fax"_s, u"scan.tif"_s)));
    const QString taken = fixture.file(u"taken.tif"_s);
    const NextFileDialog dialog([&](QFileDialog &at) { NextFileDialog::accept(at, taken); });
    const NextBox replace = answer_next_box(QMessageBox::Yes);

    fixture.action(u"file_save_as"_s)->trigger();

    QVERIFY(replace.text().endsWith("already exists.\nDo you want to replace it?"_L1));
    QCOMPARE(fixture.titles(), QStringList{u"taken.tif"_s});
    QCOMPARE(told_pages(taken).size(), 2);
}

void tst_ImageManager_kept::saveOverAnIconOfSeveralSizesAsks()
{
    WindowFixture fixture;
    const QString path = fixture.home.filePath(u"icon.ico"_s);
    write_icon(path);
    const QByteArray bytes = file_bytes(path);
    QVERIFY(fixture.window.load_file(path, {}, false));
    QCOMPARE(fixture.tabs()->tabToolTip(0), QString()); // they are no pages
    {
        const NextBox box = answer_next_box(QMessageBox::No);
        fixture.action(u"file_save"_s)->trigger();
        QCOMPARE(box.text(), question_about(u"icon.ico"_s, 2));
    }
    QCOMPARE(file_bytes(path), bytes);
    {
        const NextBox box = answer_next_box(QMessageBox::Yes);
        fixture.action(u"file_save"_s)->trigger();
    }
    QVERIFY(file_bytes(path) != bytes);
    fixture.action(u"file_save"_s)->trigger(); // one picture, no question
}

void tst_ImageManager_kept::closeWithoutTheLossStays()
{
    WindowFixture fixture;
    const QString path = open_kind(fixture, u"fax"_s, u"scan.tif"_s);
    fixture.edit(u"image_invert"_s);
    replace_by_copy(path);
    const NextBox save = answer_next_box(QMessageBox::Yes);
    const NextBox loss = answer_next_box(QMessageBox::No);

    QVERIFY(!fixture.window.close());

    QCOMPARE(loss.text(), question_about(u"scan.tif"_s, 20));
    QCOMPARE(fixture.titles(), QStringList{u"scan.tif*"_s});
}

void tst_ImageManager_kept::tabClosedDuringTheQuestionSavesNothing()
{
    WindowFixture fixture;
    const QString path = open_kind(fixture, u"fax"_s, u"scan.tif"_s);
    replace_by_copy(path);
    const QByteArray bytes = file_bytes(path);
    const NextOf<QMessageBox> close([&](const QMessageBox &box) {
        fixture.action(u"file_close"_s)->trigger();
        box.button(QMessageBox::Yes)->click();
    });

    fixture.action(u"file_save"_s)->trigger();

    QCOMPARE(fixture.tabs()->count(), 0);
    QCOMPARE(file_bytes(path), bytes);
}

void tst_ImageManager_kept::markupInANameIsShown()
{
    WindowFixture fixture;
    QVERIFY(QFile::remove(open_kind(fixture, u"two pages"_s, u"<b>%2.tif"_s)));
    const NextBox box = answer_next_box(QMessageBox::No);

    fixture.action(u"file_save"_s)->trigger();

    QCOMPARE(box.text(),
             QString(u"<b>%2.tif holds 2 pictures, and not all of them are open. "_s
                     + u"What is not open cannot be kept. Save?"_s));
}

void tst_ImageManager_kept::saveAllIntoOneFilePlacesKeptPagesBehindTheirOwn()
{
    WindowFixture fixture;
    const QString fax = open_kind(fixture, u"fax"_s, u"fax.tif"_s);
    QVERIFY(fixture.open(u"page.png"_s));
    const QString tiles = open_kind(fixture, u"tiled"_s, u"tiles.tif"_s);
    const QString all = fixture.home.filePath(u"all.tiff"_s);
    const NextFileDialog dialog([&](QFileDialog &at) {
        at.selectNameFilter(u"Multipage TIFF (*.tiff *.tif)"_s);
        NextFileDialog::accept(at, all);
    });

    fixture.action(u"file_save_all"_s)->trigger();

    const QStringList pages = told_pages(all);
    QCOMPARE(pages.size(), 1 + 20 + 1 + 4);
    QCOMPARE(pages.mid(2, 19), told_pages(fax).mid(2));
    QCOMPARE(pages.mid(1 + 20 + 1 + 1), told_pages(tiles).mid(2));
    QCOMPARE(fixture.titles(), (QStringList{u"fax.tif"_s, u"page.png"_s, u"tiles.tif"_s}));
    QCOMPARE(fixture.tabs()->tabToolTip(0), u"Page 1 of 20"_s);
}

void tst_ImageManager_kept::saveAllIntoOneFileAsksForEachDocumentThatCannotBeKept()
{
    WindowFixture fixture;
    replace_by_copy(open_kind(fixture, u"fax"_s, u"fax.tif"_s));
    replace_by_copy(open_kind(fixture, u"two pages"_s, u"two.tif"_s));
    const QString tiles = open_kind(fixture, u"tiled"_s, u"tiles.tif"_s);
    const QString all = fixture.home.filePath(u"all.tiff"_s);
    const auto saveAll = [&](QMessageBox::StandardButton lastAnswer) {
        const NextFileDialog dialog([&](QFileDialog &at) {
            at.selectNameFilter(u"Multipage TIFF (*.tiff *.tif)"_s);
            NextFileDialog::accept(at, all);
        });
        const NextBox first = answer_next_box(QMessageBox::Yes);
        const NextBox second = answer_next_box(lastAnswer);
        fixture.action(u"file_save_all"_s)->trigger();
        QCOMPARE(first.text(), question_about(u"fax.tif"_s, 20));
        QCOMPARE(second.text(), question_about(u"two.tif"_s, 2));
    };

    saveAll(QMessageBox::No);
    QVERIFY(!QFile::exists(all));

    saveAll(QMessageBox::Yes);
    QCOMPARE(told_pages(all).size(), 1 + 1 + 1 + 4);
    QCOMPARE(told_pages(all).mid(4), told_pages(tiles).mid(2));
}

void tst_ImageManager_kept::severalOwnPagesAreSavedAsProposed()
{
    WindowFixture fixture;
    const QString path = fixture.home.filePath(u"own.TIFF"_s);
    ImageDocument pages({}, {});
    QVERIFY(pages.addPage(patterned_page({30, 20})));
    QVERIFY(pages.addPage(patterned_page({20, 30})));
    QVERIFY(pages.save(path, u"TIFF"_s));
    QVERIFY(fixture.window.load_file(path, u"TIFF"_s, false));
    const QString copy = fixture.home.filePath(u"copy.TIFF"_s);
    const NextFileDialog dialog([&](QFileDialog &at) {
        QCOMPARE(at.selectedFiles(), QStringList{path});
        NextFileDialog::accept(at, copy);
    });

    fixture.action(u"file_save_as"_s)->trigger();

    QCOMPARE(told_pages(copy), told_pages(path));
    QCOMPARE(fixture.titles(), QStringList{u"copy.TIFF"_s});
}

QTEST_MAIN(tst_ImageManager_kept)
#include "tst_ImageManager_kept.moc"
