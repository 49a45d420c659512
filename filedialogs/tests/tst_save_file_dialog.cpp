#include "file_dialogs.h"
#include "FileDialogUser.h"

#include "DiagnosticLines.h"
#include "dialog_data.h"
#include "NextBox.h"
#include "TemporaryHome.h"
#include "tiff_world.h"

#include <QImageWriter>
#include <QLabel>
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

Proposal proposalFor(QString path, QString format, const char *onlyFormat = nullptr)
{
    Proposal proposal;
    const FileDialogUser user([&proposal](const FileDialogUser &at) {
        proposal = {at.name(), at.filter(), at.dialog().directory().path(), at.dialog().nameFilters()};
        at.cancel();
    });
    if (save_file_dialog(path, format, nullptr, onlyFormat))
        qFatal("a cancelled dialog was accepted");
    return proposal;
}

} // namespace

class tst_save_file_dialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void showsAListUnderItsTitle();
    void offersWritableFormatsAlone();
    void onlyFormatIsOfferedAlone();
    void onlyFormatStaysWhateverIsProposed();

    void proposesFilterAndName_data();
    void proposesFilterAndName();
    void everyTiffWordProposesTheTiffRowAndKeepsTheSuffixOfTheFile_data();
    void everyTiffWordProposesTheTiffRowAndKeepsTheSuffixOfTheFile();
    void otherFilterStillChangesTheSuffixOfATiff();
    void relativePathIsProposedAtHomeByItsNameAlone();
    void absolutePathIsProposedInItsDirectory();
    void proposedNameTooLongIsTold();

    void cancelIsSilentAndFalse();
    void answersPathAndKey_data();
    void answersPathAndKey();
    void filterChosenRewritesNameAndDecidesTheKey();
    void tiffIsAlwaysAccepted();
    void existingNameIsAskedAboutOnce();
    void noLeavesTheDialogOpenForAnotherName();
    void acceptingWithoutANameIsFalse();
    void filterThatIsNoneOfOursHasNoFormat();
    void formatThatNobodyWritesIsRefused();
};

void tst_save_file_dialog::initTestCase()
{
    QCOMPARE(tiff_plugin_present(), tiff_plugin_expected());
    // The rows below tell the first filter by this name.
    QCOMPARE(filter_text(writableImageFormats().first()), bmpFilter);
}

void tst_save_file_dialog::showsAListUnderItsTitle()
{
    const TemporaryHome home;
    const FileDialogUser user([](const FileDialogUser &at) {
        QCOMPARE(at.dialog().windowTitle(), u"Save File As"_s);
        QCOMPARE(at.dialog().viewMode(), QFileDialog::List);
        QCOMPARE(at.dialog().fileMode(), QFileDialog::AnyFile);
        QCOMPARE(at.dialog().acceptMode(), QFileDialog::AcceptSave);
        QCOMPARE(at.dialog().findChild<QLabel *>("lookInLabel"_L1)->text(), u"Save in:"_s);
        at.cancel();
    });

    QString path;
    QString format;
    QVERIFY(!save_file_dialog(path, format, nullptr, nullptr));
}

void tst_save_file_dialog::offersWritableFormatsAlone()
{
    const TemporaryHome home;

    const QStringList filters = proposalFor({}, {}).filters;

    QStringList expected;
    for (const ImageFormat &writable : writableImageFormats())
        expected.append(filter_text(writable));
    QCOMPARE(filters, expected);
    QCOMPARE(filters.count(tiffFilter), 1);
}

void tst_save_file_dialog::onlyFormatIsOfferedAlone()
{
    const TemporaryHome home;

    const Proposal proposal = proposalFor({}, {}, "ppm");

    QCOMPARE(proposal.filters, QStringList(ppmFilter));
    QCOMPARE(proposal.filter, ppmFilter);
}

void tst_save_file_dialog::onlyFormatStaysWhateverIsProposed()
{
    const TemporaryHome home;
    const FileDialogUser user([](const FileDialogUser &at) {
        QCOMPARE(at.name(), u"scan.ppm"_s);
        at.accept();
    });

    QString path = u"scan.png"_s;
    QString format = u"png"_s;
    QVERIFY(save_file_dialog(path, format, nullptr, "PPM"));

    QCOMPARE(path, home.filePath(u"scan.ppm"_s));
    QCOMPARE(format, u"ppm"_s);
}

void tst_save_file_dialog::proposesFilterAndName_data()
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

void tst_save_file_dialog::proposesFilterAndName()
{
    QFETCH(const QString, path);
    QFETCH(const QString, format);
    QFETCH(const QString, filter);
    QFETCH(const QString, name);
    const TemporaryHome home;

    const Proposal proposal = proposalFor(path, format);

    QCOMPARE(proposal.filter, filter);
    QCOMPARE(proposal.name, name);
}

void tst_save_file_dialog::everyTiffWordProposesTheTiffRowAndKeepsTheSuffixOfTheFile_data()
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

void tst_save_file_dialog::everyTiffWordProposesTheTiffRowAndKeepsTheSuffixOfTheFile()
{
    QFETCH(const QString, format);
    QFETCH(const QString, path);
    QFETCH(const QString, name);
    const TemporaryHome home;

    const Proposal proposal = proposalFor(path, format);

    QCOMPARE(proposal.filter, tiffFilter);
    QCOMPARE(proposal.name, name);
}

void tst_save_file_dialog::otherFilterStillChangesTheSuffixOfATiff()
{
    const TemporaryHome home;
    const FileDialogUser user([](const FileDialogUser &at) {
        QCOMPARE(at.name(), u"scan.TIF"_s);
        at.chooseFilter(pngFilter);
        QCOMPARE(at.name(), u"scan.png"_s);
        at.accept();
    });

    QString path = u"scan.TIF"_s;
    QString format = u"TIF"_s;
    QVERIFY(save_file_dialog(path, format, nullptr, nullptr));

    QCOMPARE(path, home.filePath(u"scan.png"_s));
    QCOMPARE(format, u"png"_s);
}

void tst_save_file_dialog::relativePathIsProposedAtHomeByItsNameAlone()
{
    const TemporaryHome home;

    const Proposal proposal = proposalFor(u"some/where/scan.png"_s, {});

    QCOMPARE(proposal.name, u"scan.png"_s);
    QCOMPARE(proposal.directory, home.path());
}

void tst_save_file_dialog::absolutePathIsProposedInItsDirectory()
{
    const TemporaryHome home;
    const QTemporaryDir elsewhere;

    const Proposal proposal = proposalFor(elsewhere.filePath(u"scan.jpeg"_s), {});

    QCOMPARE(proposal.name, u"scan.jpg"_s);
    QCOMPARE(proposal.directory, elsewhere.path());
}

void tst_save_file_dialog::proposedNameTooLongIsTold()
{
    const TemporaryHome home;
    const QString name(252, u'a');
    const NextBox box = answerNextBox(QMessageBox::Ok);

    const Proposal proposal = proposalFor(name, {});

    QCOMPARE(box.text(), u"Can't append '.png' extension, file name is too long."_s);
    QCOMPARE(proposal.name, name);
}

void tst_save_file_dialog::cancelIsSilentAndFalse()
{
    const TemporaryHome home;
    const DiagnosticLines lines;
    const FileDialogUser user([](const FileDialogUser &at) { at.cancel(); });

    QString path = u"scan.png"_s;
    QString format = u"png"_s;
    QVERIFY(!save_file_dialog(path, format, nullptr, nullptr));

    QCOMPARE(lines.lines(), QStringList());
}

void tst_save_file_dialog::answersPathAndKey_data()
{
    add_name_rows();
    QTest::newRow("leading colon") << u":scan.png"_s;
    QTest::newRow("without the suffix") << u"scan"_s;
    QTest::newRow("with another suffix") << u"scan.jpg"_s;
}

void tst_save_file_dialog::answersPathAndKey()
{
    QFETCH(const QString, name);
    const TemporaryHome home;
    const FileDialogUser user([&name](const FileDialogUser &at) {
        at.type(name);
        at.pressReturn();
    });

    QString path;
    QString format;
    QVERIFY(save_file_dialog(path, format, nullptr, nullptr));

    QCOMPARE(path, QString(home.path() + u'/' + name));
    QCOMPARE(format, u"png"_s);
}

void tst_save_file_dialog::filterChosenRewritesNameAndDecidesTheKey()
{
    const TemporaryHome home;
    const FileDialogUser user([](const FileDialogUser &at) {
        QCOMPARE(at.name(), u"report.jpg"_s);
        at.chooseFilter(bmpFilter);
        at.accept();
    });

    QString path = home.filePath(u"report.jpg"_s);
    QString format;
    QVERIFY(save_file_dialog(path, format, nullptr, nullptr));

    QCOMPARE(path, home.filePath(u"report.bmp"_s));
    QCOMPARE(format, u"bmp"_s);
}

void tst_save_file_dialog::tiffIsAlwaysAccepted()
{
    const TemporaryHome home;
    const FileDialogUser user([](const FileDialogUser &at) {
        at.chooseFilter(tiffFilter);
        at.accept();
    });

    QString path = u"scan"_s;
    QString format;
    QVERIFY(save_file_dialog(path, format, nullptr, nullptr));

    QCOMPARE(path, home.filePath(u"scan.tiff"_s));
    QCOMPARE(format, tiff_plugin_expected() ? u"tif"_s : u"TIFF"_s);
    QCOMPARE(QImageWriter::supportedImageFormats().contains("tif"), tiff_plugin_expected());
}

void tst_save_file_dialog::existingNameIsAskedAboutOnce()
{
    const TemporaryHome home;
    make_file(home.filePath(u"50 %1 & more.png"_s));
    const NextBox box = answerNextBox(QMessageBox::Yes);
    const FileDialogUser user([](const FileDialogUser &at) { at.accept(); });

    QString path = home.filePath(u"50 %1 & more.png"_s);
    QString format;
    QVERIFY(save_file_dialog(path, format, nullptr, nullptr));

    QCOMPARE(box.title(), u"Save File As"_s);
    QCOMPARE(box.text(),
             QString("File '"_L1 + home.filePath(u"50 %1 & more.png"_s)
                     + "' already exists.\nDo you want to replace it?"_L1));
    QCOMPARE(path, home.filePath(u"50 %1 & more.png"_s));
}

void tst_save_file_dialog::noLeavesTheDialogOpenForAnotherName()
{
    const TemporaryHome home;
    make_file(home.filePath(u"old.png"_s));
    const NextBox box = answerNextBox(QMessageBox::No);
    const FileDialogUser user([](const FileDialogUser &at) {
        at.type(u"old.png"_s);
        at.pressReturn();
        QVERIFY(at.isOpen());
        at.type(u"new.png"_s);
        at.pressReturn();
    });

    QString path;
    QString format;
    QVERIFY(save_file_dialog(path, format, nullptr, nullptr));

    QCOMPARE(path, home.filePath(u"new.png"_s));
}

void tst_save_file_dialog::acceptingWithoutANameIsFalse()
{
    const TemporaryHome home;
    DiagnosticLines lines;
    lines.expect(u"save_file_dialog - no name selected"_s);
    const FileDialogUser user([](const FileDialogUser &at) {
        at.accept();
        at.pressReturn();
        QVERIFY(at.isOpen());
        at.forceAccept();
    });

    QString path;
    QString format = u"png"_s;
    QVERIFY(!save_file_dialog(path, format, nullptr, nullptr));

    QCOMPARE(path, QString());
    QCOMPARE(format, u"png"_s);
}

void tst_save_file_dialog::filterThatIsNoneOfOursHasNoFormat()
{
    const TemporaryHome home;
    DiagnosticLines lines;
    lines.expect(u"save_file_dialog - incorrect file type selected!"_s);
    const FileDialogUser user([](const FileDialogUser &at) {
        at.dialog().setNameFilter(u"Others (*.png)"_s);
        at.accept();
    });

    QString path = u"scan.png"_s;
    QString format = u"png"_s;
    QVERIFY(!save_file_dialog(path, format, nullptr, nullptr));

    QCOMPARE(format, QString());
}

void tst_save_file_dialog::formatThatNobodyWritesIsRefused()
{
    const TemporaryHome home;
    const NextBox box = answerNextBox(QMessageBox::Ok);
    const FileDialogUser user([](const FileDialogUser &at) {
        at.dialog().setFormats({{u"pcx"_s, u"PCX"_s, {u"pcx"_s}}});
        at.type(u"scan.pcx"_s);
        at.accept();
    });

    QString path;
    QString format;
    QVERIFY(!save_file_dialog(path, format, nullptr, nullptr));

    QCOMPARE(box.text(), u"Image format pcx is not supported!"_s);
    QCOMPARE(format, u"pcx"_s);
}

QTEST_MAIN(tst_save_file_dialog)
#include "tst_save_file_dialog.moc"
