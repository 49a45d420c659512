#pragma once

#include "Q3CanvasItem.h"
#include "Q3CanvasPixmapArray.h"

/// A picture on a canvas: the current frame of a borrowed array, with its hot spot at the position.
///
/// An item that owns its array and deletes it first must be off its canvas by then.
class Q3CanvasSprite : public Q3CanvasItem
{
public:
    static constexpr int Rtti = 1;

    /// @param array  not owned; null is legal until the first question about the picture
    Q3CanvasSprite(Q3CanvasPixmapArray *array, Q3Canvas *canvas);
    Q_DISABLE_COPY_MOVE(Q3CanvasSprite)
    ~Q3CanvasSprite() override;

    [[nodiscard]] int rtti() const override { return Rtti; }

    /// Takes @p array for the frames; a frame that it does not have becomes frame 0.
    void setSequence(Q3CanvasPixmapArray *array);

    /// Nobody asks so far: the sprites of the program have one frame.
    [[nodiscard]] int frame() const { return m_frame; }
    [[nodiscard]] int frameCount() const { return m_array ? m_array->count() : 0; }

    /// The picture of the current frame, null if there is none.
    [[nodiscard]] Q3CanvasPixmap *image() const { return m_array ? m_array->image(m_frame) : nullptr; }

    [[nodiscard]] int leftEdge() const;
    [[nodiscard]] int topEdge() const;
    [[nodiscard]] int width() const;
    [[nodiscard]] int height() const;

    void draw(QPainter &painter) override;
    [[nodiscard]] QRect boundingRect() const override;
    [[nodiscard]] QRect opaqueRect() const override;

private:
    Q3CanvasPixmapArray *m_array;
    int m_frame = 0;
};
