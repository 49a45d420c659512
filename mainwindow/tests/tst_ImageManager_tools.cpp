#include "children.h"
#include "ConfigureToolsDialog.h"
#include "NextBox.h"
#include "NextDialog.h"
#include "ToolSettings.h"
#include "ToolsFixture.h"

#include <QApplication>
#include <QFile>
#include <QSettings>
#include <QTest>

#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class tst_ImageManager_tools : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        wait_for_children(); // jobs whose window has gone, and their watches
    }

    void editorGetsTheFirstPageAsBmp()
    {
        ToolsFixture fixture;
        QVERIFY(fixture.window.load_file(fixture.twoPages(), u"TIFF"_s, false));
        ToolSettings::set_graphics_editor(fixture.outside.recorder(u"editor"_s) + u" <BMP>"_s);

        fixture.action(u"tool_graphics_editor"_s)->trigger();

        const QString file = fixture.home.filePath(u"gimp_input.bmp"_s);
        QTRY_VERIFY(fixture.outside.has(u"editor.done"_s));
        QCOMPARE(fixture.outside.lines(u"editor.words"_s), QStringList{file});
        QVERIFY(fixture.firstPage().save(fixture.home.filePath(u"expected.bmp"_s), "BMP"));
        QCOMPARE(fixture.outside.bytes(u"editor.file"_s), fixture.outside.bytes(u"../expected.bmp"_s));
        QVERIFY(QFile::exists(file)); // and stays
        QVERIFY(!QApplication::overrideCursor());
    }

    void editorCommandIsForAShell_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QStringList>("words");
        QTest::newRow("no placeholder") << u"x y"_s << QStringList{u"x"_s, u"y"_s};
        QTest::newRow("three") << u"<BMP> <BMP> <BMP>"_s << QStringList{u"%"_s, u"%"_s, u"%"_s};
        QTest::newRow("quotes") << u"\"a <BMP>\""_s << QStringList{u"a %"_s};
        QTest::newRow("command inside") << u"$(echo b c)"_s << QStringList{u"b"_s, u"c"_s};
        const QString longWord(480, 'w'_L1);
        QTest::newRow("512 characters") << longWord << QStringList{longWord};
    }
    void editorCommandIsForAShell()
    {
        QFETCH(const QString, command);
        QFETCH(QStringList, words);
        ToolsFixture fixture(u"a.png"_s);
        ToolSettings::set_graphics_editor(fixture.outside.recorder(u"editor"_s) + ' '_L1 + command);

        fixture.action(u"tool_graphics_editor"_s)->trigger();

        QTRY_VERIFY(fixture.outside.has(u"editor.done"_s));
        words.replaceInStrings(u"%"_s, fixture.home.filePath(u"gimp_input.bmp"_s));
        QCOMPARE(fixture.outside.lines(u"editor.words"_s), words);
    }

    void pathWithBlanksIsSplitByTheShell()
    {
        ToolsFixture fixture(u"a.png"_s);
        ToolSettings::set_graphics_editor_input(u"~/two words.bmp"_s);
        ToolSettings::set_graphics_editor(fixture.outside.recorder(u"editor"_s) + u" <BMP>"_s);

        fixture.action(u"tool_graphics_editor"_s)->trigger();

        QTRY_VERIFY(fixture.outside.has(u"editor.done"_s));
        QCOMPARE(fixture.outside.lines(u"editor.words"_s),
                 (QStringList{fixture.home.filePath(u"two"_s), u"words.bmp"_s}));
        QVERIFY(QFile::exists(fixture.home.filePath(u"two words.bmp"_s)));
    }

    void tildeAlwaysLeadsHome()
    {
        ToolsFixture fixture(u"a.png"_s);
        ToolSettings::set_graphics_editor_input(u"~name.bmp"_s);
        ToolSettings::set_graphics_editor(u"true"_s);

        fixture.action(u"tool_graphics_editor"_s)->trigger();

        QVERIFY(QFile::exists(fixture.home.path() + u"name.bmp"_s));
        QVERIFY(QFile::remove(fixture.home.path() + u"name.bmp"_s));
    }

    void fileThatCannotBeWrittenIsToldAndNothingStarts_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("title");
        for (const auto &[name, path] : {std::pair{"folder", u"~"_s}, std::pair{"no such folder", u"/nowhere/x"_s},
                                         std::pair{"full disk", u"/dev/full"_s}, std::pair{"no name", u""_s}}) {
            QTest::addRow("editor, %s", name) << u"tool_graphics_editor"_s << path << u"Start Graphics Editor failed"_s;
            QTest::addRow("recogniser, %s", name) << u"tool_ocr"_s << path << u"OCR failed"_s;
        }
    }
    void fileThatCannotBeWrittenIsToldAndNothingStarts()
    {
        QFETCH(const QString, command);
        QFETCH(const QString, path);
        QFETCH(const QString, title);
        ToolsFixture fixture(u"a.png"_s);
        ToolSettings::set_graphics_editor_input(path);
        ToolSettings::set_OCR_input(path);
        for (const auto set : {ToolSettings::set_graphics_editor, ToolSettings::set_OCR, ToolSettings::set_text_editor})
            set(fixture.outside.recorder(u"tool"_s));
        const NextBox box = answer_next_box(QMessageBox::Ok);

        fixture.action(command)->trigger();

        QVERIFY(box.hasCome());
        QCOMPARE(box.title(), title);
        QCOMPARE(box.text(), u"Error saving image"_s);
        QCOMPARE(box.buttons(), QMessageBox::Ok);
        QVERIFY(!fixture.outside.has(u"tool.run"_s));
        QVERIFY(!QApplication::overrideCursor());
    }

    void recogniserRunsToItsEndAndThenTheTextEditor()
    {
        ToolsFixture fixture;
        QVERIFY(fixture.window.load_file(fixture.twoPages(), u"TIFF"_s, false));
        ToolSettings::set_OCR(fixture.outside.recorder(u"ocr"_s) + u" <PBM> <TXT>; sleep 0.2; echo found ><TXT>"_s);
        ToolSettings::set_text_editor(fixture.outside.recorder(u"text"_s) + u" <TXT>"_s);

        fixture.action(u"tool_ocr"_s)->trigger();

        QVERIFY(fixture.outside.has(u"ocr.done"_s)); // it was waited for
        const QString text = fixture.home.filePath(u"recognized.txt"_s);
        QCOMPARE(fixture.outside.lines(u"ocr.words"_s), (QStringList{fixture.home.filePath(u"ocr_input.pbm"_s), text}));
        QCOMPARE(QImage::fromData(fixture.outside.bytes(u"ocr.file"_s), "PBM"),
                 fixture.firstPage().convertToFormat(QImage::Format_Mono));
        QTRY_VERIFY(fixture.outside.has(u"text.done"_s));
        QCOMPARE(fixture.outside.lines(u"text.words"_s), QStringList{text});
        QCOMPARE(fixture.outside.bytes(u"text.file"_s), QByteArray("found\n"));
        QVERIFY(!QApplication::overrideCursor());
    }

    void textEditorComesUpAfterARecogniserThatFailed_data()
    {
        QTest::addColumn<QString>("command");
        QTest::newRow("status") << u"exit 3"_s;
        QTest::newRow("signal") << u"kill -9 $$"_s;
        QTest::newRow("no such program") << u"/nowhere/at/all 2>/dev/null"_s;
        QTest::newRow("empty") << u""_s;
    }
    void textEditorComesUpAfterARecogniserThatFailed()
    {
        QFETCH(const QString, command);
        ToolsFixture fixture(u"a.png"_s);
        ToolSettings::set_OCR(command);
        ToolSettings::set_text_editor(fixture.outside.recorder(u"text"_s) + u" <TXT>"_s);

        fixture.action(u"tool_ocr"_s)->trigger();

        QTRY_VERIFY(fixture.outside.has(u"text.done"_s));
    }

    void recogniserThatCannotBeStartedIsTold()
    {
        ToolsFixture fixture(u"a.png"_s);
        // So many descriptors that the page can be written, but no pipe made: popen() takes two.
        ToolSettings::set_text_editor(fixture.outside.recorder(u"text"_s));
        const NextBox box = answer_next_box(QMessageBox::Ok);
        rlimit former{};
        QCOMPARE(::getrlimit(RLIMIT_NOFILE, &former), 0);
        const int free = ::dup(0);
        ::close(free);
        const rlimit one{.rlim_cur = static_cast<rlim_t>(free) + 1, .rlim_max = former.rlim_max};
        QCOMPARE(::setrlimit(RLIMIT_NOFILE, &one), 0);

        fixture.action(u"tool_ocr"_s)->trigger();

        QCOMPARE(::setrlimit(RLIMIT_NOFILE, &former), 0);
        QVERIFY(box.hasCome());
        QCOMPARE(box.title(), u"OCR failed"_s);
        QCOMPARE(box.text(), u"Error starting OCR program"_s);
        QVERIFY(!fixture.outside.has(u"text.run"_s));
        QVERIFY(!QApplication::overrideCursor());
    }

    void configureToolsRunsItsDialog()
    {
        ToolsFixture fixture;
        const NextDialog dialog([](QDialog &shown) {
            QCOMPARE(shown.objectName(), u"cfg_tools_dlg"_s);
            QVERIFY(qobject_cast<ConfigureToolsDialog *>(&shown));
            shown.reject();
        });

        fixture.action(u"tool_configure"_s)->trigger();
    }

    void withoutATabOnlyTheConfigurationIsOn()
    {
        ToolsFixture fixture;
        const QStringList ofDocuments{u"file_print"_s, u"tool_graphics_editor"_s, u"tool_ocr"_s, u"tool_send"_s,
                                      u"tool_upload"_s};
        for (const bool hasTab : {false, true}) {
            if (hasTab)
                QVERIFY(fixture.open(u"a.png"_s));
            for (const QString &name : ofDocuments)
                QCOMPARE(fixture.enabled(name), hasTab);
            QVERIFY(fixture.enabled(u"tool_configure"_s));
        }
        fixture.action(u"file_close"_s)->trigger();
        for (const QString &name : ofDocuments)
            QVERIFY(!fixture.enabled(name));
    }

    void toolsAreOnTheBarOnlyIfTheSettingSaysSo_data()
    {
        QTest::addColumn<QVariant>("setting");
        QTest::addColumn<QStringList>("bar");
        const QStringList told{u"&File"_s, u"&Edit"_s, u"&View"_s, u"&Zoom"_s, u"&Image"_s};
        QTest::newRow("never stored") << QVariant() << told;
        QTest::newRow("off") << QVariant(false) << told;
        QTest::newRow("on") << QVariant(true) << told + QStringList{u"&Tools"_s};
    }
    void toolsAreOnTheBarOnlyIfTheSettingSaysSo()
    {
        QFETCH(const QVariant, setting);
        QFETCH(const QStringList, bar);
        const TemporaryHome home;
        if (setting.isValid())
            QSettings().setValue(u"image_editor/tools_menu"_s, setting);

        const ImageManager window;

        QCOMPARE(WindowFixture::entries(window.menuBar()), bar);
        const QAction *const last = window.menuBar()->actions().constLast();
        if (setting.toBool())
            QCOMPARE(WindowFixture::entries(last->menu()),
                     (QStringList{u"&Graphics Editor"_s, u"&OCR"_s, u"&Send by E-mail..."_s, u"&Upload by FTP..."_s,
                                  u"&Configure Tools..."_s}));
    }
};

QTEST_MAIN(tst_ImageManager_tools)
#include "tst_ImageManager_tools.moc"
