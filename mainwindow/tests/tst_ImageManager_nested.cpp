#include "NextBox.h"
#include "NextDialog.h"
#include "NextFileDialog.h"
#include "Once.h"
#include "WindowFixture.h"

#include <QCheckBox>
#include <QImageReader>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// The message of another start that names one file.
QString message_of(const QString &path)
{
    return u"imagemanager:"_s + path;
}

QImage inverted(QImage page)
{
    page.invertPixels();
    return page;
}

} // namespace

/// What comes from outside while a command is under way: the window's close button, and files of other starts.
class tst_ImageManager_nested : public QObject
{
    Q_OBJECT

private slots:
    void theWindowMayBeClosedWhileAFileOpens_data()
    {
        QTest::addColumn<int>("round"); // of the event loop, within the opening

        for (int round = 1; round <= 3; ++round)
            QTest::addRow("round %d", round) << round;
    }

    void theWindowMayBeClosedWhileAFileOpens()
    {
        QFETCH(const int, round);
        WindowFixture fixture(u"a.png"_s);
        const QString path = fixture.file(u"b.png"_s);
        int rounds = 0;
        const Once closing([&] { return ++rounds == round; }, [&] { fixture.window.close(); });

        QVERIFY(fixture.window.load_file(path, {}, false));

        QCOMPARE(fixture.tabs()->count(), 0);
        QVERIFY(!fixture.window.isVisible());
        QVERIFY(!fixture.enabled(u"file_save"_s));
    }

    void theWindowStaysWhileAnEditIsUnderWayAndAsksWhenItHasEnded_data()
    {
        QTest::addColumn<QMessageBox::StandardButton>("answer");
        QTest::addColumn<bool>("stays");

        QTest::newRow("Cancel") << QMessageBox::Cancel << true;
        QTest::newRow("No") << QMessageBox::No << false;
    }

    void theWindowStaysWhileAnEditIsUnderWayAndAsksWhenItHasEnded()
    {
        QFETCH(const QMessageBox::StandardButton, answer);
        QFETCH(const bool, stays);
        WindowFixture fixture(u"a.png"_s);
        const QImage page = fixture.page(0);
        const NextBox question = answer_next_box(answer);
        const Once closing([&] { return !fixture.window.isEnabled(); }, [&] { QVERIFY(!fixture.window.close()); });

        fixture.edit(u"image_invert"_s);

        QVERIFY(fixture.window.isVisible());
        QVERIFY(compare_pictures(fixture.page(0), inverted(page)));
        QTRY_VERIFY(question.hasCome());
        QTRY_COMPARE(fixture.window.isVisible(), stays);
        QCOMPARE(fixture.tabs()->count(), stays ? 1 : 0);
    }

    void theWindowIsClosedOnceAnUndoHasEnded()
    {
        WindowFixture fixture(u"a.png"_s);
        fixture.edit(u"image_invert"_s);
        const NextBox question = answer_next_box(QMessageBox::No);
        const Once closing([&] { return !fixture.window.isEnabled(); }, [&] { QVERIFY(!fixture.window.close()); });

        fixture.action(u"edit_undo"_s)->trigger();

        QVERIFY(fixture.window.isVisible());
        QTRY_VERIFY(!fixture.window.isVisible());
    }

    void aFileThatComesDuringAnEditTakesTheCloseBack_data()
    {
        QTest::addColumn<bool>("closeComesFirst");

        QTest::newRow("close, then the file") << true;
        QTest::newRow("file, then the close") << false;
    }

    void aFileThatComesDuringAnEditTakesTheCloseBack()
    {
        QFETCH(const bool, closeComesFirst);
        WindowFixture fixture(u"a.png"_s);
        const QString scan = fixture.file(u"scan.png"_s);
        const Once both([&] { return !fixture.window.isEnabled(); },
                        [&] {
                            if (closeComesFirst)
                                QVERIFY(!fixture.window.close());
                            fixture.window.processMessage(u"imagemanager:-t:"_s + scan);
                            if (!closeComesFirst)
                                QVERIFY(!fixture.window.close());
                        });

        fixture.edit(u"image_invert"_s);
        QCoreApplication::processEvents(); // a close that waits would ask now, and never be answered

        QVERIFY(fixture.window.isVisible());
        QCOMPARE(fixture.tabs()->count(), 2);
    }

    void filesThatComeDuringAnEditOpenInTheirOrder()
    {
        WindowFixture fixture(u"a.png"_s);
        const QStringList paths{fixture.file(u"b.png"_s), fixture.file(u"c.png"_s), fixture.file(u"d.png"_s)};
        const Once messages([&] { return !fixture.window.isEnabled(); },
                            [&] {
                                fixture.window.processMessage(message_of(paths.at(0) + u':' + paths.at(1)));
                                fixture.window.processMessage(message_of(paths.at(2)));
                            });

        fixture.edit(u"image_invert"_s);

        QCOMPARE(fixture.titles(), (QStringList{u"a.png*"_s, u"b.png"_s, u"c.png"_s, u"d.png"_s}));
        QCOMPARE(fixture.tabs()->currentIndex(), 3);
    }

    void theWindowMayBeClosedAtTheEndOfAnUndo()
    {
        WindowFixture fixture(u"a.png"_s);
        fixture.edit(u"image_invert"_s);
        bool frozen = false;
        const Once closing(
            [&] {
                frozen = frozen || !fixture.window.isEnabled();
                return frozen && fixture.window.isEnabled();
            },
            [&] {
                fixture.currentView()->document()->setModified(false); // no question
                QVERIFY(fixture.window.close());
            });

        fixture.action(u"edit_undo"_s)->trigger();

        QCOMPARE(fixture.tabs()->count(), 0);
        QVERIFY(fixture.window.isEnabled());
    }

    void theStatusOfAViewIsHeldBackDuringAnUndo()
    {
        WindowFixture fixture(u"a.png"_s);
        fixture.edit(u"image_invert"_s);
        const QStatusBar *const bar = fixture.window.statusBar();
        const Once status([bar] { return bar->currentMessage() == "Undoing operation..."_L1; },
                          [&] { emit fixture.currentView()->statusChanged(u"[64x48]"_s); });

        fixture.action(u"edit_undo"_s)->trigger();

        QCOMPARE(bar->currentMessage(), u"Undoing operation..."_s);
        emit fixture.currentView()->statusChanged(u"[64x48]"_s);
        QCOMPARE(bar->currentMessage(), u"[64x48]"_s);
    }

    void aFileThatComesDuringAnEditOpensBehindIt()
    {
        WindowFixture fixture(u"a.png"_s);
        const QImage page = fixture.page(0);
        const QString path = fixture.file(u"b.png"_s);
        const Once message([&] { return !fixture.window.isEnabled(); },
                           [&] { fixture.window.processMessage(message_of(path)); });

        fixture.edit(u"image_invert"_s);

        QTRY_COMPARE(fixture.titles(), (QStringList{u"a.png*"_s, u"b.png"_s}));
        QCOMPARE(fixture.tabs()->currentIndex(), 1);
        QVERIFY(compare_pictures(fixture.page(0), inverted(page)));
        QVERIFY(compare_pictures(fixture.page(1), page));
        QVERIFY(fixture.window.isEnabled());
    }

    void aDialogChangesThePageItWasOpenedFor_data()
    {
        QTest::addColumn<QSize>("size"); // of the page after the change

        QTest::newRow("rotate_cw") << QSize(48, 64);
        QTest::newRow("image_invert") << QSize(64, 48);
        QTest::newRow("scale_vertically") << QSize(64, 48);
        QTest::newRow("image_resize") << QSize(64, 48);
    }

    void aDialogChangesThePageItWasOpenedFor()
    {
        WindowFixture fixture(u"a.png"_s);
        const QString path = fixture.file(u"b.png"_s);
        const NextDialog dialog([&](QDialog &box) {
            fixture.window.processMessage(message_of(path));
            WindowFixture::pressOk(box);
        });

        fixture.action(QString::fromLatin1(QTest::currentDataTag()))->trigger();

        QTEST(fixture.page(0).size(), "size");
        QCOMPARE(fixture.titles(), (QStringList{u"a.png*"_s, u"b.png"_s}));
    }

    void theQuestionIsAnsweredForTheDocumentItNames_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QStringList>("left");

        QTest::newRow("one document") << u"file_close"_s << QStringList{u"b.png"_s};
        QTest::newRow("all documents") << u"file_close_all"_s << QStringList();
    }

    void theQuestionIsAnsweredForTheDocumentItNames()
    {
        QFETCH(const QString, action);
        QFETCH(const QStringList, left);
        WindowFixture fixture(u"a.png"_s);
        QVERIFY(fixture.view(0)->document()->setPage(1, patterned_page(QSize(30, 20))));
        const QString path = fixture.file(u"b.png"_s);
        const NextOf<QMessageBox> answer([&](const QMessageBox &box) {
            fixture.window.processMessage(message_of(path));
            box.button(QMessageBox::Yes)->click();
        });

        fixture.action(action)->trigger();

        QCOMPARE(fixture.titles(), left);
        QCOMPARE(QImageReader(fixture.home.filePath(u"a.png"_s)).size(), QSize(30, 20));
        QCOMPARE(QImageReader(path).size(), QSize(64, 48));
    }

    void everyDocumentIsAskedForThoughAFileComesMeanwhile()
    {
        WindowFixture fixture;
        for (const QString &name : {u"a.png"_s, u"b.png"_s}) {
            QVERIFY(fixture.open(name));
            QVERIFY(fixture.currentView()->document()->setPage(1, patterned_page(QSize(30, 20))));
        }
        const QString path = fixture.file(u"c.png"_s);
        const NextOf<QMessageBox> first([&](const QMessageBox &box) {
            QVERIFY(box.text().contains(u"b.png"_s)); // the current one
            fixture.window.processMessage(message_of(path));
            box.button(QMessageBox::Yes)->click();
        });
        const NextBox second = answer_next_box(QMessageBox::Yes);

        QVERIFY(fixture.window.close());

        QVERIFY(second.text().contains(u"a.png"_s));
        for (const QString &name : {u"a.png"_s, u"b.png"_s})
            QCOMPARE(QImageReader(fixture.home.filePath(name)).size(), QSize(30, 20));
    }

    void aFileThatComesWhileANameIsAskedForStaysOpen()
    {
        WindowFixture fixture;
        QVERIFY(fixture.window.load_file(fixture.file(u"scan.png"_s), {}, true));
        fixture.currentView()->document()->setModified(true);
        const QString path = fixture.file(u"b.png"_s);
        const NextBox answer = answer_next_box(QMessageBox::Yes);
        const NextFileDialog dialog([&](QFileDialog &chooser) {
            fixture.window.processMessage(message_of(path));
            NextFileDialog::accept(chooser, fixture.home.filePath(u"named.png"_s));
        });

        fixture.action(u"file_close"_s)->trigger();

        QCOMPARE(fixture.titles(), QStringList{u"b.png"_s});
        QVERIFY(QFile::exists(fixture.home.filePath(u"named.png"_s)));
    }

    void saveAllIsForTheTabsItWasAskedFor()
    {
        WindowFixture fixture;
        const QString scan = fixture.file(u"scan.png"_s);
        QVERIFY(fixture.window.load_file(scan, {}, true));
        QVERIFY(fixture.window.load_file(scan, {}, true));
        const QString path = fixture.file(u"b.png"_s);
        const QString other = fixture.file(u"c.png"_s);
        const NextFileDialog all([&](QFileDialog &chooser) {
            auto *const useAsBase = chooser.findChild<QCheckBox *>();
            QVERIFY(useAsBase);
            useAsBase->setChecked(false);
            fixture.window.processMessage(message_of(path));
            NextFileDialog::accept(chooser, fixture.home.filePath(u"second.png"_s));
        });
        const NextFileDialog one([&](QFileDialog &chooser) {
            QVERIFY(!chooser.findChild<QCheckBox *>());
            fixture.window.processMessage(message_of(other));
            NextFileDialog::accept(chooser, fixture.home.filePath(u"first.png"_s));
        });

        fixture.action(u"file_save_all"_s)->trigger();

        QCOMPARE(fixture.titles(), (QStringList{u"first.png"_s, u"second.png"_s, u"b.png"_s, u"c.png"_s}));
        QCOMPARE(fixture.tabs()->currentIndex(), 1);
    }
};

QTEST_MAIN(tst_ImageManager_nested)
#include "tst_ImageManager_nested.moc"
