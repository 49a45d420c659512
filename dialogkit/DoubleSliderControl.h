#pragma once

#include "Q3VBox.h"

class QSlider;
class SliderLabels;

/// A slider over fractions. The slider itself counts steps: its value times m_step is the fraction.
class DoubleSliderControl : public Q3VBox
{
    Q_OBJECT

public:
    /// @param min, max, init    rounded to whole steps; a range from 0 starts at one step instead
    /// @param step              above 0
    /// @param caption, toolTip  in the local 8-bit encoding
    DoubleSliderControl(double min, double max, double init, double step, const char *caption, const char *toolTip,
                        QWidget *parent = nullptr, const char *name = nullptr);

    SliderLabels *m_labels = nullptr;
    QSlider *m_slider = nullptr; ///< named "double_slider"
    double m_step;
    double m_min;

signals:
    void sigChanged(double d);

private slots:
    void numChanged(int n);
};
