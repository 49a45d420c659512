#include "end_signals.h"
#include "ImageManagerProgram.h"
#include "XPeer.h"

#include <QDir>
#include <QSettings>
#include <QTest>

#include <algorithm>
#include <csignal>
#include <utility>

#include <fcntl.h>
#include <pwd.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;
using State = Accessible::State;

namespace {

void ask_to_end(ImageManagerProgram &program, int number = SIGTERM)
{
    ::kill(static_cast<pid_t>(program.process().processId()), number);
}

/// A pipe that has a name, for the program to write to. This process is its only reader.
class NamedPipe
{
public:
    explicit NamedPipe(const QString &path) : m_path(path)
    {
        if (::mkfifo(path.toLocal8Bit().constData(), S_IRUSR | S_IWUSR) != 0
            || (m_descriptor = ::open(path.toLocal8Bit().constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC)) < 0)
            qFatal("no pipe %s", qPrintable(path));
    }
    ~NamedPipe() { close(); }
    Q_DISABLE_COPY_MOVE(NamedPipe)

    [[nodiscard]] QString path() const { return m_path; }

    /// Leaves no room for a single byte.
    void fill() const
    {
        const QByteArray bytes(::fcntl(m_descriptor, F_SETPIPE_SZ, 4096), 'x');
        while (::write(m_descriptor, bytes.constData(), static_cast<size_t>(bytes.size())) > 0) { }
    }

    void close()
    {
        if (m_descriptor >= 0)
            ::close(std::exchange(m_descriptor, -1));
    }

private:
    QString m_path;
    int m_descriptor = -1;
};

} // namespace

/// What the system and a caller that loses interest do to the program.
class tst_signals : public QObject
{
    Q_OBJECT

private slots:
    void anAskedForEndGoesTheOrdinaryRoadWithoutAQuestion_data() { add_end_signals(); }
    void anAskedForEndGoesTheOrdinaryRoadWithoutAQuestion()
    {
        QFETCH(const int, number);
        OpenProgram program(u"a.bmp"_s, {700, 600});
        QVERIFY(program.invert());
        QVERIFY(!program.place.snapshots().isEmpty());

        ask_to_end(program, number);

        QCOMPARE(program.process().waitForEndBySignal(), number);
        QCOMPARE(program.place.snapshots(), QStringList());
        const QSettings settings(program.place.home() + "/.config/Unknown Organization/imagemanager.conf"_L1,
                                 QSettings::IniFormat);
        QCOMPARE(settings.value("image_editor/image_editor_width"_L1).toInt(), 700);
    }

    void anAskedForEndComesThroughADialog_data() { add_end_signals(); }
    void anAskedForEndComesThroughADialog()
    {
        QFETCH(const int, number);
        OpenProgram program;
        QTRY_COMPARE(program.desktop().activeWindow(), program.window());
        program.desktop().pressKey("o", {"Control_L"});
        QTRY_VERIFY(!program.application().find(Role::Dialog).isNull());

        ask_to_end(program, number);

        QCOMPARE(program.process().waitForEndBySignal(), number);
    }

    void anAskedForEndComesThroughABoxOfTheStart_data() { add_end_signals(); }
    void anAskedForEndComesThroughABoxOfTheStart()
    {
        QFETCH(const int, number);
        const Place place;
        ImageManagerProgram program(place);
        const QString temporary = place.page(u"scan.bmp"_s);
        QVERIFY(program.start({place.path(u"missing.bmp"_s), u"-t"_s, temporary}));
        QCOMPARE(program.process().waitForMessageBox().title, u"Load failed"_s);

        ask_to_end(program, number);

        QCOMPARE(program.process().waitForEndBySignal(), number);
        QVERIFY(QFile::exists(temporary));
    }

    void anAskedForEndWakesAWaitingInstance()
    {
        const Place place;
        const passwd *const user = ::getpwuid(::getuid());
        QByteArray selection = "_" IM_PROGRAM ""_ba + (user ? user->pw_name : "");
        std::ranges::replace_if(
            selection, [](char c) { return c <= ' ' || c > '~'; }, '_');
        XPeer peer;
        ImageManagerProgram waiting(place);
        QVERIFY(waiting.open({place.page(u"a.bmp"_s)}));
        const XPeer::Window heir = peer.owner(selection);
        QVERIFY(heir != 0);
        peer.own(selection, 0);
        ImageManagerProgram owner(place);
        QVERIFY(owner.open({place.page(u"b.bmp"_s)}));
        QVERIFY(peer.owner(selection) != heir);

        ask_to_end(owner);

        QCOMPARE(owner.process().waitForEndBySignal(), SIGTERM);
        QTRY_COMPARE(peer.owner(selection), heir);
    }

    void fullStandardErrorHoldsNothingUp()
    {
        const Place place;
        NamedPipe pipe(place.path(u"errors"_s));
        pipe.fill();
        ImageManagerProgram program(place);
        program.process().setErrorFile(pipe.path());

        QVERIFY(program.open({place.page(u"a.bmp"_s)}, {700, 600}));
        QVERIFY(program.invert());

        ask_to_end(program);
        QCOMPARE(program.process().waitForEndBySignal(), SIGTERM);
    }

    void lostReaderOfStandardErrorEndsNothing()
    {
        const Place place;
        NamedPipe pipe(place.path(u"errors"_s));
        ImageManagerProgram program(place);
        program.process().setErrorFile(pipe.path());
        QVERIFY(program.open({place.page(u"a.bmp"_s)}, {700, 600}));

        pipe.close();
        QVERIFY(program.invert());

        QVERIFY(program.process().isRunning());
    }

    void fileThatMayNotGrowIsAFailedSave()
    {
        const Place place;
        ImageManagerProgram program(place);
        const QString path = place.page(u"a.bmp"_s);
        QVERIFY(program.open({path}));
        QTRY_COMPARE(program.desktop().activeWindow(), program.window());
        const rlimit limit{.rlim_cur = 1000, .rlim_max = 1000};
        QCOMPARE(::prlimit(static_cast<pid_t>(program.process().processId()), RLIMIT_FSIZE, &limit, nullptr), 0);

        program.desktop().pressKey("s", {"Control_L"});

        QCOMPARE(program.answer(u"OK"_s).title, u"Save failed"_s);
        QVERIFY(program.process().isRunning());
    }
};

QTEST_GUILESS_MAIN(tst_signals)
#include "tst_signals.moc"
