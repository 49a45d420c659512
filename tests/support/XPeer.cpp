#include "XPeer.h"

#include <limits>

// Behind the toolkit's headers, which its macros would break.
#include <X11/Xatom.h>
#include <X11/Xlib.h>

namespace {

// The default handler ends the program when a window of another process has gone.
int ignore_error(Display * /*display*/, XErrorEvent * /*error*/)
{
    return 0;
}

} // namespace

struct XPeer::Connection
{
    Display *display = XOpenDisplay(nullptr);

    Connection()
    {
        if (!display)
            qFatal("XPeer - no X server");
        XSetErrorHandler(ignore_error);
    }
    ~Connection() { XCloseDisplay(display); }
    Q_DISABLE_COPY_MOVE(Connection)

    [[nodiscard]] ::Window root() const { return XDefaultRootWindow(display); }
    [[nodiscard]] Atom atom(const QByteArray &name) const { return XInternAtom(display, name.constData(), False); }
};

XPeer::XPeer() : m_connection(std::make_unique<Connection>()) { }

XPeer::~XPeer() = default;

bool XPeer::hasAtom(const QByteArray &name) const
{
    return XInternAtom(m_connection->display, name.constData(), True) != 0;
}

unsigned long XPeer::atom(const QByteArray &name) const
{
    return m_connection->atom(name);
}

XPeer::Window XPeer::makeWindow()
{
    const ::Window window = XCreateSimpleWindow(m_connection->display, m_connection->root(), 0, 0, 10, 10, 0, 0, 0);
    XSync(m_connection->display, False);
    return window;
}

QList<XPeer::Window> XPeer::windowsWith(const QByteArray &property) const
{
    ::Window root = 0;
    ::Window parent = 0;
    ::Window *children = nullptr;
    unsigned int count = 0;
    QList<Window> windows;
    if (XQueryTree(m_connection->display, m_connection->root(), &root, &parent, &children, &count) == 0)
        return windows;
    for (unsigned int i = 0; i < count; ++i) {
        if (read(children[i], property))
            windows.append(children[i]);
    }
    XFree(children);
    return windows;
}

bool XPeer::isShown(Window window) const
{
    XWindowAttributes attributes{};
    return XGetWindowAttributes(m_connection->display, window, &attributes) != 0 && attributes.map_state != IsUnmapped;
}

void XPeer::own(const QByteArray &selection, Window window)
{
    XSetSelectionOwner(m_connection->display, m_connection->atom(selection), window, CurrentTime);
    XSync(m_connection->display, False);
}

XPeer::Window XPeer::owner(const QByteArray &selection) const
{
    const Atom atom = XInternAtom(m_connection->display, selection.constData(), True);
    return atom == 0 ? 0 : XGetSelectionOwner(m_connection->display, atom);
}

void XPeer::write(Window window, const QByteArray &property, const QByteArray &type, const QByteArray &bytes,
                  int format)
{
    const int itemSize = format == 32 ? static_cast<int>(sizeof(long)) : format / 8; // as Xlib takes them
    XChangeProperty(m_connection->display, window, m_connection->atom(property), m_connection->atom(type), format,
                    PropModeReplace, reinterpret_cast<const unsigned char *>(bytes.constData()),
                    static_cast<int>(bytes.size()) / itemSize);
    XSync(m_connection->display, False);
}

void XPeer::remove(Window window, const QByteArray &property)
{
    XDeleteProperty(m_connection->display, window, m_connection->atom(property));
    XSync(m_connection->display, False);
}

std::optional<XPeer::Property> XPeer::read(Window window, const QByteArray &property) const
{
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char *data = nullptr;
    constexpr long everything = std::numeric_limits<int>::max() / 4;
    if (XGetWindowProperty(m_connection->display, window, m_connection->atom(property), 0, everything, False,
                           AnyPropertyType, &type, &format, &count, &rest, &data)
            != Success
        || type == 0)
        return {};
    char *const typeName = XGetAtomName(m_connection->display, type);
    Property result{.type = typeName, .format = format, .bytes = {}};
    if (format == 8)
        result.bytes = QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(count));
    XFree(typeName);
    XFree(data);
    return result;
}

Display *XPeer::display() const
{
    return m_connection->display;
}
