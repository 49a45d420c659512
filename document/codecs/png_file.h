#pragma once

#include <QImage>

class QFile;

/// The page of a plain PNG file, decoded several times as fast as by the toolkit's reader, and equal to what
/// to_page_image() makes of the picture of that reader. Plain are pictures of 8 bits a sample, grey, indexed or in
/// colours, and those of 1 bit, that are not interlaced and hold nothing unusual.
///
/// Memory: the page and the bytes of the file.
///
/// @param file  open for reading; its position afterwards is undefined
/// @return null if the file is not plain or damaged in any way: the toolkit's reader is to judge it
[[nodiscard]] QImage read_plain_png(QFile &file);
