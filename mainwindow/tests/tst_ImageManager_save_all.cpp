#include "NextBox.h"
#include "NextFileDialog.h"
#include "WindowFixture.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// The dialog for all documents has the box about the base name, that for one document has not.
QCheckBox *box_of(const QFileDialog &chooser)
{
    return chooser.findChild<QCheckBox *>();
}

/// Answers the dialog of Save All, and gives the typed name.
NextFileDialog::Work save_all_under(const WindowFixture &fixture, const QString &name, bool useAsBase)
{
    return [&fixture, name, useAsBase](QFileDialog &chooser) {
        QVERIFY(box_of(chooser));
        box_of(chooser)->setChecked(useAsBase);
        NextFileDialog::accept(chooser, fixture.home.filePath(name));
    };
}

/// Opens a page as a document without a file, modified in no way but by its size.
void open_unnamed(WindowFixture &fixture, QSize size = QSize(64, 48))
{
    QVERIFY(fixture.window.load_file(fixture.file(u"temporary.png"_s, size), {}, true));
}

} // namespace

/// Save All where not all goes well.
class tst_ImageManager_save_all : public QObject
{
    Q_OBJECT

private slots:
    void everyTabIsSavedThoughAFileComesMeanwhile_data()
    {
        QTest::addColumn<int>("start");
        QTest::addColumn<QStringList>("titles");

        QTest::newRow("begun at tab 0") << 0 << QStringList{u"named.png"_s, u"first.png"_s, u"second.png"_s};
        QTest::newRow("begun at tab 1") << 1 << QStringList{u"second.png"_s, u"named.png"_s, u"first.png"_s};
        QTest::newRow("begun at tab 2") << 2 << QStringList{u"first.png"_s, u"second.png"_s, u"named.png"_s};
    }

    void everyTabIsSavedThoughAFileComesMeanwhile()
    {
        QFETCH(const int, start);
        QFETCH(const QStringList, titles);
        WindowFixture fixture;
        for (int i = 0; i < 3; ++i)
            open_unnamed(fixture);
        fixture.tabs()->setCurrentIndex(start);
        const QString late = fixture.file(u"late.png"_s);
        const NextFileDialog all(save_all_under(fixture, u"named.png"_s, false));
        const NextFileDialog first([&](QFileDialog &chooser) {
            QVERIFY(!box_of(chooser));
            fixture.window.processMessage(u"imagemanager:"_s + late);
            NextFileDialog::accept(chooser, fixture.home.filePath(u"first.png"_s));
        });
        const NextFileDialog second([&](QFileDialog &chooser) {
            QVERIFY(!box_of(chooser));
            QVERIFY(QFile::exists(fixture.home.filePath(u"first.png"_s)));
            NextFileDialog::accept(chooser, fixture.home.filePath(u"second.png"_s));
        });

        fixture.action(u"file_save_all"_s)->trigger();

        QCOMPARE(fixture.titles(), titles + QStringList{u"late.png"_s});
        QCOMPARE(fixture.tabs()->currentIndex(), start);
    }

    void aNumberedNameThatExistsIsAskedAboutAndYesReplacesTheFile()
    {
        WindowFixture fixture;
        open_unnamed(fixture, QSize(30, 20));
        open_unnamed(fixture, QSize(40, 30));
        fixture.tabs()->setCurrentIndex(0);
        const QString taken = fixture.file(u"sc<b>an2.png"_s);
        const NextFileDialog all(save_all_under(fixture, u"sc<b>an.png"_s, true));
        const NextBox question = answer_next_box(QMessageBox::Yes);

        fixture.action(u"file_save_all"_s)->trigger();

        QCOMPARE(question.text(), u"sc<b>an2.png already exists.\nDo you want to replace it?"_s);
        QCOMPARE(question.buttons(), QMessageBox::Yes | QMessageBox::No);
        QCOMPARE(question.defaultButton(), QMessageBox::No);
        QCOMPARE(QImageReader(taken).size(), QSize(40, 30));
        QCOMPARE(fixture.titles(), (QStringList{u"sc<b>an1.png"_s, u"sc<b>an2.png"_s}));
    }

    void afterNoAnotherNameIsAskedFor()
    {
        WindowFixture fixture;
        open_unnamed(fixture, QSize(30, 20));
        open_unnamed(fixture, QSize(40, 30));
        fixture.tabs()->setCurrentIndex(0);
        const QString taken = fixture.file(u"scan1.png"_s);
        const NextFileDialog all(save_all_under(fixture, u"scan.png"_s, true));
        const NextBox question = answer_next_box(QMessageBox::No);
        const NextFileDialog one([&](QFileDialog &chooser) {
            QVERIFY(!box_of(chooser));
            QVERIFY(!fixture.currentView()->document()->hasFile());
            QCOMPARE(fixture.currentView()->document()->imgFormat(), u"BMP"_s);
            NextFileDialog::accept(chooser, fixture.home.filePath(u"other.png"_s));
        });

        fixture.action(u"file_save_all"_s)->trigger();

        QCOMPARE(QImageReader(taken).size(), QSize(64, 48));
        QCOMPARE(fixture.titles(), (QStringList{u"other.png"_s, u"scan2.png"_s}));
    }

    void aDocumentWithoutANameInTheEndStaysAsItWasAndTheOthersAreSaved()
    {
        WindowFixture fixture;
        open_unnamed(fixture);
        open_unnamed(fixture);
        fixture.tabs()->setCurrentIndex(0);
        const QString title = fixture.titles().at(0);
        const QString taken = fixture.file(u"scan1.png"_s, QSize(30, 20));
        const NextFileDialog all(save_all_under(fixture, u"scan.png"_s, true));
        const NextBox question = answer_next_box(QMessageBox::No);
        const NextFileDialog one([](QFileDialog &chooser) {
            QVERIFY(!box_of(chooser));
            chooser.reject();
        });

        fixture.action(u"file_save_all"_s)->trigger();

        QCOMPARE(fixture.titles(), (QStringList{title, u"scan2.png"_s}));
        QVERIFY(!fixture.view(0)->document()->hasFile());
        QCOMPARE(fixture.view(0)->document()->imgFormat(), u"BMP"_s);
        QCOMPARE(QImageReader(taken).size(), QSize(30, 20));
        QCOMPARE(fixture.tabs()->currentIndex(), 0);
    }

    void aSaveThatFailsLeavesNameWordAndMark_data()
    {
        QTest::addColumn<bool>("useAsBase");
        QTest::addColumn<QString>("folder"); // where a file is to be written

        QTest::newRow("under a base name") << true << u"scan1.png"_s;
        QTest::newRow("under one name") << false << u"scan.png"_s;
    }

    void aSaveThatFailsLeavesNameWordAndMark()
    {
        QFETCH(const bool, useAsBase);
        QFETCH(const QString, folder);
        WindowFixture fixture;
        open_unnamed(fixture);
        const QString title = fixture.titles().at(0);
        const NextFileDialog all([&](QFileDialog &chooser) {
            save_all_under(fixture, u"scan.png"_s, useAsBase)(chooser);
            QVERIFY(QDir(fixture.home.path()).mkdir(folder)); // it was free when the user chose it
        });
        const NextBox failure = answer_next_box(QMessageBox::Ok);

        fixture.action(u"file_save_all"_s)->trigger();

        QCOMPARE(failure.title(), u"Save failed"_s);
        const ImageDocument &document = *fixture.view(0)->document();
        QVERIFY(!document.hasFile());
        QCOMPARE(document.fileName() + u'*', title);
        QCOMPARE(document.imgFormat(), u"BMP"_s);
        QCOMPARE(fixture.titles(), QStringList{title});
    }

    void aTabThatIsClosedBehindTheQuestionIsLeftOut()
    {
        WindowFixture fixture;
        open_unnamed(fixture);
        open_unnamed(fixture, QSize(40, 30));
        fixture.tabs()->setCurrentIndex(0);
        const QString taken = fixture.file(u"scan1.png"_s, QSize(30, 20));
        const NextFileDialog all(save_all_under(fixture, u"scan.png"_s, true));
        const NextOf<QMessageBox> question([&](const QMessageBox &box) {
            box.button(QMessageBox::Yes)->click();
            fixture.action(u"file_close"_s)->trigger();
        });

        fixture.action(u"file_save_all"_s)->trigger();

        QCOMPARE(fixture.titles(), QStringList{u"scan2.png"_s});
        QCOMPARE(QImageReader(fixture.home.filePath(u"scan2.png"_s)).size(), QSize(40, 30));
        QCOMPARE(QImageReader(taken).size(), QSize(30, 20));
    }
};

QTEST_MAIN(tst_ImageManager_save_all)
#include "tst_ImageManager_save_all.moc"
