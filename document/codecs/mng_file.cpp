#include "mng_file.h"

#include "image_memory.h"

#include <QByteArray>
#include <QIODevice>
#include <QtEndian>

#include <algorithm>

namespace {

constexpr qint64 ChunkFrame = 12; // length, name and check sum

double number32(const QByteArray &bytes, qsizetype at)
{
    return at + 4 <= bytes.size() ? qFromBigEndian<quint32>(bytes.constData() + at) : 0;
}

double number16(const QByteArray &bytes, qsizetype at)
{
    return at + 2 <= bytes.size() ? qFromBigEndian<quint16>(bytes.constData() + at) : 0;
}

/// Judges the chunks of a file one after the other. Real numbers, as a claim may be too large for whole ones.
class CanvasCheck
{
public:
    /// @param content  the first bytes of the chunk's
    /// @return false if the chunk makes a picture that the canvas or the machine cannot hold
    bool accepts(const QByteArray &name, const QByteArray &content)
    {
        if (name == "MHDR") {
            canvasWidth = number32(content, 0);
            canvasHeight = number32(content, 4);
        } else if (name == "IHDR" || name == "JHDR" || name == "BASI") {
            return fits(number32(content, 0), number32(content, 4));
        } else if (name == "DHDR") { // a change of a picture: its number, kinds, size of the block
            return fits(number32(content, 4), number32(content, 8));
        } else if (name == "MAGN") {
            return fitsEnlarged(content);
        } else if (name == "CLON") {
            constexpr double pixelBytes = 8;
            copiedBytes += pixelBytes * largestWidth * largestHeight;
            return copiedBytes <= static_cast<double>(affordable_image_bytes());
        }
        return true;
    }

private:
    bool fits(double width, double height)
    {
        largestWidth = std::max(largestWidth, width);
        largestHeight = std::max(largestHeight, height);
        return width <= canvasWidth && height <= canvasHeight;
    }

    /// Factors for the columns: all, the first, the last; and so for the rows.
    [[nodiscard]] bool fitsEnlarged(const QByteArray &content) const
    {
        constexpr double slack = 2; // the factors hold between pixels, so that what they make is a little smaller
        const double columns = std::max({number16(content, 5), number16(content, 9), number16(content, 11)});
        const double rows = std::max({number16(content, 7), number16(content, 13), number16(content, 15)});
        return largestWidth * columns <= slack * canvasWidth && largestHeight * rows <= slack * canvasHeight;
    }

    double canvasWidth = 0;
    double canvasHeight = 0;
    double largestWidth = 0; ///< of the pictures so far
    double largestHeight = 0;
    double copiedBytes = 0;
};

} // namespace

bool has_fitting_mng_pictures(QIODevice &file)
{
    constexpr QByteArrayView signature("\x8aMNG\r\n\x1a\n");
    constexpr qint64 longestContent = 18; // of those that are looked at
    if (!file.seek(0) || file.read(signature.size()) != signature)
        return true;
    CanvasCheck canvas;
    for (qint64 at = signature.size(); file.seek(at);) {
        const QByteArray chunk = file.read(8 + longestContent);
        if (chunk.size() < 8)
            return true;
        const auto length = static_cast<qint64>(number32(chunk, 0));
        if (!canvas.accepts(chunk.sliced(4, 4), chunk.sliced(8).first(std::min(length, chunk.size() - 8))))
            return false;
        at += ChunkFrame + length;
    }
    return true;
}
