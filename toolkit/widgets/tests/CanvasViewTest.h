#pragma once

#include "Q3Canvas.h"
#include "Q3CanvasView.h"

#include <QImage>
#include <QTest>

#include <memory>

inline constexpr QSize Window(120, 100);
inline constexpr QRgb Surround = 0xff806040;
inline constexpr QRgb Ground = 0xffe0e0c0;

/// The columns or rows of a line through @p image that have @p colour, as "first..last".
[[nodiscard]] inline QString run(const QImage &image, Qt::Orientation orientation, int across, QRgb colour)
{
    const int length = orientation == Qt::Horizontal ? image.width() : image.height();
    QList<int> found;
    for (int along = 0; along < length; ++along) {
        const QRgb pixel = orientation == Qt::Horizontal ? image.pixel(along, across) : image.pixel(across, along);
        if (pixel == colour)
            found.append(along);
    }
    if (found.isEmpty())
        return QStringLiteral("none");
    if (found.constLast() - found.constFirst() + 1 != found.size())
        return QStringLiteral("with gaps");
    return QStringLiteral("%1..%2").arg(found.constFirst()).arg(found.constLast());
}

/// What tests of the view begin with.
class CanvasViewTest : public QObject
{
protected:
    void showView()
    {
        canvas = std::make_unique<Q3Canvas>();
        canvas->resize(60, 40);
        view = std::make_unique<Q3CanvasView>();
        view->setFrameStyle(QFrame::NoFrame);
        view->setCanvas(canvas.get());
        canvas->setBackgroundColor(Ground);
        QPalette palette = view->viewport()->palette();
        palette.setColor(view->viewport()->backgroundRole(), Surround);
        view->viewport()->setPalette(palette);
        view->resize(Window);
        view->setAttribute(Qt::WA_DontShowOnScreen);
        view->show();
    }
    void dropView()
    {
        view.reset();
        canvas.reset();
    }

    void zoom(double factor) { QVERIFY(view->setWorldMatrix(QTransform::fromScale(factor, factor))); }
    [[nodiscard]] QImage shot() const
    {
        return view->viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

    std::unique_ptr<Q3Canvas> canvas; ///< 60 by 40, pale
    std::unique_ptr<Q3CanvasView> view; ///< 120 by 100 visible, with a brown surround
};
