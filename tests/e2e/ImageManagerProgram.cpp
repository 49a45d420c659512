#include "ImageManagerProgram.h"

#include "files.h"
#include "pictures.h"

#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;
using State = Accessible::State;

Place::Place()
{
    if (!m_home.isValid() || !m_pictures.isValid())
        qFatal("Place - no temporary directory");
}

QString Place::page(const QString &name, QSize size) const
{
    return page(name, patterned_page(size));
}

QString Place::page(const QString &name, const QImage &picture) const
{
    QString path = m_pictures.filePath(name);
    if (!picture.save(path))
        qFatal("Place - cannot write %s", qPrintable(path));
    return path;
}

void Place::writeSettings(const QByteArray &lines) const
{
    write_file(home() + "/.config/Unknown Organization/imagemanager.conf"_L1, "[image_editor]\n" + lines + '\n');
}

ImageManagerProgram::ImageManagerProgram(const Place &place) :
    ImageManagerProgram(place, QStringLiteral(IM_PROGRAM)) { }

ImageManagerProgram::ImageManagerProgram(const Place &place, const QString &executable) : m_program(executable)
{
    m_program.setHome(place.home());
}

bool ImageManagerProgram::open(const QStringList &paths)
{
    return start(paths) && window() != 0
        && QTest::qWaitFor([&] { return tabTitles().size() == paths.size(); }, Program::patienceMs);
}

bool ImageManagerProgram::open(const QStringList &paths, QSize windowSize)
{
    if (!open(paths))
        return false;
    const WindowId id = window();
    m_desktop.resize(id, windowSize);
    m_desktop.move(id, {100, 100});
    return QTest::qWaitFor(
        [&] {
            const QRect frame = application().find(Role::Frame).extents();
            return frame == m_desktop.geometry(id) && frame.size() == windowSize && m_desktop.activeWindow() == id;
        },
        Program::patienceMs);
}

std::optional<int> ImageManagerProgram::close()
{
    m_desktop.close(window());
    return m_program.waitForExit();
}

void ImageManagerProgram::pressReturnAndClose(WindowId mainWindow)
{
    const auto process = static_cast<pid_t>(m_program.processId());
    ::kill(process, SIGSTOP);
    m_desktop.pressKey("Return");
    m_desktop.close(mainWindow);
    ::kill(process, SIGCONT);
}

MessageBox ImageManagerProgram::answer(const QString &button)
{
    MessageBox box = m_program.waitForMessageBox(button);
    if (!box.press(button))
        return {};
    const bool hasGone =
        QTest::qWaitFor([&] { return !m_program.isRunning() || !box.dialog.has(State::Showing); }, Program::patienceMs);
    return hasGone ? box : MessageBox();
}

bool ImageManagerProgram::choose(const QString &menu, const QString &entry)
{
    m_desktop.click(application().find(Role::MenuBar).find(Role::MenuItem, menu).extents().center());
    if (!QTest::qWaitFor([&] { return menuEntry(menu, entry).has(State::Showing); }, Program::patienceMs))
        return false;
    m_desktop.click(menuEntry(menu, entry).extents().center());
    return true;
}

bool ImageManagerProgram::askToInvert()
{
    const auto isAsked = [this] {
        const WindowId active = m_desktop.activeWindow();
        return active != 0 && m_desktop.title(active) == "Invert"_L1;
    };
    return choose(u"Image"_s, u"Invert"_s) && QTest::qWaitFor(isAsked, Program::patienceMs);
}

bool ImageManagerProgram::agreeToInvert()
{
    const WindowId dialog = m_desktop.activeWindow();
    m_desktop.pressKey("Return");
    return QTest::qWaitFor([&] { return m_desktop.activeWindow() != dialog; }, Program::patienceMs);
}

bool ImageManagerProgram::invert()
{
    const QString marked = currentTab() + u'*';
    const auto button = [this] { return application().find(Role::Dialog, u"Invert"_s).find(Role::Button, u"OK"_s); };
    return askToInvert() && button().press()
        && QTest::qWaitFor([&] { return currentTab() == marked; }, Program::patienceMs);
}

Accessible ImageManagerProgram::application()
{
    return m_program.accessible();
}

QStringList ImageManagerProgram::tabTitles()
{
    QStringList titles;
    const QList<Accessible> tabs = application().findAll(Role::Tab);
    for (const Accessible &tab : tabs)
        titles.append(tab.name());
    return titles;
}

QString ImageManagerProgram::currentTab()
{
    return application().find(Role::TabList).name();
}

QString ImageManagerProgram::statusText()
{
    return application().find(Role::StatusBar).name();
}

QStringList ImageManagerProgram::menuEntries(const QString &menu)
{
    QStringList entries;
    const QList<Accessible> children =
        application().find(Role::MenuBar).find(Role::MenuItem, menu).find(Role::Menu).children();
    for (const Accessible &entry : children)
        entries.append(entry.role() == Role::Separator ? u"-"_s : entry.name());
    return entries;
}

Accessible ImageManagerProgram::menuEntry(const QString &menu, const QString &entry)
{
    return application().find(Role::MenuBar).find(Role::MenuItem, menu).find(Role::MenuItem, entry);
}

QList<Accessible> ImageManagerProgram::tools()
{
    QList<Accessible> buttons;
    const QList<Accessible> children = application().find(Role::ToolBar).children();
    for (const Accessible &child : children) {
        const Role role = child.role();
        if (role == Role::Button || role == Role::CheckBox || role == Role::ToggleButton || role == Role::MenuButton)
            buttons.append(child);
    }
    return buttons;
}

Accessible ImageManagerProgram::tool(const QString &name)
{
    const QList<Accessible> buttons = tools();
    for (const Accessible &button : buttons) {
        if (button.name() == name)
            return button;
    }
    return {};
}

QRect ImageManagerProgram::canvas()
{
    const QList<Accessible> shown = application().findAll(
        [](const Accessible &control) { return control.name() == "Page picture"_L1 && control.has(State::Showing); });
    return shown.value(0).extents();
}

QPoint ImageManagerProgram::origin()
{
    return position_of(m_desktop.pixel(canvas().topLeft()));
}

OpenProgram::OpenProgram(const QString &name, QSize windowSize, QSize pageSize) : ImageManagerProgram(place)
{
    const QStringList pages{place.page(name, pageSize)};
    if (!(windowSize.isEmpty() ? open(pages) : open(pages, windowSize)))
        qFatal("the program did not open %s", qPrintable(name));
}
