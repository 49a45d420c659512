#include "QtSingletonPrivate.h"

#include <QFile>

#include <array>
#include <vector>

#include <pwd.h>
#include <unistd.h>

// Behind the toolkit's headers, which its macros would break.
#include <X11/Xlib.h>
#include <X11/Xproto.h>

using namespace Qt::StringLiterals;

namespace {

struct Freed
{
    void operator()(void *data) const { XFree(data); }
};

template <typename Item> using XData = std::unique_ptr<Item, Freed>;

} // namespace

QtSingletonPrivate::QtSingletonPrivate()
{
    for (char c = '!'; c <= '~'; ++c)
        atomChars.append(c);
}

QByteArray QtSingletonPrivate::selectionName(const QString &id, const QString &user) const
{
    QString text = id + user;
    if (text.isEmpty())
        return {};
    if (!text.startsWith('_'_L1))
        text.prepend('_'_L1);
    QByteArray name = text.toLocal8Bit();
    for (char &c : name) {
        if (!atomChars.contains(c))
            c = '_';
    }
    return name;
}

void QtSingletonPrivate::startListening(Display *display, const QByteArray &name)
{
    selection = XInternAtom(display, name.constData(), False);
    typeAtom = XInternAtom(display, MessageType, False);
    listenerAtom = XInternAtom(display, (name + "_LISTENER").constData(), False);
    if (selection == 0)
        return;
    listener = std::make_unique<QtSingletonListener>();
    (void)write_property(display, listener->winId(), listenerAtom, listenerAtom, "YES"_ba); // never too long
    firstRequest = XNextRequest(display);
    takeSelection(display);
}

bool QtSingletonPrivate::isOlderThanListening(unsigned long serial) const
{
    return serial != 0 && static_cast<qint32>(serial - firstRequest) < 0; // serials of events have 32 bits
}

void QtSingletonPrivate::takeSelection(Display *display)
{
    const Window window = listener->winId();
    XSetSelectionOwner(display, selection, window, CurrentTime);
    if (XGetSelectionOwner(display, selection) == window)
        owner = true;
}

void QtSingletonPrivate::wakeHeir(Display *display) const
{
    XGrabServer(display); // no listener comes or goes while one is chosen
    Window heir = 0;
    for (const Window window : find_listeners(display, listenerAtom)) {
        if (window != listener->winId())
            heir = window;
    }
    if (heir != 0)
        (void)write_property(display, heir, selection, typeAtom, "a"_ba); // never too long
    XUngrabServer(display);
    XFlush(display);
}

QString login_name()
{
    const passwd *const user = ::getpwuid(::getuid());
    return user ? QFile::decodeName(user->pw_name) : QString();
}

Window find_owner(Display *display, const QByteArray &name, Atom *selection)
{
    *selection = XInternAtom(display, name.constData(), True);
    return *selection == 0 ? 0 : XGetSelectionOwner(display, *selection);
}

bool write_property(Display *display, Window window, Atom property, Atom type, const QByteArray &bytes)
{
    constexpr long wordSize = 4;
    constexpr long headerSize = sizeof(xChangePropertyReq) + wordSize; // a large request has one word more
    const long words = std::max(XExtendedMaxRequestSize(display), XMaxRequestSize(display));
    if (bytes.size() > words * wordSize - headerSize)
        return false;
    XChangeProperty(display, window, property, type, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char *>(bytes.constData()), static_cast<int>(bytes.size()));
    return true;
}

std::optional<QByteArray> read_property(Display *display, Window window, Atom property, Atom type)
{
    constexpr int bytesFormat = 8;
    for (long words = 1024;;) {
        Atom actualType = 0;
        int format = 0;
        unsigned long count = 0;
        unsigned long bytesAfter = 0;
        unsigned char *data = nullptr;
        const int status = XGetWindowProperty(display, window, property, 0, words, False, type, &actualType, &format,
                                              &count, &bytesAfter, &data);
        const XData<unsigned char> owned(data);
        if (status != Success || actualType != type || format != bytesFormat || count == 0)
            return {};
        if (bytesAfter == 0)
            return QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(count));
        words += static_cast<long>(bytesAfter / 4) + 1; // of 4 bytes each
    }
}

QList<Window> find_listeners(Display *display, Atom mark)
{
    QList<Window> listeners;
    for (int screen = 0; screen < ScreenCount(display); ++screen) {
        Window root = 0;
        Window parent = 0;
        Window *children = nullptr;
        unsigned int count = 0;
        if (XQueryTree(display, XRootWindow(display, screen), &root, &parent, &children, &count) == 0)
            continue;
        const XData<Window> owned(children);
        for (unsigned int i = 0; i < count; ++i) {
            if (read_property(display, children[i], mark, mark))
                listeners.append(children[i]);
        }
    }
    return listeners;
}
