#pragma once

#include <QObject>
#include <QQueue>
#include <QString>
#include <QTextStream>

class Q3Socket;

/// Writes lines to a socket through a text stream, in the order in which they come. A long text goes out in pieces as
/// the socket takes them, so that neither its bytes are held as a whole nor the event loop waits for them.
///
/// Ownership: borrows the socket. What has not gone to the socket is dropped with the object.
/// Threads:   GUI thread only.
class TextSender : public QObject
{
    Q_OBJECT

public:
    /// @param lineEnd  is put behind each text
    TextSender(Q3Socket *socket, QString lineEnd);

    /// A short text is with the socket when the call returns, unless a longer one is still on its way.
    void send(const QString &text);
    /// Whether bytes have still to reach the system.
    [[nodiscard]] bool isBusy() const;

private:
    void writeNextPieces();

    Q3Socket *socket;
    QTextStream t;
    QString lineEnd;
    QQueue<QString> texts;
    qsizetype written = 0; ///< characters of the first text
};
