#include "ImageFormat.h"

#include <QImageReader>
#include <QImageWriter>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

// All in one file, since only there does the order of the definitions decide the order of building.
const ImageFormat allFilesFormat{AllFormatKey, u"All files"_s, {u"*"_s}};
const ImageFormat tiffFormat{TiffFormatKey, u"Tagged Image File Format"_s, {u"tiff"_s, u"tif"_s}};
const ImageFormat multipageTiffFormat{MtiffFormatKey, u"Multipage TIFF"_s, {u"tiff"_s, u"tif"_s}};

const QList<ImageFormat> knownImageFormats{
    {u"BMP"_s, u"Windows Bitmaps"_s, {u"bmp"_s}},
    {u"JPEG"_s, u"JPEG"_s, {u"jpg"_s, u"jpeg"_s}},
    {PngFormatKey, u"Portable Network Graphics"_s, {u"png"_s}},
    {u"PBM"_s, u"Portable Bitmap Monochrome"_s, {u"pbm"_s}},
    {u"PGM"_s, u"Portable Bitmap Grayscale"_s, {u"pgm"_s}},
    {u"PPM"_s, u"Portable Bitmap Colorful"_s, {u"ppm"_s}},
    {u"XBM"_s, u"XBM"_s, {u"xbm"_s}},
    {u"XPM"_s, u"XPM"_s, {u"xpm"_s}},
};

namespace {

QList<ImageFormat> dressedFormats(const QList<QByteArray> &supported, bool addTiff)
{
    const QList<ImageFormat> named = mergeImageFormats(imageFormatsFromSupported(supported), knownImageFormats, false);
    return mergeImageFormat(named, tiffFormat, addTiff);
}

} // namespace

const QList<ImageFormat> readableImageFormats = dressedFormats(QImageReader::supportedImageFormats(), false);
// TIFF is always writable: the documents have a writer of their own for it.
const QList<ImageFormat> writableImageFormats = dressedFormats(QImageWriter::supportedImageFormats(), true);
const QList<ImageFormat> writableAllImageFormats = writableImageFormats + QList<ImageFormat>{multipageTiffFormat};

QList<ImageFormat> imageFormatsFromSupported(const QList<QByteArray> &supported)
{
    QList<ImageFormat> list;
    QSet<QString> seen;
    for (const QByteArray &name : supported) {
        const QString key = QString::fromLatin1(name);
        const QString lower = key.toLower();
        if (seen.contains(lower))
            continue;
        seen.insert(lower);
        list.append({key, lower.toUpper(), {lower}});
    }
    return list;
}

QList<ImageFormat> mergeImageFormat(QList<ImageFormat> list, const ImageFormat &record, bool addIfMissing)
{
    const auto isHit = [&record](const ImageFormat &entry) { return record.exts.contains(entry.format.toLower()); };

    const auto first = std::find_if(list.begin(), list.end(), isHit);
    if (first == list.end()) {
        if (addIfMissing)
            list.append(record);
        return list;
    }
    first->desc = record.desc;
    first->exts = record.exts;
    // The toolkit reports some formats under two names; they become one row, keyed by the first.
    list.erase(std::remove_if(first + 1, list.end(), isHit), list.end());
    return list;
}

QList<ImageFormat> mergeImageFormats(QList<ImageFormat> list, const QList<ImageFormat> &records, bool addIfMissing)
{
    for (const ImageFormat &record : records)
        list = mergeImageFormat(std::move(list), record, addIfMissing);
    return list;
}

qsizetype indexOfFormat(const QList<ImageFormat> &list, const QString &key)
{
    const auto it = std::find_if(list.cbegin(), list.cend(), [wanted = key.toUpper()](const ImageFormat &record) {
        return record.format.toUpper() == wanted;
    });
    return it == list.cend() ? -1 : it - list.cbegin();
}

qsizetype indexOfExtension(const QList<ImageFormat> &list, const QString &extension)
{
    const auto it = std::find_if(list.cbegin(), list.cend(),
                                 [&extension](const ImageFormat &record) { return record.exts.contains(extension); });
    return it == list.cend() ? -1 : it - list.cbegin();
}

QStringList allExtensions(const QList<ImageFormat> &list)
{
    QStringList extensions;
    for (const ImageFormat &record : list)
        extensions += record.exts;
    return extensions;
}

QString filter_text(const ImageFormat &record)
{
    QStringList patterns;
    for (const QString &extension : record.exts)
        patterns.append("*."_L1 + extension);
    // Both at once: a "%2" in a description is text, not a place to fill.
    return u"%1 (%2)"_s.arg(record.desc, patterns.join(' '_L1));
}
