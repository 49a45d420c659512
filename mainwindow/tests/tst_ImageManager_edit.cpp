#include "ImageItem.h"
#include "NextBox.h"
#include "NextDialog.h"
#include "Q3Canvas.h"
#include "WindowFixture.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// Number of the snapshot in its file name, hexadecimal.
QString number_of(const QString &fileName)
{
    return fileName.chopped(4).right(8);
}

} // namespace

class tst_ImageManager_edit : public QObject
{
    Q_OBJECT

private slots:
    void everyPreviewCommandChangesPageCanvasAndTitle_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QImage>("expected");

        const QImage page = patterned_page(QSize(64, 48));
        QImage inverted = page;
        inverted.invertPixels();
        const QTransform counterClockwise(0, -1, 1, 0, 0, 0);
        const QTransform clockwise(0, 1, -1, 0, 0, 0);
        QTest::newRow("image_invert") << u"Invert"_s << inverted;
        QTest::newRow("flip_vertically") << u"Flip Vertically"_s << page.mirrored(false, true);
        QTest::newRow("flip_horizontally") << u"Flip Horizontally"_s << page.mirrored(true, false);
        QTest::newRow("rotate_cw") << u"Rotate 90 degrees CW"_s << page.transformed(clockwise);
        QTest::newRow("rotate_180") << u"Rotate 180 degrees"_s << page.mirrored(true, true);
        QTest::newRow("rotate_ccw") << u"Rotate 90 degrees CCW"_s << page.transformed(counterClockwise);
        QTest::newRow("depth_32") << u"Image Depth 32 bit"_s << page;
        QTest::newRow("depth_8") << u"Image Depth 8 bit"_s << page.convertToFormat(QImage::Format_Indexed8);
        QTest::newRow("depth_1") << u"Image Depth 1 bit"_s << page.convertToFormat(QImage::Format_MonoLSB);
    }

    void everyPreviewCommandChangesPageCanvasAndTitle()
    {
        QFETCH(QString, title);
        QFETCH(QImage, expected);
        WindowFixture fixture(u"a.png"_s);

        fixture.edit(QString::fromLatin1(QTest::currentDataTag()), title);

        QVERIFY(compare_pictures(fixture.page(), expected));
        QVERIFY(compare_pictures(fixture.currentView()->imageItem()->pageImage(), expected));
        QCOMPARE(fixture.currentView()->canvas()->size(), expected.size());
        QCOMPARE(fixture.titles(), QStringList{u"a.png*"_s});
        QVERIFY(fixture.enabled(u"edit_undo"_s));
        QVERIFY(!fixture.enabled(u"edit_redo"_s));
        QCOMPARE(fixture.snapshots().size(), 1);
        QVERIFY(fixture.window.isEnabled());
        QCOMPARE(fixture.window.cursor().shape(), Qt::ArrowCursor);
    }

    void aRejectedPreviewChangesNothingAndCostsNoSnapshot()
    {
        WindowFixture fixture(u"a.png"_s);
        const QImage page = fixture.page();
        const NextDialog dialog(
            [](QDialog &preview) { preview.findChild<QPushButton *>(u"my_cancel_btn"_s)->click(); });

        fixture.action(u"image_invert"_s)->trigger();

        QCOMPARE(fixture.page(), page);
        QCOMPARE(fixture.titles(), QStringList{u"a.png"_s});
        QVERIFY(fixture.snapshots().isEmpty());
        QVERIFY(!fixture.enabled(u"edit_undo"_s));
    }

    void theSliderOfTheDialogIsThePercentage_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<int>("percent");
        QTest::addColumn<QRgb>("expected");

        // The page is (10, 20, 0) and then (200, 200, 0).
        // Brightness 100: the value 200 * 257 doubles to 102800, 37265 too much; that much saturation goes, so blue
        // rises to 37265 / 257 = 145.
        // Contrast 100: red 200 over 10 to 200 is 190 * 51200 / 19100 = 509, cut to 255, green 200 over 20 to
        // 200 is 180 * 51200 / 18100 = 509; blue is 0 everywhere.
        QTest::newRow("image_brightness") << u"Brightness"_s << 100 << qRgb(255, 255, 145);
        QTest::newRow("image_contrast") << u"Contrast"_s << 100 << qRgb(255, 255, 0);
    }

    void theSliderOfTheDialogIsThePercentage()
    {
        QFETCH(QString, title);
        QFETCH(int, percent);
        QFETCH(QRgb, expected);
        WindowFixture fixture(u"a.png"_s);
        QImage page(4, 1, QImage::Format_RGB32);
        page.fill(qRgb(200, 200, 0));
        page.setPixel(0, 0, qRgb(10, 20, 0));
        QVERIFY(fixture.currentView()->document()->setPage(1, page));
        const NextDialog dialog([percent, &title](QDialog &preview) {
            auto *const slider = preview.findChild<QSlider *>();
            QCOMPARE(slider->value(), 0);
            QCOMPARE(slider->minimum(), -100);
            QCOMPARE(slider->maximum(), 100);
            slider->setValue(percent);
            WindowFixture::pressOk(preview, title);
        });

        fixture.action(QString::fromLatin1(QTest::currentDataTag()))->trigger();

        QCOMPARE(fixture.page().pixel(1, 0), expected);
    }

    void anAcceptedZeroStillCostsASnapshotButLeavesThePage()
    {
        WindowFixture fixture(u"a.png"_s);

        fixture.edit(u"image_brightness"_s, u"Brightness"_s);

        QCOMPARE(fixture.snapshots().size(), 1);
        QCOMPARE(fixture.titles(), QStringList{u"a.png"_s});
    }

    void undoSavesThePresentPageFirstAndRedoComesBackToIt()
    {
        WindowFixture fixture(u"a.png"_s);
        const QImage first = fixture.page();
        fixture.edit(u"image_invert"_s, u"Invert"_s);
        const QImage second = fixture.page();
        fixture.edit(u"rotate_cw"_s, u"Rotate 90 degrees CW"_s);
        const QImage third = fixture.page();

        fixture.action(u"edit_undo"_s)->trigger();
        QCOMPARE(fixture.snapshots().size(), 3);
        QVERIFY(compare_pictures(fixture.page(), second));
        QCOMPARE(fixture.currentView()->canvas()->size(), second.size());
        QVERIFY(fixture.enabled(u"edit_redo"_s));

        fixture.action(u"edit_redo"_s)->trigger();
        QVERIFY(compare_pictures(fixture.page(), third));
        QVERIFY(!fixture.enabled(u"edit_redo"_s));

        fixture.action(u"edit_undo"_s)->trigger();
        fixture.action(u"edit_undo"_s)->trigger();
        QVERIFY(compare_pictures(fixture.page(), first));
        QVERIFY(!fixture.enabled(u"edit_undo"_s));
        QCOMPARE(fixture.titles(), QStringList{u"a.png*"_s}); // an undone document counts as changed
    }

    void anEditAfterUndoCutsTheNewerItemsAndWritesNoFile()
    {
        WindowFixture fixture(u"a.png"_s);
        fixture.edit(u"image_invert"_s, u"Invert"_s);
        fixture.edit(u"image_invert"_s, u"Invert"_s);
        fixture.action(u"edit_undo"_s)->trigger(); // a chain of three, standing at the second

        fixture.edit(u"rotate_180"_s, u"Rotate 180 degrees"_s);

        QStringList numbers;
        for (const QString &name : fixture.snapshots())
            numbers.append(number_of(name));
        QCOMPARE(numbers, (QStringList{u"00000001"_s, u"00000002"_s}));
        QVERIFY(!fixture.enabled(u"edit_redo"_s));
    }

    void undoInAnotherTabBringsTheFirstTabsPageThere()
    {
        WindowFixture fixture(u"a.png"_s, QSize(64, 48));
        const QImage page = fixture.page();
        fixture.edit(u"image_invert"_s, u"Invert"_s);
        QVERIFY(fixture.open(u"b.png"_s, QSize(30, 20)));

        fixture.action(u"edit_undo"_s)->trigger();

        QVERIFY(compare_pictures(fixture.page(), page));
        QCOMPARE(fixture.currentView()->canvas()->size(), QSize(64, 48));
        QCOMPARE(fixture.titles().at(1), u"b.png*"_s);
    }

    void undoKeepsTheZoom()
    {
        WindowFixture fixture(u"a.png"_s);
        fixture.edit(u"image_invert"_s, u"Invert"_s);
        fixture.action(u"view_zoom_in"_s)->trigger();

        fixture.action(u"edit_undo"_s)->trigger();

        QCOMPARE(fixture.currentView()->zoomIndex(), 2);
    }

    void aSnapshotThatIsGoneLeavesThePage()
    {
        WindowFixture fixture(u"a.png"_s);
        fixture.edit(u"image_invert"_s, u"Invert"_s);
        const QImage page = fixture.page();
        QVERIFY(QFile::remove(fixture.home.filePath(u"tmp/"_s + fixture.snapshots().constFirst())));

        fixture.action(u"edit_undo"_s)->trigger();

        QVERIFY(compare_pictures(fixture.page(), page));
        QVERIFY(fixture.window.isEnabled());
    }

    void anEditTellsItsStepsInTheStatusBar()
    {
        WindowFixture fixture(u"a.png"_s);
        QStringList texts;
        connect(fixture.window.statusBar(), &QStatusBar::messageChanged, &fixture.window,
                [&texts](const QString &text) { texts.append(text); });

        fixture.edit(u"image_invert"_s, u"Invert"_s);
        fixture.action(u"edit_undo"_s)->trigger();
        fixture.action(u"edit_redo"_s)->trigger();

        QCOMPARE(
            texts,
            (QStringList{u"Saving Undo/Redo information..."_s, u"Changing the image..."_s,
                         u"Saving Undo/Redo information..."_s, u"Undoing operation..."_s, u"Redoing operation..."_s}));
    }

    void theHistoryIsGoneWithTheWindow()
    {
        const TemporaryHome home;
        auto window = std::make_unique<ImageManager>();
        const QString path = home.filePath(u"a.png"_s);
        QVERIFY(patterned_page(QSize(8, 8)).save(path));
        QVERIFY(window->load_file(path, {}, false));
        {
            const NextDialog dialog([](const QDialog &shown) { WindowFixture::pressOk(shown, u"Invert"_s); });
            window->image_invert();
        }
        QCOMPARE(home.filesIn(u"tmp"_s).size(), 1);

        window.reset();

        QCOMPARE(home.filesIn(u"tmp"_s), QStringList());
    }
};

QTEST_MAIN(tst_ImageManager_edit)
#include "tst_ImageManager_edit.moc"
