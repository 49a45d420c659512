// The format that goes with the file the user opens.

#include "file_dialogs.h"
#include "FileDialogUser.h"

#include "DiagnosticLines.h"
#include "dialog_data.h"
#include "open_by_name.h"
#include "TemporaryHome.h"
#include "tiff_world.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_open_file_dialog_format : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void filterDecidesTheFormatWhateverTheNameSays();
    void keyOfTiffIsSpeltAsTheToolkitSpellsIt();
    void nameDecidesTheFormatUnderAllGraphicFiles_data();
    void nameDecidesTheFormatUnderAllGraphicFiles();
    void nameDecidesTheFormatUnderAllFiles();
    void nameThatEndsInADotHasNoFormat_data();
    void nameThatEndsInADotHasNoFormat();
    void pathWithoutADotIsItsOwnFormat();
    void dotOfADirectoryCountsForTheFormat();
    void filterThatIsNoneOfOursHasNoFormat();
};

void tst_open_file_dialog_format::initTestCase()
{
    QCOMPARE(tiff_plugin_present(), tiff_plugin_expected());
}

void tst_open_file_dialog_format::filterDecidesTheFormatWhateverTheNameSays()
{
    const TemporaryHome home;
    write_file(home.filePath(u"scan.png"_s), {});

    const OpenAnswer answer = open_by_name(u"scan.png"_s, jpegFilter);

    QVERIFY(answer.bChosen);
    QCOMPARE(answer.path, home.filePath(u"scan.png"_s));
    QCOMPARE(answer.format, u"jpeg"_s);
}

void tst_open_file_dialog_format::keyOfTiffIsSpeltAsTheToolkitSpellsIt()
{
    const TemporaryHome home;
    write_file(home.filePath(u"scan.tiff"_s), {});

    const OpenAnswer answer = open_by_name(u"scan.tiff"_s, tiff_plugin_expected() ? tiffFilter : allFilter);

    QVERIFY(answer.bChosen);
    // Without a row of its own the file's suffix is all there is to go by.
    QCOMPARE(answer.format, tiff_plugin_expected() ? u"tif"_s : u"tiff"_s);
}

void tst_open_file_dialog_format::nameDecidesTheFormatUnderAllGraphicFiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("format");
    QTest::newRow("small letters") << u"scan.png"_s << u"png"_s;
    QTest::newRow("capitals") << u"scan.TIF"_s << u"TIF"_s;
    QTest::newRow("last of several") << u"scan.2007.jpeg"_s << u"jpeg"_s;
    QTest::newRow("unknown suffix") << u"scan.txt"_s << u"txt"_s;
}

void tst_open_file_dialog_format::nameDecidesTheFormatUnderAllGraphicFiles()
{
    QFETCH(const QString, name);
    QFETCH(const QString, format);
    const TemporaryHome home;
    write_file(home.filePath(name), {});

    const OpenAnswer answer = open_by_name(name);

    QVERIFY(answer.bChosen);
    QCOMPARE(answer.format, format);
}

void tst_open_file_dialog_format::nameDecidesTheFormatUnderAllFiles()
{
    const TemporaryHome home;
    write_file(home.filePath(u"scan.TIF"_s), {});

    const OpenAnswer answer = open_by_name(u"scan.TIF"_s, allFilter);

    QVERIFY(answer.bChosen);
    QCOMPARE(answer.format, u"TIF"_s);
}

void tst_open_file_dialog_format::nameThatEndsInADotHasNoFormat_data()
{
    QTest::addColumn<QString>("filter");
    QTest::newRow("all graphic files") << QString();
    QTest::newRow("all files") << allFilter;
}

void tst_open_file_dialog_format::nameThatEndsInADotHasNoFormat()
{
    QFETCH(const QString, filter);
    const TemporaryHome home;
    write_file(home.filePath(u"scan."_s), {});
    DiagnosticLines lines;
    lines.expect(u"open_file_dialog - incorrect file type selected!"_s);

    const OpenAnswer answer = open_by_name(u"scan."_s, filter);

    QVERIFY(!answer.bChosen);
    QCOMPARE(answer.path, home.filePath(u"scan."_s));
    QCOMPARE(answer.format, QString());
}

void tst_open_file_dialog_format::pathWithoutADotIsItsOwnFormat()
{
    const TemporaryHome home;
    // A test's own directory may have a dot in its path, so this one lies at the top.
    const QTemporaryDir plain(u"/tmp/open-file-dialog-XXXXXX"_s);
    const QString path = plain.filePath(u"README"_s);
    QVERIFY(!path.contains(u'.'));
    write_file(path, {});

    const OpenAnswer answer = open_by_name(path, allFilter);

    QVERIFY(answer.bChosen);
    QCOMPARE(answer.path, path);
    QCOMPARE(answer.format, path);
}

void tst_open_file_dialog_format::dotOfADirectoryCountsForTheFormat()
{
    const TemporaryHome home;
    QVERIFY(QDir(home.path()).mkdir(u"scans.old"_s));
    write_file(home.filePath(u"scans.old/README"_s), {});

    const OpenAnswer answer = open_by_name(u"scans.old/README"_s);

    QVERIFY(answer.bChosen);
    QCOMPARE(answer.format, u"old/README"_s);
}

void tst_open_file_dialog_format::filterThatIsNoneOfOursHasNoFormat()
{
    const TemporaryHome home;
    write_file(home.filePath(u"scan.png"_s), {});
    DiagnosticLines lines;
    lines.expect(u"open_file_dialog - incorrect file type selected!"_s);
    const FileDialogUser user([](const FileDialogUser &at) {
        at.dialog().setNameFilter(u"Others (*.png)"_s);
        at.type(u"scan.png"_s);
        at.accept();
    });

    QString path;
    QString format = u"untouched"_s;
    QVERIFY(!open_file_dialog(path, format, nullptr));

    QCOMPARE(format, QString());
}

QTEST_MAIN(tst_open_file_dialog_format)
#include "tst_open_file_dialog_format.moc"
