#pragma once

#include "Desktop.h"

/// Has the server end the connection that a window came by. To the program that made it the server has gone.
///
/// Errors: without a server the test program ends.
void lose_display_of(WindowId window);
