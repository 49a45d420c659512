#pragma once

#include <QApplication>
#include <QByteArray>
#include <QString>

#include <memory>

class QAbstractNativeEventFilter;
struct QtSingletonPrivate;
using XEvent = union _XEvent; // NOLINT(bugprone-reserved-identifier): the name that Xlib gives it

/// An application that knows whether it runs already: the same identity, user and X display.
///
/// The X server is the only meeting point. The first instance owns a selection; a later one writes its message
/// into a property of the owner's hidden window and ends. A dead owner leaves nothing behind. An owner that
/// ends passes the selection on to a waiting listener, which is an instance that listens and does not own.
///
/// Errors:  none is thrown or shown. Without an X display there is never another instance.
/// Threads: GUI thread only. Messages are emitted while X events are handled, so that receivers may run a
///          loop of events of their own, in which further messages come the same way.
class QtSingleApplication : public QApplication
{
    Q_OBJECT

public:
    /// @param id          identity; with the user's name it makes the name of the selection
    /// @param GUIenabled  false opens no display
    QtSingleApplication(const QString &id, int &argc, char **argv, bool GUIenabled = true);

    /// The same on the server that @p display is connected to. The toolkit makes a connection of its own and
    /// chooses visual and colour map itself. The program is built without it.
    QtSingleApplication(Display *display, const QString &id, int &argc, char **argv, unsigned long visual = 0,
                        unsigned long colorMap = 0);
    ~QtSingleApplication() override;
    Q_DISABLE_COPY_MOVE(QtSingleApplication)

    /// Sees each PropertyNotify and SelectionClear of this connection before the toolkit does.
    /// @return true to keep the event from the toolkit
    virtual bool x11EventFilter(XEvent *event);

    /// Enters this instance as a listener and takes the selection, from an owner as well. To be called once.
    /// @param activate  every message also calls activateMainWidget(), before receivers that connect later
    void startListening(bool activate);

    /// Whether some instance, this one included, would get a message. Nobody asks so far: sending tells it too.
    [[nodiscard]] bool ownerExists() const;

public slots:
    /// Writes a message to the owner. It reaches the server with the next flush, at the latest when this
    /// process closes its display; nothing tells whether the owner could use it. An empty one is dropped by
    /// the owner.
    /// @return false if there is no owner, or if the message is larger than a request to the server may be
    bool sendMessage(const QString &message);
    /// The same; nobody calls it so far.
    /// @param timeout  not used
    bool sendMessage(const QString &message, int timeout);

    /// Brings a widget of the application to the front.
    virtual void activateMainWidget();

signals:
    /// A message has come. When several come in a burst, each may tell the text of the last.
    void messageReceived(const QString &message);

private:
    [[nodiscard]] QByteArray selectionName() const;

    const std::unique_ptr<QString> id;
    const std::unique_ptr<QtSingletonPrivate> d;
    std::unique_ptr<QAbstractNativeEventFilter> eventBridge;
};
