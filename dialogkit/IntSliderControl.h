#pragma once

#include "Q3VBox.h"

class QSlider;
class SliderLabels;

/// A slider over whole numbers that shows its range and its value.
/// It belongs to the kit; no command uses it.
class IntSliderControl : public Q3VBox
{
    Q_OBJECT

public:
    /// @param step              page step; the arrow keys step by one
    /// @param caption, toolTip  in the local 8-bit encoding
    IntSliderControl(int min, int max, int init, int step, const char *caption, const char *toolTip,
                     QWidget *parent = nullptr, const char *name = nullptr);

    SliderLabels *m_labels = nullptr;
    QSlider *m_slider = nullptr; ///< named "int_slider"
};
