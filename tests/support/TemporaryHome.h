#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <optional>

/// An empty home directory that is HOME, and the place of settings, while the object lives.
///
/// QDir::homePath(), the default QSettings and all that is built on them then leave the real home of
/// whoever runs the tests alone. Made on the stack of a test, first thing.
///
/// Errors:  a directory that cannot be made ends the test program.
/// Threads: the environment belongs to the process; one object at a time, on the main thread.
class TemporaryHome
{
public:
    TemporaryHome();
    ~TemporaryHome();
    Q_DISABLE_COPY_MOVE(TemporaryHome)

    [[nodiscard]] QString path() const { return m_directory.path(); }

    /// Absolute path of @p name, which is relative to the home; nothing is made.
    [[nodiscard]] QString filePath(const QString &name) const { return m_directory.filePath(name); }

    /// Names of the files, hidden ones too, that lie directly in a directory of this home, sorted.
    /// @param directory  relative to the home; empty for the home itself; a missing one holds nothing
    [[nodiscard]] QStringList filesIn(const QString &directory = {}) const;

private:
    QTemporaryDir m_directory;
    std::optional<QByteArray> m_formerHome;
    std::optional<QByteArray> m_formerConfigHome;
};
