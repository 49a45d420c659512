#pragma once

#include "LabeledControl.h"

class FixedSpinBox;

/// A caption above a fixed-point spin box.
class FixedSpinBoxControl : public LabeledControl
{
    Q_OBJECT

public:
    /// The numbers are those of FixedSpinBox.
    FixedSpinBoxControl(const char *caption, const char *toolTip, double min, double max, double init, double step,
                        int decimals, QWidget *parent = nullptr, const char *name = nullptr);

    FixedSpinBox *m_control;
};
