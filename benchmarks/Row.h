#pragma once

#include <QList>
#include <QString>

#include <functional>
#include <optional>

/// Where the rows find what they measure.
struct Surroundings
{
    QString programs; ///< directory of our own programs
    QString inputs; ///< directory of make_inputs
    QString frameBuffer; ///< file in which the X server keeps its screen
};

/// One round of a side: seconds, bytes or a count, as its bar says. Nothing if it did not work.
using Round = std::function<std::optional<double>()>;

/// One of the two things that a bar compares.
struct Side
{
    enum Place {
        Here, ///< it starts programs of its own and only waits for them
        OwnProcess, ///< it works, in a process (with a QApplication) in which the other side never was
    };

    QString name;
    Place place;
    std::function<Round(const Surroundings &)> prepare; ///< run once; what it returns runs every round
};

/// What must hold.
struct Bar
{
    enum Kind {
        SecondsRatio, ///< job by yardstick, both in seconds
        BytesRatio, ///< job by yardstick, both in bytes
        BytesExcess, ///< job less yardstick in bytes; the goal is in MB of 10^6 bytes
        Seconds, ///< the job alone in seconds; there is no yardstick
        Bytes, ///< the job alone in bytes; there is no yardstick
        Count, ///< the job's count; there is no yardstick
    };

    QString name;
    Kind kind;
    double goal; ///< met by values up to this one
    Side job;
    std::optional<Side> yardstick;
};

/// A row of the table of goals.
struct Row
{
    int number;
    QString job;
    QList<Bar> bars;
};

/// Start to picture, and peak memory with the picture shown, against other viewers.
[[nodiscard]] QList<Row> program_rows();

/// Repainting, scrolling and selecting in the view, against bare widgets.
[[nodiscard]] QList<Row> view_rows();

/// Reduced pages, against one sweep over their bytes and bare widgets.
[[nodiscard]] QList<Row> reduced_rows();

/// Edits of a page with their snapshots, against the toolkit's own calls.
[[nodiscard]] QList<Row> edit_rows();

/// Snapshots, undo and redo.
[[nodiscard]] QList<Row> history_rows();

/// Opening and saving with the program running.
[[nodiscard]] QList<Row> file_rows();

/// Opening, editing and saving with the program running, against whole programs for command lines.
[[nodiscard]] QList<Row> rework_rows();

/// Memory that edits and saves take.
[[nodiscard]] QList<Row> memory_rows();

/// The zoom of the main window, and its first answer to a command.
[[nodiscard]] QList<Row> window_rows();

/// Preview dialogs.
[[nodiscard]] QList<Row> dialog_rows();

/// Starts that find the program running, and what a first start reads.
[[nodiscard]] QList<Row> start_rows();

/// Uploads by FTP.
[[nodiscard]] QList<Row> ftp_rows();

/// Pages on their way to programs outside.
[[nodiscard]] QList<Row> tool_rows();

/// Messages with large attachments.
[[nodiscard]] QList<Row> mail_rows();

/// Curves over the size of pages and the number of pages and tabs. They have no goals and are measured on demand.
[[nodiscard]] QList<Row> scale_rows();

/// The rows of all groups that have goals, by number. A new group is declared above and added to its list.
[[nodiscard]] QList<Row> all_rows();
