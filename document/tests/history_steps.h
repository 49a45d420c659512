#pragma once

#include "TemporaryHome.h"
#include "UndoHistory.h"

#include <QColor>
#include <QImage>
#include <QList>
#include <QSize>
#include <QStringList>

#include <limits>

/// Short words for the tests of the history: a page is a colour. What cannot be made ends the test program.

inline constexpr uint AllSteps = std::numeric_limits<uint>::max();
inline constexpr QSize PageSize(4, 3);

[[nodiscard]] QImage page_of(const QColor &color);
[[nodiscard]] bool insert_page(UndoHistory &history, const QColor &color);
void insert_pages(UndoHistory &history, const QList<QColor> &colors);

/// A home that lives longer than the history in it.
struct HistoryHome
{
    TemporaryHome home;
};

/// A history in a home of its own.
struct FilledHistory : HistoryHome, UndoHistory
{
    explicit FilledHistory(const QList<QColor> &colors = {}) { insert_pages(*this, colors); }
};

/// What a step gives back.
struct StepOutputs
{
    QImage image;
    QSize size;
    double zoom = 0.0;
    QString name;

    /// An invalid colour if there is no image.
    [[nodiscard]] QColor color() const { return image.isNull() ? QColor() : image.pixelColor(0, 0); }
};

/// Run a step and give the colour of the page that it leads to, an invalid one after a failure.
[[nodiscard]] QColor undo(UndoHistory &history, uint steps = 0);
[[nodiscard]] QColor redo(UndoHistory &history, uint steps = 0);
[[nodiscard]] QColor rollback(UndoHistory &history, uint steps = 0);

/// The numbers of the snapshots, as their names hold them, sorted.
[[nodiscard]] QStringList numbers_in(const TemporaryHome &home);

/// Path of the snapshot with this number; empty if there is none.
[[nodiscard]] QString snapshot_path(const TemporaryHome &home, const QString &number);
