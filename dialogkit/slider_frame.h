#pragma once

#include <Qt>

class Q3VBox;
class QLabel;
class QSlider;

/// The form that all slider controls share: a caption on the left and, on its right, a column with a
/// row of three numbers above a horizontal slider. The numbers are the control's own business.
struct SliderFrame
{
    QLabel *caption;
    Q3VBox *column; ///< the parent of the row of numbers, and of the slider after it
};

/// Fills @p control, which becomes the owner of everything.
/// @param caption    in the local 8-bit encoding
/// @param alignment  of the caption beside the column
[[nodiscard]] SliderFrame make_slider_frame(Q3VBox &control, const char *caption, Qt::Alignment alignment);

/// Ends the column of @p frame with the slider, for which the caption speaks from then on.
/// @param name     becomes the object name
/// @param toolTip  in the local 8-bit encoding; may be null
[[nodiscard]] QSlider *add_slider(const SliderFrame &frame, const char *name, const char *toolTip);

/// The look of the numbers: lowest on the left, current in the middle, highest on the right.
void align_numbers(QLabel &lowest, QLabel &current, QLabel &highest);
