#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

class QRandomGenerator;

/// Pages and files for the tests of snapshots.

inline constexpr quint32 Seed = 20;

/// A page whose bits are by chance, those of the padding and of the colours too, except that indices lie in the table
/// and that its colours are opaque.
[[nodiscard]] QImage random_page(QSize size, QImage::Format format, int colorCount, QRandomGenerator &random);

/// Writes a file anew. One that is written over would be forced to the disk, which takes much longer.
void put_file(const QString &path, const QByteArray &bytes);

/// What the toolkit reads from these bytes, as a page.
[[nodiscard]] QImage toolkit_page(const QByteArray &bytes);

/// Whether pictures and resolutions are equal; what differs in the pictures is printed.
[[nodiscard]] bool is_same_page(const QImage &actual, const QImage &expected);
