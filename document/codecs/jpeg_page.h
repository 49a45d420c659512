#pragma once

#include <QImage>

class QFile;

/// The page of a plain JPEG file, decoded straight into the words of a page and, where the page is large, on two
/// threads; equal to what to_page_image() makes of the picture of the toolkit's reader. Plain are pictures in YCbCr
/// (JFIF 1.02) of one scan, whose chroma has the resolution of the luma or half of it, without comments, profiles and
/// data of cameras.
///
/// Memory: the page and the bytes of the file.
///
/// @param file  open for reading; its position afterwards is undefined
/// @return null if the file is not plain or damaged in any way: others are to judge it
[[nodiscard]] QImage read_plain_jpeg(QFile &file);
