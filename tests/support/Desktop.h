#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>

#include <memory>

using WindowId = unsigned long;

/// The X server that DISPLAY names, seen from outside any program: top-level windows, pointer and keys.
///
/// Units:   pixels of the first screen, the origin at its top left.
/// Errors:  without a server the test program ends. A window that has gone in the meantime gives empty
///          answers: windows of another process may go at any time. So does a server that has gone.
/// Input:   goes through the XTEST extension, so programs cannot tell it from a person's.
class Desktop
{
public:
    Desktop();
    ~Desktop();
    Q_DISABLE_COPY_MOVE(Desktop)

    /// Top-level windows of a process that the window manager lists, oldest first.
    [[nodiscard]] QList<WindowId> windowsOf(qint64 processId) const;
    [[nodiscard]] QString title(WindowId window) const;
    /// The newest window with this title, whose ever it is; 0 if there is none.
    [[nodiscard]] WindowId windowTitled(const QString &wanted) const;
    /// The client area, without the window manager's frame.
    [[nodiscard]] QRect geometry(WindowId window) const;
    /// The window that has the keyboard by the window manager's word, 0 for none.
    [[nodiscard]] WindowId activeWindow() const;

    /// Asks the program to close the window, as the window manager does when its close button is pressed
    /// (ICCCM 4.2.8.1).
    void close(WindowId window);
    void resize(WindowId window, QSize size);
    void move(WindowId window, QPoint topLeft);

    /// What stands on the screen within @p area, 32-bit RGB; a null image if the area leaves the screen.
    [[nodiscard]] QImage picture(const QRect &area) const;
    [[nodiscard]] QRgb pixel(QPoint point) const;

    void movePointer(QPoint point);
    void pressButton(unsigned int button = LeftButton);
    /// Returns when the program has been sent the release, so that keys that follow come after it.
    void releaseButton(unsigned int button = LeftButton);
    void click(QPoint point, unsigned int button = LeftButton);
    /// Presses at @p from, passes over every point of @p path in turn and lets go at the last one. A busy
    /// program may be told of the last of several moves alone.
    void drag(QPoint from, const QList<QPoint> &path);

    /// Types one key, known by its X name ("Return", "Escape", "y"), with Control or Alt held if told.
    void pressKey(const char *name, const QList<const char *> &heldKeys = {});

    static constexpr unsigned int LeftButton = 1;
    static constexpr unsigned int RightButton = 3;

private:
    struct Connection;
    std::unique_ptr<Connection> m_connection;
};
