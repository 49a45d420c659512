#include "Q3Process.h"

#include "ChildScope.h"

#include <QProcess>
#include <QSet>

#include <memory>

namespace {

bool set_program(QProcess &process, const QStringList &arguments)
{
    if (arguments.isEmpty() || arguments.constFirst().isEmpty())
        return false;
    process.setProgram(arguments.constFirst());
    process.setArguments(arguments.sliced(1));
    // Nobody would read a pipe: a program that writes much would stand still in the end.
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return true;
}

/// The processes whose programs run, known to the end of this one: what is never deleted on purpose is no leak.
QSet<QProcess *> &running_processes()
{
    static auto *const processes = new QSet<QProcess *>;
    return *processes;
}

} // namespace

Q3Process::~Q3Process()
{
    if (m_process)
        m_process->disconnect(this);
}

bool Q3Process::start()
{
    if (m_process)
        return false;
    // No child of this object, as it would end its program when it is destroyed. It waits for the end on its own, and
    // where the event loop ends before it is never deleted.
    auto process = std::make_unique<QProcess>();
    if (!set_program(*process, m_arguments))
        return false;
    const ChildScope scope;
    process->start();
    if (!process->waitForStarted(-1))
        return false;
    m_process = process.release();
    running_processes().insert(m_process);
    connect(m_process, &QProcess::finished, m_process, [ended = m_process.data()] {
        running_processes().remove(ended);
        ended->deleteLater();
    });
    connect(m_process, &QProcess::finished, this, [this] {
        m_process = nullptr;
        emit processExited(); // may destroy this
    });
    return true;
}

qint64 Q3Process::processIdentifier() const
{
    return m_process ? m_process->processId() : 0;
}

bool Q3Process::launch() const
{
    QProcess process;
    const ChildScope scope;
    return set_program(process, m_arguments) && process.startDetached();
}
