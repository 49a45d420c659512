#include "hand_cursors.h"

#include <QBitmap>
#include <QImage>

#include <array>
#include <span>
#include <string_view>

namespace {

constexpr int Side = 32; // pixels

/// One row of a hand; "#" is a set bit.
struct HandRow
{
    std::string_view shape; ///< the filled hand: where the cursor is opaque
    std::string_view outline; ///< black there, white elsewhere in the shape
};

constexpr int OpenHandTop = 7; // row of the cursor that the table begins with

constexpr std::array<HandRow, 16> OpenHand = {{
    {"..............##................", "..............##................"},
    {"..........##.######.............", "..........##.#..###............."},
    {".........###########............", ".........#..##..#..#............"},
    {".........###########.#..........", ".........#..##..#..#.#.........."},
    {"..........#############.........", "..........#..#..#..##.#........."},
    {"..........#############.........", "..........#..#..#..#..#........."},
    {"........##.############.........", "........##.#.......#..#........."},
    {".......################.........", ".......#..##..........#........."},
    {".......###############..........", ".......#...#.........#.........."},
    {"........##############..........", "........#............#.........."},
    {".........#############..........", ".........#...........#.........."},
    {".........############...........", ".........#..........#..........."},
    {"..........###########...........", "..........#.........#..........."},
    {"...........#########............", "...........#.......#............"},
    {"............########............", "............#......#............"},
    {"............########............", "............#......#............"},
}};

constexpr int ClosedHandTop = 12;

constexpr std::array<HandRow, 11> ClosedHand = {{
    {"...........##.##.##.............", "...........##.##.##............."},
    {"..........###########...........", "..........#..#..#..##..........."},
    {"..........############..........", "..........#........#.#.........."},
    {"...........###########..........", "...........#.........#.........."},
    {"..........############..........", "..........##.........#.........."},
    {".........#############..........", ".........#...........#.........."},
    {".........############...........", ".........#..........#..........."},
    {"..........###########...........", "..........#.........#..........."},
    {"...........#########............", "...........#.......#............"},
    {"............########............", "............#......#............"},
    {"............########............", "............#......#............"},
}};

QBitmap bitmap_of(int top, std::span<const HandRow> rows, std::string_view HandRow::*part)
{
    QImage bits(Side, Side, QImage::Format_MonoLSB);
    bits.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
    bits.fill(0);
    for (int y = 0; y < std::ssize(rows); ++y) {
        const std::string_view row = rows[static_cast<size_t>(y)].*part;
        for (int x = 0; x < Side; ++x)
            bits.setPixel(x, top + y, row[static_cast<size_t>(x)] == '#' ? 1U : 0U);
    }
    return QBitmap::fromImage(bits);
}

const QCursor *make_cursor(int top, std::span<const HandRow> rows)
{
    constexpr int Middle = -1;
    return new QCursor(bitmap_of(top, rows, &HandRow::outline), bitmap_of(top, rows, &HandRow::shape), Middle, Middle);
}

} // namespace

// Both live to the end of the process: a cursor may still be set on a widget when statics are destroyed.

const QCursor &open_hand_cursor()
{
    static const QCursor *const cursor = make_cursor(OpenHandTop, OpenHand);
    return *cursor;
}

const QCursor &closed_hand_cursor()
{
    static const QCursor *const cursor = make_cursor(ClosedHandTop, ClosedHand);
    return *cursor;
}
