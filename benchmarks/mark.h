#pragma once

#include <QRgb>

/// The sign by which a picture is found on a screen: four upright stripes, two colours in turns. Each input has it
/// at its top left corner, for programs that start there; in its middle, for those that start there; and large
/// near its lower edge, for those that make the page fit their window.
struct Mark
{
    QRgb first;
    QRgb second;
};

/// No widget, icon or picture of an input has these colours.
constexpr Mark ColourMark{.first = 0xffff00ff, .second = 0xff00ffff};
/// The mark of a 1-bit page.
constexpr Mark BlackMark{.first = 0xff000000, .second = 0xffffffff};
/// The same where all pages of a file are read, as they then come with black and white exchanged.
constexpr Mark ExchangedMark{.first = 0xffffffff, .second = 0xff000000};

constexpr int MarkStripes = 4;
/// A stripe must come out at least this wide on the screen, in screen pixels: more than in any thumbnail.
constexpr int LeastStripeWidth = 8;
/// In image pixels. Four fit into the narrow first window of the program. Multiples of 16, so that the edges of the
/// marks lie between the bytes of a 1-bit page.
constexpr int StripeWidth = 64;
constexpr int LargeStripeWidth = 304;
constexpr int StripeHeight = 400;
