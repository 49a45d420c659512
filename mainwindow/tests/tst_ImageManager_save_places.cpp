// Saving through the window: unusual names, and places that cannot be written to.

#include "NextBox.h"
#include "NextFileDialog.h"
#include "private_mounts.h"
#include "WindowFixture.h"

#include <QApplication>
#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Asks for a name by the dialog, which gets @p path typed in.
void save_as(const WindowFixture &fixture, const QString &path)
{
    const NextFileDialog dialog([&path](QFileDialog &chooser) {
        const QStringList filters = chooser.nameFilters().filter(u"(*.png)"_s);
        QCOMPARE(filters.size(), 1);
        chooser.selectNameFilter(filters.first());
        NextFileDialog::accept(chooser, path);
        if (chooser.isVisible())
            chooser.reject(); // it did not take the name; the test goes on and finds no file
    });
    fixture.action(u"file_save_as"_s)->trigger();
}

void modify(const WindowFixture &fixture)
{
    QVERIFY(fixture.currentView()->document()->setPage(1, patterned_page(QSize(30, 20))));
}

} // namespace

class tst_ImageManager_save_places : public QObject
{
    Q_OBJECT

private slots:
    void unusualNamesAreTakenAsTheyAre_data()
    {
        QTest::addColumn<QString>("name");

        QTest::newRow("the longest") << QString(251, u'n') + u".png"_s;
        QTest::newRow("place holder") << u"%1 of %2.png"_s;
        QTest::newRow("ampersands") << u"A & B.png"_s;
        QTest::newRow("blanks") << u"a  b c.png"_s;
        QTest::newRow("colons") << u":a:b.png"_s;
        QTest::newRow("other letters") << u"Größe 写真.png"_s;
    }

    void unusualNamesAreTakenAsTheyAre()
    {
        QFETCH(const QString, name);
        WindowFixture fixture(u"former.bmp"_s);
        modify(fixture);
        const QString path = fixture.home.path() + u'/' + name;

        save_as(fixture, path);

        QCOMPARE(fixture.titles(), QStringList{name});
        QCOMPARE(fixture.currentView()->document()->filePath(), path);
        QCOMPARE(QDir(fixture.home.path()).entryList({u"*.png"_s}, QDir::Files), QStringList{name});
        QVERIFY(compare_pictures(QImage(path).convertToFormat(QImage::Format_RGB32), patterned_page(QSize(30, 20))));
    }

    void theQuestionQuotesAnUnusualNameAsItIs()
    {
        const QString name = u"%1 & <b>%2<b> ü.png"_s;
        WindowFixture fixture(name);
        modify(fixture);
        const NextBox box = answer_next_box(QMessageBox::No);

        fixture.action(u"file_close"_s)->trigger();

        QCOMPARE(box.text(), u"Image '%1 & <b>%2<b> ü.png' has been changed.\nDo you want to save it?"_s);
        QCOMPARE(box.textFormat(), Qt::PlainText); // names may look like markup
        QCOMPARE(fixture.tabs()->count(), 0);
    }

    void aNameThatIsTooLongIsToldAndNothingIsClaimed()
    {
        WindowFixture fixture(u"a.png"_s);
        modify(fixture);
        // A dialog takes none so long; the document may come to one in another way.
        ImageDocument *const document = fixture.currentView()->document();
        document->fileInfo.setFile(fixture.home.filePath(QString(252, u'n') + u".png"_s));
        const NextBox box = answer_next_box(QMessageBox::Ok);

        fixture.action(u"file_save"_s)->trigger();

        QCOMPARE(box.title(), u"Save failed"_s);
        QCOMPARE(box.text(), u"Error saving image: Can not open file for write: \nFile name too long"_s);
        QVERIFY(document->isModified());
    }

    void aReadOnlyFileIsToldAndStays()
    {
        WindowFixture fixture(u"a.png"_s);
        modify(fixture);
        const ReadOnlyPlace place(fixture.home.filePath(u"a.png"_s));
        const NextBox box = answer_next_box(QMessageBox::Ok);

        fixture.action(u"file_save"_s)->trigger();

        QCOMPARE(box.title(), u"Save failed"_s);
        QCOMPARE(box.text(), u"Error saving image: Can not open file for write: \nRead-only file system"_s);
        QCOMPARE(fixture.titles(), QStringList{u"a.png*"_s});
        QVERIFY(fixture.currentView()->document()->isModified());
        QCOMPARE(QImage(fixture.home.filePath(u"a.png"_s)).size(), QSize(64, 48));
    }

    void aReadOnlyDirectoryIsToldAndTheDocumentStaysWhereItIs()
    {
        WindowFixture fixture(u"a.png"_s);
        modify(fixture);
        QVERIFY(QDir(fixture.home.path()).mkdir(u"archive"_s));
        const ReadOnlyPlace place(fixture.home.filePath(u"archive"_s));
        const NextBox box = answer_next_box(QMessageBox::Ok);

        save_as(fixture, fixture.home.filePath(u"archive/b.png"_s));

        QCOMPARE(box.title(), u"Save failed"_s);
        QCOMPARE(box.text(), u"Error saving image: Can not open file for write: \nRead-only file system"_s);
        QCOMPARE(fixture.titles(), QStringList{u"a.png*"_s});
        QCOMPARE(fixture.currentView()->document()->filePath(), fixture.home.filePath(u"a.png"_s));
    }
};

TEST_MAIN_APART(QApplication, tst_ImageManager_save_places, leave_common_mounts)
#include "tst_ImageManager_save_places.moc"
