#pragma once

#include <QString>
#include <QStringList>

/// TIFF files of many pages, made by other programs and judged by a walk over their bytes that is not the program's.
/// The work is done by tiff_pages.py, which has the list of kinds. What cannot be made or read ends the test program.

/// All kinds of files, for data rows.
[[nodiscard]] QStringList tiff_kinds();
void make_tiff(const QString &kind, const QString &path);
/// Makes one of each kind, named by it and ".tif".
void make_all_tiffs(const QString &directory);

/// First byte order and kind of a file; then a line for each page with all its tags and what is below, digests of its
/// strips as they are stored, and nothing about where they stand.
[[nodiscard]] QStringList told_pages(const QString &path);

/// A line for each page: the picture as Pillow sees it.
[[nodiscard]] QStringList pillow_pages(const QString &path);

/// What tiffinfo warns of in a file, each line once.
[[nodiscard]] QStringList tiffinfo_warnings(const QString &path);

/// Whether a line of told_pages() has this tag with exactly this text, or this number, as its value.
[[nodiscard]] bool tells(const QString &page, int tag, const QString &text);
[[nodiscard]] bool tells(const QString &page, int tag, int number);
[[nodiscard]] bool has_tag(const QString &page, int tag);
/// All that a line of told_pages() says of a tag; empty if it is not there.
[[nodiscard]] QString tag_text(const QString &page, int tag);
/// The same of each of the pictures below a page.
[[nodiscard]] QStringList pictures_below(const QString &page);
