#pragma once

#include "Q3ScrollView.h"

#include <QScrollBar>
#include <QTest>

inline constexpr QSize Visible(100, 80);

[[nodiscard]] inline int bar_width(const Q3ScrollView &view)
{
    return view.verticalScrollBar()->sizeHint().width();
}

[[nodiscard]] inline int bar_height(const Q3ScrollView &view)
{
    return view.horizontalScrollBar()->sizeHint().height();
}

[[nodiscard]] inline QSize frame(const Q3ScrollView &view)
{
    return 2 * QSize(view.frameWidth(), view.frameWidth());
}

/// Shows a view in its parent: its viewport is 100 by 80 beside both bars, on contents of 400 by 300 at (100, 100).
inline void show_at_100(Q3ScrollView &view)
{
    QWidget *const parent = view.parentWidget();
    parent->resize(500, 400);
    view.resize(Visible + frame(view) + QSize(bar_width(view), bar_height(view)));
    parent->show();
    QVERIFY(QTest::qWaitForWindowExposed(parent));
    view.resizeContents(400, 300);
    QTRY_COMPARE(view.viewport()->size(), Visible);
    view.setContentsPos(100, 100);
}
