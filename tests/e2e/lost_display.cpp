#include "lost_display.h"

// Behind the toolkit's headers, which its macros would break.
#include <X11/Xlib.h>

void lose_display_of(WindowId window)
{
    Display *const display = XOpenDisplay(nullptr);
    if (!display)
        qFatal("no X server");
    XKillClient(display, window);
    XCloseDisplay(display); // waits until the server has done it
}
