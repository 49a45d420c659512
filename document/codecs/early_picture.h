#pragma once

#include <QImage>
#include <QString>

/// Decodes the first picture of a file on a thread of its own before the file is loaded, while a window is being built.
/// ImageDocument::load() takes the picture if the file is still the same; otherwise, and where the decoder has
/// something to say or fails, it reads the file as if nothing had been.
///
/// Only JPEG, TIFF and plain PNG files are decoded early: their decoders need nothing but the file.
///
/// Threads:   one object at a time, on the GUI thread. The thread knows the path, bytes and an image. It has ended when
///            a load returns, when the object goes, and when exit() takes the process down.
class EarlyPicture
{
public:
    /// Begins. An empty path begins nothing.
    explicit EarlyPicture(const QString &filePath);
    ~EarlyPicture();
    Q_DISABLE_COPY_MOVE(EarlyPicture)
};

/// The page that read_first_picture() would give, if it was decoded early from the very file.
/// @param file  a descriptor of the file now
/// @return null if there is none
[[nodiscard]] QImage take_early_picture(const QString &filePath, const QString &imgFormat, int file);

/// Waits for the thread, if there is one, and drops what it has made.
void end_early_picture();
