#include "x_server.h"

#include <string_view>

#include <X11/Xlib.h>

bool x_server_reachable(int argc, const char *const *argv)
{
    const char *name = nullptr; // the one of the environment
    for (int i = 1; i + 1 < argc; ++i) {
        const std::string_view option = argv[i];
        if (option == "-display" || option == "--display")
            name = argv[i + 1];
    }
    Display *const display = XOpenDisplay(name);
    if (!display)
        return false;
    XCloseDisplay(display);
    return true;
}
