#include "network_protocols.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

QStringList &known_protocols()
{
    static QStringList names{u"file"_s};
    return names;
}

} // namespace

void q3InitNetworkProtocols()
{
    if (!is_network_protocol(u"ftp"_s))
        known_protocols().append(u"ftp"_s);
}

bool is_network_protocol(const QString &name)
{
    return known_protocols().contains(name);
}
