#pragma once

#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <vector>

/// Records the diagnostic lines of the code under test, and fails the test on a warning that it did
/// not announce and on an announced line that did not come.
///
/// Made on the stack of a test; the judgement falls when it is destroyed. Announced lines are kept
/// out of the test's output, all others appear there as usual.
///
/// Threads: one object at a time; lines of all threads arrive, so the code under test must not write
///          from several threads at once.
class DiagnosticLines
{
public:
    DiagnosticLines();
    ~DiagnosticLines();
    Q_DISABLE_COPY_MOVE(DiagnosticLines)

    /// Announces one line of any level, letter for letter or by a pattern for the whole line.
    void expect(const QString &line);
    void expect(const QRegularExpression &pattern);

    /// All lines since construction, in order.
    [[nodiscard]] const QStringList &lines() const { return m_lines; }
    [[nodiscard]] bool contains(const QString &line) const { return m_lines.contains(line); }

    /// Warnings and worse that no announcement covered.
    [[nodiscard]] const QStringList &unannounced() const { return m_unannounced; }
    /// Announcements that no line has met so far: the line itself or the text of its pattern.
    [[nodiscard]] QStringList missing() const;

private:
    struct Announcement
    {
        QString text;
        QRegularExpression pattern; ///< matches the whole line
    };

    static void receive(QtMsgType type, const QMessageLogContext &context, const QString &line);
    [[nodiscard]] bool takeAnnouncement(const QString &line);

    std::vector<Announcement> m_announced;
    QStringList m_lines;
    QStringList m_unannounced;
    QtMessageHandler m_former = nullptr;
};
