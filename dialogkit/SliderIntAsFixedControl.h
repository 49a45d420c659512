#pragma once

#include "Q3VBox.h"

class QSlider;

/// A slider whose labels could show tenths, but show the plain whole numbers.
class SliderIntAsFixedControl : public Q3VBox
{
    Q_OBJECT

public:
    /// @param step     page step; the arrow keys step by one
    /// @param caption  in the local 8-bit encoding
    SliderIntAsFixedControl(int min, int max, int init, int step, const char *caption, QWidget *parent = nullptr,
                            const char *name = nullptr);

    QSlider *m_slider = nullptr; ///< named "int_slider"
};
