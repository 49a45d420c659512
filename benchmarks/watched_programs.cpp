#include "watched_programs.h"

#include "Screen.h"
#include "StartedProgram.h"

#include <chrono>
#include <functional>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr double MaximalSeconds = 60;

/// Polls until @p holds; the program under watch gets the processor.
bool wait_until(const StartedProgram &program, const std::function<bool()> &holds)
{
    while (!holds()) {
        if (!program.isRunning() || program.age() > MaximalSeconds)
            return false;
        std::this_thread::sleep_for(1ms);
    }
    return true;
}

/// The window of the program before may still be there.
bool wait_until_gone(const Screen &screen, Mark mark)
{
    const auto start = std::chrono::steady_clock::now();
    while (screen.shows(mark)) {
        if (std::chrono::steady_clock::now() - start > 5s)
            return false;
        std::this_thread::sleep_for(1ms);
    }
    return true;
}

} // namespace

std::optional<double> seconds_to_picture(const QStringList &command, Mark mark, const Screen &screen)
{
    if (!wait_until_gone(screen, mark))
        return {};
    const StartedProgram program(command);
    if (!wait_until(program, [&] { return screen.shows(mark); }))
        return {};
    return program.age();
}

std::optional<double> settled_peak(const StartedProgram &program)
{
    constexpr double quietSeconds = 0.5;
    double peak = 0;
    double since = program.age();
    const bool settled = wait_until(program, [&] {
        if (const double now = program.peakMemory(); now > peak) {
            peak = now;
            since = program.age();
        }
        return program.age() - since > quietSeconds;
    });
    return settled ? std::optional(peak) : std::nullopt;
}

std::optional<double> bytes_with_picture(const QStringList &command, Mark mark, const Screen &screen)
{
    if (!wait_until_gone(screen, mark))
        return {};
    const StartedProgram program(command);
    if (!wait_until(program, [&] { return screen.shows(mark); }))
        return {};
    return settled_peak(program);
}

QString program_path(const QString &name, const Surroundings &surroundings)
{
    const QStringList ours{u"all_pages"_s, u"bare_browser"_s, u"bare_window"_s, u"imagemanager"_s, u"pagr"_s};
    return ours.contains(name) ? surroundings.programs + u'/' + name : name;
}
