#pragma once

#include <QSize>
#include <QString>

#include <optional>

/// What a user may enter as a new size of a page. Sizes are in pixels.

enum class SizeVerdict {
    Good,
    NoNumber, ///< at least one side cannot be read
    TooSmall,
    TooLarge,
};

inline constexpr int SmallestSide = 10;

/// Reads both sides as decimal numbers, signs and white space around them allowed.
/// @return nothing, with a qDebug() line, if one of them cannot be read
[[nodiscard]] std::optional<QSize> read_size(const QString &width, const QString &height);

/// Judges what read_size() gave.
/// @param pixelLimit  how many pixels the machine can hold
[[nodiscard]] SizeVerdict judge_size(const std::optional<QSize> &size, int pixelLimit);
