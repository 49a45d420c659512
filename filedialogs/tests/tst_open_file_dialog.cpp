#include "DiagnosticLines.h"
#include "dialog_answers.h"
#include "dialog_data.h"
#include "NextBox.h"
#include "TemporaryHome.h"
#include "tiff_world.h"

#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString graphicStart = u"All graphic files ("_s;

/// What the dialog shows at first.
struct Offer
{
    QString filter;
    QStringList filters;
    QString directory;
};

Offer offer()
{
    Offer shown;
    const DialogAnswer answer = open_file([&shown](const FileDialogUser &at) {
        shown = {at.filter(), at.dialog().nameFilters(), at.dialog().directory().path()};
        at.cancel();
    });
    if (answer.bChosen)
        qFatal("a cancelled dialog was accepted");
    return shown;
}

} // namespace

class tst_open_file_dialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QCOMPARE(tiff_plugin_present(), tiff_plugin_expected()); }

    void showsAListAtHomeUnderItsTitle()
    {
        const TemporaryHome home;

        const DialogAnswer answer = open_file(
            [&home](const FileDialogUser &at) {
                QCOMPARE(at.dialog().windowTitle(), u"Open File"_s);
                QCOMPARE(at.dialog().viewMode(), QFileDialog::List);
                QCOMPARE(at.dialog().fileMode(), QFileDialog::ExistingFile);
                QCOMPARE(at.dialog().acceptMode(), QFileDialog::AcceptOpen);
                QCOMPARE(at.dialog().directory().path(), home.path());
                QCOMPARE(at.name(), QString());
                at.cancel();
            },
            {.path = u"/usr/share/given.png"_s, .format = u"png"_s});

        QVERIFY(!answer.bChosen);
    }

    void startsAtHomeEachTime()
    {
        const TemporaryHome home;
        const QTemporaryDir elsewhere;
        write_file(elsewhere.filePath(u"scan.png"_s), {});
        QVERIFY(open_by_name(elsewhere.filePath(u"scan.png"_s)).bChosen);

        QCOMPARE(offer().directory, home.path());
    }

    void offersReadableFormatsThenGraphicThenAllFiles()
    {
        const TemporaryHome home;

        const QStringList filters = offer().filters;

        QCOMPARE(filters.size(), readableImageFormats().size() + 2);
        for (qsizetype i = 0; i < readableImageFormats().size(); ++i)
            QCOMPARE(filters.at(i), filter_text(readableImageFormats().at(i)));
        QVERIFY(filters.at(filters.size() - 2).startsWith(graphicStart));
        QCOMPARE(filters.last(), allFilter);
    }

    void offersTiffOnlyIfTheToolkitReadsIt()
    {
        const TemporaryHome home;

        const QStringList filters = offer().filters;

        QCOMPARE(filters.contains(tiffFilter), tiff_plugin_expected());
        const auto namesTiff = [](const QString &filter) { return filter.contains("*.tif"_L1); };
        // Its own filter and that of all graphic files.
        QCOMPARE(std::ranges::count_if(filters, namesTiff), tiff_plugin_expected() ? 2 : 0);
    }

    void proposesAllGraphicFilesWithEverySuffix()
    {
        const TemporaryHome home;

        const QString filter = offer().filter;

        QVERIFY(filter.startsWith(graphicStart));
        QStringList patterns = filter.sliced(graphicStart.size()).chopped(1).split(u' ');
        for (const ImageFormat &readable : readableImageFormats()) {
            for (const QString &suffix : readable.exts)
                QCOMPARE(patterns.takeFirst(), QString("*."_L1 + suffix));
        }
        QCOMPARE(patterns, QStringList());
    }

    void cancelIsSilentAndFalse()
    {
        const TemporaryHome home;
        const DiagnosticLines lines;

        QVERIFY(!open_file([](const FileDialogUser &at) { at.cancel(); }).bChosen);

        QCOMPARE(lines.lines(), QStringList());
    }

    void fileOnTheListIsTakenByTheButton()
    {
        const TemporaryHome home;
        write_file(home.filePath(u"scan.png"_s), {});

        const DialogAnswer answer = open_file([](const FileDialogUser &at) {
            at.type(u"scan.png"_s);
            at.accept();
        });

        QVERIFY(answer.bChosen);
        QCOMPARE(answer.path, home.filePath(u"scan.png"_s));
    }

    void answersTheAbsolutePath_data() { add_name_rows(); }
    void answersTheAbsolutePath()
    {
        QFETCH(const QString, name);
        const TemporaryHome home;
        write_file(home.filePath(name), {});

        const DialogAnswer answer = open_by_name(name);

        QVERIFY(answer.bChosen);
        QCOMPARE(answer.path, QString(home.path() + u'/' + name));
        QCOMPARE(answer.format, u"png"_s);
    }

    void nameThatDoesNotExistKeepsTheDialogOpen_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("plain") << u"missing.png"_s;
        QTest::newRow("quotation marks") << u"\"missing\".png"_s;
    }

    void nameThatDoesNotExistKeepsTheDialogOpen()
    {
        QFETCH(const QString, name);
        const TemporaryHome home;

        const DialogAnswer answer = open_file([&name](const FileDialogUser &at) {
            const NextBox box = answer_next_box(QMessageBox::Ok);
            at.type(name);
            at.pressReturn();
            QVERIFY(at.isOpen());
            at.cancel();
        });

        QVERIFY(!answer.bChosen);
    }

    void acceptingWithoutANameIsFalse()
    {
        const TemporaryHome home;
        DiagnosticLines lines;
        lines.expect(u"open_file_dialog - no name selected"_s);

        // Its button is off as long as there is no name.
        const DialogAnswer answer = open_file([](const FileDialogUser &at) { at.forceAccept(); },
                                              {.path = u"untouched"_s, .format = u"untouched"_s});

        QVERIFY(!answer.bChosen);
        QCOMPARE(answer.path, QString());
        QCOMPARE(answer.format, u"untouched"_s);
    }

    void choosingAFilterRewritesTheName_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("name");
        QTest::newRow("one format") << jpegFilter << u"a.b.jpg"_s;
        QTest::newRow("all files, whose suffix is an asterisk") << allFilter << u"a.b.*"_s;
    }

    void choosingAFilterRewritesTheName()
    {
        QFETCH(const QString, filter);
        QFETCH(const QString, name);
        const TemporaryHome home;

        const DialogAnswer answer = open_file([&](const FileDialogUser &at) {
            at.type(u"a.b.c"_s);
            at.chooseFilter(filter);
            QCOMPARE(at.name(), name);
            at.cancel();
        });

        QVERIFY(!answer.bChosen);
    }
};

QTEST_MAIN(tst_open_file_dialog)
#include "tst_open_file_dialog.moc"
