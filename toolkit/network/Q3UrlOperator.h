#pragma once

#include "Q3NetworkOperation.h"
#include "Q3Url.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>

/// A URL and the transfers that are started on it.
///
/// Built is what an upload needs: copies from a local file to an FTP server. A copy has a get of the local side, a put
/// of the FTP side and, to move the file, a remove. The get reads the file once through, so that one that cannot be
/// read is found before anything is sent; the put reads it again as the server takes it, so that memory does not grow
/// with the file.
///
/// Units:     progress in bytes; what is too large for an int is halved, both numbers alike, until it fits.
/// Errors:    told by finished() with the operation's state, code and text, once for each operation that has begun.
/// Ownership: operations belong to the operator and live for a second past their end. Destroying the operator stops
///            its copies at once and tells nothing more. It may be destroyed in the slots of its signals.
/// Threads:   GUI thread only; nothing blocks. What copy() starts is told from the event loop, save that a protocol is
///            not known.
class Q3UrlOperator : public QObject, public Q3Url
{
    Q_OBJECT

public:
    Q3UrlOperator();
    ~Q3UrlOperator() override;
    Q_DISABLE_COPY_MOVE(Q3UrlOperator)

    /// Forgets all parts of the URL and takes those of the text.
    Q3UrlOperator &operator=(const QString &text);

    /// Copies a local file to an FTP server. The operator's own URL is not used.
    /// @param from    "file:" and the path as it stands
    /// @param to      text of an FTP URL (Q3Url::toString)
    /// @param move    the local file is removed once the server has confirmed the upload, before the put is finished;
    ///                unless it has changed meanwhile
    /// @param toPath  "to" is a directory, in which the file keeps its name
    /// @return the operations, in the order told above
    QList<Q3NetworkOperation *> copy(const QString &from, const QString &to, bool move, bool toPath);

    /// Whether anybody wants the bytes of a get.
    [[nodiscard]] bool isDataHeard() const;

signals:
    /// A get or a put begins.
    void start(Q3NetworkOperation *operation);
    /// The next bytes of a get.
    void data(const QByteArray &bytes, Q3NetworkOperation *operation);
    void dataTransferProgress(int bytesDone, int bytesTotal, Q3NetworkOperation *operation);
    void finished(Q3NetworkOperation *operation);
    /// @param state    one of Q3NetworkOperation::ConnectionState
    /// @param message  the same for the user
    void connectionStateChanged(int state, const QString &message);
};
