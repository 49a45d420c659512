#pragma once

#include "reduced_axis.h"

#include <QImage>
#include <QRect>
#include <QRegion>
#include <QSize>

#include <functional>

class QPainter;

/// How a page that is shown reduced lies under the pixels of the screen.
struct ReducedPlane
{
    ReducedAxis across;
    ReducedAxis down;

    /// The screen pixels that show the page.
    [[nodiscard]] QRect shown() const
    {
        return {QPoint(across.first(), down.first()), QPoint(across.end() - 1, down.end() - 1)};
    }

    bool operator==(const ReducedPlane &other) const = default;
};

/// What a reduced page looks like on the screen, averaged as far as it has been shown: the visible part and what was
/// visible around it. Empty at first.
///
/// Units:  pixels of the screen, counted as ReducedAxis tells.
/// Memory: at most 8 MB, or 1.5 times what the visible part takes at 4 bytes a pixel if that is more.
class ShownAverages
{
public:
    /// Draws @p exposed, averaging what is not there yet. Draws nothing if there is no memory for it.
    /// @param painter  in screen pixels, the page's pixel (0,0) being at @p origin
    /// @param page     the same page until clear()
    /// @param exposed  a part of the visible part
    /// @param visible  the size of the part of the page that is visible
    void draw(QPainter &painter, const QPoint &origin, const QImage &page, const ReducedPlane &plane,
              const QRect &exposed, const QSize &visible);

    /// Forgets all and gives the memory back.
    void clear();

private:
    using Draw = std::function<void(const QRect &part, const QPoint &stored)>;

    void fit(const QSize &visible, QImage::Format format);
    void show(const QRect &exposed);
    void average(const QImage &page, const QRect &area);
    void takeOver(const ShownAverages &former);
    void forEachPart(const QRect &area, const Draw &draw) const;
    [[nodiscard]] const uchar *storedAt(const QPoint &stored) const;

    ReducedPlane m_plane;
    // The averages of a window that moves with the visible part. Each has its place in the store by its coordinates
    // modulo the store's size, so that a move leaves all where they are that stay in the window.
    QImage m_store;
    QRect m_window; ///< as large as the store
    QRegion m_known; ///< the part of the window that is averaged
};
