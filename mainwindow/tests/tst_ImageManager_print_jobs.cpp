// Printing, as a program in the place of lpr sees it.

#include "children.h"
#include "ImageItem.h"
#include "OutsideTools.h"
#include "Q3Process.h"
#include "ToolsFixture.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTest>

#include <csignal>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

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

class tst_ImageManager_print_jobs : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        wait_for_children(); // jobs whose window has gone, and their watches
    }

    void printHandsTheFirstPageToLprAndTakesItsFileAway()
    {
        ToolsFixture fixture(u"a.png"_s);

        fixture.print();

        QTRY_VERIFY(fixture.outside.has(u"lpr.done"_s));
        const QStringList words = fixture.outside.lines(u"lpr.words"_s);
        QCOMPARE(words.size(), 1);
        QVERIFY2(QRegularExpression(u"^/tmp/file[A-Za-z0-9]{6}\\.png$"_s).match(words[0]).hasMatch(),
                 qPrintable(words[0]));
        QCOMPARE(QImage(fixture.outside.path(u"lpr.file"_s)), fixture.firstPage());
        QCOMPARE(fixture.outside.lines(u"lpr.mode"_s), QStringList{u"600"_s});
        QCOMPARE(fixture.outside.lines(u"lpr.directory"_s), QStringList{QDir::currentPath()});
        QCOMPARE(fixture.outside.lines(u"lpr.environment"_s), QStringList{fixture.home.path()});
        QTRY_VERIFY(!QFile::exists(words[0]));
        QTRY_VERIFY(!has_children());
    }

    void printTakesTheFirstPageEvenWithALaterOneOnView()
    {
        ToolsFixture fixture;
        const QString path = fixture.twoPages();
        QVERIFY(fixture.window.load_file(path, u"TIFF"_s, false));
        QCOMPARE(fixture.view(0)->imageItem()->pageImage().size(), QSize(40, 30)); // the second one is on show

        fixture.print();

        QTRY_VERIFY(fixture.outside.has(u"lpr.done"_s));
        QCOMPARE(QImage(fixture.outside.path(u"lpr.file"_s)), fixture.firstPage());
        QVERIFY(QImage(fixture.outside.path(u"lpr.file"_s)) != fixture.view(0)->document()->page(2));
    }

    void printShowsItsStatusAndLeavesItThere()
    {
        ToolsFixture fixture(u"a.png"_s);

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
        ToolsFixture fixture(u"a.png"_s);
        QApplication::setOverrideCursor(Qt::CrossCursor);

        fixture.print();
        QVERIFY(QApplication::overrideCursor());

        QTRY_VERIFY(!QApplication::overrideCursor());
    }

    void secondPrintDuringAJobDoesNothing()
    {
        ToolsFixture fixture(u"a.png"_s);
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
        ToolsFixture fixture(u"a.png"_s);
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
            ToolsFixture fixture(u"a.png"_s);
            fixture.outside.forget(u"lpr"_s);
            fixture.print();
            QStringList files = QDir(u"/tmp"_s).entryList({u"file*.png"_s});
            files.removeIf([&former](const QString &name) { return former.contains(name); });
            QCOMPARE(files.size(), 1);
            file = u"/tmp/"_s + files[0];
            QCOMPARE(QImage(file), fixture.firstPage());

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
        ToolsFixture fixture(u"a.png"_s, QSize(300, 300));
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

    void withoutAWatchOfItsFileNothingIsPrinted()
    {
        ToolsFixture fixture(u"a.png"_s);
        const QStringList former = QDir(u"/tmp"_s).entryList();
        {
            // So many descriptors that the file can be made, but no socket pair.
            rlimit usual{};
            QCOMPARE(::getrlimit(RLIMIT_NOFILE, &usual), 0);
            const int free = ::dup(0);
            ::close(free);
            const rlimit one{.rlim_cur = static_cast<rlim_t>(free) + 1, .rlim_max = usual.rlim_max};
            QCOMPARE(::setrlimit(RLIMIT_NOFILE, &one), 0);
            fixture.print();
            QCOMPARE(::setrlimit(RLIMIT_NOFILE, &usual), 0);
        }

        QCOMPARE(QDir(u"/tmp"_s).entryList({u"file*.png"_s}), former.filter(QRegularExpression(u"^file.*\\.png$"_s)));
        QVERIFY(!has_children());
        fixture.print(); // there is no job
        QTRY_VERIFY(fixture.outside.has(u"lpr.done"_s));
        QTRY_VERIFY(!has_children());
    }

    void pageMayChangeAndItsTabCloseDuringAJob()
    {
        ToolsFixture fixture(u"a.png"_s);
        fixture.outside.hold(u"lpr"_s);
        const QImage page = fixture.firstPage();
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
        ToolsFixture fixture(u"a.png"_s);
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
};

QTEST_MAIN(tst_ImageManager_print_jobs)
#include "tst_ImageManager_print_jobs.moc"
