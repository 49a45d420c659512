#pragma once

#include <QByteArray>
#include <QGuiApplication>
#include <QList>

#include <memory>
#include <optional>

/// A client of the X server that DISPLAY names, apart from any toolkit: it owns selections and reads and writes
/// properties, its own and those of others, byte by byte.
///
/// Windows are children of the root window and never shown; they go with the object. All calls wait until
/// the server has done what they ask for.
///
/// Errors: without a server the test program ends. A window that has gone in the meantime answers with nothing.
class XPeer
{
public:
    using Window = unsigned long;

    struct Property
    {
        QByteArray type;
        int format = 0; ///< bits of an item
        QByteArray bytes; ///< of format 8 alone

        bool operator==(const Property &) const = default;
    };

    XPeer();
    ~XPeer();
    Q_DISABLE_COPY_MOVE(XPeer)

    [[nodiscard]] bool hasAtom(const QByteArray &name) const;
    /// The number of a name, which is made if the server has not heard of it.
    [[nodiscard]] unsigned long atom(const QByteArray &name) const;

    [[nodiscard]] Window makeWindow();
    /// The children of the root window that have a property of this name, the topmost last.
    [[nodiscard]] QList<Window> windowsWith(const QByteArray &property) const;
    [[nodiscard]] bool isShown(Window window) const;

    void own(const QByteArray &selection, Window window);
    /// 0 if nobody owns it, or if it has never been heard of.
    [[nodiscard]] Window owner(const QByteArray &selection) const;

    /// @param format  8, 16 or 32: the bytes are items of so many bits
    void write(Window window, const QByteArray &property, const QByteArray &type, const QByteArray &bytes,
               int format = 8);
    void remove(Window window, const QByteArray &property);
    [[nodiscard]] std::optional<Property> read(Window window, const QByteArray &property) const;

    /// The connection, which belongs to the object.
    [[nodiscard]] Display *display() const;

private:
    struct Connection;
    std::unique_ptr<Connection> m_connection;
};
