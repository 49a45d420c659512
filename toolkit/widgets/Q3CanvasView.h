#pragma once

#include "Q3ScrollView.h"

#include <QTransform>

class Q3Canvas;

/// Shows a canvas through a world matrix in a scrolling window.
///
/// The contents are the canvas mapped through the matrix, each side rounded. They lie at the top left of
/// the window; what they leave free shows the viewport's background, which joining a canvas sets to the
/// canvas's background colour.
///
/// Ownership: the canvas is not owned; either may be destroyed first.
class Q3CanvasView : public Q3ScrollView
{
    Q_OBJECT

public:
    explicit Q3CanvasView(QWidget *parent = nullptr, const char *name = nullptr, Qt::WindowFlags flags = {});
    Q_DISABLE_COPY_MOVE(Q3CanvasView)
    ~Q3CanvasView() override;

    /// The canvas shown, null at first.
    [[nodiscard]] Q3Canvas *canvas() const { return m_canvas; }
    void setCanvas(Q3Canvas *canvas);

    /// From canvas to contents coordinates. Nobody asks so far: views ask for the inverse.
    [[nodiscard]] const QTransform &worldMatrix() const { return m_world; }

    /// From contents to canvas coordinates.
    [[nodiscard]] const QTransform &inverseWorldMatrix() const { return m_inverseWorld; }

    /// @return false, with nothing changed, for a matrix that has no inverse
    bool setWorldMatrix(const QTransform &matrix);

    /// The unscaled canvas with the frame, at most three quarters of the desktop.
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    friend class Q3Canvas; // the functions up to updateCanvasRect() are its way to its views

    void canvasDestroyed();
    void setViewportColor(const QColor &color);

    /// The canvas area of the visible part, rounded outwards.
    [[nodiscard]] QRect visibleCanvasRect() const;

    /// Has the window repainted where it shows @p area of the canvas.
    void updateCanvasRect(const QRect &area);

    void updateContentsSize();
    [[nodiscard]] QRect mappedCanvasRect() const;
    [[nodiscard]] QRegion opaqueRegion() const;
    void drawCanvas(QPainter &painter, const QRegion &exposed);

    Q3Canvas *m_canvas = nullptr;
    QTransform m_world;
    QTransform m_inverseWorld;
};
