#pragma once

#include "ImageManagerProgram.h"
#include "XPeer.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QStringList>

#include <optional>
#include <sys/types.h>

using XWindowId = XPeer::Window;

/// What tests of starts while the program runs already have in common.
class SingleInstanceTest : public QObject
{
    Q_OBJECT

private slots:
    void init();

protected:
    /// A start that hands its arguments over, quicker for want of assistive technology. Answers its status.
    [[nodiscard]] static std::optional<int> startAgain(const Place &place, const QStringList &arguments);

    /// Name of the selection by which the instances of a user know each other.
    [[nodiscard]] static QByteArray selectionOf(uid_t user);
    [[nodiscard]] XWindowId owner() const { return m_peer.owner(m_selection); }
    /// Puts a message's property on the owner's window as another client would.
    void writeMessage(const QByteArray &text);
    /// Nobody owns the selection then; who did goes on as a waiting listener.
    void takeSelectionAway() { m_peer.own(m_selection, 0); }

    XPeer m_peer;
    QByteArray m_selection; ///< name of the selection of the program under test
};

/// A link by which the program can be started as another application, in a directory "bin" of its own.
[[nodiscard]] QString linked_program(const Place &place);

[[nodiscard]] QStringList sorted(QStringList texts);
