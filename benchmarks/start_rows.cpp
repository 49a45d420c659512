// Starts that find the program running already, and what every first start reads.

#include "AppContext.h"
#include "Row.h"
#include "Screen.h"
#include "StartedProgram.h"

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>

#include <chrono>
#include <memory>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto MarkedFile = "mark/mark.png"_L1;
constexpr auto FileOfTheFirst = "a4_600_1bit_tiff/page.tif"_L1; ///< with another mark
constexpr double MaximalSeconds = 60;

using Clock = std::chrono::steady_clock;

double seconds_since(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Polls; the programs under watch get the processor.
bool wait_until(const std::function<bool()> &holds)
{
    const Clock::time_point start = Clock::now();
    while (!holds()) {
        if (seconds_since(start) > MaximalSeconds)
            return false;
        std::this_thread::sleep_for(1ms);
    }
    return true;
}

/// From the start of the second process until it has ended and the first shows the second's file.
std::optional<double> seconds_of_second_start(const Surroundings &surroundings, const Screen &screen)
{
    const QString executable = surroundings.programs + "/imagemanager"_L1;
    if (!wait_until([&] { return !screen.shows(ColourMark) && !screen.shows(BlackMark); }))
        return {};
    const StartedProgram first({executable, surroundings.inputs + u'/' + FileOfTheFirst});
    if (!wait_until([&] { return screen.shows(BlackMark); }))
        return {};

    const StartedProgram second({executable, surroundings.inputs + u'/' + MarkedFile});
    if (!wait_until([&] { return !second.isRunning() && screen.shows(ColourMark); }))
        return {};
    return second.age();
}

Side second_start()
{
    const auto prepare = [](const Surroundings &surroundings) -> Round {
        const auto screen = std::make_shared<Screen>(surroundings.frameBuffer);
        return [=] { return screen->isValid() ? seconds_of_second_start(surroundings, *screen) : std::nullopt; };
    };
    return {u"second start"_s, Side::Here, prepare};
}

/// One and a half times a program that opens its display and ends, and the reading of the file.
Side bare_start_and_load()
{
    const auto prepare = [](const Surroundings &surroundings) -> Round {
        return [=]() -> std::optional<double> {
            const std::optional<double> bare =
                StartedProgram({surroundings.programs + "/bare_start"_L1}).secondsToEnd();
            const Clock::time_point start = Clock::now();
            if (!bare || QImageReader(surroundings.inputs + u'/' + MarkedFile).read().isNull())
                return {};
            return 1.5 * *bare + seconds_since(start);
        };
    };
    return {u"1.5 bare_start + load"_s, Side::Here, prepare};
}

/// Finds an installation whose file has 10 MiB of such lines.
Side installation(const QByteArray &line)
{
    const auto prepare = [line](const Surroundings & /*surroundings*/) -> Round {
        const auto package = std::make_shared<QTemporaryDir>();
        constexpr qsizetype size = 10 << 20;
        QFile file(package->filePath(u"share/OEM.ini"_s));
        const bool isWritten = QDir(package->path()).mkdir(u"share"_s) && file.open(QIODevice::WriteOnly)
            && file.write(line.repeated(size / line.size())) > 0 && file.flush();
        const QByteArray program = QFile::encodeName(package->filePath(u"bin/program"_s));
        return [=]() -> std::optional<double> {
            (void)package; // goes with the last round
            const Clock::time_point start = Clock::now();
            const bool isFound = find_installation(program.constData()) == 0;
            return isWritten && isFound ? std::optional(seconds_since(start)) : std::nullopt;
        };
    };
    return {u"find_installation"_s, Side::OwnProcess, prepare};
}

Bar installation_bar(const QString &name, const QByteArray &line)
{
    return {name, Bar::Seconds, 0.050, installation(line), {}};
}

} // namespace

QList<Row> start_rows()
{
    return {
        {53,
         u"second start, to its file on the screen"_s,
         {{u"1.5 bare_start + load"_s, Bar::SecondsRatio, 1.0, second_start(), bare_start_and_load()}}},
        {54,
         u"OEM.ini of 10 MiB"_s,
         {installation_bar(u"models"_s, "MODEL=AP-1200\n"), installation_bar(u"vendors"_s, "VENDOR=Acme Printers\n"),
          installation_bar(u"comments"_s, "# nothing that the program knows\n"),
          installation_bar(u"one line"_s, QByteArray(1 << 20, 'x'))}},
    };
}
