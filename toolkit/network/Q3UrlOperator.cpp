#include "Q3UrlOperator.h"

#include "network_protocols.h"
#include "UrlCopy.h"

#include <QMetaMethod>
#include <QTimer>

using namespace Qt::StringLiterals;

Q3UrlOperator::Q3UrlOperator() = default;

Q3UrlOperator::~Q3UrlOperator() = default;

Q3UrlOperator &Q3UrlOperator::operator=(const QString &text)
{
    Q3Url::operator=(Q3Url(text));
    return *this;
}

QList<Q3NetworkOperation *> Q3UrlOperator::copy(const QString &from, const QString &to, bool move, bool toPath)
{
    const Q3Url source(from);
    const QString target = toPath ? to + u'/' + source.fileName() : to;
    const QString targetProtocol = Q3Url(target).protocol();
    if (source.isLocalFile() && targetProtocol == "ftp"_L1 && is_network_protocol(targetProtocol))
        return (new UrlCopy(source, target, move, this))->operations();

    auto *get = new Q3NetworkOperation(Q3NetworkOperation::OpGet, {from}, this);
    get->fail(Q3NetworkOperation::ErrUnsupported,
              tr("The protocol `%1' is not supported").arg(source.isLocalFile() ? targetProtocol : source.protocol()));
    QTimer::singleShot(Q3NetworkOperation::Afterlife, get, &QObject::deleteLater);
    emit finished(get);
    return {get};
}

bool Q3UrlOperator::isDataHeard() const
{
    return isSignalConnected(QMetaMethod::fromSignal(&Q3UrlOperator::data));
}
