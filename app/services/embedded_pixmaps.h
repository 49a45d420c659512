#pragma once

/// Makes the embedded tool pictures known to the default Q3MimeSourceFactory.
///
/// A source file that asks for the pictures includes this header and needs no call: the object below registers
/// the factory before main() and removes it at exit.
///
/// Threads: GUI thread only.

/// Adds the factory of the embedded pictures, once however often it is called.
void register_embedded_pixmaps();

/// Removes and deletes that factory; without one it does nothing. Pictures already handed out as sources die with it.
void unregister_embedded_pixmaps();

class EmbeddedPixmapsRegistration
{
public:
    EmbeddedPixmapsRegistration() { register_embedded_pixmaps(); }
    ~EmbeddedPixmapsRegistration() { unregister_embedded_pixmaps(); }
    EmbeddedPixmapsRegistration(const EmbeddedPixmapsRegistration &) = delete;
    EmbeddedPixmapsRegistration &operator=(const EmbeddedPixmapsRegistration &) = delete;
};

// One object in the whole program. It stands in the header because the linker takes from a static library only
// what somebody refers to: whoever includes this refers to the factory.
inline const EmbeddedPixmapsRegistration embeddedPixmapsRegistration;
