#include "OwnScreen.h"

#include "Program.h"

#include <QFile>
#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

QByteArray first_line(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readLine().trimmed() : QByteArray();
}

/// The X server among the processes that another one has started; 0 if there is none.
pid_t server_of(qint64 process)
{
    const QByteArray children = first_line(u"/proc/%1/task/%1/children"_s.arg(process));
    for (const QByteArray &child : children.split(' ')) {
        if (first_line(u"/proc/%1/comm"_s.arg(QString::fromLatin1(child))) == "Xvfb")
            return child.toInt();
    }
    return 0;
}

} // namespace

OwnScreen::OwnScreen() : formerDisplay(qgetenv("DISPLAY"))
{
    // Tells its display and stays until it is told to end.
    session.start(QStringLiteral(IM_SCRIPTS "/with-display"),
                  {u"sh"_s, u"-c"_s, u"echo $DISPLAY; exec tail -f /dev/null"_s});
    if (!QTest::qWaitFor([this] { return session.canReadLine(); }, Program::patienceMs))
        qFatal("OwnScreen - no X server");
    qputenv("DISPLAY", session.readLine().trimmed());
    server = server_of(session.processId());
    if (server == 0)
        qFatal("OwnScreen - which X server?");
}

OwnScreen::~OwnScreen()
{
    qputenv("DISPLAY", formerDisplay);
    session.terminate();
    session.waitForFinished();
}

void OwnScreen::killServer() const
{
    const QString status = u"/proc/%1/stat"_s.arg(server);
    (void)::kill(server, SIGKILL);
    const auto hasGone = [&status] {
        const QByteArray line = first_line(status);
        return line.isEmpty() || line.contains(") Z ");
    };
    if (!QTest::qWaitFor(hasGone, Program::patienceMs))
        qFatal("OwnScreen - the X server stays");
}
