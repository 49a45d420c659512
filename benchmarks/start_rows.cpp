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
bool waitUntil(const std::function<bool()> &holds)
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
std::optional<double> secondsOfSecondStart(const Surroundings &surroundings, const Screen &screen)
{
    const QString executable = surroundings.programs + "/imagemanager"_L1;
    if (!waitUntil([&] { return !screen.shows(ColourMark) && !screen.shows(BlackMark); }))
        return {};
    const StartedProgram first({executable, surroundings.inputs + u'/' + FileOfTheFirst});
    if (!waitUntil([&] { return screen.shows(BlackMark); }))
        return {};

    const StartedProgram second({executable, surroundings.inputs + u'/' + MarkedFile});
    if (!waitUntil([&] { return !second.isRunning() && screen.shows(ColourMark); }))
        return {};
    return second.age();
}

Side secondStart()
{
    const auto prepare = [](const Surroundings &surroundings) -> Round {
        const auto screen = std::make_shared<Screen>(surroundings.frameBuffer);
        return [=] { return screen->isValid() ? secondsOfSecondStart(surroundings, *screen) : std::nullopt; };
    };
    return {u"second start"_s, Side::Here, prepare};
}

/// One and a half times a program that opens its display and ends, and the reading of the file.
Side bareStartAndLoad()
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

Bar installationBar(const QString &name, const QByteArray &line)
{
    return {name, Bar::Seconds, 0.050, installation(line), {}};
}

} // namespace

QList<Row> start_rows()
{
    return {
        {53,
         u"second start, to its file on the screen"_s,
         {{u"1.5 bare_start + load"_s, Bar::SecondsRatio, 1.0, secondStart(), bareStartAndLoad()}}},
        {54,
         u"OEM.ini of 10 MiB"_s,
         {installationBar(u"models"_s, "MODEL=AP-1200\n"), installationBar(u"vendors"_s, "VENDOR=Acme Printers\n"),
          installationBar(u"comments"_s, "# nothing that the program knows\n"),
          installationBar(u"one line"_s, QByteArray(1 << 20, 'x'))}},
    };
}
