#pragma once

#include <QFile>
#include <QString>

#include <ctime>
#include <optional>

/// A plain file that is read from its beginning to its end, and known again whatever becomes of its name.
///
/// Errors: told by the answers; what is no plain file is not opened, so nothing waits for the other end of a pipe.
class LocalFile
{
public:
    /// @return false if there is no plain file of this name that may be read
    [[nodiscard]] bool open(const QString &wanted);

    /// In bytes, at present.
    [[nodiscard]] qint64 size() const { return file.size(); }
    /// The next bytes, none at the end; no value if they cannot be read.
    [[nodiscard]] std::optional<QByteArray> read(qint64 atMost);
    /// Reads the next bytes and forgets them, whatever their number, in little memory.
    /// @return how many there were; no value if they cannot be read
    [[nodiscard]] std::optional<qint64> skim(qint64 atMost);
    /// Goes back to the beginning. What the file holds now is what remove() wants to see.
    /// @return false if the file can no longer be read
    [[nodiscard]] bool rewind();

    /// Removes the file unless its name leads to another one by now or it has changed since rewind(): what was not
    /// read does not go.
    [[nodiscard]] bool remove();

private:
    struct Stamp
    {
        quint64 device = 0;
        quint64 number = 0;
        qint64 size = 0;
        qint64 seconds = 0;
        qint64 nanoseconds = 0;

        bool operator==(const Stamp &) const = default;
    };

    template <typename Stat> static Stamp stampOf(const Stat &status);

    QFile file;
    QString path;
    Stamp stamp;
};
