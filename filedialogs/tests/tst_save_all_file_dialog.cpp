#include "file_dialogs.h"
#include "FileDialogUser.h"

#include "DiagnosticLines.h"
#include "dialog_data.h"
#include "NextBox.h"
#include "TemporaryHome.h"
#include "tiff_world.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

QCheckBox *basename_box(const FileDialogUser &at)
{
    return at.dialog().findChild<QCheckBox *>("useAsBasename"_L1);
}

QLabel *autosave_label(const FileDialogUser &at)
{
    return at.dialog().findChild<QLabel *>("autosaveLabel"_L1);
}

/// What the caller gives and gets.
struct Answer
{
    bool bChosen = false;
    QString path{};
    QString format{};
    bool bUseAsBase = false;
};

Answer save_all(const FileDialogUser::Work &work, Answer given)
{
    const FileDialogUser user(work);
    given.bChosen = save_all_file_dialog(given.path, given.format, given.bUseAsBase, nullptr);
    return given;
}

} // namespace

class tst_save_all_file_dialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QCOMPARE(tiff_plugin_present(), tiff_plugin_expected()); }

    void showsAListUnderItsTitle()
    {
        const TemporaryHome home;
        (void)save_all(
            [](const FileDialogUser &at) {
                QCOMPARE(at.dialog().windowTitle(), u"Save All"_s);
                QCOMPARE(at.dialog().viewMode(), QFileDialog::List);
                QCOMPARE(at.dialog().fileMode(), QFileDialog::AnyFile);
                QCOMPARE(at.dialog().acceptMode(), QFileDialog::AcceptSave);
                QCOMPARE(at.dialog().findChild<QLabel *>("lookInLabel"_L1)->text(), u"Save in:"_s);
                at.cancel();
            },
            {});
    }

    void asksForTheBasenameInARowBelow()
    {
        const TemporaryHome home;
        (void)save_all(
            [](const FileDialogUser &at) {
                QCOMPARE(autosave_label(at)->text(), u"Autosave:"_s);
                QCOMPARE(basename_box(at)->text(), u"Use as basename for untitled images"_s);
                const auto *grid = qobject_cast<QGridLayout *>(at.dialog().layout());
                const auto rowOf = [grid](QWidget *widget) {
                    int row = -1;
                    int column = -1;
                    int rows = 0;
                    int columns = 0;
                    grid->getItemPosition(grid->indexOf(widget), &row, &column, &rows, &columns);
                    return row;
                };
                QVERIFY(rowOf(autosave_label(at)) > rowOf(at.dialog().findChild<QWidget *>("fileTypeCombo"_L1)));
                QCOMPARE(rowOf(basename_box(at)), rowOf(autosave_label(at)));
                QVERIFY(basename_box(at)->isVisible());
                QVERIFY(autosave_label(at)->x() < basename_box(at)->x());
                at.cancel();
            },
            {});
    }

    void offersMultipageTiffLast()
    {
        const TemporaryHome home;
        QStringList filters;
        (void)save_all(
            [&filters](const FileDialogUser &at) {
                filters = at.dialog().nameFilters();
                at.cancel();
            },
            {});

        QStringList expected;
        for (const ImageFormat &writable : writableImageFormats())
            expected.append(filter_text(writable));
        expected.append(multipageFilter);
        QCOMPARE(filters, expected);
    }

    void basenameIsCheckedEachTime()
    {
        const TemporaryHome home;
        (void)save_all(
            [](const FileDialogUser &at) {
                basename_box(at)->click();
                QVERIFY(!basename_box(at)->isChecked());
                at.accept();
            },
            {.path = u"Untitled"_s});

        bool checkedAgain = false;
        (void)save_all(
            [&checkedAgain](const FileDialogUser &at) {
                checkedAgain = basename_box(at)->isChecked();
                at.cancel();
            },
            {.path = u"Untitled"_s, .bUseAsBase = false});

        QVERIFY(checkedAgain);
    }

    void proposesFilterAndName_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("name");
        QTest::newRow("no suffix is PNG") << u"Untitled"_s << QString() << pngFilter << u"Untitled.png"_s;
        QTest::newRow("suffix") << u"scan.jpeg"_s << QString() << jpegFilter << u"scan.jpg"_s;
        QTest::newRow("tif is not multi-page") << u"scan.tif"_s << QString() << tiffFilter << u"scan.tiff"_s;
        QTest::newRow("TIF finds nothing") << u"scan.TIF"_s << QString() << bmpFilter << u"scan.bmp"_s;
        QTest::newRow("format") << u"scan.jpg"_s << u"MTIFF"_s << multipageFilter << u"scan.tiff"_s;
        QTest::newRow("format in small letters") << u"scan.jpg"_s << u"mtiff"_s << multipageFilter << u"scan.tiff"_s;
        QTest::newRow("place marker, ampersand, colon")
            << u"%1 & %2 10:30.png"_s << QString() << pngFilter << u"%1 & %2 10:30.png"_s;
    }

    void proposesFilterAndName()
    {
        QFETCH(const QString, path);
        QFETCH(const QString, format);
        QFETCH(const QString, filter);
        QFETCH(const QString, name);
        const TemporaryHome home;
        (void)save_all(
            [&](const FileDialogUser &at) {
                QCOMPARE(at.filter(), filter);
                QCOMPARE(at.name(), name);
                at.cancel();
            },
            {.path = path, .format = format});
    }

    void absolutePathIsProposedInItsDirectory()
    {
        const TemporaryHome home;
        const QTemporaryDir elsewhere;

        const Answer answer =
            save_all([](const FileDialogUser &at) { at.accept(); }, {.path = elsewhere.filePath(u"scan.png"_s)});

        QVERIFY(answer.bChosen);
        QCOMPARE(answer.path, elsewhere.filePath(u"scan.png"_s));
    }

    void cancelIsSilentAndLeavesTheAnswerAlone()
    {
        const TemporaryHome home;
        const DiagnosticLines lines;

        const Answer answer = save_all([](const FileDialogUser &at) { at.cancel(); }, {.path = u"Untitled"_s});

        QVERIFY(!answer.bChosen);
        QVERIFY(!answer.bUseAsBase);
        QCOMPARE(answer.path, u"Untitled"_s);
        QCOMPARE(answer.format, QString());
        QCOMPARE(lines.lines(), QStringList());
    }

    void answersPathKeyAndCheckedBasename_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("saved");
        QTest::addColumn<QString>("key");
        QTest::newRow("filter chosen") << u"Untitled"_s << jpegFilter << u"Untitled.jpg"_s << u"jpeg"_s;
        QTest::newRow("multi-page TIFF as the table spells it")
            << u"Untitled"_s << multipageFilter << u"Untitled.tiff"_s << u"MTIFF"_s;
        QTest::newRow("TIFF as the registry spells it")
            << u"scan.tif"_s << tiffFilter << u"scan.tiff"_s << (tiff_plugin_expected() ? u"tif"_s : u"TIFF"_s);
        QTest::newRow("relative path, at home by its name alone")
            << u"some/where/scan.png"_s << pngFilter << u"scan.png"_s << u"png"_s;
    }

    void answersPathKeyAndCheckedBasename()
    {
        QFETCH(const QString, path);
        QFETCH(const QString, filter);
        QFETCH(const QString, saved);
        QFETCH(const QString, key);
        const TemporaryHome home;

        const Answer answer = save_all(
            [&filter](const FileDialogUser &at) {
                if (at.filter() != filter)
                    at.chooseFilter(filter);
                at.accept();
            },
            {.path = path});

        QVERIFY(answer.bChosen);
        QCOMPARE(answer.path, home.filePath(saved));
        QCOMPARE(answer.format, key);
        QVERIFY(answer.bUseAsBase);
    }

    void uncheckedBasenameIsAnswered()
    {
        const TemporaryHome home;

        const Answer answer = save_all(
            [](const FileDialogUser &at) {
                basename_box(at)->click();
                at.accept();
            },
            {.path = u"Untitled"_s, .bUseAsBase = true});

        QVERIFY(answer.bChosen);
        QVERIFY(!answer.bUseAsBase);
    }

    void anyFormatIsTakenWithoutATest()
    {
        const TemporaryHome home;

        const Answer answer = save_all(
            [](const FileDialogUser &at) {
                at.dialog().setFormats({allFilesFormat});
                at.accept();
            },
            {.path = u"scan.png"_s});

        QVERIFY(answer.bChosen);
        QCOMPARE(answer.format, u"ALL"_s);
    }

    void existingNameIsAskedAboutTwice()
    {
        const TemporaryHome home;
        write_file(home.filePath(u"scan.png"_s), {});
        const NextBox ours = answer_next_box(QMessageBox::Yes);
        const NextBox toolkits = answer_next_box(QMessageBox::Yes);

        const Answer answer = save_all([](const FileDialogUser &at) { at.accept(); }, {.path = u"scan.png"_s});

        QVERIFY(answer.bChosen);
        QCOMPARE(ours.title(), u"Save All"_s);
        QCOMPARE(
            ours.text(),
            QString("File '"_L1 + home.filePath(u"scan.png"_s) + "' already exists.\nDo you want to replace it?"_L1));
        QCOMPARE(toolkits.text(), u"scan.png already exists.\nDo you want to replace it?"_s);
        QCOMPARE(ours.defaultButton(), QMessageBox::No);
        QCOMPARE(toolkits.defaultButton(), QMessageBox::No);
        QCOMPARE(toolkits.textFormat(), Qt::PlainText);
    }

    void noToAQuestionLeavesTheDialogOpen_data()
    {
        QTest::addColumn<bool>("isOurs");
        QTest::newRow("to the first one, ours") << true;
        QTest::newRow("to the second one, the toolkit's") << false;
    }

    void noToAQuestionLeavesTheDialogOpen()
    {
        QFETCH(const bool, isOurs);
        const TemporaryHome home;
        write_file(home.filePath(u"scan.png"_s), {});
        const NextBox ours = answer_next_box(isOurs ? QMessageBox::No : QMessageBox::Yes);
        std::optional<NextBox> toolkits;
        if (!isOurs)
            toolkits.emplace(QMessageBox::No);

        const Answer answer = save_all(
            [](const FileDialogUser &at) {
                at.accept();
                QVERIFY(at.isOpen());
                at.cancel();
            },
            {.path = u"scan.png"_s});

        QVERIFY(!answer.bChosen);
    }

    void acceptingWithoutANameLeavesTheAnswerAlone()
    {
        const TemporaryHome home;
        DiagnosticLines lines;
        lines.expect(u"save_file_dialog - no name selected"_s);

        const Answer answer = save_all(
            [](const FileDialogUser &at) {
                at.type({});
                at.forceAccept();
            },
            {.path = u"Untitled"_s, .format = u"png"_s, .bUseAsBase = false});

        QVERIFY(!answer.bChosen);
        QCOMPARE(answer.path, QString());
        QCOMPARE(answer.format, u"png"_s);
        QVERIFY(!answer.bUseAsBase);
    }

    void filterThatIsNoneOfOursHasNoFormat()
    {
        const TemporaryHome home;
        DiagnosticLines lines;
        lines.expect(u"save_file_dialog - incorrect file type selected!"_s);

        const Answer answer = save_all(
            [](const FileDialogUser &at) {
                at.dialog().setNameFilter(u"Others (*.png)"_s);
                at.accept();
            },
            {.path = u"scan.png"_s, .bUseAsBase = false});

        QVERIFY(!answer.bChosen);
        QCOMPARE(answer.format, QString());
        // A name was chosen, so its use was answered.
        QVERIFY(answer.bUseAsBase);
    }
};

QTEST_MAIN(tst_save_all_file_dialog)
#include "tst_save_all_file_dialog.moc"
