#include "children.h"
#include "files.h"
#include "LeftoverWatch.h"

#include "Q3Process.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// A file to be left behind, and a reader that ends when it is told to.
class Place
{
public:
    Place()
    {
        make(u"page (1) $x *.png"_s);
        reader.addArgument(u"sh"_s);
        reader.addArgument(u"-c"_s);
        reader.addArgument(u"until [ -e \"$0\" ]; do sleep 0.02; done"_s);
        reader.addArgument(directory.filePath(u"go"_s));
    }

    void make(const QString &name) const { write_file(directory.filePath(name), {}); }
    [[nodiscard]] QString file() const { return directory.filePath(u"page (1) $x *.png"_s); }
    [[nodiscard]] bool hasFile() const { return QFile::exists(file()); }

    QTemporaryDir directory;
    Q3Process reader;
};

/// Processes whose command line names the file.
QStringList watches_of(const QString &file)
{
    QStringList found;
    const QStringList processes = QDir(u"/proc"_s).entryList({u"[1-9]*"_s}, QDir::Dirs);
    for (const QString &process : processes) {
        QFile line(u"/proc/%1/cmdline"_s.arg(process));
        if (line.open(QIODevice::ReadOnly) && line.readAll().contains(QFile::encodeName(file)))
            found.append(process);
    }
    return found;
}

/// Whether a shell waits for a program of its own.
bool is_sleeping(const QString &shell)
{
    QFile children(u"/proc/%1/task/%1/children"_s.arg(shell));
    return children.open(QIODevice::ReadOnly) && !children.readAll().isEmpty();
}

} // namespace

class tst_LeftoverWatch : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        wait_for_children(); // watches whose object has gone
    }

    void withoutAReaderTheFileGoesWithUs()
    {
        const Place place;
        std::unique_ptr<LeftoverWatch> watch = LeftoverWatch::start(place.file());
        QVERIFY(watch);
        QVERIFY(place.hasFile());

        watch.reset();

        QTRY_VERIFY(!place.hasFile());
    }

    void fileStaysUntilItsReaderHasEnded()
    {
        Place place;
        const QSignalSpy ends(&place.reader, &Q3Process::processExited);
        std::unique_ptr<LeftoverWatch> watch = LeftoverWatch::start(place.file());
        QVERIFY(place.reader.start());
        watch->setReader(place.reader.processIdentifier());

        watch.reset();

        QTRY_VERIFY(is_sleeping(watches_of(place.file()).value(0))); // it has seen the reader, and looks again later
        QVERIFY(place.hasFile());
        place.make(u"go"_s);
        QTRY_COMPARE(ends.count(), 1);
        QTRY_VERIFY(!place.hasFile());
    }

    void readerThatNobodyHasReapedHasEndedAllTheSame()
    {
        Place place;
        std::unique_ptr<LeftoverWatch> watch = LeftoverWatch::start(place.file());
        const pid_t child = ::fork();
        if (child == 0)
            std::_Exit(EXIT_SUCCESS);
        watch->setReader(child);

        watch.reset();

        QTRY_VERIFY(!place.hasFile());
    }

    void numberThatBelongsToAnotherProcessMeanwhileIsNotWaitedFor()
    {
        Place place;
        std::unique_ptr<LeftoverWatch> watch = LeftoverWatch::start(place.file());
        watch->setReader(999'999'999); // of which no start is known

        watch.reset();

        QTRY_VERIFY(!place.hasFile());
    }

    void dismissedWatchLeavesFileAndNoProcess()
    {
        Place place;
        const std::unique_ptr<LeftoverWatch> watch = LeftoverWatch::start(place.file());
        QTRY_COMPARE(watches_of(place.file()).size(), 1);

        watch->dismiss();

        QVERIFY(place.hasFile());
        QCOMPARE(watches_of(place.file()).size(), 0);
        QVERIFY(!has_children());
    }

    void processThatIsKilledLeavesNoFile()
    {
        const Place place;
        const pid_t program = ::fork();
        if (program == 0) {
            const std::unique_ptr<LeftoverWatch> watch = LeftoverWatch::start(place.file());
            ::kill(::getpid(), SIGKILL);
        }
        QCOMPARE(::waitpid(program, nullptr, 0), program);

        QTRY_VERIFY(!place.hasFile());
        QTRY_COMPARE(watches_of(place.file()).size(), 0);
    }

    void watchHasNothingOfOursOpen()
    {
        const Place place;
        const int ours = ::dup(STDERR_FILENO); // one that could be passed on
        const std::unique_ptr<LeftoverWatch> watch = LeftoverWatch::start(place.file());
        QTRY_COMPARE(watches_of(place.file()).size(), 1);
        const QStringList watches = watches_of(place.file());

        const QDir descriptors(u"/proc/%1/fd"_s.arg(watches.constFirst()));
        // The script's shell has moved nothing about; 0 is our connection.
        QTRY_COMPARE(descriptors.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot),
                     (QStringList{u"0"_s, u"1"_s, u"2"_s}));
        QCOMPARE(QFile::symLinkTarget(descriptors.filePath(u"1"_s)), u"/dev/null"_s);
        QCOMPARE(QFile::symLinkTarget(descriptors.filePath(u"2"_s)), u"/dev/null"_s);
        QCOMPARE(QFile::symLinkTarget(u"/proc/%1/cwd"_s.arg(watches.constFirst())), u"/"_s);

        ::close(ours);
        watch->dismiss();
    }

    void watchThatWasKilledDoesNoHarm()
    {
        const Place place;
        const std::unique_ptr<LeftoverWatch> watch = LeftoverWatch::start(place.file());
        QTRY_COMPARE(watches_of(place.file()).size(), 1);
        ::kill(watches_of(place.file()).constFirst().toInt(), SIGKILL);
        QTRY_COMPARE(watches_of(place.file()).size(), 0);

        watch->setReader(::getpid());
        watch->dismiss();

        QVERIFY(place.hasFile());
        QVERIFY(!has_children());
    }
};

QTEST_GUILESS_MAIN(tst_LeftoverWatch)
#include "tst_LeftoverWatch.moc"
