#pragma once

#include "FtpFormOnShow.h"
#include "FtpServer.h"

#include <QImage>

/// An upload that the server takes no more bytes of.
class StalledUpload
{
public:
    /// @param port  of the server; 0 for one that is free
    explicit StalledUpload(quint16 port = 21) :
        server(QHostAddress(QHostAddress::LocalHost), port),
        shown(patterned_page({3000, 3000}))
    {
        server.stopDataAfter(1000);
        if (!shown.isReady)
            return;
        shown.type(QStringLiteral("127.0.0.1"));
        if (port == 0) {
            shown.press("Tab"); // to its number, which is selected then
            shown.type(QString::number(server.port()));
        }
        if (!shown.saveAs(QStringLiteral("sent.bmp")))
            return;
        shown.press("u", {"Alt_L"});
        isStalled = QTest::qWaitFor([this] { return server.dataCount() > 0; }, Program::patienceMs);
    }

    [[nodiscard]] Program &process() { return shown.program.process(); }
    /// Whether the server has lost its client and the file is whole.
    [[nodiscard]] bool hasEnded()
    {
        return QTest::qWaitFor([this] { return !server.hasClient(); }, Program::patienceMs)
            && QImage(shown.savedFile(QStringLiteral("sent.bmp"))).size() == QSize(3000, 3000);
    }

    FtpServer server;
    FtpFormOnShow shown;
    bool isStalled = false;
};
