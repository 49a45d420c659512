#pragma once

/// Whether the X server can be reached that a program with these arguments would use: the one that
/// "-display" names, or else the one of the environment.
[[nodiscard]] bool x_server_reachable(int argc, const char *const *argv);
