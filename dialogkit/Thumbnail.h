#pragma once

#include "pixel_operations.h"

#include <QImage>
#include <QPixmap>
#include <QWidget>

/// A small copy of a page that shows what a transformation makes of it, on the ground of its parent. Nothing shows
/// before the first convert().
///
/// Units:   pixels; the copy is at most 160 wide and high.
/// Errors:  an image without width or height ends the process: callers show no empty page.
class Thumbnail : public QWidget
{
    Q_OBJECT

public:
    /// @param name  becomes the object name; may be null
    explicit Thumbnail(const QImage &image, QWidget *parent = nullptr, const char *name = nullptr,
                       Qt::WindowFlags flags = {});

    /// Shows the copy as @p transform changes it.
    /// @param parameter  handed to @p transform; may be null if that needs none
    /// @return false if there is no result; then the last picture stays
    bool convert(ImageTransform transform, const int *parameter);

    /// Of what is shown; empty before the first convert().
    [[nodiscard]] QSize pictureSize() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

    /// For derived classes to say; nobody asks so far.
    [[nodiscard]] virtual Qt::WindowFlags extraFlags() const { return {}; }

private:
    QImage m_source;
    QImage m_result;
    QPixmap m_pixmap;
};

/// The copy of @p image that a Thumbnail works on, which must have a width and a height.
///
/// Both sides of the target are taken from the width of the page. So small and wide pages fill 160
/// pixels, and a tall page comes out smaller than it could.
[[nodiscard]] QImage reduced_copy(const QImage &image);

/// The transformation that changes nothing, for a plain preview; no command shows one.
/// @return whether @p dst is not null
[[nodiscard]] bool trans_copy(const QImage &src, QImage &dst, const int *parameter);
