#pragma once

#include <QList>
#include <QObject>
#include <QString>

class QDnsLookup;

/// One question to the name servers of the system. It is asked once the event loop runs.
///
/// Errors:  a name that does not exist, a server that does not answer and no server at all give an empty answer, and
///          so does a lookup that failed, see hasFailed().
/// Sources: RFC 1035 (MX), RFC 5321 section 5.1.
/// Threads: GUI thread only; the question itself waits elsewhere.
class Q3Dns : public QObject
{
    Q_OBJECT

public:
    enum RecordType { Mx };

    struct MailServer
    {
        QString name; ///< in lower case, without a final dot; empty for the root, which a null MX names
        quint16 priority = 0; ///< the lower, the better

        bool operator==(const MailServer &) const = default;
    };

    /// @param label  the name asked for, as it stands: search domains are not tried. An empty one asks nobody and
    ///               gets an empty answer.
    Q3Dns(const QString &label, RecordType type, QObject *parent = nullptr);

    /// Whether the answer is still to come.
    [[nodiscard]] bool isWorking() const { return working; }
    /// Whether a name server has answered that it cannot or will not tell (SERVFAIL, REFUSED).
    [[nodiscard]] bool hasFailed() const;
    /// The best first; those of one priority in any order.
    [[nodiscard]] QList<MailServer> mailServers() const { return servers; }

signals:
    /// The answer is here. Comes once, from the event loop.
    void resultsReady();

private:
    void start();
    void finish();

    QDnsLookup *lookup;
    QList<MailServer> servers;
    bool working = true;
};
