#include "QtSingleApplication.h"

#include "QtSingletonPrivate.h"

#include <QAbstractNativeEventFilter>
#include <QWidget>

#include <xcb/xcb.h>

// Behind the toolkit's headers, which its macros would break.
#include <X11/Xlib.h>

namespace {

/// The display that the toolkit has opened, null if it has none.
Display *x_display()
{
    const auto *const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->display() : nullptr;
}

/// Chooses the toolkit's platform. Runs before the toolkit is constructed.
int &with_platform(int &argc, bool GUIenabled)
{
    if (!GUIenabled)
        qputenv("QT_QPA_PLATFORM", "minimal");
    return argc;
}

int &with_display(int &argc, Display *display)
{
    qputenv("DISPLAY", DisplayString(display));
    return argc;
}

XEvent property_notify(const xcb_property_notify_event_t &notify, unsigned int serial)
{
    XEvent event{};
    event.xproperty.type = PropertyNotify;
    event.xproperty.serial = serial;
    event.xproperty.display = x_display();
    event.xproperty.window = notify.window;
    event.xproperty.atom = notify.atom;
    event.xproperty.time = notify.time;
    event.xproperty.state = notify.state;
    return event;
}

XEvent selection_clear(const xcb_selection_clear_event_t &clear, unsigned int serial)
{
    XEvent event{};
    event.xselectionclear.type = SelectionClear;
    event.xselectionclear.serial = serial;
    event.xselectionclear.display = x_display();
    event.xselectionclear.window = clear.owner;
    event.xselectionclear.selection = clear.selection;
    event.xselectionclear.time = clear.time;
    return event;
}

/// Hands the events that instances talk by on to x11EventFilter().
class XEventBridge : public QAbstractNativeEventFilter
{
public:
    explicit XEventBridge(QtSingleApplication *receiver) : application(receiver) { }

    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr * /*result*/) override
    {
        if (eventType != "xcb_generic_event_t")
            return false;
        constexpr unsigned int sentBit = 0x80; // of events that another client has made up
        const auto *const generic = static_cast<const xcb_generic_event_t *>(message);
        XEvent event{};
        switch (generic->response_type & ~sentBit) {
        case XCB_PROPERTY_NOTIFY:
            event = property_notify(*static_cast<const xcb_property_notify_event_t *>(message), generic->full_sequence);
            break;
        case XCB_SELECTION_CLEAR:
            event = selection_clear(*static_cast<const xcb_selection_clear_event_t *>(message), generic->full_sequence);
            break;
        default:
            return false;
        }
        return application->x11EventFilter(&event);
    }

private:
    QtSingleApplication *application;
};

} // namespace

QtSingleApplication::QtSingleApplication(const QString &identity, int &argc, char **argv, bool GUIenabled) :
    QApplication(with_platform(argc, GUIenabled), argv),
    id(std::make_unique<QString>(identity)),
    d(std::make_unique<QtSingletonPrivate>()),
    eventBridge(std::make_unique<XEventBridge>(this))
{
    installNativeEventFilter(eventBridge.get());
}

QtSingleApplication::QtSingleApplication(Display *display, const QString &identity, int &argc, char **argv,
                                         unsigned long /*visual*/, unsigned long /*colorMap*/) :
    QtSingleApplication(identity, with_display(argc, display), argv)
{
}

QtSingleApplication::~QtSingleApplication()
{
    if (d->owner)
        d->wakeHeir(x_display());
}

QByteArray QtSingleApplication::selectionName() const
{
    return d->selectionName(*id, login_name());
}

bool QtSingleApplication::ownerExists() const
{
    XAtom selection = 0;
    return x_display() && find_owner(x_display(), selectionName(), &selection) != 0;
}

bool QtSingleApplication::sendMessage(const QString &message)
{
    Display *const display = x_display();
    if (!display)
        return false;
    XAtom selection = 0;
    const XWindow owner = find_owner(display, selectionName(), &selection);
    if (owner == 0)
        return false;
    const XAtom type = XInternAtom(display, MessageType, True);
    if (type == 0)
        return false;
    if (!write_property(display, owner, selection, type, message.toUtf8())) {
        qWarning("QtSingleApplication::sendMessage - message too long for the X server");
        return false;
    }
    return true;
}

bool QtSingleApplication::sendMessage(const QString &message, int /*timeout*/)
{
    return sendMessage(message);
}

void QtSingleApplication::startListening(bool activate)
{
    if (d->selection != 0 || !x_display())
        return;
    d->startListening(x_display(), selectionName());
    if (activate)
        connect(this, &QtSingleApplication::messageReceived, this, &QtSingleApplication::activateMainWidget);
}

bool QtSingleApplication::x11EventFilter(XEvent *event)
{
    if (!d->listener)
        return false;

    // Intended: it is not asked which property has changed, or how. Whoever writes to this window has something to
    // say to it.
    if (event->type == PropertyNotify && event->xproperty.window == d->listener->winId()
        && !d->isOlderThanListening(event->xproperty.serial)) {
        if (!d->owner) {
            d->takeSelection(x_display()); // whoever wrote to a listener is going away and leaves it the selection
            return true;
        }
        const auto text = read_property(x_display(), d->listener->winId(), d->selection, d->typeAtom);
        if (text) {
            emit messageReceived(QString::fromUtf8(*text));
            return true;
        }
    } else if (event->type == SelectionClear && event->xselectionclear.selection == d->selection) {
        d->owner = false;
    }
    return false;
}

void QtSingleApplication::activateMainWidget()
{
    const QWidgetList widgets = allWidgets();
    if (widgets.isEmpty())
        return;
    QWidget *const widget = widgets.first(); // Intended: whichever it is; a receiver brings up its own window
    widget->setWindowState(widget->windowState() & ~Qt::WindowMinimized);
    widget->raise();
    widget->activateWindow();
}
