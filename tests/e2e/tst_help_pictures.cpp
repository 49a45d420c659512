#include "ImageManagerProgram.h"
#include "private_mounts.h"

#include <QCoreApplication>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

/// The pictures of the manual show the program as it is. After a wanted change of a window scripts/make-help-pictures
/// takes them anew.
class tst_help_pictures : public QObject
{
    Q_OBJECT

private slots:
    void edgesOfTextMayDiffer();
    void blinkingCursorMayDiffer();
    void otherWordDoesNotPass();
    void otherSizeDoesNotPass();
    void windowsLookAsInTheManual();
};

namespace {

constexpr int alikeSteps = 48; ///< of a channel: what smoothing makes of the same edge
constexpr int alikePixels = 60; ///< a blinking cursor has fewer, a short word more

/// Whether a channel of the pixel lies within what stands at and around the same place in the other picture.
bool is_near(const QImage &picture, const QImage &other, QPoint point, int shift)
{
    int lowest = 255;
    int highest = 0;
    for (int y = std::max(point.y() - 1, 0); y <= std::min(point.y() + 1, other.height() - 1); ++y) {
        for (int x = std::max(point.x() - 1, 0); x <= std::min(point.x() + 1, other.width() - 1); ++x) {
            const int value = static_cast<int>((other.pixel(x, y) >> shift) & 0xffU);
            lowest = std::min(lowest, value);
            highest = std::max(highest, value);
        }
    }
    const int value = static_cast<int>((picture.pixel(point) >> shift) & 0xffU);
    return lowest - alikeSteps <= value && value <= highest + alikeSteps;
}

/// How many pixels of two pictures of one size have nothing like them at their place in the other.
int strange_pixels(const QImage &picture, const QImage &other)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) == other.pixel(x, y))
                continue;
            const auto isNear = [&](int shift) {
                return is_near(picture, other, {x, y}, shift) && is_near(other, picture, {x, y}, shift);
            };
            count += isNear(0) && isNear(8) && isNear(16) ? 0 : 1;
        }
    }
    return count;
}

bool looks_like(const QImage &picture, const QImage &other)
{
    return !picture.isNull() && picture.size() == other.size() && strange_pixels(picture, other) <= alikePixels;
}

QImage manual_picture(const QString &name)
{
    return QImage(QStringLiteral(IM_HELP_PICTURES "/%1.png").arg(name)).convertToFormat(QImage::Format_RGB32);
}

/// The part of the picture of the mail form that says "Port:".
constexpr QRect portLabel{10, 44, 34, 12};

/// A command of the menu bar by its keys, and the window that it opens.
struct Command
{
    const char *menu;
    const char *key;
    QString bar; ///< name of the menu
    QString title;
    QString picture;
};

QList<Command> commands()
{
    return {{"i", "b", u"Image"_s, u"Brightness"_s, u"brightness"_s},
            {"t", "c", u"Tools"_s, u"Configure Tools"_s, u"tools"_s},
            {"t", "s", u"Tools"_s, u"Send Image By E-mail"_s, u"mail"_s},
            {"t", "u", u"Tools"_s, u"Upload Image by FTP"_s, u"ftp"_s}};
}

/// Waits until the window looks as the manual shows it; on a failure what it looks like is kept.
bool comes_to_look_like(Desktop &desktop, WindowId window, const QString &picture)
{
    const QImage wanted = manual_picture(picture);
    const auto shown = [&] { return desktop.picture(desktop.geometry(window)); };
    if (QTest::qWaitFor([&] { return looks_like(shown(), wanted); }, Program::patienceMs))
        return true;
    const QString kept = QCoreApplication::applicationDirPath() + "/no_more_like_"_L1 + picture + ".png"_L1;
    const QImage last = shown();
    qWarning("%s no longer looks so: %d pixels differ; it is kept in %s", qPrintable(picture),
             last.size() == wanted.size() ? strange_pixels(last, wanted) : -1, qPrintable(kept));
    (void)last.save(kept);
    return false;
}

} // namespace

void tst_help_pictures::edgesOfTextMayDiffer()
{
    const QImage picture = manual_picture(u"tools"_s);
    QImage moved = picture;
    for (int x = 0; x < picture.width(); ++x) {
        for (int y = 1; y < picture.height(); ++y)
            moved.setPixel(x, y, picture.pixel(x, y - 1));
    }

    QVERIFY(moved != picture);
    QVERIFY(looks_like(moved, picture));
}

void tst_help_pictures::blinkingCursorMayDiffer()
{
    const QImage picture = manual_picture(u"mail"_s);
    QImage other = picture;
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 2; ++x)
            other.setPixel(300 + x, 240 + y, 0xff000000);
    }

    QVERIFY(other != picture);
    QVERIFY(looks_like(other, picture));
}

void tst_help_pictures::otherWordDoesNotPass()
{
    const QImage picture = manual_picture(u"mail"_s);
    QImage other = picture;
    for (int y = 0; y < portLabel.height(); ++y) {
        for (int x = 0; x < portLabel.width(); ++x)
            other.setPixel(portLabel.topLeft() + QPoint(x, y), picture.pixel(0, 0));
    }

    QVERIFY(!looks_like(other, picture));
    QVERIFY(!looks_like(picture, other));
}

void tst_help_pictures::otherSizeDoesNotPass()
{
    const QImage picture = manual_picture(u"mail"_s);

    QVERIFY(!looks_like(picture.copy(0, 0, picture.width(), picture.height() - 1), picture));
}

void tst_help_pictures::windowsLookAsInTheManual()
{
    const PrivateMount emptyMedia("none", "/media", "tmpfs", 0);
    const Place place;
    ImageManagerProgram program(place, QStringLiteral(IM_SCRIPTS "/start-for-pictures"));
    Desktop &desktop = program.desktop();
    desktop.movePointer({1279, 1023}); // where it rests on nothing
    QVERIFY(program.start({QStringLiteral(IM_PROGRAM), QStringLiteral(IM_SAMPLES), u"/media"_s}));
    const WindowId window = program.window();
    QTRY_COMPARE_WITH_TIMEOUT(program.tabTitles().size(), 3, Program::patienceMs);
    QVERIFY(comes_to_look_like(desktop, window, u"window"_s));

    const QList<Command> all = commands();
    for (const Command &command : all) {
        QTRY_COMPARE_WITH_TIMEOUT(desktop.activeWindow(), window, Program::patienceMs);
        desktop.pressKey(command.menu, {"Alt_L"});
        const Accessible menu = program.application().find(Accessible::Role::MenuBar);
        const Accessible popUp = menu.find(Accessible::Role::MenuItem, command.bar).find(Accessible::Role::Menu);
        QTRY_VERIFY_WITH_TIMEOUT(popUp.has(Accessible::State::Showing), Program::patienceMs);
        desktop.pressKey(command.key);
        QTRY_VERIFY_WITH_TIMEOUT(desktop.windowTitled(command.title) != 0, Program::patienceMs);
        const WindowId dialog = desktop.windowTitled(command.title);
        QTRY_COMPARE_WITH_TIMEOUT(desktop.activeWindow(), dialog, Program::patienceMs);
        QVERIFY(comes_to_look_like(desktop, dialog, command.picture));
        desktop.pressKey("Escape");
        QTRY_COMPARE_WITH_TIMEOUT(desktop.windowTitled(command.title), WindowId(0), Program::patienceMs);
    }
    QCOMPARE(program.close(), 0);
}

TEST_MAIN_APART(QCoreApplication, tst_help_pictures, leave_common_mounts)
#include "tst_help_pictures.moc"
