// What the dialog for one file shows at first.

#include "dialog_answers.h"
#include "dialog_data.h"
#include "NextBox.h"
#include "TemporaryHome.h"
#include "tiff_world.h"

#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// What the dialog shows at first.
struct Proposal
{
    QString name;
    QString filter;
    QString directory;
    QStringList filters;
};

Proposal proposal_for(const QString &path, const QString &format, const char *onlyFormat = nullptr)
{
    Proposal proposal;
    const DialogAnswer answer = save_file(
        [&proposal](const FileDialogUser &at) {
            proposal = {at.name(), at.filter(), at.dialog().directory().path(), at.dialog().nameFilters()};
            at.cancel();
        },
        {.path = path, .format = format}, onlyFormat);
    if (answer.bChosen)
        qFatal("a cancelled dialog was accepted");
    return proposal;
}

} // namespace

class tst_save_file_dialog_proposal : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCOMPARE(tiff_plugin_present(), tiff_plugin_expected());
        // The rows below tell the first filter by this name.
        QCOMPARE(filter_text(writableImageFormats().first()), bmpFilter);
    }

    void offersWritableFormatsAlone()
    {
        const TemporaryHome home;

        const QStringList filters = proposal_for({}, {}).filters;

        QStringList expected;
        for (const ImageFormat &writable : writableImageFormats())
            expected.append(filter_text(writable));
        QCOMPARE(filters, expected);
        QCOMPARE(filters.count(tiffFilter), 1);
    }

    void onlyFormatIsOfferedAlone()
    {
        const TemporaryHome home;

        const Proposal proposal = proposal_for({}, {}, "ppm");

        QCOMPARE(proposal.filters, QStringList(ppmFilter));
        QCOMPARE(proposal.filter, ppmFilter);
    }

    void onlyFormatStaysWhateverIsProposed()
    {
        const TemporaryHome home;

        const DialogAnswer answer = save_file(
            [](const FileDialogUser &at) {
                QCOMPARE(at.name(), u"scan.ppm"_s);
                at.accept();
            },
            {.path = u"scan.png"_s, .format = u"png"_s}, "PPM");

        QVERIFY(answer.bChosen);
        QCOMPARE(answer.path, home.filePath(u"scan.ppm"_s));
        QCOMPARE(answer.format, u"ppm"_s);
    }

    void proposesFilterAndName_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("name");
        QTest::newRow("nothing known is PNG") << QString() << QString() << pngFilter << QString();
        QTest::newRow("no suffix is PNG") << u"Untitled"_s << QString() << pngFilter << u"Untitled.png"_s;
        QTest::newRow("suffix") << u"scan.jpg"_s << QString() << jpegFilter << u"scan.jpg"_s;
        QTest::newRow("second suffix") << u"scan.jpeg"_s << QString() << jpegFilter << u"scan.jpg"_s;
        QTest::newRow("tif") << u"scan.tif"_s << QString() << tiffFilter << u"scan.tiff"_s;
        QTest::newRow("TIF finds nothing") << u"scan.TIF"_s << QString() << bmpFilter << u"scan.bmp"_s;
        QTest::newRow("several suffixes find nothing")
            << u"scan.2007.tif"_s << QString() << bmpFilter << u"scan.2007.bmp"_s;
        QTest::newRow("format") << u"scan"_s << u"png"_s << pngFilter << u"scan.png"_s;
        QTest::newRow("format in capitals") << u"scan"_s << u"JPEG"_s << jpegFilter << u"scan.jpg"_s;
        QTest::newRow("format beats suffix") << u"scan.jpg"_s << u"png"_s << pngFilter << u"scan.png"_s;
        QTest::newRow("unknown format beats suffix") << u"scan.jpg"_s << u"none"_s << bmpFilter << u"scan.bmp"_s;
        QTest::newRow("place marker") << u"page %1.png"_s << QString() << pngFilter << u"page %1.png"_s;
        QTest::newRow("ampersand and blanks") << u"Smith & Sons"_s << QString() << pngFilter << u"Smith & Sons.png"_s;
        QTest::newRow("quotation mark") << u"12\" disc"_s << QString() << pngFilter << u"12\" disc.png"_s;
        QTest::newRow("colon") << u"scan 10:30"_s << QString() << pngFilter << u"scan 10:30.png"_s;
        QTest::newRow("letters beyond ASCII") << u"Stra\u00dfe"_s << QString() << pngFilter << u"Stra\u00dfe.png"_s;
    }

    void proposesFilterAndName()
    {
        QFETCH(const QString, path);
        QFETCH(const QString, format);
        QFETCH(const QString, filter);
        QFETCH(const QString, name);
        const TemporaryHome home;

        const Proposal proposal = proposal_for(path, format);

        QCOMPARE(proposal.filter, filter);
        QCOMPARE(proposal.name, name);
    }

    void everyTiffWordProposesTheTiffRowAndKeepsTheSuffixOfTheFile_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("name");
        for (const QString &word : {u"tif"_s, u"TIF"_s, u"tiff"_s, u"Tiff"_s, u"TIFF"_s}) {
            const QByteArray title = word.toLatin1();
            QTest::addRow("%s, tif", title.data()) << word << u"scan.tif"_s << u"scan.tif"_s;
            QTest::addRow("%s, TIF", title.data()) << word << u"scan.TIF"_s << u"scan.TIF"_s;
            QTest::addRow("%s, tiff", title.data()) << word << u"scan.2007.tiff"_s << u"scan.2007.tiff"_s;
            QTest::addRow("%s, no suffix", title.data()) << word << u"scan"_s << u"scan.tiff"_s;
            QTest::addRow("%s, suffix of another format", title.data()) << word << u"scan.png"_s << u"scan.tiff"_s;
        }
    }

    void everyTiffWordProposesTheTiffRowAndKeepsTheSuffixOfTheFile()
    {
        QFETCH(const QString, format);
        QFETCH(const QString, path);
        QFETCH(const QString, name);
        const TemporaryHome home;

        const Proposal proposal = proposal_for(path, format);

        QCOMPARE(proposal.filter, tiffFilter);
        QCOMPARE(proposal.name, name);
    }

    void otherFilterStillChangesTheSuffixOfATiff()
    {
        const TemporaryHome home;

        const DialogAnswer answer = save_file(
            [](const FileDialogUser &at) {
                QCOMPARE(at.name(), u"scan.TIF"_s);
                at.chooseFilter(pngFilter);
                QCOMPARE(at.name(), u"scan.png"_s);
                at.accept();
            },
            {.path = u"scan.TIF"_s, .format = u"TIF"_s});

        QVERIFY(answer.bChosen);
        QCOMPARE(answer.path, home.filePath(u"scan.png"_s));
        QCOMPARE(answer.format, u"png"_s);
    }

    void relativePathIsProposedAtHomeByItsNameAlone()
    {
        const TemporaryHome home;

        const Proposal proposal = proposal_for(u"some/where/scan.png"_s, {});

        QCOMPARE(proposal.name, u"scan.png"_s);
        QCOMPARE(proposal.directory, home.path());
    }

    void absolutePathIsProposedInItsDirectory()
    {
        const TemporaryHome home;
        const QTemporaryDir elsewhere;

        const Proposal proposal = proposal_for(elsewhere.filePath(u"scan.jpeg"_s), {});

        QCOMPARE(proposal.name, u"scan.jpg"_s);
        QCOMPARE(proposal.directory, elsewhere.path());
    }

    void proposedNameTooLongIsTold()
    {
        const TemporaryHome home;
        const QString name(252, u'a');
        const NextBox box = answer_next_box(QMessageBox::Ok);

        const Proposal proposal = proposal_for(name, {});

        QCOMPARE(box.text(), u"Can't append '.png' extension, file name is too long."_s);
        QCOMPARE(proposal.name, name);
    }
};

QTEST_MAIN(tst_save_file_dialog_proposal)
#include "tst_save_file_dialog_proposal.moc"
