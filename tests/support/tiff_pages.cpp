#include "tiff_pages.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

struct Printed
{
    QStringList lines;
    QStringList errors;
};

QStringList lines_of(const QByteArray &text)
{
    return QString::fromUtf8(text).split(u'\n', Qt::SkipEmptyParts);
}

Printed run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        qFatal("tiff_pages - %s %s: %s", qPrintable(program), qPrintable(arguments.join(u' ')),
               process.readAllStandardError().constData());
    return {.lines = lines_of(process.readAllStandardOutput()), .errors = lines_of(process.readAllStandardError())};
}

QStringList ask(const QString &command, const QStringList &arguments)
{
    // The system's own, which has Pillow.
    return run(u"/usr/bin/python3"_s, QStringList{QStringLiteral(IM_TIFF_PAGES), command} + arguments).lines;
}

QJsonArray values_of(const QString &page, int tag)
{
    const QJsonValue told = QJsonDocument::fromJson(page.toUtf8()).object().value(QString::number(tag));
    return told.toArray().at(1).toArray();
}

} // namespace

QStringList tiff_kinds()
{
    return ask(u"kinds"_s, {});
}

void make_tiff(const QString &kind, const QString &path)
{
    (void)ask(u"make"_s, {kind, path});
}

void make_all_tiffs(const QString &directory)
{
    (void)ask(u"make-all"_s, {directory});
}

QStringList told_pages(const QString &path)
{
    return ask(u"tell"_s, {path});
}

QStringList pillow_pages(const QString &path)
{
    return ask(u"pixels"_s, {path});
}

QStringList tiffinfo_warnings(const QString &path)
{
    QStringList warnings = run(u"tiffinfo"_s, {path}).errors;
    warnings.removeDuplicates();
    warnings.sort();
    return warnings;
}

bool tells(const QString &page, int tag, const QString &text)
{
    QByteArray told;
    const QJsonArray bytes = values_of(page, tag);
    for (const auto &byte : bytes)
        told += QByteArray::fromHex(byte.toString().toLatin1());
    return told == text.toUtf8() + '\0';
}

bool tells(const QString &page, int tag, int number)
{
    return values_of(page, tag).at(0).toInt(-1) == number;
}

bool has_tag(const QString &page, int tag)
{
    return QJsonDocument::fromJson(page.toUtf8()).object().contains(QString::number(tag));
}

QString tag_text(const QString &page, int tag)
{
    const QJsonValue told = QJsonDocument::fromJson(page.toUtf8()).object().value(QString::number(tag));
    return QString::fromUtf8(QJsonDocument(told.toArray()).toJson(QJsonDocument::Compact));
}

QStringList pictures_below(const QString &page)
{
    constexpr auto SubIfds = "330"_L1;
    QStringList pictures;
    const QJsonArray below = QJsonDocument::fromJson(page.toUtf8()).object().value(SubIfds).toArray();
    for (const auto &picture : below)
        pictures.append(QString::fromUtf8(QJsonDocument(picture.toObject()).toJson(QJsonDocument::Compact)));
    return pictures;
}
