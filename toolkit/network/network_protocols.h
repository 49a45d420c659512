#pragma once

#include <QString>

/// Makes the protocols for files on other hosts known: "ftp". Local files are known without it. Again: does nothing.
void q3InitNetworkProtocols();

/// Whether Q3UrlOperator knows a protocol, such as "ftp".
[[nodiscard]] bool is_network_protocol(const QString &name);
