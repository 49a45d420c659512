#include "Q3Dns.h"

#include <QDnsLookup>
#include <QTimer>

Q3Dns::Q3Dns(const QString &label, RecordType type, QObject *parent) :
    QObject(parent),
    lookup(new QDnsLookup(QDnsLookup::MX, label, this))
{
    Q_ASSERT(type == Mx);
    connect(lookup, &QDnsLookup::finished, this, &Q3Dns::finish);
    QTimer::singleShot(0, this, &Q3Dns::start);
}

void Q3Dns::start()
{
    if (lookup->name().isEmpty())
        finish();
    else
        lookup->lookup();
}

void Q3Dns::finish()
{
    working = false;
    const QList<QDnsMailExchangeRecord> records = lookup->mailExchangeRecords();
    for (const QDnsMailExchangeRecord &record : records)
        servers.append({.name = record.exchange(), .priority = record.preference()});
    emit resultsReady();
}

bool Q3Dns::hasFailed() const
{
    const QDnsLookup::Error error = lookup->error();
    return error == QDnsLookup::ServerFailureError || error == QDnsLookup::ServerRefusedError;
}
