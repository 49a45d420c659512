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

class tst_save_file_dialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void showsAListUnderItsTitle();

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
    write_file(home.filePath(u"50 %1 & more.png"_s), {});
    const NextBox box = answer_next_box(QMessageBox::Yes);
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
    write_file(home.filePath(u"old.png"_s), {});
    const NextBox box = answer_next_box(QMessageBox::No);
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
    const NextBox box = answer_next_box(QMessageBox::Ok);
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
