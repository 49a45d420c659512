#include "RubberItem.h"

#include "classic_rect.h"
#include "Q3Canvas.h"

#include <algorithm>
#include <array>

namespace {

constexpr double GripReach = 3.0; // screen pixels to either side of the line
constexpr int SmallestSide = 4; // image pixels that a grip leaves

/// A coordinate of the free corner, held on a canvas of @p size pixels.
int clamp_to_canvas(int value, int size)
{
    // Intended: 0 is reached only from the canvas itself, and the far end is one pixel inside unless
    // the pointer is exactly on it.
    if (value < 0)
        return 1;
    return value > size ? size - 1 : value;
}

/// A step of @p delta for a span of @p length at @p start that has to stay on a canvas of @p size pixels.
int clamp_step(int delta, int start, int length, int size)
{
    // Intended: a span that would overrun stops one pixel short of the end that a single step may reach,
    // and one that stands at the end is set back by that pixel.
    if (delta > 0 && start + length + delta > size)
        delta = size - (start + length) - 1;
    if (delta < 0 && start + delta < 0)
        delta = -start;
    return delta;
}

} // namespace

RubberItem::RubberItem(Q3Canvas *canvas) : Q3CanvasRectangle(QRect(), canvas) { }

void RubberItem::setMode(int mode)
{
    // Intended: only the first rectangle of a view is ever turned the right way round; later ones keep
    // their negative sizes, and who takes the selection copes with that.
    if (m_mode == RubberNew) {
        const QRect upright = classic_normalized(rectangle());
        if (upright != rectangle())
            setRect(upright);
    }
    m_mode = mode;
}

void RubberItem::startMove(const QPoint &point)
{
    m_mode = RubberMoving;
    m_anchor = point;
}

void RubberItem::setRect(const QRect &rect)
{
    setSize(rect.right() - rect.left() + 1, rect.bottom() - rect.top() + 1);
    move(rect.left(), rect.top());
}

void RubberItem::coords(int *x1, int *y1, int *x2, int *y2) const
{
    *x1 = left();
    *y1 = top();
    *x2 = left() + width() - 1;
    *y2 = top() + height() - 1;
}

int RubberItem::hitTest(const QPoint &point, double inverseScale)
{
    struct Zone
    {
        QRect area;
        Handle handle;
        Qt::CursorShape cursor;
    };

    int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    coords(&x1, &y1, &x2, &y2);
    const int d = static_cast<int>(GripReach * inverseScale);

    const QRect inside(QPoint(x1 + d, y1 + d), QPoint(x2 - d, y2 - d));
    if (!classic_contains(inside, point, true)) {
        // The order decides where the zones of a small rectangle overlap: corners before edges, and the
        // falling diagonal before the rising one.
        const std::array<Zone, 8> zones = {{
            {{QPoint(x1 - d, y1 - d), QPoint(x1 + d, y1 + d)}, TopLeft, Qt::SizeFDiagCursor},
            {{QPoint(x2 - d, y2 - d), QPoint(x2 + d, y2 + d)}, BottomRight, Qt::SizeFDiagCursor},
            {{QPoint(x1 - d, y2 - d), QPoint(x1 + d, y2 + d)}, BottomLeft, Qt::SizeBDiagCursor},
            {{QPoint(x2 - d, y1 - d), QPoint(x2 + d, y1 + d)}, TopRight, Qt::SizeBDiagCursor},
            {{QPoint(x1 - d, y1 + d), QPoint(x1 + d, y2 - d)}, Left, Qt::SizeHorCursor},
            {{QPoint(x2 - d, y1 + d), QPoint(x2 + d, y2 - d)}, Right, Qt::SizeHorCursor},
            {{QPoint(x1 + d, y1 - d), QPoint(x2 - d, y1 + d)}, Top, Qt::SizeVerCursor},
            {{QPoint(x1 + d, y2 - d), QPoint(x2 - d, y2 + d)}, Bottom, Qt::SizeVerCursor},
        }};
        for (const Zone &zone : zones) {
            if (classic_contains(zone.area, point, false)) {
                m_mode = RubberOverHandle;
                m_handle = zone.handle;
                return zone.cursor;
            }
        }
    }
    m_mode = RubberIdle;
    m_handle = FreeCorner;
    return Qt::BitmapCursor;
}

void RubberItem::resizeTo(const QPoint &point)
{
    int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    coords(&x1, &y1, &x2, &y2);

    switch (m_handle) {
    case TopLeft:
        x1 = clampLeft(point.x());
        y1 = clampTop(point.y());
        break;
    case Top:
        y1 = clampTop(point.y());
        break;
    case TopRight:
        x2 = clampRight(point.x()) - 1;
        y1 = clampTop(point.y());
        break;
    case Right:
        x2 = clampRight(point.x()) - 1;
        break;
    case BottomRight:
        x2 = clampRight(point.x()) - 1;
        y2 = clampBottom(point.y()) - 1;
        break;
    case Bottom:
        y2 = clampBottom(point.y()) - 1;
        break;
    case BottomLeft:
        x1 = clampLeft(point.x());
        y2 = clampBottom(point.y()) - 1;
        break;
    case Left:
        x1 = clampLeft(point.x());
        break;
    default:
        x2 = clamp_to_canvas(point.x(), canvas()->width());
        y2 = clamp_to_canvas(point.y(), canvas()->height());
        break;
    }
    setRect(QRect(QPoint(x1, y1), QPoint(x2, y2)));
}

void RubberItem::moveTo(const QPoint &point)
{
    const int dx = clamp_step(point.x() - m_anchor.x(), left(), width(), canvas()->width());
    const int dy = clamp_step(point.y() - m_anchor.y(), top(), height(), canvas()->height());

    // The anchor takes the clamped step: a pointer that ran past an edge has to come back first.
    m_anchor += QPoint(dx, dy);
    moveBy(dx, dy);
}

QString RubberItem::dump() const
{
    return QString::asprintf("pos: (%f,%f,%f), visible: %d, rect: %fx%f (%f,%f)", x(), y(), z(), int{isVisible()},
                             double(width()), double(height()), double(left()), double(top()));
}

QRect RubberItem::rectangle() const
{
    int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    coords(&x1, &y1, &x2, &y2);
    return {QPoint(x1, y1), QPoint(x2, y2)};
}

int RubberItem::left() const
{
    return static_cast<int>(x());
}

int RubberItem::top() const
{
    return static_cast<int>(y());
}

int RubberItem::clampLeft(int value) const
{
    const int nearest = left() + width() - SmallestSide;
    return nearest < value ? nearest : std::max(value, 0);
}

int RubberItem::clampTop(int value) const
{
    const int nearest = top() + height() - SmallestSide;
    return nearest < value ? nearest : std::max(value, 0);
}

int RubberItem::clampRight(int value) const
{
    const int nearest = left() + SmallestSide;
    return nearest > value ? nearest : std::min(value, canvas()->width());
}

int RubberItem::clampBottom(int value) const
{
    const int nearest = top() + SmallestSide;
    return nearest > value ? nearest : std::min(value, canvas()->height());
}
