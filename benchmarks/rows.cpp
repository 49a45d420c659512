#include "Row.h"

#include <algorithm>

QList<Row> all_rows()
{
    QList<Row> rows = program_rows() + edit_rows() + history_rows() + file_rows() + rework_rows() + memory_rows()
        + view_rows() + reduced_rows() + window_rows() + dialog_rows() + start_rows() + tool_rows() + ftp_rows()
        + mail_rows();
    std::ranges::stable_sort(rows, {}, &Row::number);
    return rows;
}
