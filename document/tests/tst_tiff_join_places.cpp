// What a directory says where to find comes along when it is taken over into a new file.

#include "image_files.h"
#include "plain_tiffs.h"
#include "tiff_join.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// Bytes at the place that a tag of the first directory names.
QByteArray bytes_at(const QString &path, quint16 tag, qsizetype count)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const TiffStructure structure(file.handle());
    const auto directory = structure.directory(structure.firstDirectory());
    const TiffEntry *const place = directory ? directory->find(tag) : nullptr;
    const auto start = place ? structure.number(*place) : std::nullopt;
    return start && file.seek(static_cast<qint64>(*start)) ? file.read(count) : QByteArray();
}

/// @return false if the directory could not be taken over
bool copy_first(const QString &source, const QString &target)
{
    QFile file(source);
    QFile copy(target);
    TiffJoin join({});
    return file.open(QIODevice::ReadOnly) && copy.open(QIODevice::ReadWrite) && join.add(file.handle(), 0, 1)
        && join.write(copy);
}

} // namespace

class tst_tiff_join_places : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { directory.reset(); }

    void stripThatIsLongerThanItsLengthSaysStaysWhole();
    void stripWithoutALengthStaysWhole();
    void oldJpegTablesComeAlong();
    void placesBeyondTheKindOfFileAreRefused();

private:
    [[nodiscard]] QString path(const QString &name) const { return directory->filePath(name); }

    std::optional<QTemporaryDir> directory;
};

void tst_tiff_join_places::init()
{
    directory.emplace();
    QVERIFY(directory->isValid());
}

void tst_tiff_join_places::stripThatIsLongerThanItsLengthSaysStaysWhole()
{
    // 4 x 2 grey pixels; readers go by the size of the picture when the length is too small.
    write_file(path(u"a.tif"_s),
               tiff_of("12345678",
                       {entry(256, 3, 4), entry(257, 3, 2), entry(258, 3, 8), entry(259, 3, 1), entry(262, 3, 1),
                        entry(273, 4, 8), entry(278, 3, 2), entry(279, 4, 2)}));

    QVERIFY(copy_first(path(u"a.tif"_s), path(u"copy.tif"_s)));

    QCOMPARE(bytes_at(path(u"copy.tif"_s), 273, 8), "12345678");
}

void tst_tiff_join_places::stripWithoutALengthStaysWhole()
{
    write_file(path(u"a.tif"_s),
               tiff_of("12345678", {entry(256, 3, 4), entry(257, 3, 2), entry(258, 3, 8), entry(273, 4, 8)}));

    QVERIFY(copy_first(path(u"a.tif"_s), path(u"copy.tif"_s)));

    QCOMPARE(bytes_at(path(u"copy.tif"_s), 273, 8), "12345678");
}

void tst_tiff_join_places::oldJpegTablesComeAlong()
{
    // A table of 64 bytes; one of codes, of which there are 2 of one bit and 1 of two; the stream; the strip in it.
    const QByteArray quantization(64, 'q');
    const QByteArray codes = "\2\1"_ba + QByteArray(14, '\0') + "abc";
    const QByteArray stream = "not a JPEG stream";
    const qint64 codesAt = 8 + quantization.size();
    const qint64 streamAt = codesAt + codes.size() + 8;
    write_file(
        path(u"a.tif"_s),
        tiff_of(quantization + codes + "nobody's" + stream,
                {entry(259, 3, 6), entry(273, 4, streamAt + 4), entry(279, 4, 6), entry(513, 4, streamAt),
                 entry(514, 4, stream.size()), entry(519, 4, 8), entry(520, 4, codesAt), entry(521, 4, codesAt)}));

    QVERIFY(copy_first(path(u"a.tif"_s), path(u"copy.tif"_s)));

    QCOMPARE(bytes_at(path(u"copy.tif"_s), 513, stream.size()), stream);
    QCOMPARE(bytes_at(path(u"copy.tif"_s), 273, 6), stream.mid(4, 6));
    QCOMPARE(bytes_at(path(u"copy.tif"_s), 519, 64), quantization);
    QCOMPARE(bytes_at(path(u"copy.tif"_s), 520, codes.size()), codes);
    QCOMPARE(bytes_at(path(u"copy.tif"_s), 521, codes.size()), codes);
    QVERIFY(!file_bytes(path(u"copy.tif"_s)).contains("nobody's"));
}

void tst_tiff_join_places::placesBeyondTheKindOfFileAreRefused()
{
    // Two strips of 3 GB each, of which the disk holds nothing.
    constexpr qint64 StripBytes = 3'000'000'000;
    write_file(path(u"a.tif"_s), tiff_of({}, {entry(259, 3, 5), entry(273, 4, 1000), entry(279, 4, StripBytes)}));
    QVERIFY(QFile::resize(path(u"a.tif"_s), 1000 + StripBytes));
    const Opened file(path(u"a.tif"_s));
    QFile copy(path(u"copy.tif"_s));
    QVERIFY(copy.open(QIODevice::ReadWrite));
    TiffJoin join({});
    QVERIFY(join.add(file.handle(), 0, 1));
    QVERIFY(join.add(file.handle(), 0, 1));

    QVERIFY(!join.write(copy));

    QVERIFY(join.isTooLarge());
    QCOMPARE(copy.size(), 0);
}

QTEST_GUILESS_MAIN(tst_tiff_join_places)
#include "tst_tiff_join_places.moc"
