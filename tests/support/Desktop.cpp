#include "Desktop.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QList>
#include <QThread>

#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <array>
#include <span>

namespace {

constexpr int longestHoldMs = 30000;
constexpr long longestProperty = 1 << 20; ///< in units of four bytes

/// Windows of other processes come and go; Xlib's own handler would end the test for it.
int ignore_error(Display *, XErrorEvent *)
{
    return 0;
}

/// A test may kill its server, for which Xlib would end it. As it is, all calls answer nothing any more.
int say_nothing(Display *)
{
    return 0;
}

void stay(Display *, void *) { }

} // namespace

struct Desktop::Connection
{
    Display *display = XOpenDisplay(nullptr);

    [[nodiscard]] Window root() const { return XDefaultRootWindow(display); }
    [[nodiscard]] Atom atom(const char *name) const { return XInternAtom(display, name, False); }

    /// The property's items; for format 32 each is a long, as Xlib hands them over.
    template <typename Item> [[nodiscard]] QList<Item> property(Window window, const char *name, Atom type) const
    {
        Atom actualType = 0;
        int format = 0;
        unsigned long count = 0;
        unsigned long rest = 0;
        unsigned char *data = nullptr;
        QList<Item> items;
        if (XGetWindowProperty(display, window, atom(name), 0, longestProperty, False, type, &actualType, &format,
                               &count, &rest, &data)
                == Success
            && data != nullptr) {
            if (actualType == type) {
                const auto *const first = reinterpret_cast<const Item *>(data);
                items = QList<Item>(first, first + count);
            }
            XFree(data);
        }
        return items;
    }

    /// Those that the window manager lists, oldest first.
    [[nodiscard]] QList<WindowId> windows() const { return property<WindowId>(root(), "_NET_CLIENT_LIST", XA_WINDOW); }

    /// The buttons and modifiers that are down (X protocol, QueryPointer).
    [[nodiscard]] unsigned int pointerState() const
    {
        Window window = 0;
        int position = 0;
        unsigned int state = 0;
        XQueryPointer(display, root(), &window, &window, &position, &position, &position, &position, &state);
        return state;
    }

    void sendMessage(Window window, const char *message, std::array<long, 5> data) const
    {
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.window = window;
        event.xclient.message_type = atom(message);
        event.xclient.format = 32;
        std::ranges::copy(data, std::begin(event.xclient.data.l));
        XSendEvent(display, window, False, NoEventMask, &event);
        XSync(display, False);
    }

    void sendKey(const char *name, bool down) const
    {
        const KeyCode code = XKeysymToKeycode(display, XStringToKeysym(name));
        XTestFakeKeyEvent(display, code, down ? True : False, CurrentTime);
    }
};

Desktop::Desktop() : m_connection(std::make_unique<Connection>())
{
    if (m_connection->display == nullptr)
        qFatal("Desktop - no X server");
    XSetErrorHandler(ignore_error);
    XSetIOErrorHandler(say_nothing);
    XSetIOErrorExitHandler(m_connection->display, stay, nullptr);
}

Desktop::~Desktop()
{
    XCloseDisplay(m_connection->display);
}

QList<WindowId> Desktop::windowsOf(qint64 processId) const
{
    QList<WindowId> windows;
    const auto listed = m_connection->windows();
    for (const WindowId window : listed) {
        const auto owner = m_connection->property<unsigned long>(window, "_NET_WM_PID", XA_CARDINAL);
        if (owner.size() == 1 && static_cast<qint64>(owner.first()) == processId)
            windows.append(window);
    }
    return windows;
}

QString Desktop::title(WindowId window) const
{
    const Atom utf8 = m_connection->atom("UTF8_STRING");
    const auto bytes = m_connection->property<char>(window, "_NET_WM_NAME", utf8);
    return QString::fromUtf8(bytes.constData(), bytes.size());
}

WindowId Desktop::windowTitled(const QString &wanted) const
{
    const auto listed = m_connection->windows();
    const auto found =
        std::find_if(listed.rbegin(), listed.rend(), [&](WindowId window) { return title(window) == wanted; });
    return found == listed.rend() ? 0 : *found;
}

QRect Desktop::geometry(WindowId window) const
{
    XWindowAttributes attributes{};
    if (XGetWindowAttributes(m_connection->display, window, &attributes) == 0)
        return {};
    int x = 0;
    int y = 0;
    Window child = 0;
    XTranslateCoordinates(m_connection->display, window, m_connection->root(), 0, 0, &x, &y, &child);
    return {x, y, attributes.width, attributes.height};
}

WindowId Desktop::activeWindow() const
{
    return m_connection->property<WindowId>(m_connection->root(), "_NET_ACTIVE_WINDOW", XA_WINDOW).value(0);
}

void Desktop::close(WindowId window)
{
    // Not by way of _NET_CLOSE_WINDOW: a window manager that is late with a window whose number an ended program had
    // before takes it for one that cannot be asked, and breaks the program's connection instead.
    m_connection->sendMessage(window, "WM_PROTOCOLS",
                              {static_cast<long>(m_connection->atom("WM_DELETE_WINDOW")), CurrentTime, 0, 0, 0});
}

void Desktop::resize(WindowId window, QSize size)
{
    XResizeWindow(m_connection->display, window, static_cast<unsigned int>(size.width()),
                  static_cast<unsigned int>(size.height()));
    XSync(m_connection->display, False);
}

void Desktop::move(WindowId window, QPoint topLeft)
{
    XMoveWindow(m_connection->display, window, topLeft.x(), topLeft.y());
    XSync(m_connection->display, False);
}

QImage Desktop::picture(const QRect &area) const
{
    const QRect screen(0, 0, XDisplayWidth(m_connection->display, 0), XDisplayHeight(m_connection->display, 0));
    if (area.isEmpty() || !screen.contains(area))
        return {};
    XImage *const raw = XGetImage(m_connection->display, m_connection->root(), area.x(), area.y(),
                                  static_cast<unsigned int>(area.width()), static_cast<unsigned int>(area.height()),
                                  AllPlanes, ZPixmap);
    if (raw == nullptr)
        return {};
    QImage image(area.size(), QImage::Format_RGB32);
    for (int y = 0; y < area.height(); ++y) {
        for (int x = 0; x < area.width(); ++x)
            image.setPixel(x, y, static_cast<QRgb>(XGetPixel(raw, x, y)) | 0xff000000U);
    }
    XDestroyImage(raw);
    return image;
}

QRgb Desktop::pixel(QPoint point) const
{
    const QImage image = picture({point, QSize(1, 1)});
    return image.isNull() ? 0 : image.pixel(0, 0);
}

void Desktop::movePointer(QPoint point)
{
    XTestFakeMotionEvent(m_connection->display, 0, point.x(), point.y(), CurrentTime);
    XSync(m_connection->display, False);
}

void Desktop::pressButton(unsigned int button)
{
    XTestFakeButtonEvent(m_connection->display, button, True, CurrentTime);
    XSync(m_connection->display, False);
}

void Desktop::releaseButton(unsigned int button)
{
    XTestFakeButtonEvent(m_connection->display, button, False, CurrentTime);
    // A press may be held for the window manager, which looks where it went, and all that the pointer does after it.
    // Keys are not: they would come first.
    const unsigned int mask = Button1Mask << (button - 1);
    QDeadlineTimer patience(longestHoldMs);
    while ((m_connection->pointerState() & mask) != 0 && !patience.hasExpired())
        QThread::msleep(1);
}

void Desktop::click(QPoint point, unsigned int button)
{
    movePointer(point);
    pressButton(button);
    releaseButton(button);
}

void Desktop::drag(QPoint from, const QList<QPoint> &path)
{
    movePointer(from);
    pressButton();
    for (const QPoint point : path)
        movePointer(point);
    releaseButton();
}

void Desktop::pressKey(const char *name, const QList<const char *> &heldKeys)
{
    for (const char *held : heldKeys)
        m_connection->sendKey(held, true);
    m_connection->sendKey(name, true);
    m_connection->sendKey(name, false);
    for (const char *held : heldKeys)
        m_connection->sendKey(held, false);
    XSync(m_connection->display, False);
}
