#include "Row.h"

#include <algorithm>

QList<Row> all_rows()
{
    QList<Row> rows = program_rows() + view_rows();
    std::ranges::stable_sort(rows, {}, &Row::number);
    return rows;
}
