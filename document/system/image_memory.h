#pragma once

#include <QtGlobal>

#include <iosfwd>

/// How large a decoded picture may be on this machine. Decoders reserve the size that a file claims
/// before they have seen its pixels, so a claim that cannot be kept has to be refused first.

/// Bytes that a picture to be decoded now may take, from the memory that is free and the limit of the
/// process. Some memory is left for what decoding and converting take beside the picture.
/// @return at least one mebibyte
[[nodiscard]] qint64 affordable_image_bytes();

/// Gives the toolkit's readers that limit.
void limit_image_readers();

/// Bytes of memory and swap that are to be had, as a stream of the form of /proc/meminfo tells it.
/// @return the largest number if the stream does not tell
[[nodiscard]] qint64 count_available_bytes(std::istream &meminfo);

/// The part of @p availableBytes that one picture may take.
[[nodiscard]] qint64 image_share(qint64 availableBytes);
