#pragma once

#include "ImageManagerProgram.h"
#include "pictures.h"
#include "private_mounts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTest>

#include <csignal>

/// The program with one page, under a shim that stops it at a certain place. Home and page have a disk of 2 MiB each.
class StoppingProgram
{
public:
    StoppingProgram() :
        homeDisk("none", QFile::encodeName(place.home()), "tmpfs", 0, "size=2m"),
        pagesDisk("none", QFile::encodeName(place.path(QStringLiteral("."))), "tmpfs", 0, "size=2m"),
        path(place.page(QStringLiteral("a.bmp"))),
        program(place)
    {
        program.process().setEnvironment(QStringLiteral("LD_PRELOAD"), QStringLiteral(IM_SHIM));
    }

    /// Opens the page, changes it and begins to save it. Answers once the process has stopped itself in the save.
    [[nodiscard]] bool stopInASave()
    {
        program.process().setEnvironment(QStringLiteral("IM_STOP_AT"), QStringLiteral("/.imagemanager-"));
        if (!program.open({path}))
            return false;
        window = program.window();
        if (!program.invert() || !QTest::qWaitFor([this] { return program.desktop().activeWindow() == window; }))
            return false;
        program.desktop().pressKey("s", {"Control_L"});
        return waitForStop();
    }

    /// Opens the page and changes it. Answers once the process has stopped itself in the snapshot.
    [[nodiscard]] bool stopInAnEdit()
    {
        program.process().setEnvironment(QStringLiteral("IM_STOP_AT"), place.home() + QStringLiteral("/tmp/"));
        return edit() && waitForStop();
    }

    /// The same, once it has stopped itself behind one of its looks for room, counted from 1.
    [[nodiscard]] bool stopBehindALookForRoom(int look)
    {
        program.process().setEnvironment(QStringLiteral("IM_STOP_BEHIND_ROOM"), QString::number(look));
        return edit() && waitForStop();
    }

    /// Opens the page and inverts it, without waiting for the end of that.
    [[nodiscard]] bool edit()
    {
        if (!program.open({path}))
            return false;
        window = program.window();
        if (!program.askToInvert())
            return false;
        program.desktop().pressKey("Return");
        return true;
    }

    void send(int number) { ::kill(static_cast<pid_t>(program.process().processId()), number); }
    void goOn() { send(SIGCONT); }

    [[nodiscard]] QStringList files() const
    {
        return QDir(QFileInfo(path).path()).entryList(QDir::Files | QDir::Hidden);
    }
    [[nodiscard]] QStringList snapshots() const
    {
        return QDir(place.home() + QStringLiteral("/tmp")).entryList(QDir::Files);
    }

    const Place place;
    const PrivateMount homeDisk;
    const PrivateMount pagesDisk;
    const QString path;
    ImageManagerProgram program;
    WindowId window = 0;

private:
    [[nodiscard]] bool waitForStop()
    {
        return QTest::qWaitFor(
            [this] {
                QFile status(QStringLiteral("/proc/%1/stat").arg(program.process().processId()));
                return status.open(QIODevice::ReadOnly) && status.readLine().contains(") T ");
            },
            Program::patienceMs);
    }
};

/// The page in a file.
[[nodiscard]] inline QImage page_of(const QString &path)
{
    return QImage(path).convertToFormat(QImage::Format_RGB32);
}

/// What the page of a StoppingProgram becomes.
[[nodiscard]] inline QImage inverted_page()
{
    QImage page = patterned_page({100, 80});
    page.invertPixels();
    return page;
}
