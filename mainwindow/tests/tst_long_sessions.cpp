// Many tabs, many edits, many commands: what is done with takes no memory, no descriptor and no disk.

#include "PlainWindow.h"
#include "private_mounts.h"
#include "WindowFixture.h"

#include <QDialog>
#include <QDir>
#include <QMessageBox>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTest>
#include <QTimer>

#include <array>
#include <malloc.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 KiB = 1024;
constexpr qint64 EntryBytes = KiB / 2; ///< more than the history keeps of an edit
constexpr QSize SmallPage(16, 12);

/// What this process has asked for and not given back.
qint64 allocated_bytes()
{
    const auto memory = mallinfo2();
    return static_cast<qint64>(memory.uordblks) + static_cast<qint64>(memory.hblkhd);
}

qsizetype open_descriptors()
{
    return QDir(u"/proc/self/fd"_s).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size();
}

/// Answers every dialog that comes: boxes with what loses the changes, others by chance.
class Clerk
{
public:
    explicit Clerk(QRandomGenerator &randomNumbers) : random(randomNumbers)
    {
        QObject::connect(&timer, &QTimer::timeout, &timer, [this] { look(); });
        timer.start(0);
    }

private:
    void look()
    {
        QWidget *const shown = QApplication::activeModalWidget();
        if (auto *const box = qobject_cast<QMessageBox *>(shown)) {
            QAbstractButton *const no = box->button(QMessageBox::No);
            (no ? no : box->button(QMessageBox::Ok))->click();
        } else if (auto *const dialog = qobject_cast<QDialog *>(shown)) {
            auto *const ok = dialog->findChild<QPushButton *>(u"my_ok_btn"_s);
            if (ok && ok->isEnabled() && random.bounded(4) > 0)
                ok->click();
            else
                dialog->reject();
        }
    }

    QRandomGenerator &random;
    QTimer timer;
};

/// A window, and the documents that come to it in a day.
class Day
{
public:
    Day()
    {
        for (int i = 0; i < Documents; ++i)
            paths.append(fixture.file(u"%1.%2"_s.arg(i).arg(i % 2 == 0 ? u"png"_s : u"bmp"_s), SmallPage));
    }

    /// So many commands by chance, and the end of all tabs.
    void work(int commands)
    {
        const Clerk clerk(random);
        for (int i = 0; i < commands; ++i)
            doSomething();
        fixture.action(u"file_close_all"_s)->trigger();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(fixture.tabs()->count(), 0);
    }

    WindowFixture fixture;

private:
    static constexpr int Documents = 200;
    static constexpr int MostTabs = 8;

    void doSomething()
    {
        if (fixture.tabs()->count() == 0 || (random.bounded(10) == 0 && fixture.tabs()->count() < MostTabs)) {
            const QString &path = paths.at(random.bounded(Documents));
            QVERIFY(fixture.window.load_file(path, {}, false));
            return;
        }
        if (random.bounded(20) == 0) {
            fixture.window.processMessage(u"imagemanager:"_s + paths.at(random.bounded(Documents)));
            return;
        }
        constexpr std::array commands{
            "edit_undo",        "edit_undo",        "edit_redo",    "image_invert",    "rotate_cw",
            "rotate_180",       "depth_8",          "depth_32",     "flip_vertically", "flip_horizontally",
            "image_contrast",   "image_brightness", "view_zoom_in", "view_zoom_out",   "image_resize",
            "image_properties", "file_save",        "file_close",
        };
        QAction *const action =
            fixture.action(QString::fromLatin1(commands.at(random.bounded(static_cast<quint32>(commands.size())))));
        if (action->isEnabled())
            action->trigger();
    }

    QStringList paths;
    QRandomGenerator random{20};
};

} // namespace

class tst_long_sessions : public QObject
{
    Q_OBJECT

private slots:
    void fiveHundredTabsLeaveNothingWhenTheyAreClosed()
    {
        WindowFixture fixture;
        const QString path = fixture.file(u"a.png"_s, SmallPage);
        const auto openAndClose = [&fixture, &path](int tabs) {
            for (int i = 0; i < tabs; ++i)
                QVERIFY(fixture.window.load_file(path, {}, false));
            QCOMPARE(fixture.tabs()->count(), tabs);
            QCOMPARE(fixture.currentView()->document()->filePath(), path);
            fixture.action(u"file_close_all"_s)->trigger();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCOMPARE(fixture.tabs()->count(), 0);
        };
        openAndClose(500);
        const qint64 bytes = allocated_bytes();
        const qsizetype descriptors = open_descriptors();

        openAndClose(500);

        QVERIFY2(allocated_bytes() - bytes < 256 * KiB, qPrintable(QString::number(allocated_bytes() - bytes)));
        QCOMPARE(open_descriptors(), descriptors);
    }

    void tenThousandEditsTakeNoMoreThanTheirEntriesInTheHistory()
    {
        constexpr int First = 1000;
        constexpr int Edits = 10000;
        const TemporaryHome home;
        const QString snapshots = home.filePath(u"tmp"_s);
        QVERIFY(QDir().mkdir(snapshots));
        const PrivateMount quickDisk("none", QFile::encodeName(snapshots), "tmpfs", 0, "size=100m");
        {
            PlainWindow window(solid_page(SmallPage, qRgb(0, 0, 0)));
            const auto edit = [&window](int number) {
                QVERIFY(window.edit(solid_page(SmallPage, qRgb(number % 256, number / 256, 0))));
                (void)window.takeLines(); // what the window was told
            };
            for (int i = 1; i <= First; ++i)
                edit(i);
            const qint64 bytes = allocated_bytes();
            const qsizetype descriptors = open_descriptors();

            for (int i = First + 1; i <= Edits; ++i)
                edit(i);

            const qint64 more = allocated_bytes() - bytes;
            QVERIFY2(more < (Edits - First) * EntryBytes, qPrintable(QString::number(more)));
            QCOMPARE(open_descriptors(), descriptors);
            QCOMPARE(home.filesIn(u"tmp"_s).size(), Edits);
            QVERIFY(window.bracket.applyHistory(HistoryUndo, Edits));
            QCOMPARE(window.tab().image.pixel(0, 0), qRgb(0, 0, 0));
        }
        QCOMPARE(home.filesIn(u"tmp"_s), QStringList());
    }

    void commandsOfADayLeaveNothing()
    {
        const int half = qEnvironmentVariableIsSet("IM_TEST_WHOLE_DAY") ? 4000 : 400;
        Day day;
        day.work(half);
        const qint64 bytes = allocated_bytes();
        const qsizetype descriptors = open_descriptors();

        day.work(half);

        // The history of the window lasts as long as the window.
        const qint64 most = 128 * KiB + half * EntryBytes;
        QVERIFY2(allocated_bytes() - bytes < most, qPrintable(QString::number(allocated_bytes() - bytes)));
        QCOMPARE(open_descriptors(), descriptors);
    }
};

TEST_MAIN_APART(QApplication, tst_long_sessions, leave_common_mounts)
#include "tst_long_sessions.moc"
