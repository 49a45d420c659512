#include "files.h"
#include "ImageManagerProgram.h"
#include "SingleInstanceTest.h"

#include <QFile>
#include <QTest>

#include <algorithm>
#include <csignal>
#include <memory>
#include <vector>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

/// Many starts at the same moment, and none before them.
class tst_simultaneous_starts : public SingleInstanceTest
{
    Q_OBJECT

private slots:
    void hundredStartsAtOnceLeaveOneThatOwnsAndHeirsInTurn();
};

namespace {

using Started = std::vector<std::unique_ptr<ImageManagerProgram>>;

/// Starts that wait for each other.
class StartLine
{
public:
    explicit StartLine(const Place &place) : gate(place.path(u"gate"_s)), starter(place.path(u"starter"_s))
    {
        if (::mkfifo(QFile::encodeName(gate), S_IRUSR | S_IWUSR) != 0)
            qFatal("no gate");
        // A pipe without a writer cannot be opened.
        write_program(starter, "#!/bin/sh\n: <'" + QFile::encodeName(gate) + "'\nexec '" IM_PROGRAM "' \"$@\"\n");
    }

    [[nodiscard]] const QString &executable() const { return starter; }
    /// Lets all go that wait, and those that come later.
    void open()
    {
        writer.setFileName(gate);
        if (!writer.open(QIODevice::ReadWrite | QIODevice::Unbuffered))
            qFatal("the gate stays shut");
    }

private:
    QString gate;
    QString starter;
    QFile writer;
};

/// Whether each has ended, or stands with its window.
bool have_all_arrived(const Started &programs)
{
    const Desktop desktop;
    return std::ranges::all_of(programs, [&desktop](const auto &program) {
        Program &process = program->process();
        return !process.isRunning() || desktop.windowsOf(process.processId()).size() == 1;
    });
}

/// Whether each of them shows a file, and none but these.
bool show_files_of(const Started &programs, const QStringList &names)
{
    return std::ranges::all_of(programs, [&names](const auto &program) {
        const QStringList titles = program->tabTitles();
        return !titles.isEmpty()
            && std::ranges::all_of(titles, [&names](const QString &title) { return names.contains(title); });
    });
}

/// In how many tabs of each the file stands.
QList<qsizetype> counts_of(const QString &name, const Started &programs)
{
    QList<qsizetype> counts;
    for (const auto &program : programs)
        counts.append(program->tabTitles().count(name));
    return counts;
}

bool is_in_one_tab(const QString &name, const Started &programs)
{
    const QList<qsizetype> counts = counts_of(name, programs);
    return counts.count(1) == 1 && counts.count(0) == counts.size() - 1;
}

} // namespace

void tst_simultaneous_starts::hundredStartsAtOnceLeaveOneThatOwnsAndHeirsInTurn()
{
    constexpr int starts = 100;
    const Place place;
    StartLine line(place);
    QStringList names;
    Started programs;
    for (int i = 0; i < starts; ++i) {
        names.append(u"%1.bmp"_s.arg(i));
        programs.push_back(std::make_unique<ImageManagerProgram>(place, line.executable()));
        QVERIFY(programs.back()->start({place.page(names.last(), {8, 8})}));
    }

    line.open();

    QTRY_VERIFY_WITH_TIMEOUT(have_all_arrived(programs), 2 * Program::patienceMs);
    for (const auto &program : programs) {
        if (!program->process().isRunning())
            QCOMPARE(program->process().waitForExit(), 0);
    }
    // Several may stand: each was the first when it looked. And a message may have taken the place of another that was
    // not read yet.
    std::erase_if(programs, [](const auto &program) { return !program->process().isRunning(); });
    QVERIFY(!programs.empty());
    QTRY_VERIFY_WITH_TIMEOUT(show_files_of(programs, names), Program::patienceMs);

    for (int i = 0; !programs.empty(); ++i) {
        const QString later = u"later%1.bmp"_s.arg(i);
        const XWindowId owned = owner();
        QCOMPARE(startAgain(place, {place.page(later)}), 0);
        QTRY_VERIFY_WITH_TIMEOUT(is_in_one_tab(later, programs), Program::patienceMs);

        const auto last = programs.begin() + counts_of(later, programs).indexOf(1);
        QCOMPARE(::kill(static_cast<pid_t>((*last)->process().processId()), SIGTERM), 0);
        QCOMPARE((*last)->process().waitForEndBySignal(), SIGTERM);
        programs.erase(last);
        QTRY_VERIFY_WITH_TIMEOUT(owner() != owned && (owner() != 0) == !programs.empty(), Program::patienceMs);
    }
}

QTEST_GUILESS_MAIN(tst_simultaneous_starts)
#include "tst_simultaneous_starts.moc"
