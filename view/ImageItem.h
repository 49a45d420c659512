#pragma once

#include "Q3CanvasPixmap.h"
#include "Q3CanvasSprite.h"

#include <QImage>
#include <QString>

#include <memory>

class ImageView;

/// The page on the canvas of an ImageView: a sprite of one frame, and the page itself beside it.
///
/// Ownership: the view's; taken off its canvas before it is destroyed.
class ImageItem : public Q3CanvasSprite
{
public:
    static constexpr int Rtti = 984379;

    /// An item with an empty frame, hidden.
    ImageItem(ImageView *view, Q3Canvas *canvas);

    [[nodiscard]] int rtti() const override { return Rtti; }

    /// Makes @p image the picture. False if no frame of its width could be made: the former frame then
    /// stays on the canvas, while pageImage() is already the new one.
    [[nodiscard]] bool setImage(const QImage &image);

    [[nodiscard]] const QImage &pageImage() const { return m_image; }

    void draw(QPainter &painter) override;

    /// One line of state for a log, which nobody writes so far.
    [[nodiscard]] QString dump() const;

private:
    std::unique_ptr<Q3CanvasPixmapArray> m_frames; ///< the sprite borrows it
    [[maybe_unused]] ImageView *m_view; ///< the view that made the item
    QImage m_image;
};
