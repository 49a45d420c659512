#pragma once

#include <QImage>
#include <QSize>

/// Memory for pages, used again. Writing into memory that was touched before takes a fifth of the time that
/// new memory takes, and nearly every edit makes a page as large as the one it replaces.
///
/// A page made here is an image like any other. When its last copy is gone its memory becomes a spare,
/// which serves the next page of about that size. There is one spare at most, or as many as stay within 32 MiB
/// together, as those of many small pages do: an edit needs the old page and the new one, not a third. Asking for a
/// page drops those that are more than twice or less than half as large.
/// Pictures below SmallestPooledBytes, such as previews, neither use nor drop spares.
///
/// Threads:   any; pages are made, adopted and dropped where they are needed.

inline constexpr qsizetype SmallestPooledBytes = qsizetype{256} * 1024;

/// A page with undefined pixels and the toolkit's own colour table for that format.
/// @return null if the size is empty, the format invalid or the memory short
[[nodiscard]] QImage new_page(QSize size, QImage::Format format);

/// The same with room for decoding: where the page has SmallestPooledBytes, @p bytes may be used from its first one on,
/// behind its last row too, until its last copy is gone.
[[nodiscard]] QImage new_roomy_page(QSize size, QImage::Format format, qsizetype bytes);

/// Gives a page the resolution, the texts and, if the formats are equal, the colour table of @p pattern.
void copy_page_attributes(const QImage &pattern, QImage &page);

/// A new page with the attributes of @p pattern.
[[nodiscard]] QImage new_page_like(const QImage &pattern, QSize size, QImage::Format format);
/// The same in the format of @p pattern.
[[nodiscard]] QImage new_page_like(const QImage &pattern, QSize size);

/// The same picture, whose memory will serve again: for images that the toolkit made. Move it in; shared
/// pixels stay where they are, and the image comes back as it was.
[[nodiscard]] QImage adopt_page(QImage image);

/// Bytes that are kept for the next page.
[[nodiscard]] qsizetype spare_page_bytes();
/// Keeps none: after a page that only a broken file claimed to need.
void drop_spare_page();
