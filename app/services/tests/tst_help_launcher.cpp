#include "files.h"
#include "help_launcher.h"

#include "AppContext.h"
#include "path_strings.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A package whose viewer notes the command line of each of its starts, a line for each argument.
class Package
{
public:
    Package()
    {
        const QDir directory(path(QString()));
        if (!directory.mkpath(u"bin"_s) || !directory.mkpath(u"calls"_s))
            qFatal("cannot make the package");
        copy_str(actx.package_dir, qPrintable(directory.path()), sizeof(actx.package_dir));
        copy_str(actx.share_dir, qPrintable(directory.filePath(u"share"_s)), sizeof(actx.share_dir));
    }
    ~Package() { actx = AppContext(); }
    Q_DISABLE_COPY_MOVE(Package)

    [[nodiscard]] QString path(const QString &name) const { return m_directory.filePath(name); }

    void installViewer() const
    {
        // A note that is being written has a hidden name.
        write_program(path(u"bin/pagr"_s),
                      "#!/bin/sh\n"
                      "cd \"${0%/*}/../calls\" && printf '%s\\n' \"$0\" \"$@\" >\".$$\" && mv \".$$\" \"$$\"\n");
    }

    /// Command lines of the starts that have been noted so far.
    [[nodiscard]] QList<QStringList> calls() const
    {
        QList<QStringList> calls;
        const QDir notes(path(u"calls"_s));
        for (const QString &name : notes.entryList(QDir::Files)) {
            QFile note(notes.filePath(name));
            if (note.open(QIODevice::ReadOnly))
                calls.append(QString::fromUtf8(note.readAll()).chopped(1).split('\n'_L1));
        }
        return calls;
    }

private:
    QTemporaryDir m_directory;
};

} // namespace

class tst_help_launcher : public QObject
{
    Q_OBJECT

private slots:
    void viewerOfThePackageIsToldTheTopic()
    {
        const Package package;
        package.installViewer();

        showHelp(u"ImageEditor.htm"_s, 0, 1, 0);

        QTRY_COMPARE(package.calls().size(), 1);
        QCOMPARE(package.calls().constFirst().join(' '_L1),
                 package.path(u"bin/pagr"_s) + u" -s "_s + package.path(u"share/help"_s)
                     + u" -u ImageEditor.htm -g DriverPackageOverview.htm -n 0 -h 1 -f 0"_s);
    }

    void emptyTopicLeavesOutItsOptionAlone()
    {
        const Package package;
        package.installViewer();

        showHelp(QString(), 7, -1, 12);

        QTRY_COMPARE(package.calls().size(), 1);
        QCOMPARE(package.calls().constFirst().sliced(1),
                 (QStringList{u"-s"_s, package.path(u"share/help"_s), u"-g"_s, u"DriverPackageOverview.htm"_s, u"-n"_s,
                              u"7"_s, u"-h"_s, u"-1"_s, u"-f"_s, u"12"_s}));
    }

    void eachCallStartsAViewer()
    {
        const Package package;
        package.installViewer();

        showHelp(u"ImageEditor.htm"_s, 0, 1, 0);
        showHelp(u"ImageEditor.htm"_s, 0, 1, 0);

        QTRY_COMPARE(package.calls().size(), 2);
    }

    void missingViewerIsPassedOverInSilence()
    {
        const Package package;

        showHelp(u"ImageEditor.htm"_s, 0, 1, 0);
        package.installViewer();
        showHelp(u"ImageEditorSendMessage.htm"_s, 0, 1, 0);

        QTRY_COMPARE(package.calls().size(), 1); // the second one's
        QCOMPARE(package.calls().constFirst().at(4), u"ImageEditorSendMessage.htm"_s);
    }

    void optionsKeepTheirOrder()
    {
        const Package package;
        package.installViewer();

        launchHelpViewer(package.path(u"bin"_s), u"help dir"_s, u"topic"_s, u"overview"_s, 1, 2, 3, u"about"_s,
                         u"resources"_s, u"translate"_s, u"share"_s, u"vendor"_s);

        QTRY_COMPARE(package.calls().size(), 1);
        QCOMPARE(package.calls().constFirst().sliced(1),
                 (QStringList{u"-s"_s,         u"help dir"_s,    u"-u"_s,
                              u"topic"_s,      u"-g"_s,          u"overview"_s,
                              u"-n"_s,         u"1"_s,           u"-h"_s,
                              u"2"_s,          u"-f"_s,          u"3"_s,
                              u"--ui-about"_s, u"about"_s,       u"--res-about"_s,
                              u"resources"_s,  u"--translate"_s, u"translate"_s,
                              u"--sharedir"_s, u"share"_s,       u"--vendorconfigdir"_s,
                              u"vendor"_s}));
    }

    void onlyNumbersAreAlwaysThere()
    {
        const Package package;
        package.installViewer();

        launchHelpViewer(package.path(u"bin"_s), {}, {}, {}, 0, 0, 0, {}, {}, {}, {}, {});

        QTRY_COMPARE(package.calls().size(), 1);
        QCOMPARE(package.calls().constFirst().sliced(1).join(' '_L1), u"-n 0 -h 0 -f 0"_s);
    }

    void relativeDirectoryIsMadeAbsolute()
    {
        const Package package;
        package.installViewer();
        const QString former = QDir::currentPath();
        QVERIFY(QDir::setCurrent(package.path(QString())));

        launchHelpViewer(u"bin"_s, {}, {}, {}, 0, 0, 0, {}, {}, {}, {}, {});

        QTRY_COMPARE(package.calls().size(), 1);
        QCOMPARE(package.calls().constFirst().constFirst(), QDir::currentPath() + u"/bin/pagr"_s);
        QVERIFY(QDir::setCurrent(former));
    }

    void withoutADirectoryTheViewerIsSearchedInPath()
    {
        const Package package;
        package.installViewer();
        const QByteArray former = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(package.path(u"bin"_s)) + ':' + former);

        launchHelpViewer({}, {}, {}, {}, 0, 0, 0, {}, {}, {}, {}, {});

        QTRY_COMPARE(package.calls().size(), 1);
        qputenv("PATH", former);
    }
};

QTEST_GUILESS_MAIN(tst_help_launcher)
#include "tst_help_launcher.moc"
