#include "ConfigureToolsDialog.h"
#include "ImageItem.h"
#include "NextBox.h"
#include "NextDialog.h"
#include "OutsideTools.h"
#include "Q3Process.h"
#include "ToolSettings.h"
#include "WindowFixture.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSettings>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTest>

#include <cerrno>
#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>

using namespace Qt::StringLiterals;

namespace {

/// The window, and programs outside that tell what they were given.
class Fixture : public WindowFixture
{
public:
    OutsideTools outside{home};

    void print() const { action(u"file_print"_s)->trigger(); }

    /// A file of two different pages.
    [[nodiscard]] QString twoPages() const
    {
        const QString path = home.filePath(u"pages.tif"_s);
        ImageDocument document{QString(), QString()};
        QImage second = patterned_page({40, 30}).convertToFormat(QImage::Format_RGB32);
        second.fill(Qt::white);
        if (!document.addPage(patterned_page({50, 40}).convertToFormat(QImage::Format_RGB32))
            || !document.addPage(second) || !document.save(path, u"TIFF"_s))
            qFatal("cannot write two pages");
        return path;
    }
};

QImage page_of(const Fixture &fixture, int tab)
{
    return fixture.view(tab)->document()->page(1);
}

bool has_children()
{
    siginfo_t info{};
    return ::waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) == 0;
}

/// Files of this process may have so many bytes meanwhile, as if the disk were full.
class LittleRoom
{
public:
    explicit LittleRoom(rlim_t bytes) : formerHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &former);
        const rlimit room{.rlim_cur = bytes, .rlim_max = former.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &room);
    }
    ~LittleRoom()
    {
        ::setrlimit(RLIMIT_FSIZE, &former);
        (void)std::signal(SIGXFSZ, formerHandler);
    }
    Q_DISABLE_COPY_MOVE(LittleRoom)

private:
    rlimit former{};
    void (*formerHandler)(int);
};

} // namespace

class tst_ImageManager_tools : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        while (::waitpid(-1, nullptr, 0) > 0) { } // jobs whose window has gone, and their watches
    }

    void printHandsTheFirstPageToLprAndTakesItsFileAway()
    {
        Fixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));

        fixture.print();

        QTRY_VERIFY(fixture.outside.has(u"lpr.done"_s));
        const QStringList words = fixture.outside.lines(u"lpr.words"_s);
        QCOMPARE(words.size(), 1);
        QVERIFY2(QRegularExpression(u"^/tmp/file[A-Za-z0-9]{6}\\.png$"_s).match(words[0]).hasMatch(),
                 qPrintable(words[0]));
        QCOMPARE(QImage(fixture.outside.path(u"lpr.file"_s)), page_of(fixture, 0));
        QCOMPARE(fixture.outside.lines(u"lpr.mode"_s), QStringList{u"600"_s});
        QCOMPARE(fixture.outside.lines(u"lpr.directory"_s), QStringList{QDir::currentPath()});
        QCOMPARE(fixture.outside.lines(u"lpr.environment"_s), QStringList{fixture.home.path()});
        QTRY_VERIFY(!QFile::exists(words[0]));
        QTRY_VERIFY(!has_children());
    }

    void printTakesTheFirstPageEvenWithALaterOneOnView()
    {
        Fixture fixture;
        const QString path = fixture.twoPages();
        QVERIFY(fixture.window.load_file(path, u"TIFF"_s, false));
        QCOMPARE(fixture.view(0)->imageItem()->pageImage().size(), QSize(40, 30)); // the second one is on show

        fixture.print();

        QTRY_VERIFY(fixture.outside.has(u"lpr.done"_s));
        QCOMPARE(QImage(fixture.outside.path(u"lpr.file"_s)), page_of(fixture, 0));
        QVERIFY(QImage(fixture.outside.path(u"lpr.file"_s)) != fixture.view(0)->document()->page(2));
    }

    void printShowsItsStatusAndLeavesItThere()
    {
        Fixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));

        fixture.print();

        QCOMPARE(fixture.window.statusBar()->currentMessage(), u"Printing..."_s);
        QCOMPARE(fixture.window.cursor().shape(), Qt::ArrowCursor);
        QCOMPARE(fixture.currentView()->cursor().shape(), Qt::ArrowCursor);
        QTRY_VERIFY(fixture.outside.has(u"lpr.done"_s));
        QTRY_VERIFY(!has_children());
        QCOMPARE(fixture.window.statusBar()->currentMessage(), u"Printing..."_s);
    }

    void endOfAJobRestoresTheOverrideCursor()
    {
        Fixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
        QApplication::setOverrideCursor(Qt::CrossCursor);

        fixture.print();
        QVERIFY(QApplication::overrideCursor());

        QTRY_VERIFY(!QApplication::overrideCursor());
    }

    void secondPrintDuringAJobDoesNothing()
    {
        Fixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
        fixture.outside.hold(u"lpr"_s);
        fixture.print();
        QTRY_VERIFY(fixture.outside.has(u"lpr.words"_s));
        fixture.window.statusBar()->clearMessage();

        fixture.print();

        QCOMPARE(fixture.window.statusBar()->currentMessage(), QString());
        fixture.outside.release(u"lpr"_s);
        QTRY_VERIFY(!has_children());
        QCOMPARE(fixture.outside.count(u"lpr.run"_s), 1);

        fixture.print(); // the next one is free again
        QTRY_COMPARE(fixture.outside.count(u"lpr.run"_s), 2);
        QTRY_VERIFY(!has_children());
    }

    void failureOfLprEndsTheJobLikeSuccess()
    {
        Fixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
        fixture.outside.make(u"lpr"_s, u"echo $1 >words; kill -9 $$"_s);

        fixture.print();

        QTRY_VERIFY(fixture.outside.has(u"words"_s));
        QTRY_VERIFY(!has_children());
        QVERIFY(!QFile::exists(fixture.outside.lines(u"words"_s).value(0)));
    }

    void withoutLprTheJobNeverEndsAndItsFileGoesWithTheWindow()
    {
        const QStringList former = QDir(u"/tmp"_s).entryList({u"file*.png"_s});
        QString file;
        {
            Fixture fixture;
            QVERIFY(fixture.open(u"a.png"_s));
            fixture.outside.forget(u"lpr"_s);
            fixture.print();
            QStringList files = QDir(u"/tmp"_s).entryList({u"file*.png"_s});
            files.removeIf([&former](const QString &name) { return former.contains(name); });
            QCOMPARE(files.size(), 1);
            file = u"/tmp/"_s + files[0];
            QCOMPARE(QImage(file), page_of(fixture, 0));

            fixture.outside.makeLpr();
            fixture.print();

            QCoreApplication::processEvents();
            QVERIFY(!fixture.outside.has(u"lpr.run"_s));
            QVERIFY(QFile::exists(file));
        }
        QTRY_VERIFY(!QFile::exists(file));
    }

    void pageThatCannotBeWrittenStartsNothingAndLeavesNothing()
    {
        Fixture fixture;
        QVERIFY(fixture.open(u"a.png"_s, QSize(300, 300)));
        QApplication::setOverrideCursor(Qt::CrossCursor);
        const QStringList former = QDir(u"/tmp"_s).entryList();
        {
            const LittleRoom room(200);
            fixture.print();
        }

        QVERIFY(!QApplication::overrideCursor());
        QCOMPARE(QDir(u"/tmp"_s).entryList({u"file*.png"_s}), former.filter(QRegularExpression(u"^file.*\\.png$"_s)));
        QVERIFY(!has_children());
        fixture.print(); // there is no job
        QTRY_VERIFY(fixture.outside.has(u"lpr.done"_s));
        QTRY_VERIFY(!has_children());
    }

    void pageMayChangeAndItsTabCloseDuringAJob()
    {
        Fixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
        fixture.outside.hold(u"lpr"_s);
        const QImage page = page_of(fixture, 0);
        fixture.print();
        QTRY_VERIFY(fixture.outside.has(u"lpr.words"_s));
        const QString file = fixture.outside.lines(u"lpr.words"_s).value(0);

        QVERIFY(fixture.currentView()->document()->invert(1));
        QCOMPARE(QImage(file), page);
        fixture.currentView()->document()->setModified(false);
        fixture.action(u"file_close"_s)->trigger();
        QCOMPARE(fixture.tabs()->count(), 0);
        QCOMPARE(QImage(file), page);

        fixture.outside.release(u"lpr"_s);
        QTRY_VERIFY(!QFile::exists(file));
        QTRY_VERIFY(!has_children());
    }

    void windowThatGoesDuringAJobLeavesLprItsFileUntilItEnds()
    {
        const TemporaryHome home;
        const OutsideTools outside(home);
        outside.hold(u"lpr"_s);
        const QString page = home.filePath(u"a.png"_s);
        QVERIFY(patterned_page({20, 20}).save(page));
        {
            ImageManager window;
            QVERIFY(window.load_file(page, {}, false));
            window.file_print();
        }

        QTRY_VERIFY(outside.has(u"lpr.words"_s));
        const QString file = outside.lines(u"lpr.words"_s).value(0);
        QCOMPARE(QImage(file), QImage(page));
        outside.release(u"lpr"_s);
        QTRY_VERIFY(!QFile::exists(file));
        QVERIFY(outside.has(u"lpr.done"_s));
    }

    void manyJobsLeaveNoFileAndNoProcess()
    {
        Fixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
        fixture.outside.make(u"lpr"_s, u"echo $1 >>words"_s);
        for (int i = 1; i <= 200; ++i) {
            fixture.print();
            QSignalSpy ends(fixture.window.findChild<Q3Process *>(), &QObject::destroyed);
            QVERIFY(ends.count() == 1 || ends.wait());
            QCOMPARE(fixture.outside.count(u"words"_s), i);
        }

        QTRY_VERIFY(!has_children());
        for (const QString &file : fixture.outside.lines(u"words"_s))
            QVERIFY(!QFile::exists(file));
    }

    void editorGetsTheFirstPageAsBmp()
    {
        Fixture fixture;
        QVERIFY(fixture.window.load_file(fixture.twoPages(), u"TIFF"_s, false));
        ToolSettings::set_graphics_editor(fixture.outside.recorder(u"editor"_s) + u" <BMP>"_s);

        fixture.action(u"tool_graphics_editor"_s)->trigger();

        const QString file = fixture.home.filePath(u"gimp_input.bmp"_s);
        QTRY_VERIFY(fixture.outside.has(u"editor.done"_s));
        QCOMPARE(fixture.outside.lines(u"editor.words"_s), QStringList{file});
        QVERIFY(page_of(fixture, 0).save(fixture.home.filePath(u"expected.bmp"_s), "BMP"));
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
        Fixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
        ToolSettings::set_graphics_editor(fixture.outside.recorder(u"editor"_s) + ' '_L1 + command);

        fixture.action(u"tool_graphics_editor"_s)->trigger();

        QTRY_VERIFY(fixture.outside.has(u"editor.done"_s));
        words.replaceInStrings(u"%"_s, fixture.home.filePath(u"gimp_input.bmp"_s));
        QCOMPARE(fixture.outside.lines(u"editor.words"_s), words);
    }

    void pathWithBlanksIsSplitByTheShell()
    {
        Fixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
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
        Fixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
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
        Fixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
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
        Fixture fixture;
        QVERIFY(fixture.window.load_file(fixture.twoPages(), u"TIFF"_s, false));
        ToolSettings::set_OCR(fixture.outside.recorder(u"ocr"_s) + u" <PBM> <TXT>; sleep 0.2; echo found ><TXT>"_s);
        ToolSettings::set_text_editor(fixture.outside.recorder(u"text"_s) + u" <TXT>"_s);

        fixture.action(u"tool_ocr"_s)->trigger();

        QVERIFY(fixture.outside.has(u"ocr.done"_s)); // it was waited for
        const QString text = fixture.home.filePath(u"recognized.txt"_s);
        QCOMPARE(fixture.outside.lines(u"ocr.words"_s), (QStringList{fixture.home.filePath(u"ocr_input.pbm"_s), text}));
        QCOMPARE(QImage::fromData(fixture.outside.bytes(u"ocr.file"_s), "PBM"),
                 page_of(fixture, 0).convertToFormat(QImage::Format_Mono));
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
        Fixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
        ToolSettings::set_OCR(command);
        ToolSettings::set_text_editor(fixture.outside.recorder(u"text"_s) + u" <TXT>"_s);

        fixture.action(u"tool_ocr"_s)->trigger();

        QTRY_VERIFY(fixture.outside.has(u"text.done"_s));
    }

    void recogniserThatCannotBeStartedIsTold()
    {
        Fixture fixture;
        QVERIFY(fixture.open(u"a.png"_s));
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
        Fixture fixture;
        const NextDialog dialog([](QDialog &shown) {
            QCOMPARE(shown.objectName(), u"cfg_tools_dlg"_s);
            QVERIFY(qobject_cast<ConfigureToolsDialog *>(&shown));
            shown.reject();
        });

        fixture.action(u"tool_configure"_s)->trigger();
    }

    void withoutATabOnlyTheConfigurationIsOn()
    {
        Fixture fixture;
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
