#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

/// What an FTP server has answered (RFC 959, 4.2).
struct FtpReply
{
    int code = 0; ///< 100 to 599; 0 for a line that is no reply
    QString text; ///< without the code, the lines of a long reply parted by "\n"; no other control characters
};

/// Takes the replies out of what an FTP server sends, however it comes in.
///
/// A reply of several lines begins with "ddd-" and ends at the line that begins with the same number and a blank.
/// Lines end at "\n", with or without "\r" before it. Text is UTF-8, or Latin-1 where it is not.
///
/// Bounds: of a reply no more than TextLimit bytes and LineLimit lines are kept, the first ones; the rest is passed
///         over, and memory does not grow with it.
class FtpReplyReader
{
public:
    static constexpr qsizetype TextLimit = 1024;
    static constexpr int LineLimit = 16;

    /// Reads on, as far as the end of a reply at most.
    /// @param[in,out] bytes  then what is still to be read; empty if no reply has ended
    [[nodiscard]] std::optional<FtpReply> take(QByteArrayView &bytes);

    /// The reply that was under way when the connection ended, as far as it had come.
    [[nodiscard]] std::optional<FtpReply> unfinished();

private:
    [[nodiscard]] std::optional<FtpReply> endLine();
    void addText(QByteArrayView added);
    [[nodiscard]] FtpReply takeReply(int replyCode);

    QByteArray line; ///< the one under way
    QByteArray text; ///< of the lines before
    int code = 0; ///< of the long reply under way, 0 if there is none
    int lines = 0;
};
