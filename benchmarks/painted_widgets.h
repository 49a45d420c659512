#pragma once

#include "ImageView.h"

#include <QEvent>
#include <QObject>
#include <QPoint>
#include <QSize>
#include <QWidget>

#include <functional>

class QImage;
class QPainter;

/// A widget that paints itself by one function and by nothing else.
class BareWidget : public QWidget
{
public:
    explicit BareWidget(std::function<void(QPainter &)> paintAll);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::function<void(QPainter &)> paint;
};

/// A widget on the screen, and how often it was painted.
///
/// Ownership: borrows the widget.
class Stage : public QObject
{
public:
    /// @param painted  the widget itself or the viewport of it
    explicit Stage(QWidget *painted);

    [[nodiscard]] int paintCount() const { return count; }

    /// Brings the window to the front at the left top of the screen and lets all that follows settle.
    void bringUp();

    /// Seconds of @p step and of the painting that it asked for, which must come.
    [[nodiscard]] double secondsUntilPainted(const std::function<void()> &step) const;

    /// The same up to the last painting, where one brings about another.
    [[nodiscard]] double secondsUntilSettled(const std::function<void()> &step) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *widget;
    int count = 0;
};

/// Makes the part of a window that shows the picture @p size large.
/// @param window    the view itself if it is a window
/// @param viewport  the viewport of the view
void fit_viewport(QWidget &window, const QWidget &viewport, QSize size);

/// Gives the view a page as the main window does.
void show_page(ImageView &view, const QImage &page);

/// Sends a mouse event at a point of the widget, with the left button held or not.
void send_mouse(QWidget *widget, QEvent::Type type, QPoint at, bool leftHeld);

/// Steps that a round of painting takes the mean of.
constexpr int PaintingsOfARound = 40;

/// Mean seconds of a repaint that is asked for and comes by the event loop, as those that follow the mouse do.
[[nodiscard]] double seconds_of_repaint(Stage &stage, QWidget &widget);

/// A view on the screen that shows a page.
struct ShownView
{
    ShownView(const QImage &page, int zoomIndex, QSize viewportSize);

    ImageView view{nullptr};
    Stage stage{view.viewport()};
};

/// A bare widget on the screen.
struct ShownWidget
{
    ShownWidget(std::function<void(QPainter &)> paint, QSize size);

    BareWidget widget;
    Stage stage{&widget};
};

/// Paints a page by drawPixmap, and the ground only where the page does not reach: the same picture by the plainest road.
[[nodiscard]] std::function<void(QPainter &)> pixmap_painting(const QImage &page, double factor, QSize size);
