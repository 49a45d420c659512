#pragma once

#include "Q3VBox.h"

class QSlider;
class SliderLabels;

/// A slider with a caption and an empty row of numbers. Range and numbers are its user's to set.
/// It belongs to the kit; no command uses it.
class SliderControl : public Q3VBox
{
    Q_OBJECT

public:
    /// @param caption, toolTip  in the local 8-bit encoding
    SliderControl(const char *caption, const char *toolTip, QWidget *parent = nullptr, const char *name = nullptr);

    SliderLabels *m_labels = nullptr;
    QSlider *m_slider = nullptr; ///< named "slider"
};
