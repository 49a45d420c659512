#include "classic_rect.h"

#include <algorithm>

QRect classic_normalized(const QRect &rect)
{
    if (rect.width() == 0 || rect.height() == 0)
        return rect;

    const auto [left, right] = std::minmax({rect.left(), rect.right()});
    const auto [top, bottom] = std::minmax({rect.top(), rect.bottom()});
    return {QPoint(left, top), QPoint(right, bottom)};
}

bool classic_contains(const QRect &rect, const QPoint &point, bool proper)
{
    const QRect upright = classic_normalized(rect);
    const int margin = proper ? 1 : 0;
    return point.x() >= upright.left() + margin && point.x() <= upright.right() - margin
        && point.y() >= upright.top() + margin && point.y() <= upright.bottom() - margin;
}
