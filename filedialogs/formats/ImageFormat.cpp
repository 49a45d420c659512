#include "ImageFormat.h"

#include <QCoreApplication>
#include <QImageReader>
#include <QImageWriter>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

// The descriptions are translated where they are shown.
const ImageFormat allFilesFormat{AllFormatKey, QT_TRANSLATE_NOOP("ImageFormat", "All files"), {u"*"_s}};
const ImageFormat tiffFormat{
    TiffFormatKey, QT_TRANSLATE_NOOP("ImageFormat", "Tagged Image File Format"), {u"tiff"_s, u"tif"_s}};
const ImageFormat multipageTiffFormat{
    MtiffFormatKey, QT_TRANSLATE_NOOP("ImageFormat", "Multipage TIFF"), {u"tiff"_s, u"tif"_s}};

const QList<ImageFormat> knownImageFormats{
    {u"BMP"_s, QT_TRANSLATE_NOOP("ImageFormat", "Windows Bitmaps"), {u"bmp"_s}},
    {u"JPEG"_s, u"JPEG"_s, {u"jpg"_s, u"jpeg"_s}},
    {PngFormatKey, QT_TRANSLATE_NOOP("ImageFormat", "Portable Network Graphics"), {u"png"_s}},
    {u"PBM"_s, QT_TRANSLATE_NOOP("ImageFormat", "Portable Bitmap Monochrome"), {u"pbm"_s}},
    {u"PGM"_s, QT_TRANSLATE_NOOP("ImageFormat", "Portable Bitmap Grayscale"), {u"pgm"_s}},
    {u"PPM"_s, QT_TRANSLATE_NOOP("ImageFormat", "Portable Bitmap Colorful"), {u"ppm"_s}},
    {u"XBM"_s, u"XBM"_s, {u"xbm"_s}},
    {u"XPM"_s, u"XPM"_s, {u"xpm"_s}},
};

const QList<ImageFormat> &readableImageFormats()
{
    static const QList<ImageFormat> formats = dressed_formats(QImageReader::supportedImageFormats(), false);
    return formats;
}

const QList<ImageFormat> &writableImageFormats()
{
    // TIFF is always writable: the documents have a writer of their own for it.
    static const QList<ImageFormat> formats = dressed_formats(QImageWriter::supportedImageFormats(), true);
    return formats;
}

const QList<ImageFormat> &writableAllImageFormats()
{
    static const QList<ImageFormat> formats = writableImageFormats() + QList<ImageFormat>{multipageTiffFormat};
    return formats;
}

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

QList<ImageFormat> dressed_formats(const QList<QByteArray> &supported, bool addTiff)
{
    const QList<ImageFormat> named = mergeImageFormats(imageFormatsFromSupported(supported), knownImageFormats, false);
    return mergeImageFormat(named, tiffFormat, addTiff);
}

bool is_tiff_word(const QString &word)
{
    return tiffFormat.exts.contains(word, Qt::CaseInsensitive);
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
    const QString description = QCoreApplication::translate("ImageFormat", record.desc.toUtf8().constData());
    // Both at once: a "%2" in a description is text, not a place to fill.
    return u"%1 (%2)"_s.arg(description, patterns.join(' '_L1));
}
