#include "Q3Process.h"

#include <QProcess>

bool Q3Process::launch() const
{
    if (m_arguments.isEmpty() || m_arguments.constFirst().isEmpty())
        return false;

    QProcess process;
    process.setProgram(m_arguments.constFirst());
    process.setArguments(m_arguments.sliced(1));
    // Nobody would read a pipe: a program that writes much would stand still in the end.
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}
