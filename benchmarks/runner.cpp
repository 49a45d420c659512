#include "runner.h"

#include "lent_memory.h"

#include <QCoreApplication>
#include <QProcess>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <limits>
#include <memory>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int MaximalRoundMs = 120'000;

/// A round in another process, which prepares itself at its start.
Round round_elsewhere(const QStringList &arguments)
{
    const std::shared_ptr<QProcess> process(new QProcess, [](QProcess *finished) {
        finished->closeWriteChannel(); // no more rounds
        finished->waitForFinished();
        delete finished;
    });
    process->setStandardErrorFile(QProcess::nullDevice());
    process->start(QCoreApplication::applicationFilePath(), arguments);
    return [process]() -> std::optional<double> {
        process->write("\n");
        while (!process->canReadLine()) {
            if (!process->waitForReadyRead(MaximalRoundMs))
                return {};
        }
        bool isNumber = false;
        const double value = process->readLine().trimmed().toDouble(&isNumber);
        return isNumber ? std::optional(value) : std::nullopt;
    };
}

Round prepared(const Side &side, const QStringList &address, const Surroundings &surroundings)
{
    if (side.place == Side::Here)
        return side.prepare(surroundings);
    return round_elsewhere(QStringList{u"--inputs"_s, surroundings.inputs, u"--serve"_s} + address);
}

/// The value below which so much of the values lies, between two of them by a straight line.
double quantile(std::vector<double> values, double share)
{
    std::ranges::sort(values);
    const double place = share * static_cast<double>(values.size() - 1);
    const auto below = static_cast<std::size_t>(place);
    const std::size_t above = std::min(below + 1, values.size() - 1);
    return std::lerp(values[below], values[above], place - static_cast<double>(below));
}

double median(const std::vector<double> &values)
{
    return quantile(values, 0.5);
}

double compared(Bar::Kind kind, double job, double yardstick)
{
    constexpr double megabyte = 1e6;
    switch (kind) {
    case Bar::SecondsRatio:
    case Bar::BytesRatio:
        return job / yardstick;
    case Bar::BytesExcess:
        return (job - yardstick) / megabyte;
    case Bar::Seconds:
    case Bar::Bytes:
    case Bar::Count:
        break;
    }
    return job;
}

} // namespace

Outcome run_bar(const Row &row, int barIndex, const Rounds &rounds, const Surroundings &surroundings)
{
    const Bar &bar = row.bars.at(barIndex);
    const QStringList address{QString::number(row.number), QString::number(barIndex)};
    const Round job = prepared(bar.job, address + QStringList{u"job"_s}, surroundings);
    Round yardstick = [] { return std::optional(0.0); };
    if (bar.yardstick)
        yardstick = prepared(*bar.yardstick, address + QStringList{u"yardstick"_s}, surroundings);

    std::vector<double> values, jobs, yardsticks;
    for (int i = 0; i <= rounds.count; ++i) {
        have_memory_lent(rounds.lentBytes);
        const std::optional<double> mine = job();
        have_memory_lent(rounds.lentBytes);
        const std::optional<double> other = yardstick();
        if (!mine || !other)
            return {};
        if (i == 0)
            continue; // the first round fills caches
        values.push_back(compared(bar.kind, *mine, *other));
        jobs.push_back(*mine);
        yardsticks.push_back(*other);
    }
    return {.value = median(values),
            .lowerQuartile = quantile(values, 0.25),
            .upperQuartile = quantile(values, 0.75),
            .job = median(jobs),
            .yardstick = median(yardsticks)};
}

int serve_side(const Side &side, const Surroundings &surroundings)
{
    const Round round = side.prepare(surroundings);
    std::cout.precision(std::numeric_limits<double>::max_digits10);
    for (std::string line; std::getline(std::cin, line);) {
        const std::optional<double> value = round();
        if (!value)
            return 1;
        std::cout << *value << std::endl;
    }
    return 0;
}
