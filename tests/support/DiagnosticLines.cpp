#include "DiagnosticLines.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The message handler is a plain function, so it finds its object here.
DiagnosticLines *&current()
{
    static DiagnosticLines *object = nullptr;
    return object;
}

void fail_test(const QString &reason)
{
    QTest::qFail(qPrintable(reason), __FILE__, __LINE__);
}

} // namespace

DiagnosticLines::DiagnosticLines()
{
    if (current() != nullptr)
        qFatal("DiagnosticLines - there is one already");
    current() = this;
    m_former = qInstallMessageHandler(&DiagnosticLines::receive);
}

DiagnosticLines::~DiagnosticLines()
{
    qInstallMessageHandler(m_former);
    current() = nullptr;
    for (const QString &line : std::as_const(m_unannounced))
        fail_test("warning not announced: "_L1 + line);
    for (const QString &text : missing())
        fail_test("announced line did not come: "_L1 + text);
}

void DiagnosticLines::expect(const QString &line)
{
    m_announced.push_back(
        {.text = line,
         .pattern = QRegularExpression(QRegularExpression::anchoredPattern(QRegularExpression::escape(line)))});
}

void DiagnosticLines::expect(const QRegularExpression &pattern)
{
    m_announced.push_back({.text = pattern.pattern(),
                           .pattern = QRegularExpression(QRegularExpression::anchoredPattern(pattern.pattern()),
                                                         pattern.patternOptions())});
}

QStringList DiagnosticLines::missing() const
{
    QStringList texts;
    for (const Announcement &announcement : m_announced)
        texts.append(announcement.text);
    return texts;
}

bool DiagnosticLines::takeAnnouncement(const QString &line)
{
    const auto found = std::ranges::find_if(
        m_announced, [&line](const Announcement &candidate) { return candidate.pattern.match(line).hasMatch(); });
    if (found == m_announced.end())
        return false;
    m_announced.erase(found);
    return true;
}

void DiagnosticLines::receive(QtMsgType type, const QMessageLogContext &context, const QString &line)
{
    DiagnosticLines *const self = current();
    self->m_lines.append(line);
    if (self->takeAnnouncement(line))
        return;
    if (type != QtDebugMsg && type != QtInfoMsg)
        self->m_unannounced.append(line);
    if (self->m_former != nullptr)
        self->m_former(type, context, line);
}
