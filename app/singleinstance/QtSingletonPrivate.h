#pragma once

#include "QtSingletonListener.h"

#include <QByteArray>
#include <QGuiApplication>
#include <QList>
#include <QString>

#include <memory>
#include <optional>

// Xlib's own header defines macros by names that the toolkit uses, so it stays out of headers.
using XAtom = unsigned long;
using XWindow = unsigned long;

/// Name of the atom that is the type of every message.
inline constexpr const char *MessageType = "_QTSINGLEAPPLICATION";

/// What an instance knows on the X server, and how it reads and writes there.
///
/// Every call that answers waits for the server. A window that has gone answers with nothing.
struct QtSingletonPrivate
{
    QtSingletonPrivate();

    XAtom selection = 0; ///< who owns it is the owner; names the message's property too; 0 until it is listened
    XAtom typeAtom = 0; ///< type of every message
    XAtom listenerAtom = 0; ///< name and type of the mark on a listener's window
    std::unique_ptr<QtSingletonListener> listener; ///< null until it is listened
    QByteArray atomChars; ///< what a name may be made of: printable ASCII but the blank
    bool owner = false; ///< whether this instance holds the selection
    unsigned long firstRequest = 0; ///< serial of the first request since it is listened

    /// The name of the selection: identity and user with one "_" in front, and "_" in place of each byte of
    /// the local encoding that is not in atomChars. Empty if both are.
    [[nodiscard]] QByteArray selectionName(const QString &id, const QString &user) const;

    /// Whether an event tells of what the toolkit did to the listener's window when it was made. Nobody knew the
    /// window then. @param serial  of the request that the server had come to, 0 for an event that is made up
    [[nodiscard]] bool isOlderThanListening(unsigned long serial) const;

    /// Makes the listener with its mark and takes the selection.
    void startListening(Display *display, const QByteArray &name);

    /// Takes the selection for the listener, from whoever has it.
    void takeSelection(Display *display);

    /// Passes the selection on to another listener, if there is one.
    void wakeHeir(Display *display) const;
};

/// Login name of the user of this process, empty if the system does not know it.
[[nodiscard]] QString login_name();

/// The window that owns the named selection, 0 if none does.
/// @param[out] selection  the atom, if there is an owner
[[nodiscard]] XWindow find_owner(Display *display, const QByteArray &name, XAtom *selection);

/// Replaces a property with bytes of format 8. They reach the server with the next flush.
/// @return false if they are more than one request can carry: then nothing is written
[[nodiscard]] bool write_property(Display *display, XWindow window, XAtom property, XAtom type,
                                  const QByteArray &bytes);

/// All bytes of a property; nothing if it is not there, is empty or is of another type or of a format other
/// than 8.
[[nodiscard]] std::optional<QByteArray> read_property(Display *display, XWindow window, XAtom property, XAtom type);

/// The windows directly below the roots of all screens that carry the mark.
[[nodiscard]] QList<XWindow> find_listeners(Display *display, XAtom mark);
