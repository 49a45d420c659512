#include "DiagnosticLines.h"
#include "dialog_answers.h"
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
    void initTestCase()
    {
        QCOMPARE(tiff_plugin_present(), tiff_plugin_expected());
        QCOMPARE(QImageWriter::supportedImageFormats().contains("tif"), tiff_plugin_expected());
    }

    void showsAListUnderItsTitle()
    {
        const TemporaryHome home;

        const DialogAnswer answer = save_file([](const FileDialogUser &at) {
            QCOMPARE(at.dialog().windowTitle(), u"Save File As"_s);
            QCOMPARE(at.dialog().viewMode(), QFileDialog::List);
            QCOMPARE(at.dialog().fileMode(), QFileDialog::AnyFile);
            QCOMPARE(at.dialog().acceptMode(), QFileDialog::AcceptSave);
            QCOMPARE(at.dialog().findChild<QLabel *>("lookInLabel"_L1)->text(), u"Save in:"_s);
            at.cancel();
        });

        QVERIFY(!answer.bChosen);
    }

    void cancelIsSilentAndFalse()
    {
        const TemporaryHome home;
        const DiagnosticLines lines;

        const DialogAnswer answer =
            save_file([](const FileDialogUser &at) { at.cancel(); }, {.path = u"scan.png"_s, .format = u"png"_s});

        QVERIFY(!answer.bChosen);
        QCOMPARE(lines.lines(), QStringList());
    }

    void answersPathAndKey_data()
    {
        add_name_rows();
        QTest::newRow("leading colon") << u":scan.png"_s;
        QTest::newRow("without the suffix") << u"scan"_s;
        QTest::newRow("with another suffix") << u"scan.jpg"_s;
    }

    void answersPathAndKey()
    {
        QFETCH(const QString, name);
        const TemporaryHome home;

        const DialogAnswer answer = save_file([&name](const FileDialogUser &at) {
            at.type(name);
            at.pressReturn();
        });

        QVERIFY(answer.bChosen);
        QCOMPARE(answer.path, QString(home.path() + u'/' + name));
        QCOMPARE(answer.format, u"png"_s);
    }

    void filterChosenRewritesNameAndDecidesTheKey_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("saved");
        QTest::addColumn<QString>("key");
        QTest::newRow("BMP") << u"report.jpg"_s << bmpFilter << u"report.bmp"_s << u"bmp"_s;
        QTest::newRow("TIFF, which is always accepted")
            << u"scan"_s << tiffFilter << u"scan.tiff"_s << (tiff_plugin_expected() ? u"tif"_s : u"TIFF"_s);
    }

    void filterChosenRewritesNameAndDecidesTheKey()
    {
        QFETCH(const QString, path);
        QFETCH(const QString, filter);
        QFETCH(const QString, saved);
        QFETCH(const QString, key);
        const TemporaryHome home;

        const DialogAnswer answer = save_file(
            [&](const FileDialogUser &at) {
                at.chooseFilter(filter);
                QCOMPARE(at.name(), saved);
                at.accept();
            },
            {.path = path});

        QVERIFY(answer.bChosen);
        QCOMPARE(answer.path, home.filePath(saved));
        QCOMPARE(answer.format, key);
    }

    void existingNameIsAskedAboutOnce()
    {
        const TemporaryHome home;
        const QString path = home.filePath(u"50 %1 & more.png"_s);
        write_file(path, {});
        const NextBox box = answer_next_box(QMessageBox::Yes);

        const DialogAnswer answer = save_file([](const FileDialogUser &at) { at.accept(); }, {.path = path});

        QVERIFY(answer.bChosen);
        QCOMPARE(box.title(), u"Save File As"_s);
        QCOMPARE(box.text(), QString("File '"_L1 + path + "' already exists.\nDo you want to replace it?"_L1));
        QCOMPARE(answer.path, path);
    }

    void noLeavesTheDialogOpenForAnotherName()
    {
        const TemporaryHome home;
        write_file(home.filePath(u"old.png"_s), {});
        const NextBox box = answer_next_box(QMessageBox::No);

        const DialogAnswer answer = save_file([](const FileDialogUser &at) {
            at.type(u"old.png"_s);
            at.pressReturn();
            QVERIFY(at.isOpen());
            at.type(u"new.png"_s);
            at.pressReturn();
        });

        QVERIFY(answer.bChosen);
        QCOMPARE(answer.path, home.filePath(u"new.png"_s));
    }

    void acceptingWithoutANameIsFalse()
    {
        const TemporaryHome home;
        DiagnosticLines lines;
        lines.expect(u"save_file_dialog - no name selected"_s);

        const DialogAnswer answer = save_file(
            [](const FileDialogUser &at) {
                at.accept();
                at.pressReturn();
                QVERIFY(at.isOpen());
                at.forceAccept();
            },
            {.format = u"png"_s});

        QVERIFY(!answer.bChosen);
        QCOMPARE(answer.path, QString());
        QCOMPARE(answer.format, u"png"_s);
    }

    void filterThatIsNoneOfOursHasNoFormat()
    {
        const TemporaryHome home;
        DiagnosticLines lines;
        lines.expect(u"save_file_dialog - incorrect file type selected!"_s);

        const DialogAnswer answer = save_file(
            [](const FileDialogUser &at) {
                at.dialog().setNameFilter(u"Others (*.png)"_s);
                at.accept();
            },
            {.path = u"scan.png"_s, .format = u"png"_s});

        QVERIFY(!answer.bChosen);
        QCOMPARE(answer.format, QString());
    }

    void formatThatNobodyWritesIsRefused()
    {
        const TemporaryHome home;
        const NextBox box = answer_next_box(QMessageBox::Ok);

        const DialogAnswer answer = save_file([](const FileDialogUser &at) {
            at.dialog().setFormats({{u"pcx"_s, u"PCX"_s, {u"pcx"_s}}});
            at.type(u"scan.pcx"_s);
            at.accept();
        });

        QVERIFY(!answer.bChosen);
        QCOMPARE(box.text(), u"Image format pcx is not supported!"_s);
        QCOMPARE(answer.format, u"pcx"_s);
    }
};

QTEST_MAIN(tst_save_file_dialog)
#include "tst_save_file_dialog.moc"
