#include "Program.h"

#include <QTest>

#include <algorithm>
#include <utility>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int endOfProgramMs = 5000; ///< from the polite request to the kill

bool is_shown_dialog(const Accessible &control)
{
    const Accessible::Role role = control.role();
    return (role == Accessible::Role::Dialog || role == Accessible::Role::Alert)
        && control.has(Accessible::State::Showing);
}

MessageBox read_box(const Accessible &dialog)
{
    MessageBox box;
    box.dialog = dialog;
    box.title = dialog.name();
    QStringList texts;
    const QList<Accessible> labels = dialog.findAll(Accessible::Role::Label);
    for (const Accessible &label : labels) {
        if (!label.name().isEmpty())
            texts.append(label.name());
    }
    box.text = texts.join(u'\n');
    QList<Accessible> buttons = dialog.findAll(Accessible::Role::Button);
    std::ranges::sort(buttons, {}, [](const Accessible &button) { return button.extents().x(); });
    for (const Accessible &button : std::as_const(buttons)) {
        // The caption carries its mnemonic's mark on some desktops.
        const QString caption = button.name().remove(u'&');
        box.buttons.append(caption);
        if (button.has(Accessible::State::Default))
            box.defaultButton = caption;
    }
    return box;
}

} // namespace

bool MessageBox::press(const QString &button) const
{
    return dialog.find(Accessible::Role::Button, button).press();
}

Program::Program(QString executable) : m_executable(std::move(executable)) { }

Program::~Program()
{
    if (!isRunning())
        return;
    m_process.terminate();
    if (!m_process.waitForFinished(endOfProgramMs)) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

bool Program::start(const QStringList &arguments)
{
    m_process.setProcessEnvironment(m_environment);
    if (m_bObeyPermissions && ::geteuid() == 0) {
        m_process.start(u"setpriv"_s,
                        QStringList{u"--bounding-set"_s, u"-dac_override,-dac_read_search"_s, m_executable}
                            + arguments);
    } else {
        m_process.start(m_executable, arguments);
    }
    if (!m_process.waitForStarted(patienceMs))
        return false;
    m_processId = m_process.processId();
    return true;
}

WindowId Program::waitForWindow() const
{
    const Desktop desktop;
    WindowId window = 0;
    (void)QTest::qWaitFor( // a window that does not come is 0
        [&] {
            window = desktop.windowsOf(m_processId).value(0);
            return window != 0 || !isRunning();
        },
        patienceMs);
    return window;
}

WindowId Program::waitForWindow(const QString &title) const
{
    const Desktop desktop;
    WindowId found = 0;
    (void)QTest::qWaitFor( // a window that does not come is 0
        [&] {
            for (const WindowId window : desktop.windowsOf(m_processId)) {
                if (desktop.title(window) == title)
                    found = window;
            }
            return found != 0 || !isRunning();
        },
        patienceMs);
    return found;
}

Accessible Program::accessible() const
{
    Accessible application;
    (void)QTest::qWaitFor( // a program that does not register is null
        [&] {
            application = Accessible::application(m_processId);
            return !application.isNull() || !isRunning();
        },
        patienceMs);
    return application;
}

MessageBox Program::waitForMessageBox(const QString &button) const
{
    const Accessible application = accessible();
    MessageBox box;
    (void)QTest::qWaitFor( // a box that does not come has no title
        [&] {
            // A box is a child of the application or of the window that it belongs to.
            const QList<Accessible> windows = application.children();
            for (const Accessible &window : windows) {
                if (!is_shown_dialog(window))
                    continue;
                MessageBox shown = read_box(window);
                if (button.isEmpty() || shown.buttons.contains(button))
                    box = std::move(shown);
            }
            return !box.dialog.isNull() || !isRunning();
        },
        patienceMs);
    return box;
}

std::optional<int> Program::waitForExit(int timeoutMs)
{
    if (!QTest::qWaitFor([this] { return !isRunning(); }, timeoutMs))
        return std::nullopt;
    if (m_process.exitStatus() != QProcess::NormalExit)
        return std::nullopt;
    return m_process.exitCode();
}

std::optional<int> Program::waitForEndBySignal(int timeoutMs)
{
    if (!QTest::qWaitFor([this] { return !isRunning(); }, timeoutMs) || m_process.exitStatus() != QProcess::CrashExit)
        return std::nullopt;
    return m_process.exitCode();
}

QString Program::output()
{
    m_output += m_process.readAllStandardOutput();
    return QString::fromUtf8(m_output);
}

QString Program::errors()
{
    m_errors += m_process.readAllStandardError();
    return QString::fromUtf8(m_errors);
}
