#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include <functional>

/// Saving under a name: every file of a user is written this way, whatever its format.
///
/// The bytes go into a file of ours beside the old one, which then takes its place by a rename, so a fault, a kill or
/// a power cut leaves the old file or the new one. Owner, group, mode, access list and extended attributes of the old
/// file stay, and a link is followed to what it names.
///
/// Where that cannot be done - more than one hard link, a file that is a mount point, an owner or attribute that
/// cannot be given on, no right to make files there, too little room for both - the new file is completed in the
/// directory for snapshots, flushed to the disk, and copied over the old one once there is room for it. A kill in the
/// middle of that copying leaves a target of new and old bytes, and the whole new file in the directory for snapshots;
/// so does a fault of the disk, of which a warning tells.
///
/// Threads: GUI thread only.

/// What a writer is given: a file to be written, and read where it was written, at any place. After the first byte that
/// the disk refuses it takes no more, as some writers look at their last call alone.
class TargetFile : public QIODevice
{
public:
    /// @param fileDescriptor  stays with the caller
    explicit TargetFile(int fileDescriptor);

    [[nodiscard]] int handle() const { return fd; }
    /// Writes out what waits in the buffer.
    /// @return why a byte did not reach the file; empty if all did
    [[nodiscard]] QString finish();

    [[nodiscard]] qint64 size() const override;

protected:
    qint64 readData(char *data, qint64 count) override;
    qint64 writeData(const char *data, qint64 count) override;

private:
    bool drain();
    bool put(const char *data, qint64 count, qint64 position);

    int fd;
    QByteArray waiting; ///< the last bytes written
    qint64 waitingFrom = 0; ///< their place in the file
    QString error;
};

/// How it ended.
struct TargetOutcome
{
    enum Step {
        Done,
        NotPlain, ///< a pipe, a device or a socket has the name; it was not opened
        NotOpened, ///< the name cannot be written to
        NotWritten, ///< the writer or the system gave up; the old file is whole
    };

    Step step = Done;
    QString reason; ///< what the system said; empty where it is the writer that gave up
};

/// Puts bytes in the place of a file, or makes it.
/// @param write  writes the whole file from its beginning, and answers whether it could; called a second time where
///               the first way turned out to have no room
[[nodiscard]] TargetOutcome write_target(const QString &path, const std::function<bool(TargetFile &file)> &write);
