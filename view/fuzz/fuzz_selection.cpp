// Points by chance for the selection, which goes as a model of its clamps does, and events by chance for the view,
// whose zoom and selection stay within what a pointer can reach.

#include "fuzz_target.h"
#include "FuzzInput.h"
#include "ImageView.h"
#include "pictures.h"
#include "Q3Canvas.h"
#include "quiet_toolkit.h"
#include "RubberItem.h"

#include <QApplication>
#include <QMouseEvent>

#include <algorithm>
#include <array>

namespace {

/// One axis of a selection: where it begins and how long it is, negative for backwards.
struct Span
{
    int start = 0;
    int length = 0;

    [[nodiscard]] int last() const { return start + length - 1; }
    void setLast(int last) { length = last - start + 1; }
    void setStart(int begin)
    {
        length = last() - begin + 1;
        start = begin;
    }
};

/// What the selection does on a canvas, axis by axis.
class Model
{
public:
    explicit Model(QSize canvas) : size{canvas.width(), canvas.height()} { }

    void set(QRect rectangle)
    {
        spans = {Span{rectangle.left(), rectangle.width()}, Span{rectangle.top(), rectangle.height()}};
    }

    /// Which sides a grip moves: -1 for the first, 1 for the last, 0 for none.
    void drag(std::array<int, 2> sides, std::array<int, 2> to)
    {
        for (std::size_t axis = 0; axis < 2; ++axis) {
            Span &span = spans.at(axis);
            const int place = to.at(axis);
            if (sides.at(axis) < 0) {
                const int nearest = span.start + span.length - 4; // four pixels are left
                span.setStart(place > nearest ? nearest : std::max(place, 0));
            } else if (sides.at(axis) > 0) {
                const int nearest = span.start + 4;
                span.setLast((place < nearest ? nearest : std::min(place, size.at(axis))) - 1);
            }
        }
    }

    void dragFreeCorner(std::array<int, 2> to)
    {
        for (std::size_t axis = 0; axis < 2; ++axis) {
            const int place = to.at(axis);
            spans.at(axis).setLast(place < 0 ? 1 : place > size.at(axis) ? size.at(axis) - 1 : place);
        }
    }

    void hold(std::array<int, 2> at) { anchor = at; }

    void move(std::array<int, 2> to)
    {
        for (std::size_t axis = 0; axis < 2; ++axis) {
            Span &span = spans.at(axis);
            int step = to.at(axis) - anchor.at(axis);
            if (step > 0 && span.start + span.length + step > size.at(axis))
                step = size.at(axis) - span.start - span.length - 1; // one pixel before the end
            if (step < 0 && span.start + step < 0)
                step = -span.start;
            anchor.at(axis) += step;
            span.start += step;
        }
    }

    [[nodiscard]] std::array<int, 4> coords() const
    {
        return {spans[0].start, spans[1].start, spans[0].last(), spans[1].last()};
    }

private:
    std::array<int, 2> size;
    std::array<Span, 2> spans;
    std::array<int, 2> anchor{};
};

std::array<int, 4> coords_of(const RubberItem &rubber)
{
    int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    rubber.coords(&x1, &y1, &x2, &y2);
    return {x1, y1, x2, y2};
}

/// A place on each grip, and the sides that it moves.
struct Grip
{
    QPoint place;
    std::array<int, 2> sides;
};

/// The grips of a rectangle that is large enough to have them all apart.
std::array<Grip, 8> grips_of(const std::array<int, 4> &at)
{
    const auto [x1, y1, x2, y2] = at;
    const int x = (x1 + x2) / 2;
    const int y = (y1 + y2) / 2;
    return {{{{x1, y1}, {-1, -1}},
             {{x, y1}, {0, -1}},
             {{x2, y1}, {1, -1}},
             {{x2, y}, {1, 0}},
             {{x2, y2}, {1, 1}},
             {{x, y2}, {0, 1}},
             {{x1, y2}, {-1, 1}},
             {{x1, y}, {-1, 0}}}};
}

void try_rubber(FuzzInput &input)
{
    const QSize size(input.within(1, 300), input.within(1, 300));
    Q3Canvas canvas;
    canvas.resize(size.width(), size.height());
    RubberItem rubber(&canvas);
    Model model(size);
    const QRect first(input.within(0, size.width()), input.within(0, size.height()), 1, 1);
    rubber.setRect(first);
    model.set(first);
    while (!input.isAtEnd()) {
        const std::array<int, 2> to{input.within(-400, 700), input.within(-400, 700)};
        const auto at = coords_of(rubber);
        const bool isLarge = at[2] - at[0] > 12 && at[3] - at[1] > 12;
        const int event = input.below(12);
        if (event < 8 && isLarge) {
            const Grip grip = grips_of(at).at(static_cast<std::size_t>(event));
            const int cursor = rubber.hitTest(grip.place, 1.0);
            promise(cursor != Qt::BitmapCursor && rubber.mode() == RubberItem::RubberOverHandle, "a grip is found");
            rubber.resizeTo({to[0], to[1]});
            model.drag(grip.sides, to);
        } else if (event < 10) {
            const QRect other(input.within(0, size.width()), input.within(0, size.height()), 1, 1);
            rubber.setRect(other);
            model.set(other);
            promise(rubber.hitTest({-9999, -9999}, 1.0) == Qt::BitmapCursor, "far away there is no grip");
            rubber.resizeTo({to[0], to[1]});
            model.dragFreeCorner(to);
        } else {
            const std::array<int, 2> held{input.within(0, 300), input.within(0, 300)};
            rubber.startMove({held[0], held[1]});
            model.hold(held);
            rubber.moveTo({to[0], to[1]});
            model.move(to);
        }
        promise(coords_of(rubber) == model.coords(), "the selection stands where the model has it");
    }
}

void send(ImageView &view, QEvent::Type type, QPoint position, Qt::MouseButton button, Qt::MouseButtons buttons)
{
    QMouseEvent event(type, position, view.viewport()->mapToGlobal(position), button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(view.viewport(), &event);
}

void do_something(ImageView &view, FuzzInput &input, Qt::MouseButton &held)
{
    const QPoint position(input.within(-40, 340), input.within(-40, 240));
    switch (input.below(10)) {
    case 0:
    case 1:
        held = input.below(8) == 0 ? Qt::RightButton : Qt::LeftButton;
        send(view, QEvent::MouseButtonPress, position, held, held);
        break;
    case 2:
        send(view, QEvent::MouseButtonRelease, position, held, Qt::NoButton);
        held = Qt::NoButton;
        break;
    case 3:
        (void)view.zoomIn();
        break;
    case 4:
        (void)view.zoomOut();
        break;
    case 5:
        view.OnToggleScroll(input.flag());
        break;
    case 6:
        view.replaceImage(1, patterned_page({input.within(1, 400), input.within(1, 300)}));
        break;
    default:
        send(view, QEvent::MouseMove, position, Qt::NoButton, held);
        break;
    }
}

void check_view(const ImageView &view)
{
    promise(view.zoomIndex() >= 0 && view.zoomIndex() <= 7, "the zoom is one of eight steps");
    promise(view.hasSelection() || view.selection() == QRect(), "without a selection there is none");
    // The first move of a drag takes the pointer as it is, also beside the page.
    constexpr int farthest = 8000; // of 340 screen pixels at the smallest zoom, and the page
    const QRect near(QPoint(-farthest, -farthest), QPoint(farthest, farthest));
    promise(near.contains(view.selection().topLeft()) && near.contains(view.selection().bottomRight()),
            "a selection ends no farther than the pointer reaches");
}

void try_view(FuzzInput &input)
{
    ImageView view(nullptr);
    promise(view.setImage(patterned_page({200, 150})), "a page can be shown");
    view.canvas()->resize(200, 150);
    view.resize(300, 200);
    view.show();
    QCoreApplication::processEvents();
    Qt::MouseButton held = Qt::NoButton;
    while (!input.isAtEnd()) {
        do_something(view, input, held);
        check_view(view);
    }
    QCoreApplication::processEvents();
    check_view(view);
}

} // namespace

std::vector<std::string> fuzz_seeds()
{
    std::vector<std::string> seeds;
    for (unsigned start = 1; start <= 10; ++start) {
        std::string seed(1, static_cast<char>(start % 2));
        for (unsigned value = start; seed.size() < 260; value = value * 1103515245U + 12345U)
            seed += static_cast<char>(value >> 16U);
        seeds.push_back(seed);
    }
    return seeds;
}

void try_input(std::span<const std::uint8_t> bytes)
{
    start_quiet_toolkit<QApplication>();
    FuzzInput input(bytes.first(std::min<std::size_t>(bytes.size(), 600)));
    if (input.flag())
        try_view(input);
    else
        try_rubber(input);
}
