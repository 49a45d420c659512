// What a step of the day is made of: keys, entries of menus, and looks at the window.

#include "DeskWork.h"

#include <QImageReader>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;
using State = Accessible::State;

QString DeskWork::Tab::title() const
{
    return path.section(u'/', -1) + (isModified ? u"*"_s : QString());
}

bool DeskWork::tabHasCome(const QString &path)
{
    tabs.append({.path = path});
    currentIndex = tabs.size() - 1;
    return showsTheTabs();
}

bool DeskWork::currentTabHasGone()
{
    tabs.removeAt(currentIndex);
    currentIndex = std::max<qsizetype>(std::min(currentIndex, tabs.size() - 1), 0);
    return showsTheTabs();
}

/// Whether the file of the current tab holds a page as large as the one on show.
bool DeskWork::isWhatWasSaved()
{
    if (!showsTheTabs())
        return false;
    // The status line tells of the page when the pointer moves over it, and nothing while the window is busy.
    int move = 0;
    const auto isAlike = [this, &move] {
        program.desktop().movePointer(pictureCorner + QPoint(++move % 2, 0));
        return QImageReader(current().path).read().size() == shownSize();
    };
    return QTest::qWaitFor(isAlike, Program::patienceMs);
}

Accessible DeskWork::entry(const QString &menu, const QString &name)
{
    Accessible &found = entries[menu + u'/' + name];
    if (found.isNull())
        found = program.menuEntry(menu, name);
    return found;
}

/// Of a command that shows no dialog: it is done when this returns.
bool DeskWork::press(const QString &menu, const QString &name, Effect effect)
{
    return entry(menu, name).press() && hasHappened(effect);
}

bool DeskWork::hasHappened(Effect effect)
{
    // The window is off during an edit, and hears no keys. One look is not enough: an edit that follows a dialog may not
    // have begun when the dialog has gone.
    const auto isOn = [this] {
        return QTest::qWaitFor([this] { return frame.has(State::Enabled); }, Program::patienceMs);
    };
    editCount += effect == Effect::None ? 0 : 1;
    if (!isOn())
        return false;
    if (effect == Effect::MaybeEdit && !current().isModified) {
        (void)shownTitles();
        current().isModified = isOn() && shownTitles().value(currentIndex).endsWith(u'*');
    }
    if (effect == Effect::Edit)
        current().isModified = true;
    return showsTheTabs() && isOn();
}

/// Leaves a dialog by a key.
bool DeskWork::answer(const char *key, const QList<const char *> &held)
{
    program.desktop().pressKey(key, held);
    return windowIsUp();
}

void DeskWork::type(const QString &text)
{
    for (const QChar character : text)
        program.desktop().pressKey(character == u'.' ? "period" : QString(character).toLatin1().constData());
}

/// Has a dialog come up by the keys of its entry. They are typed again where nothing comes of them: a window that is just
/// then busy hears none.
bool DeskWork::askInMenu(const char *menu, const char *keys)
{
    lastKeys = menu + QByteArray(" ") + keys;
    const QByteArrayList each = QByteArray(keys).split(' ');
    for (int attempt = 0; attempt < 3; ++attempt) {
        program.desktop().pressKey(menu, {"Alt_L"});
        for (const QByteArray &key : each)
            program.desktop().pressKey(key);
        if (dialogIsUp())
            return true;
        for (qsizetype i = 0; i < each.size(); ++i)
            program.desktop().pressKey("Escape"); // out of the menus
    }
    return false;
}

bool DeskWork::dialogIsUp()
{
    return QTest::qWaitFor(
        [this] {
            const WindowId active = program.desktop().activeWindow();
            return active != 0 && active != window;
        },
        Program::patienceMs / 3);
}

bool DeskWork::windowIsUp()
{
    return QTest::qWaitFor([this] { return program.desktop().activeWindow() == window; }, Program::patienceMs);
}

QStringList DeskWork::titles() const
{
    QStringList all;
    for (const Tab &tab : tabs)
        all.append(tab.title());
    return all;
}

QStringList DeskWork::shownTitles()
{
    QStringList all;
    const QList<Accessible> shown = tabList.children();
    for (const Accessible &tab : shown) {
        if (tab.role() == Role::Tab)
            all.append(tab.name());
    }
    return all;
}

bool DeskWork::showsTheTabs()
{
    const auto isShown = [this] {
        return shownTitles() == titles() && (tabs.isEmpty() || tabList.name() == current().title());
    };
    return QTest::qWaitFor(isShown, Program::patienceMs);
}

/// Of the page, by the status line; an invalid size if that says something else.
QSize DeskWork::shownSize()
{
    static const QRegularExpression pattern(u"^\\[(\\d+)x(\\d+)\\]"_s);
    const QList<Accessible> parts = frame.children();
    const auto line = std::ranges::find(parts, Role::StatusBar, &Accessible::role);
    const QRegularExpressionMatch match = pattern.match(line == parts.end() ? QString() : line->name());
    return match.hasMatch() ? QSize(match.captured(1).toInt(), match.captured(2).toInt()) : QSize();
}
