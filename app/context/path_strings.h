#pragma once

#include <cstddef>

// Paths and other strings in buffers of fixed size.
//
// Sizes:   bytes of a buffer, its NUL included. A text that does not fit is cut; the buffer always ends in
//          NUL, and one of size 0 is left alone.
// Nulls:   a null text counts as an empty one.
// Results: the buffer that was given, so that calls can be nested. The functions named "static" answer with
//          a buffer of their own, which their next call overwrites: the caller copies it at once.
// Threads: one, for the static buffers' sake.

/// Copies, and fills what is left of the buffer with NULs.
char *copy_str(char *dst, const char *src, std::size_t size);

/// Removes one "\n" from the end. Nobody calls it so far.
char *strip_newline(char *s);

/// Puts the current directory in front of a relative path, less one "./"; without a current directory the
/// path stays relative. ".." and symbolic links stand as they are.
/// Intended: below the root directory the result has no "/" in front.
/// @param buf  an empty string is the answer if it is null
char *abs_path(const char *path, char *buf, std::size_t size);
char *abs_path_static(const char *path); ///< 4096 bytes

/// Both with one "/" between them; one that @p dir ends in is enough.
char *join_path(const char *dir, const char *name, char *buf, std::size_t size);
char *join_path_static(const char *dir, const char *name); ///< 4096 bytes

/// Byte by byte, as the process's locale has it. Nobody calls those named "static" so far.
char *str_lower(const char *src, char *dst, int size);
char *str_upper(const char *src, char *dst, int size);
char *str_lower_static(const char *src); ///< 1024 bytes
char *str_upper_static(const char *src); ///< 1024 bytes
