#pragma once

#include <QRgb>

#include <cstddef>
#include <span>

/// Rows of pixels as a page holds them, to and from rows as a snapshot file holds them.
///
/// Units:  every pair of spans covers the same pixels of one row. Where the file's span is longer, the
///         rest of it is padding: written as zeros, skipped when read.
/// Errors: none; a target that is too short is the caller's fault and not looked for.

/// 0xAARRGGBB words to bytes blue, green, red. The alpha is dropped.
void pack_bgr(std::span<const QRgb> words, std::span<uchar> bytes);
/// Bytes blue, green, red to opaque words.
void unpack_bgr(std::span<const uchar> bytes, std::span<QRgb> words);

/// Two indices a byte, the left one in the high half; of each index only the low four bits count.
void pack_nibbles(std::span<const uchar> indices, std::span<uchar> bytes);
void unpack_nibbles(std::span<const uchar> bytes, std::span<uchar> indices);

/// Turns the order of the bits in each byte, as between rows whose leftmost pixel is the lowest bit and
/// rows where it is the highest.
void reverse_bits(std::span<const uchar> bytes, std::span<uchar> reversed);

/// Exchanges the indices 0 and 1 of pixels of one bit.
void flip_bits(std::span<const uchar> bytes, std::span<uchar> flipped);

/// One row from page to file or back; the width is in pixels, the span covers the whole target.
using RowCopy = void (*)(const uchar *from, std::size_t width, std::span<uchar> to);

/// As it is.
void copy_bytes(const uchar *from, std::size_t width, std::span<uchar> to);
/// Words of this machine from or to words of the file, whichever it is.
void copy_words(const uchar *from, std::size_t width, std::span<uchar> to);
