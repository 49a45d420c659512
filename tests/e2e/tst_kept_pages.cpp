#include "ImageManagerProgram.h"
#include "pictures.h"
#include "tiff_pages.h"

#include <QFile>
#include <QImageReader>
#include <QTest>

#include <utility>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;
using State = Accessible::State;

/// A TIFF of many pages, made by another program: its first page is changed and saved, and all others stay.
class tst_kept_pages : public QObject
{
    Q_OBJECT

private slots:
    void filesOfTheCommandLineKeepTheirPages();
    void fileOfAMessageKeepsItsPages();
    void fileOfTheDialogKeepsItsPages();
    void pagesGoAlongToAnotherName();
    void fileThatWentIsAskedAbout();
};

namespace {

constexpr QSize roomy{1100, 700};

/// What a file holds before it is changed.
struct Contents
{
    explicit Contents(QString path_) :
        path(std::move(path_)),
        pages(told_pages(path)),
        warnings(tiffinfo_warnings(path)),
        firstPage(QImageReader(path).read().convertToFormat(QImage::Format_RGB32))
    {
    }

    QString path;
    QStringList pages;
    QStringList warnings;
    QImage firstPage;
};

Contents made(const QString &kind, const QString &path)
{
    make_tiff(kind, path);
    return Contents(path);
}

/// Fails the test unless the first page is the inverted one and all others are as they were.
void verify_first_is_inverted(const Contents &before, const QString &path)
{
    QImage inverted = before.firstPage;
    inverted.invertPixels();
    QVERIFY(compare_pictures(QImageReader(path).read().convertToFormat(QImage::Format_RGB32), inverted));
    const QStringList pages = told_pages(path);
    QCOMPARE(pages.size(), before.pages.size());
    QCOMPARE(pages.at(0), before.pages.at(0)); // byte order and kind
    QCOMPARE(pages.mid(2), before.pages.mid(2));
    for (const QString &warning : tiffinfo_warnings(path))
        QVERIFY2(before.warnings.contains(warning), qPrintable(warning));
}

/// Inverts the current page, saves it and waits until it counts as saved.
bool invert_and_save(ImageManagerProgram &program)
{
    const QString name = program.currentTab();
    if (!program.invert())
        return false;
    program.desktop().pressKey("s", {"Control_L"});
    return QTest::qWaitFor([&] { return program.currentTab() == name; }, Program::patienceMs);
}

/// Chooses an entry of the file menu and types a name into the dialog that comes.
bool type_name(ImageManagerProgram &program, const QString &entry, const QList<const char *> &keys)
{
    if (!program.choose(u"File"_s, entry))
        return false;
    const auto field = [&] { return program.application().find(Role::Dialog).find(Role::Text); };
    if (!QTest::qWaitFor([&] { return field().has(State::Focused); }, Program::patienceMs))
        return false;
    program.desktop().pressKey("a", {"Control_L"});
    for (const char *const key : keys)
        program.desktop().pressKey(key);
    program.desktop().pressKey("Return");
    return true;
}

} // namespace

void tst_kept_pages::filesOfTheCommandLineKeepTheirPages()
{
    const Place place;
    QList<Contents> files;
    QStringList paths;
    for (const QString &kind : {u"fax"_s, u"fax of Pillow"_s, u"colour LZW"_s, u"grey JPEG"_s, u"mixed"_s, u"tiled"_s,
                                u"big-endian"_s, u"BigTIFF"_s, u"directories below"_s}) {
        files.append(made(kind, place.path(kind + ".tif"_L1)));
        paths.append(files.last().path);
    }
    ImageManagerProgram program(place);
    QVERIFY(program.open(paths, roomy));

    for (qsizetype left = paths.size(); left > 0; --left) { // the last file is in front
        QVERIFY(invert_and_save(program));
        QVERIFY(program.choose(u"File"_s, u"Close"_s));
        QTRY_COMPARE(program.tabTitles().size(), left - 1);
    }

    for (const Contents &before : std::as_const(files))
        verify_first_is_inverted(before, before.path);
}

void tst_kept_pages::fileOfAMessageKeepsItsPages()
{
    const Place place;
    const Contents before = made(u"colour JPEG"_s, place.path(u"scan.tiff"_s));
    ImageManagerProgram first(place);
    QVERIFY(first.open({place.page(u"a.png"_s)}, roomy));
    ImageManagerProgram second(place);
    QVERIFY(second.start({before.path}));
    QCOMPARE(second.process().waitForExit(), 0);
    QTRY_COMPARE(first.tabTitles(), (QStringList{u"a.png"_s, u"scan.tiff"_s}));

    QVERIFY(invert_and_save(first));

    verify_first_is_inverted(before, before.path);
}

void tst_kept_pages::fileOfTheDialogKeepsItsPages()
{
    const Place place;
    const Contents before = made(u"fax"_s, place.home() + "/fax.tif"_L1); // where the dialog begins
    ImageManagerProgram program(place);
    QVERIFY(program.open({place.page(u"a.png"_s)}, roomy));

    QVERIFY(type_name(program, u"Open..."_s, {"f", "a", "x", "period", "t", "i", "f"}));
    QTRY_COMPARE(program.tabTitles(), (QStringList{u"a.png"_s, u"fax.tif"_s}));
    QVERIFY(invert_and_save(program));

    verify_first_is_inverted(before, before.path);
}

void tst_kept_pages::pagesGoAlongToAnotherName()
{
    const Place place;
    const Contents before = made(u"BigTIFF, big-endian"_s, place.path(u"scan.tif"_s));
    ImageManagerProgram program(place);
    QVERIFY(program.open({before.path}, roomy));
    QVERIFY(program.invert());

    QVERIFY(type_name(program, u"Save As..."_s, {"n", "e", "w", "period", "t", "i", "f"}));

    QTRY_COMPARE(program.tabTitles(), QStringList{u"new.tif"_s});
    verify_first_is_inverted(before, place.path(u"new.tif"_s));
    QCOMPARE(told_pages(before.path), before.pages);
}

void tst_kept_pages::fileThatWentIsAskedAbout()
{
    const Place place;
    const Contents before = made(u"fax"_s, place.path(u"scan.tif"_s));
    ImageManagerProgram program(place);
    QVERIFY(program.open({before.path}, roomy));
    QVERIFY(program.invert());
    QVERIFY(QFile::remove(before.path));

    program.desktop().pressKey("s", {"Control_L"});
    const MessageBox box = program.answer(u"No"_s);

    QCOMPARE(box.text,
             QString(u"scan.tif holds 20 pictures, and not all of them are open. "_s
                     + u"What is not open cannot be kept. Save?"_s));
    QCOMPARE(program.currentTab(), u"scan.tif*"_s);
    QVERIFY(!QFile::exists(before.path));
}

QTEST_GUILESS_MAIN(tst_kept_pages)
#include "tst_kept_pages.moc"
