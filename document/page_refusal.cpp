#include "page_refusal.h"

#include "ImageDocument.h"

#include <QColorSpace>
#include <QLatin1StringView>

#include <algorithm>
#include <bit>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

bool is_word(const QString &imgFormat, QLatin1StringView word)
{
    return imgFormat.compare(word, Qt::CaseInsensitive) == 0;
}

/// The toolkit's writers of icons shrink what is larger, without a word.
bool fits_into_icon(QSize size, const QString &imgFormat)
{
    constexpr int LongestSide = 256;
    constexpr int LongestSquareSide = 1024;
    constexpr int LongestOddSide = 16;
    if (is_word(imgFormat, "ico"_L1) || is_word(imgFormat, "cur"_L1))
        return size.width() <= LongestSide && size.height() <= LongestSide;
    if (is_word(imgFormat, "icns"_L1)) {
        const int side = size.width();
        return side == size.height() && side <= LongestSquareSide
            && (side <= LongestOddSide || std::has_single_bit(static_cast<unsigned>(side)));
    }
    return true;
}

QString too_large_for(const QString &size)
{
    //: %1 is a size in bytes, such as "4 GiB"
    return ImageDocument::tr("A file of this format cannot be larger than %1.").arg(size);
}

/// Bytes of the rows in the file, which has half a byte for each of up to 16 colours.
qint64 bmp_row_bytes(const QImage &page)
{
    constexpr int LargestNibbleTable = 16;
    const int bits = page.depth() == 32                                ? 24
        : page.depth() == 8 && page.colorCount() <= LargestNibbleTable ? 4
                                                                       : page.depth();
    return (qint64{page.width()} * bits + 31) / 32 * 4 * page.height();
}

/// PNG cleans keywords: of Latin 1, blanks, controls and what has no form become blanks, and those at both ends go.
/// A keyword of which nothing is left ends the writing.
bool is_bad_keyword(const QString &keyword)
{
    constexpr qsizetype LongestKeyword = 79;
    const QByteArray latin = keyword.left(LongestKeyword).toLatin1();
    const auto *const end = std::ranges::find(latin, '\0');
    const auto isKept = [](char letter) {
        const auto code = static_cast<uchar>(letter);
        return (code > 0x20 && code < 0x7f) || code > 0xa0;
    };
    return !keyword.isEmpty() && std::none_of(latin.begin(), end, isKept);
}

} // namespace

QString page_refusal(const QImage &page, const QString &imgFormat)
{
    if (!fits_into_icon(page.size(), imgFormat))
        return ImageDocument::tr("An image of %1 x %2 pixels cannot be saved in format <%3> at its size.")
            .arg(page.width())
            .arg(page.height())
            .arg(imgFormat);
    constexpr qint64 HeaderAndTable = 2048;
    if (is_word(imgFormat, "bmp"_L1) && bmp_row_bytes(page) > std::numeric_limits<int>::max() - HeaderAndTable)
        return too_large_for(u"2 GiB"_s);
    return {};
}

QString tiff_refusal(qint64 rowBytes)
{
    constexpr qint64 HeadersAndTags = qint64{1024} * 1024;
    return rowBytes > std::numeric_limits<quint32>::max() - HeadersAndTags ? too_large_for(u"4 GiB"_s) : QString();
}

QImage without_bad_texts(const QImage &page, const QString &imgFormat)
{
    const QStringList keywords = page.textKeys();
    if (!is_word(imgFormat, "png"_L1) || std::ranges::none_of(keywords, is_bad_keyword))
        return page;
    // Texts cannot be taken off an image, so another one is put over its pixels.
    QImage clean(page.constBits(), page.width(), page.height(), page.bytesPerLine(), page.format());
    clean.setColorTable(page.colorTable());
    clean.setDotsPerMeterX(page.dotsPerMeterX());
    clean.setDotsPerMeterY(page.dotsPerMeterY());
    clean.setOffset(page.offset());
    clean.setColorSpace(page.colorSpace());
    for (const QString &keyword : keywords)
        if (!is_bad_keyword(keyword))
            clean.setText(keyword, page.text(keyword));
    return clean;
}
