// Lists of formats made of any names, descriptions and suffixes: none is lost, none is there twice, and what is looked
// up is what a plain search finds.

#include "fuzz_target.h"
#include "FuzzInput.h"
#include "ImageFormat.h"

#include <algorithm>

namespace {

QString text_from(FuzzInput &input)
{
    return QString::fromUtf8(QByteArray::fromStdString(input.text()));
}

ImageFormat record_from(FuzzInput &input)
{
    ImageFormat record{.format = text_from(input), .desc = text_from(input), .exts = {}};
    for (int count = input.below(4); count > 0; --count)
        record.exts.append(text_from(input));
    return record;
}

/// Whether one of the record's suffixes is the entry's key in small letters.
bool goes_by(const ImageFormat &entry, const ImageFormat &record)
{
    return std::ranges::any_of(record.exts,
                               [&entry](const QString &suffix) { return suffix == entry.format.toLower(); });
}

/// The entry that takes the record over, the others that go by its suffixes gone.
QList<ImageFormat> plain_merge(const QList<ImageFormat> &list, const ImageFormat &record, bool addIfMissing)
{
    QList<ImageFormat> merged;
    bool isTaken = false;
    for (const ImageFormat &entry : list) {
        if (!goes_by(entry, record))
            merged.append(entry);
        else if (!isTaken)
            merged.append({.format = entry.format, .desc = record.desc, .exts = record.exts});
        isTaken = isTaken || goes_by(entry, record);
    }
    if (!isTaken && addIfMissing)
        merged.append(record);
    return merged;
}

void check_supported(const QList<QByteArray> &names)
{
    const QList<ImageFormat> records = imageFormatsFromSupported(names);
    QStringList spelt;
    for (const QByteArray &name : names) {
        const QString key = QString::fromLatin1(name).toLower();
        if (!spelt.contains(key))
            spelt.append(key);
    }
    promise(records.size() == spelt.size(), "there is a record for each name, however it is spelt");
}

void check_look_up(const QList<ImageFormat> &list, const QString &word)
{
    qsizetype byKey = -1;
    qsizetype bySuffix = -1;
    qsizetype suffixes = 0;
    for (qsizetype i = 0; i < list.size(); ++i) {
        if (byKey < 0 && list.at(i).format.toUpper() == word.toUpper())
            byKey = i;
        if (bySuffix < 0 && list.at(i).exts.contains(word))
            bySuffix = i;
        suffixes += list.at(i).exts.size();
        promise(!filter_text(list.at(i)).isEmpty(), "a filter has a text");
    }
    promise(indexOfFormat(list, word) == byKey, "a key is found in any case");
    promise(indexOfExtension(list, word) == bySuffix, "a suffix is found as it is spelt");
    promise(allExtensions(list).size() == suffixes, "all suffixes are told");
}

std::string field(std::string_view text)
{
    return static_cast<char>(text.size()) + std::string(text);
}

} // namespace

std::vector<std::string> fuzz_seeds()
{
    const std::string jpeg = field("jpeg") + field("JPEG") + '\2' + field("jpg") + field("jpeg");
    const std::string tiff = field("TIFF") + field("Tagged") + '\2' + field("tif") + field("tiff");
    return {
        '\2' + jpeg + tiff + tiff + '\1' + field("JPG") + field("png") + field("PNG") + field("jpg"),
        '\3' + tiff + tiff + jpeg + field("") + field("") + '\0' + '\0' + field("tif"),
    };
}

void try_input(std::span<const std::uint8_t> bytes)
{
    FuzzInput input(bytes);
    QList<ImageFormat> list;
    for (int count = input.below(8); count > 0; --count)
        list.append(record_from(input));
    const ImageFormat record = record_from(input);
    const bool addIfMissing = input.flag();
    promise(mergeImageFormat(list, record, addIfMissing) == plain_merge(list, record, addIfMissing),
            "a record is merged as by a plain way");
    check_look_up(list, text_from(input));
    QList<QByteArray> names;
    while (!input.isAtEnd())
        names.append(QByteArray::fromStdString(input.text()));
    check_supported(names);
}
