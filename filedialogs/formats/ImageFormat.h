#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

/// An image format as the file dialogs show it and the documents are told it.
///
/// The registry joins what the toolkit's readers and writers report with a fixed table of names. Keys
/// of the toolkit are spelt by the toolkit and those of the table in capitals, so keys are compared in
/// upper or lower case.
struct ImageFormat
{
    QString format; ///< key, as readers and writers are given it
    QString desc; ///< description in a filter, untranslated
    QStringList exts; ///< suffixes without a dot, the one to append to a name first

    bool operator==(const ImageFormat &) const = default;
};

/// @name Keys that other parts of the program test for.
/// @{
inline constexpr QLatin1StringView AllFormatKey("ALL"); ///< any file, whatever it is called
inline constexpr QLatin1StringView GraphFormatKey("GRAPH"); ///< every suffix of the readable list
inline constexpr QLatin1StringView PngFormatKey("PNG"); ///< what is proposed when nothing else is known
inline constexpr QLatin1StringView TiffFormatKey("TIFF"); ///< spelt so, the multi-page codec
inline constexpr QLatin1StringView MtiffFormatKey("MTIFF"); ///< one multi-page file for all documents
/// @}

/// Records of the fixed table that are no member of knownImageFormats.
extern const ImageFormat allFilesFormat;
extern const ImageFormat tiffFormat;
extern const ImageFormat multipageTiffFormat;

extern const QList<ImageFormat> knownImageFormats; ///< the fixed table, told by name

/// What the toolkit reports, dressed from the tables. Each list is built when it is first asked for, since that
/// loads every image plug-in: a start with a file to show needs but one of them.
/// @{
const QList<ImageFormat> &readableImageFormats(); ///< what the toolkit reads; TIFF only if it reads that
const QList<ImageFormat> &writableImageFormats(); ///< what the toolkit writes, and always TIFF
const QList<ImageFormat> &writableAllImageFormats(); ///< writableImageFormats() and multi-page TIFF
/// @}

/// Plain records, one for each name however it is spelt, in the order reported.
[[nodiscard]] QList<ImageFormat> imageFormatsFromSupported(const QList<QByteArray> &supported);

/// Gives the first entry of @p list that goes by a suffix of @p record the record's description and
/// suffixes, drops the further ones, and returns the list. An entry keeps its key.
/// @param addIfMissing  append the record when no entry goes by one of its suffixes
[[nodiscard]] QList<ImageFormat> mergeImageFormat(QList<ImageFormat> list, const ImageFormat &record,
                                                  bool addIfMissing);
/// mergeImageFormat() with each of @p records in order.
[[nodiscard]] QList<ImageFormat> mergeImageFormats(QList<ImageFormat> list, const QList<ImageFormat> &records,
                                                   bool addIfMissing);

/// What becomes of the names that the toolkit reports, dressed with the fixed table and then with TIFF.
/// @param addTiff  append TIFF when the toolkit does not report it
[[nodiscard]] QList<ImageFormat> dressed_formats(const QList<QByteArray> &supported, bool addTiff);

/// Whether a format word or a suffix stands for TIFF, in any case: "tif", "TIFF" and their like, and not "MTIFF".
[[nodiscard]] bool is_tiff_word(const QString &word);

/// Index of the first record with this key in any case, or -1.
[[nodiscard]] qsizetype indexOfFormat(const QList<ImageFormat> &list, const QString &key);
/// Index of the first record with exactly this suffix, or -1: "TIF" is not "tif".
[[nodiscard]] qsizetype indexOfExtension(const QList<ImageFormat> &list, const QString &extension);
/// The suffixes of all records, one after the other; duplicates stay.
[[nodiscard]] QStringList allExtensions(const QList<ImageFormat> &list);

/// The line of a file dialog's filter box, such as "JPEG (*.jpg *.jpeg)", in the user's language.
[[nodiscard]] QString filter_text(const ImageFormat &record);
