#include "report.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

QString measured(Bar::Kind kind, double value)
{
    switch (kind) {
    case Bar::SecondsRatio:
    case Bar::Seconds:
        return QString::number(value * 1e3, 'f', value < 0.1 ? 3 : 0) + u" ms"_s;
    case Bar::BytesRatio:
    case Bar::BytesExcess:
    case Bar::Bytes:
        return QString::number(value / 1e6, 'f', 1) + u" MB"_s;
    case Bar::Count:
        break;
    }
    return QString::number(value);
}

QString compared(Bar::Kind kind, double value)
{
    switch (kind) {
    case Bar::SecondsRatio:
    case Bar::BytesRatio:
        return QString::number(value, 'f', value < 0.1 ? 3 : 2);
    case Bar::BytesExcess:
        return (value < 0 ? u"%1 MB"_s : u"+%1 MB"_s).arg(value, 0, 'f', 1);
    case Bar::Seconds:
    case Bar::Bytes:
        return measured(kind, value);
    case Bar::Count:
        break;
    }
    return QString::number(value);
}

QString verdict(const Outcome &outcome, double goal)
{
    if (!outcome.value)
        return u"FAILED"_s;
    return outcome.met(goal) ? u"met"_s : u"NOT MET"_s;
}

QString aligned(const QStringList &fields)
{
    return u"%1  %2  %3  %4  %5  %6  %7  %8  %9"_s.arg(fields[0], 3)
        .arg(fields[1], -42)
        .arg(fields[2], -34)
        .arg(fields[3], 10)
        .arg(fields[4], 10)
        .arg(fields[5], 9)
        .arg(fields[6], 16)
        .arg(fields[7], 10)
        .arg(fields[8]);
}

} // namespace

QString table_head()
{
    return aligned({u"#"_s, u"job"_s, u"yardstick"_s, u"job"_s, u"yardstick"_s, u"result"_s, u"middle half"_s,
                    u"goal"_s, u"verdict"_s});
}

QString table_line(const Row &row, const Bar &bar, const Outcome &outcome)
{
    QStringList fields{QString::number(row.number), row.job, bar.name, u"-"_s, u"-"_s, u"-"_s, u"-"_s};
    if (outcome.value) {
        fields[3] = measured(bar.kind, outcome.job);
        if (bar.yardstick)
            fields[4] = measured(bar.kind, outcome.yardstick);
        fields[5] = compared(bar.kind, *outcome.value);
        fields[6] = compared(bar.kind, outcome.lowerQuartile) + u" to "_s + compared(bar.kind, outcome.upperQuartile);
    }
    fields << u"<= "_s + compared(bar.kind, bar.goal) << verdict(outcome, bar.goal);
    return aligned(fields);
}

QString tsv_head()
{
    return u"row\tjob\tyardstick\tjob median\tyardstick median\tresult\tgoal\tmet\tlower quartile\tupper quartile"_s;
}

QString tsv_line(const Row &row, const Bar &bar, const Outcome &outcome)
{
    const auto number = [](double value) { return QString::number(value, 'g', 9); };
    return QStringList{QString::number(row.number),
                       row.job,
                       bar.name,
                       number(outcome.job),
                       number(outcome.yardstick),
                       outcome.value ? number(*outcome.value) : u"failed"_s,
                       number(bar.goal),
                       outcome.met(bar.goal) ? u"1"_s : u"0"_s,
                       number(outcome.lowerQuartile),
                       number(outcome.upperQuartile)}
        .join(u'\t');
}
