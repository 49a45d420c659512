#include "bad_files.h"
#include "files.h"
#include "ImageManagerProgram.h"

#include <QDir>
#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

/// A file that cannot be opened costs a box and nothing else: the other files of the call come up.
class tst_bad_files : public QObject
{
    Q_OBJECT

private slots:
    void badFileGivesABoxAndTheOthersOpen_data();
    void badFileGivesABoxAndTheOthersOpen();
    void unreadableFileGivesABoxAndTheOthersOpen();
    void overLargeFileIsOfferedForSaving_data();
    void overLargeFileIsOfferedForSaving();
    void fileOfExactlyTheLimitOpens();
};

namespace {

constexpr qint64 loadLimit = 536870912; ///< bytes

using Maker = std::function<void(const QString &)>;

/// A maker is told apart by its row alone, so it travels beside the columns.
struct BadFile
{
    const char *row;
    QString name;
    Maker make;
};

Maker bytes(const QByteArray &content)
{
    return [content](const QString &path) { write_file(path, content); };
}

Maker cut(const char *format, double share)
{
    return [format, share](const QString &path) { write_truncated(path, format, share); };
}

QList<BadFile> bad_files()
{
    QList<BadFile> files{
        {"missing", u"missing.png"_s, [](const QString &) {}},
        {"empty", u"empty.png"_s, bytes({})},
        {"empty without suffix", u"empty"_s, bytes({})},
        {"directory", u"folder.png"_s, [](const QString &path) { QVERIFY(QDir().mkdir(path)); }},
        {"named pipe", u"pipe.png"_s, make_named_pipe},
        {"JPEG cut in its header", u"cut.jpg"_s, cut("jpg", 0.02)},
        {"PNG cut in its header", u"cut.png"_s, cut("png", 0.001)},
        {"TIFF cut in its header", u"cut.tiff"_s, bytes(QByteArray("II*\0\x08\0", 6))},
        {"BMP cut in its header", u"cut.bmp"_s, cut("bmp", 0.001)},
        {"JPEG cut in its pixels", u"cut.jpg"_s, cut("jpg", 0.6)},
        {"PNG cut in its pixels", u"cut.png"_s, cut("png", 0.6)},
        {"TIFF cut in its pixels", u"cut.tiff"_s, cut("tiff", 0.6)},
        {"BMP cut in its pixels", u"cut.bmp"_s, cut("bmp", 0.6)},
        {"PPM cut in its pixels", u"cut.ppm"_s, cut("ppm", 0.6)},
        {"XBM cut in its pixels", u"cut.xbm"_s, cut("xbm", 0.6)},
        {"XPM cut in its pixels", u"cut.xpm"_s, cut("xpm", 0.6)},
        {"PNG promising 60000 by 60000", u"huge.png"_s,
         [](const QString &path) { write_png_promising(path, 60000, 60000); }},
    };
    for (const char *suffix : {"bmp", "jpg", "jpeg", "png", "pbm", "pgm", "ppm", "xbm", "xpm", "tiff", "tif"})
        files.append({suffix, "garbage."_L1 + QLatin1StringView(suffix), bytes(QByteArray(5000, '\x5b'))});
    return files;
}

} // namespace

void tst_bad_files::badFileGivesABoxAndTheOthersOpen_data()
{
    QTest::addColumn<int>("number");

    const QList<BadFile> files = bad_files();
    for (int i = 0; i < files.size(); ++i)
        QTest::addRow("%s%s", files[i].name.startsWith("garbage"_L1) ? "garbage named " : "", files[i].row) << i;
}

void tst_bad_files::badFileGivesABoxAndTheOthersOpen()
{
    QFETCH(const int, number);
    const BadFile bad = bad_files().at(number);
    const Place place;
    ImageManagerProgram program(place);
    bad.make(place.path(bad.name));

    QVERIFY(program.start({place.page(u"first.bmp"_s), place.path(bad.name), place.page(u"last.bmp"_s)}));

    const MessageBox box = program.answer(u"OK"_s);
    QCOMPARE(box.title, u"Load failed"_s);
    QCOMPARE(box.text, u"Error loading file"_s);
    QTRY_COMPARE_WITH_TIMEOUT(program.tabTitles(), (QStringList{u"first.bmp"_s, u"last.bmp"_s}), Program::patienceMs);
    QCOMPARE(program.close(), 0);
}

void tst_bad_files::unreadableFileGivesABoxAndTheOthersOpen()
{
    const Place place;
    ImageManagerProgram program(place);
    program.process().obeyFilePermissions();
    make_unreadable_file(place.path(u"secret.bmp"_s));

    QVERIFY(program.start({place.path(u"secret.bmp"_s), place.page(u"last.bmp"_s)}));

    const MessageBox box = program.answer(u"OK"_s);
    QCOMPARE(box.title, u"Load failed"_s);
    QCOMPARE(box.text, u"Error loading file"_s);
    QTRY_COMPARE_WITH_TIMEOUT(program.tabTitles(), QStringList(u"last.bmp"_s), Program::patienceMs);
}

void tst_bad_files::overLargeFileIsOfferedForSaving_data()
{
    QTest::addColumn<QString>("button");

    QTest::newRow("No") << u"No"_s;
    QTest::newRow("Cancel") << u"Cancel"_s;
}

void tst_bad_files::overLargeFileIsOfferedForSaving()
{
    QFETCH(const QString, button);
    const Place place;
    ImageManagerProgram program(place);
    write_sparse_bmp(place.path(u"large.bmp"_s), loadLimit + 1);

    QVERIFY(program.start({place.page(u"first.bmp"_s), place.path(u"large.bmp"_s), place.page(u"last.bmp"_s)}));

    const MessageBox box = program.answer(button);
    QCOMPARE(box.title, u"Image Manager"_s);
    QCOMPARE(box.text, u"Could not load image\nNot enough memory to load bitmap image\nDo you want to save it?"_s);
    QStringList buttons = box.buttons;
    buttons.sort(); // their order on the screen is the desktop's
    QCOMPARE(buttons, (QStringList{u"Cancel"_s, u"No"_s, u"Yes"_s}));
    QCOMPARE(box.defaultButton, u"No"_s);
    QTRY_COMPARE_WITH_TIMEOUT(program.tabTitles(), (QStringList{u"first.bmp"_s, u"last.bmp"_s}), Program::patienceMs);
}

void tst_bad_files::fileOfExactlyTheLimitOpens()
{
    const Place place;
    ImageManagerProgram program(place);
    write_sparse_bmp(place.path(u"limit.bmp"_s), loadLimit);

    QVERIFY(program.open({place.path(u"limit.bmp"_s)}));

    QCOMPARE(program.tabTitles(), QStringList(u"limit.bmp"_s));
}

QTEST_GUILESS_MAIN(tst_bad_files)
#include "tst_bad_files.moc"
