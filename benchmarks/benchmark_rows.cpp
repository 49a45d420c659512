// Measures rows of the table of goals and tells which are met:
//
//   benchmark_rows --inputs DIRECTORY --frame-buffer FILE [--rounds N] [--lent MIB] [--tsv FILE] [ROW...]
//
// It needs a display of its own, kept in the file. The script "run" makes all that.

#include "report.h"
#include "runner.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QImageReader>

#include <algorithm>
#include <cstdio>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

constexpr auto DefaultRounds = "9"_L1;

void say(QFile &file, const QString &line)
{
    file.write(line.toUtf8() + '\n');
    file.flush();
}

/// @return how many bars were not met
int measure(const QList<Row> &rows, const Rounds &rounds, const Surroundings &surroundings, QFile &table, QFile &tsv)
{
    int missed = 0;
    say(table, table_head());
    say(tsv, tsv_head());
    for (const Row &row : rows) {
        for (int i = 0; i < row.bars.size(); ++i) {
            const Bar &bar = row.bars.at(i);
            const Outcome outcome = run_bar(row, i, rounds, surroundings);
            say(table, table_line(row, bar, outcome));
            say(tsv, tsv_line(row, bar, outcome));
            missed += outcome.met(bar.goal) ? 0 : 1;
        }
    }
    return missed;
}

QList<Row> chosen_rows(const QStringList &numbers)
{
    if (numbers.isEmpty())
        return all_rows();
    QList<Row> rows = all_rows() + scale_rows();
    rows.removeIf([&numbers](const Row &row) { return !numbers.contains(QString::number(row.number)); });
    return rows;
}

/// @param address  number of the row, index of the bar, "job" or "yardstick"
int serve(const QStringList &address, const Surroundings &surroundings)
{
    const QList<Row> rows = chosen_rows({address.value(0)});
    const int index = address.value(1).toInt();
    if (rows.isEmpty() || index >= rows.first().bars.size())
        return 2;
    const Bar &bar = rows.first().bars.at(index);
    return serve_side(address.value(2) == "job"_L1 ? bar.job : bar.yardstick.value(), surroundings);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QImageReader::setAllocationLimit(0);

    QCommandLineParser parser;
    parser.addOptions({{u"inputs"_s, u"Where make_inputs has put the pages."_s, u"directory"_s},
                       {u"frame-buffer"_s, u"Where the X server keeps its screen."_s, u"file"_s},
                       {u"rounds"_s, u"Rounds of a bar."_s, u"count"_s, DefaultRounds},
                       {u"lent"_s, u"Have so many MiB of memory at hand before each round."_s, u"size"_s, u"0"_s},
                       {u"tsv"_s, u"Write the results as fields parted by tabs."_s, u"file"_s, u"/dev/null"_s},
                       {u"serve"_s, u"Used within: ROW BAR SIDE, a round for each line of input."_s}});
    parser.addHelpOption();
    parser.process(application);
    const Surroundings surroundings{.programs = QApplication::applicationDirPath(),
                                    .inputs = parser.value(u"inputs"_s),
                                    .frameBuffer = parser.value(u"frame-buffer"_s)};
    if (parser.isSet(u"serve"_s))
        return serve(parser.positionalArguments(), surroundings);

    QFile table;
    QFile tsv(parser.value(u"tsv"_s));
    if (!table.open(stdout, QIODevice::WriteOnly) || !tsv.open(QIODevice::WriteOnly)) {
        std::fputs("benchmark_rows: cannot write the results\n", stderr);
        return 2;
    }
    constexpr std::size_t mebibyte = 1 << 20;
    const Rounds rounds{.count = std::max(1, parser.value(u"rounds"_s).toInt()),
                        .lentBytes = parser.value(u"lent"_s).toUInt() * mebibyte};
    return measure(chosen_rows(parser.positionalArguments()), rounds, surroundings, table, tsv) == 0 ? 0 : 1;
}
