#include "ImageManagerProgram.h"
#include "pictures.h"
#include "plain_averages.h"

#include <QTest>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;
using State = Accessible::State;

namespace {

constexpr QSize roomy{1100, 700};
constexpr QSize large{2000, 1500}; ///< larger than the window and within what position_color() tells

/// Where the screen's canvas differs from @p page, as seen at 1:1 and unscrolled.
QList<QPoint> points_off_the_page(ImageManagerProgram &program, QSize page)
{
    const QImage seen = program.desktop().picture({program.canvas().topLeft(), page});
    QList<QPoint> points;
    for (int y = 0; y < seen.height(); ++y) {
        for (int x = 0; x < seen.width(); ++x) {
            if (seen.pixel(x, y) != position_color({x, y}))
                points.append({x, y});
        }
    }
    return points;
}

/// Where something was drawn that is not on the line round @p outline; the origin alone if too little was
/// drawn for a line.
QList<QPoint> points_off_the_outline(ImageManagerProgram &program, QSize page, const QRect &outline)
{
    QList<QPoint> points = points_off_the_page(program, page);
    if (points.size() < (outline.width() + outline.height()) / 2)
        return {QPoint()};
    points.removeIf([&outline](QPoint point) { return outline.contains(point) && !outline.contains(point, true); });
    return points;
}

/// The one entry that is checked, empty if there is none or more than one.
QString checked_zoom(ImageManagerProgram &program)
{
    QStringList checked;
    const QList<Accessible> entries =
        program.application().find(Role::MenuBar).find(Role::MenuItem, u"Zoom"_s).find(Role::Menu).children();
    for (const Accessible &entry : entries) {
        if (entry.has(State::Checked))
            checked.append(entry.name());
    }
    return checked.size() == 1 ? checked.first() : QString();
}

void click_tool(ImageManagerProgram &program, const QString &name)
{
    program.desktop().click(program.tool(name).extents().center());
}

} // namespace

/// The picture under the user's hands: zoom, status text, scrolling, selecting.
class tst_viewing : public QObject
{
    Q_OBJECT

private slots:
    void pictureStandsAtTheTopLeftPixelByPixel()
    {
        const Place place;
        ImageManagerProgram program(place);

        QVERIFY(program.open({place.page(u"a.png"_s)}, roomy));

        QTRY_VERIFY(compare_pictures(program.desktop().picture({program.canvas().topLeft(), QSize(100, 80)}),
                                     patterned_page({100, 80})));
    }

    void tabThatComesUpShowsItsOwnPicture()
    {
        const Place place;
        const QString white = place.path(u"white.png"_s);
        QVERIFY(solid_page({100, 80}, qRgb(255, 255, 255)).save(white));
        ImageManagerProgram program(place);
        QVERIFY(program.open({place.page(u"a.png"_s), white}, roomy));
        QTRY_COMPARE(program.desktop().pixel(program.canvas().topLeft() + QPoint(60, 40)), qRgb(255, 255, 255));

        program.desktop().click(program.application().find(Role::Tab, u"a.png"_s).extents().center());

        QTRY_COMPARE(program.desktop().pixel(program.canvas().topLeft() + QPoint(60, 40)), position_color({60, 40}));
    }

    void zoomMenuChecksTheChosenStep_data()
    {
        QTest::addColumn<bool>("canZoomIn");
        QTest::addColumn<bool>("canZoomOut");

        QTest::newRow("8:1") << false << true;
        QTest::newRow("4:1") << true << true;
        QTest::newRow("2:1") << true << true;
        QTest::newRow("1:1") << true << true;
        QTest::newRow("1:2") << true << true;
        QTest::newRow("1:4") << true << true;
        QTest::newRow("1:8") << true << true;
        QTest::newRow("1:16") << true << false;
    }

    void zoomMenuChecksTheChosenStep()
    {
        QFETCH(const bool, canZoomIn);
        QFETCH(const bool, canZoomOut);
        const QString step = QString::fromLatin1(QTest::currentDataTag());
        OpenProgram program(u"a.png"_s, roomy);
        QCOMPARE(checked_zoom(program), u"1:1"_s);

        QVERIFY(program.menuEntry(u"Zoom"_s, step).press());

        QTRY_COMPARE(checked_zoom(program), step);
        QCOMPARE(program.tool(u"Zoom In"_s).has(State::Enabled), canZoomIn);
        QCOMPARE(program.tool(u"Zoom Out"_s).has(State::Enabled), canZoomOut);
    }

    void zoomCommandsStopAtTheEnds()
    {
        OpenProgram program(u"a.png"_s, roomy);

        for (const QString &step : {u"2:1"_s, u"4:1"_s, u"8:1"_s}) {
            click_tool(program, u"Zoom In"_s);
            QTRY_COMPARE(checked_zoom(program), step);
        }
        QTRY_VERIFY(!program.tool(u"Zoom In"_s).has(State::Enabled));
        for (const QString &step : {u"4:1"_s, u"2:1"_s, u"1:1"_s, u"1:2"_s, u"1:4"_s, u"1:8"_s, u"1:16"_s}) {
            click_tool(program, u"Zoom Out"_s);
            QTRY_COMPARE(checked_zoom(program), step);
        }
        QTRY_VERIFY(!program.tool(u"Zoom Out"_s).has(State::Enabled));
    }

    void zoomedPictureShowsSquarePixels()
    {
        OpenProgram program(u"a.png"_s, roomy);

        QVERIFY(program.menuEntry(u"Zoom"_s, u"4:1"_s).press());

        const QPoint corner = program.canvas().topLeft();
        for (const QPoint inside : {QPoint(0, 0), QPoint(3, 0), QPoint(0, 3), QPoint(3, 3)})
            QTRY_COMPARE(program.desktop().pixel(corner + QPoint(4 * 20, 4 * 10) + inside), position_color({20, 10}));
    }

    void reducedPictureShowsAverages()
    {
        constexpr QSize size{400, 320};
        OpenProgram program(u"a.png"_s, roomy, size);

        QVERIFY(program.menuEntry(u"Zoom"_s, u"1:4"_s).press());

        const QImage expected =
            averaged_plainly(patterned_page(size), {1, 4}, {1, 4}).convertToFormat(QImage::Format_RGB32);
        QTRY_VERIFY(compare_pictures(program.desktop().picture({program.canvas().topLeft(), size / 4}), expected));
    }

    void statusTellsSizeAndPointOverThePicture()
    {
        OpenProgram program(u"a.png"_s, roomy);
        const QPoint corner = program.canvas().topLeft();

        program.desktop().movePointer(corner + QPoint(12, 34));
        QTRY_COMPARE(program.statusText(), u"[100x80] (12,34)"_s);

        program.desktop().movePointer(corner + QPoint(99, 79)); // the last pixel
        QTRY_COMPARE(program.statusText(), u"[100x80] (99,79)"_s);
    }

    void statusTellsTheSizeAloneBesideThePicture()
    {
        OpenProgram program(u"a.png"_s, roomy);

        program.desktop().movePointer(program.canvas().topLeft() + QPoint(150, 34));

        QTRY_COMPARE(program.statusText(), u"[100x80]"_s);
    }

    void statusTellsImagePixelsWhenZoomed()
    {
        OpenProgram program(u"a.png"_s, roomy, large);
        QVERIFY(program.menuEntry(u"Zoom"_s, u"1:4"_s).press());
        QTRY_COMPARE(checked_zoom(program), u"1:4"_s);

        program.desktop().movePointer(program.canvas().topLeft() + QPoint(100, 50));

        QTRY_COMPARE(program.statusText(), u"[2000x1500] (400,200)"_s);
    }

    void handDragMovesThePicture()
    {
        OpenProgram program(u"a.png"_s, roomy, large);
        QTRY_COMPARE(program.origin(), QPoint(0, 0));
        click_tool(program, u"Scroll"_s);
        QTRY_VERIFY(program.tool(u"Scroll"_s).has(State::Checked));
        const QPoint grip = program.canvas().topLeft() + QPoint(400, 300);

        program.desktop().drag(grip, {grip - QPoint(30, 10), grip - QPoint(120, 70)});

        QTRY_COMPARE(program.origin(), QPoint(120, 70));
    }

    void selectionIsDrawnAsAnOutline()
    {
        OpenProgram program(u"a.png"_s, roomy, {300, 200});
        const QPoint corner = program.canvas().topLeft();
        QTRY_VERIFY(points_off_the_page(program, {300, 200}).isEmpty());

        program.desktop().drag(corner + QPoint(20, 30), {corner + QPoint(50, 50), corner + QPoint(120, 90)});

        // The free corner lies on pixel (120,90), and the line runs round one pixel further out.
        QTRY_COMPARE(points_off_the_outline(program, {300, 200}, QRect(QPoint(20, 30), QPoint(121, 91))),
                     QList<QPoint>());
    }

    void newSelectionTakesThePlaceOfTheOldOne()
    {
        OpenProgram program(u"a.png"_s, roomy, {300, 200});
        const QPoint corner = program.canvas().topLeft();
        program.desktop().drag(corner + QPoint(20, 30), {corner + QPoint(50, 50), corner + QPoint(120, 90)});
        QTRY_VERIFY(!points_off_the_page(program, {300, 200}).isEmpty());

        program.desktop().drag(corner + QPoint(150, 100), {corner + QPoint(200, 120), corner + QPoint(250, 180)});

        QTRY_COMPARE(points_off_the_outline(program, {300, 200}, QRect(QPoint(150, 100), QPoint(251, 181))),
                     QList<QPoint>());
    }

    void drawnSelectionEnablesCrop()
    {
        OpenProgram program(u"a.png"_s, roomy, {300, 200});
        QVERIFY(!program.tool(u"Crop"_s).has(State::Enabled));
        const QPoint corner = program.canvas().topLeft();

        program.desktop().drag(corner + QPoint(20, 30), {corner + QPoint(50, 50), corner + QPoint(120, 90)});

        QTRY_VERIFY(program.tool(u"Crop"_s).has(State::Enabled));
        program.desktop().click(corner + QPoint(200, 150));
        QTRY_VERIFY(!program.tool(u"Crop"_s).has(State::Enabled));
    }

    void pointerHeldOutsideGoesOnScrolling()
    {
        OpenProgram program(u"a.png"_s, {600, 500}, large);
        QTRY_COMPARE(program.origin(), QPoint(0, 0));
        const QRect canvas = program.canvas();
        Desktop &desktop = program.desktop();

        desktop.movePointer(canvas.topLeft() + QPoint(200, 150));
        desktop.pressButton();
        desktop.movePointer(canvas.topLeft() + QPoint(250, 200));
        QTRY_COMPARE(program.statusText(), u"[2000x1500] (250,200)"_s);
        desktop.movePointer({canvas.right() + 40, canvas.top() + 200});

        // One step for the move itself; all others come without any further event, up to the picture's end.
        QTRY_COMPARE(program.origin(), QPoint(large.width() - canvas.width(), 0));
        desktop.releaseButton();
    }
};

QTEST_GUILESS_MAIN(tst_viewing)
#include "tst_viewing.moc"
