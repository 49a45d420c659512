#pragma once

#include "mark.h"

#include <QFile>
#include <QString>

#include <span>

/// The pixels of a running Xvfb, read from the file that it keeps them in (-fbdir): looking costs the X server
/// and its clients nothing.
class Screen
{
public:
    /// @param frameBuffer  the file; must be of depth 24
    explicit Screen(const QString &frameBuffer);

    [[nodiscard]] bool isValid() const { return pixels != nullptr; }

    /// Whether a picture with that mark is to be seen now.
    [[nodiscard]] bool shows(Mark mark) const;

private:
    QFile file;
    const uchar *pixels = nullptr;
    int width = 0;
    int height = 0;
    int bytesPerLine = 0;
};

/// Whether a line of pixels, 0x??RRGGBB, holds the four stripes of a mark, whole and of about the same width.
[[nodiscard]] bool has_mark(std::span<const QRgb> line, Mark mark);
