#include "SingleInstanceTest.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <algorithm>

#include <pwd.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr auto Executable = IM_PROGRAM;

} // namespace

void SingleInstanceTest::init()
{
    m_selection = selectionOf(::getuid());
    QTRY_COMPARE(owner(), XWindowId{0}); // the server has noticed the end of the test before
}

std::optional<int> SingleInstanceTest::startAgain(const Place &place, const QStringList &arguments)
{
    Program program(QString::fromLatin1(Executable));
    program.setHome(place.home());
    program.unsetEnvironment(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s);
    return program.start(arguments) ? program.waitForExit() : std::nullopt;
}

QByteArray SingleInstanceTest::selectionOf(uid_t user)
{
    const passwd *const entry = ::getpwuid(user);
    QByteArray name = '_' + QByteArray(Executable) + (entry ? entry->pw_name : "");
    std::ranges::replace_if(
        name, [](char c) { return c <= ' ' || c > '~'; }, '_');
    return name;
}

void SingleInstanceTest::writeMessage(const QByteArray &text)
{
    m_peer.write(owner(), m_selection, "_QTSINGLEAPPLICATION", text);
}

QString linked_program(const Place &place)
{
    QString path = place.path(u"package/bin/imagemanager"_s);
    if (!QDir().mkpath(QFileInfo(path).path()) || !QFile::link(QString::fromLatin1(Executable), path))
        qFatal("linked_program - no %s", qPrintable(path));
    return path;
}

QStringList sorted(QStringList texts)
{
    texts.sort();
    return texts;
}
