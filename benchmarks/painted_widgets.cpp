#include "painted_widgets.h"

#include "Q3Canvas.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QRegion>

#include <chrono>
#include <utility>

BareWidget::BareWidget(std::function<void(QPainter &)> paintAll) : paint(std::move(paintAll))
{
    setAttribute(Qt::WA_OpaquePaintEvent); // no ground beneath: the function covers all
}

void BareWidget::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    paint(painter);
}

Stage::Stage(QWidget *painted) : widget(painted)
{
    widget->installEventFilter(this);
}

void Stage::bringUp()
{
    QWidget *const window = widget->window();
    if (!window->isVisible()) {
        window->setWindowFlag(Qt::BypassWindowManagerHint); // no frame, and nobody to move it
        window->move(0, 0);
        window->show();
    }
    window->raise();
    widget->repaint(); // the reply of the X server to it follows all that the raising brings
    QElapsedTimer quiet;
    for (quiet.start(); quiet.elapsed() < 30;) {
        const int before = count;
        QApplication::processEvents();
        if (count != before)
            quiet.restart();
    }
}

double Stage::secondsUntilPainted(const std::function<void()> &step) const
{
    const int before = count;
    const auto start = std::chrono::steady_clock::now();
    step();
    while (count == before)
        QApplication::processEvents();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Stage::secondsUntilSettled(const std::function<void()> &step) const
{
    constexpr int quietTurns = 3;
    const int before = count;
    const auto start = std::chrono::steady_clock::now();
    auto last = start;
    step();
    for (int quiet = 0; quiet < quietTurns || count == before; ++quiet) {
        const int known = count;
        QApplication::processEvents();
        if (count != known) {
            last = std::chrono::steady_clock::now();
            quiet = 0;
        }
    }
    return std::chrono::duration<double>(last - start).count();
}

bool Stage::eventFilter(QObject *watched, QEvent *event)
{
    count += event->type() == QEvent::Paint ? 1 : 0;
    return QObject::eventFilter(watched, event);
}

void fit_viewport(QWidget &window, const QWidget &viewport, QSize size)
{
    // A scroll bar that comes or goes takes several goes to settle.
    for (int i = 0; i < 4; ++i) {
        window.resize(window.size() + size - viewport.size());
        QApplication::processEvents();
    }
}

void show_page(ImageView &view, const QImage &page)
{
    if (!view.setImage(page))
        qFatal("the view refused the page");
    view.canvas()->resize(page.width(), page.height());
}

void send_mouse(QWidget *widget, QEvent::Type type, QPoint at, bool leftHeld)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, leftHeld ? Qt::LeftButton : Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

double seconds_of_repaint(Stage &stage, QWidget &widget)
{
    double seconds = 0;
    for (int i = 0; i < PaintingsOfARound; ++i)
        seconds += stage.secondsUntilPainted([&widget] { widget.update(); });
    return seconds / PaintingsOfARound;
}

ShownView::ShownView(const QImage &page, int zoomIndex, QSize viewportSize)
{
    show_page(view, page);
    (void)view.setZoomIndex(zoomIndex);
    stage.bringUp();
    fit_viewport(view, *view.viewport(), viewportSize);
    if (view.viewport()->size() != viewportSize)
        qFatal("the picture has another size than that of the bare widget");
}

ShownWidget::ShownWidget(std::function<void(QPainter &)> paint, QSize size) : widget(std::move(paint))
{
    widget.resize(size);
    stage.bringUp();
}

std::function<void(QPainter &)> pixmap_painting(const QImage &page, double factor, QSize size)
{
    const QPixmap pixmap = QPixmap::fromImage(page);
    const QRect covered(QPoint(0, 0), (QSizeF(pixmap.size()) * factor).toSize());
    const QRegion ground = QRegion(QRect(QPoint(0, 0), size)) - covered;
    return [=](QPainter &painter) {
        for (const QRect &rectangle : ground)
            painter.fillRect(rectangle, Qt::gray);
        painter.scale(factor, factor);
        painter.drawPixmap(0, 0, pixmap);
    };
}
