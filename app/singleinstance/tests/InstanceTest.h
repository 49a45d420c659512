#pragma once

#include "QtSingleApplication.h"
#include "QtSingletonPrivate.h"
#include "XPeer.h"

#include <QTest>

#include <array>

// Behind the toolkit's headers, which its macros would break.
#include <X11/Xlib.h>

using XWindowId = XPeer::Window;

/// Each test has an identity of its own, so that none finds what another has left.
inline QString test_id()
{
    return QString::fromLatin1(QTest::currentTestFunction()) + QString::fromLatin1(QTest::currentDataTag());
}

inline QByteArray selection_name()
{
    return QtSingletonPrivate().selectionName(test_id(), login_name());
}

/// Command line of an application, which has to outlive it.
struct CommandLine
{
    std::array<char, 5> name{'t', 'e', 's', 't', '\0'};
    std::array<char *, 2> argv{name.data(), nullptr};
    int argc = 1;
};

struct Instance : CommandLine
{
    QtSingleApplication application{test_id(), argc, argv.data(), true};
};

/// Tells what the protocol calls.
class RecordingApplication : public QtSingleApplication
{
public:
    using QtSingleApplication::QtSingleApplication;

    bool x11EventFilter(XEvent *event) override
    {
        const bool result = QtSingleApplication::x11EventFilter(event);
        if (event->type == PropertyNotify)
            (result ? eaten : passedOn).append(event->xproperty.atom);
        isSelectionLost = isSelectionLost || event->type == SelectionClear;
        return result;
    }
    void activateMainWidget() override { calls.append(QStringLiteral("activate")); }

    QStringList calls;
    QList<unsigned long> eaten; ///< properties whose changes were kept from the toolkit
    QList<unsigned long> passedOn;
    bool isSelectionLost = false;
};

/// What tests of the application see of it from outside.
class InstanceTest : public QObject
{
protected:
    XPeer m_peer;

    /// The window of the only listener of this test.
    [[nodiscard]] XWindowId listener() const
    {
        const QList<XWindowId> windows = m_peer.windowsWith(selection_name() + "_LISTENER");
        return windows.size() == 1 ? windows.first() : 0;
    }
    void writeMessage(const QByteArray &text)
    {
        m_peer.write(listener(), selection_name(), "_QTSINGLEAPPLICATION", text);
    }
    [[nodiscard]] XWindowId makeListener()
    {
        const XWindowId window = m_peer.makeWindow();
        m_peer.write(window, selection_name() + "_LISTENER", selection_name() + "_LISTENER", "YES");
        return window;
    }
};
