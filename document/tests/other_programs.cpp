#include "other_programs.h"

#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

QByteArray output_of(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        const QString errors = QString::fromLocal8Bit(process.readAllStandardError());
        QTest::qFail(qPrintable(u"%1: %2 %3"_s.arg(program, process.errorString(), errors)), __FILE__, __LINE__);
        return {};
    }
    return process.readAllStandardOutput();
}

QByteArray colors_for_imagemagick(const QString &file)
{
    return output_of(ConvertProgram, {file, u"-depth"_s, u"8"_s, u"rgb:-"_s});
}

QByteArray greys_for_imagemagick(const QString &file)
{
    return output_of(ConvertProgram, {file, u"-depth"_s, u"8"_s, u"gray:-"_s});
}
