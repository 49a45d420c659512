#pragma once

#include "FtpMachine.h"

#include <QList>
#include <QString>
#include <QStringList>

/// A session with a server in words: what the server says or what happens besides, and what is to be done then.

/// Of a user "bob" with a password "secret".
[[nodiscard]] FtpRequest plain_request();

/// What is to be done, as short words: "> COMMAND", "data 1042", "! code text".
[[nodiscard]] QStringList words(const QList<FtpAction> &actions);

/// What is to be done after what the server says, or what happens besides.
[[nodiscard]] QStringList after(FtpMachine &machine, const QString &event);

/// What is to be done after the last of some events.
[[nodiscard]] QStringList after_all(FtpMachine &machine, const QStringList &events);

/// All events of an upload that succeeds.
extern const QStringList wholeSession;

/// The session up to where it waits for what follows.
[[nodiscard]] QStringList session_up_to(QStringView event);
