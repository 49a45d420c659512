#include "history_steps.h"

#include "pictures.h"

using namespace Qt::StringLiterals;

namespace {

using Step = bool (UndoHistory::*)(QImage *, QSize *, double *, uint, QString *);

QColor color_after(Step step, UndoHistory &history, uint steps)
{
    StepOutputs out;
    const bool done = (history.*step)(&out.image, &out.size, &out.zoom, steps, &out.name);
    return done ? out.color() : QColor();
}

} // namespace

QImage page_of(const QColor &color)
{
    return solid_page(PageSize, color.rgb());
}

bool insert_page(UndoHistory &history, const QColor &color)
{
    return history.insert(page_of(color), PageSize, 1.0, u"operation"_s);
}

void insert_pages(UndoHistory &history, const QList<QColor> &colors)
{
    for (const QColor &color : colors) {
        if (!insert_page(history, color))
            qFatal("insertPages - a page was refused");
    }
}

QColor undo(UndoHistory &history, uint steps)
{
    return color_after(&UndoHistory::undo, history, steps);
}

QColor redo(UndoHistory &history, uint steps)
{
    return color_after(&UndoHistory::redo, history, steps);
}

QColor rollback(UndoHistory &history, uint steps)
{
    return color_after(&UndoHistory::rollback, history, steps);
}

QStringList numbers_in(const TemporaryHome &home)
{
    QStringList numbers;
    for (const QString &name : home.filesIn(u"tmp"_s))
        numbers.append(name.chopped(4).last(8));
    return numbers;
}

QString snapshot_path(const TemporaryHome &home, const QString &number)
{
    for (const QString &name : home.filesIn(u"tmp"_s)) {
        if (name.endsWith(number + ".bmp"_L1))
            return home.filePath("tmp/"_L1 + name);
    }
    return {};
}
