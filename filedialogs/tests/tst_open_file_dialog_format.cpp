// The format that goes with the file the user opens.

#include "DiagnosticLines.h"
#include "dialog_answers.h"
#include "dialog_data.h"
#include "TemporaryHome.h"
#include "tiff_world.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_open_file_dialog_format : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QCOMPARE(tiff_plugin_present(), tiff_plugin_expected()); }

    void filterOrNameDecidesTheFormat_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("format");
        QTest::newRow("one format, whatever the name says") << u"scan.png"_s << jpegFilter << u"jpeg"_s;
        QTest::newRow("graphic files, small letters") << u"scan.png"_s << QString() << u"png"_s;
        QTest::newRow("graphic files, capitals") << u"scan.TIF"_s << QString() << u"TIF"_s;
        QTest::newRow("graphic files, last of several suffixes") << u"scan.2007.jpeg"_s << QString() << u"jpeg"_s;
        QTest::newRow("graphic files, unknown suffix") << u"scan.txt"_s << QString() << u"txt"_s;
        QTest::newRow("graphic files, dot of the directory alone")
            << u"scans.old/README"_s << QString() << u"old/README"_s;
        QTest::newRow("all files") << u"scan.TIF"_s << allFilter << u"TIF"_s;
        // Without a row of its own the file's suffix is all there is to go by.
        QTest::newRow("TIFF as the toolkit spells it")
            << u"scan.tiff"_s << (tiff_plugin_expected() ? tiffFilter : allFilter)
            << (tiff_plugin_expected() ? u"tif"_s : u"tiff"_s);
    }

    void filterOrNameDecidesTheFormat()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, filter);
        QFETCH(const QString, format);
        const TemporaryHome home;
        write_file(home.filePath(name), {});

        const DialogAnswer answer = open_by_name(name, filter);

        QVERIFY(answer.bChosen);
        QCOMPARE(answer.path, home.filePath(name));
        QCOMPARE(answer.format, format);
    }

    void nameThatEndsInADotHasNoFormat_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::newRow("all graphic files") << QString();
        QTest::newRow("all files") << allFilter;
    }

    void nameThatEndsInADotHasNoFormat()
    {
        QFETCH(const QString, filter);
        const TemporaryHome home;
        write_file(home.filePath(u"scan."_s), {});
        DiagnosticLines lines;
        lines.expect(u"open_file_dialog - incorrect file type selected!"_s);

        const DialogAnswer answer = open_by_name(u"scan."_s, filter);

        QVERIFY(!answer.bChosen);
        QCOMPARE(answer.path, home.filePath(u"scan."_s));
        QCOMPARE(answer.format, QString());
    }

    void pathWithoutADotIsItsOwnFormat()
    {
        const TemporaryHome home;
        // A test's own directory may have a dot in its path, so this one lies at the top.
        const QTemporaryDir plain(u"/tmp/open-file-dialog-XXXXXX"_s);
        const QString path = plain.filePath(u"README"_s);
        QVERIFY(!path.contains(u'.'));
        write_file(path, {});

        const DialogAnswer answer = open_by_name(path, allFilter);

        QVERIFY(answer.bChosen);
        QCOMPARE(answer.path, path);
        QCOMPARE(answer.format, path);
    }

    void filterThatIsNoneOfOursHasNoFormat()
    {
        const TemporaryHome home;
        write_file(home.filePath(u"scan.png"_s), {});
        DiagnosticLines lines;
        lines.expect(u"open_file_dialog - incorrect file type selected!"_s);

        const DialogAnswer answer = open_file(
            [](const FileDialogUser &at) {
                at.dialog().setNameFilter(u"Others (*.png)"_s);
                at.type(u"scan.png"_s);
                at.accept();
            },
            {.format = u"untouched"_s});

        QVERIFY(!answer.bChosen);
        QCOMPARE(answer.format, QString());
    }
};

QTEST_MAIN(tst_open_file_dialog_format)
#include "tst_open_file_dialog_format.moc"
