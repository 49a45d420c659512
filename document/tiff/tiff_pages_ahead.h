#pragma once

#include <QImage>

#include <memory>

using TIFF = struct tiff;
class SecondReader;

/// Reads the pages of a TIFF file one by one, while a thread of its own decodes every second one of them ahead, from
/// a handle of its own on the same file. What comes out is what readTiffPage() alone would give: a page that the thread
/// cannot decode in silence is decoded once more in its turn, so that whatever there is to tell is told once, in place.
///
/// The pages that wait for their turn are one, or as many as stay within 8 MiB. Pages above LargestPageAhead, and
/// machines that are short of memory, are left to the calling thread.
///
/// Threads:   one object at a time decodes ahead, on the GUI thread. The thread knows bytes and images. It has ended
///            when the object goes, and when exit() takes the process down.
class TiffPagesAhead
{
public:
    static constexpr qint64 LargestPageAhead = qint64{40} * 1000 * 1000; ///< A4 in colour at 300 dots per inch

    /// Begins, if there is more than one page. The handle stands at the first one, and outlives this object.
    explicit TiffPagesAhead(TIFF *firstPage);
    ~TiffPagesAhead();
    Q_DISABLE_COPY_MOVE(TiffPagesAhead)

    /// Reads the current directory as readTiffPage() does. To be called once for each, in their order.
    [[nodiscard]] bool readPage(QImage &image);

    /// How many pages came from the thread so far.
    [[nodiscard]] int countTaken() const { return taken; }

private:
    TIFF *tif;
    int number = -1; ///< of the page that was read last, from 0
    int taken = 0;
    std::unique_ptr<SecondReader> second;
};
