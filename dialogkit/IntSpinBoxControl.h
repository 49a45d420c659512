#pragma once

#include "LabeledControl.h"

class QSpinBox;

/// A caption above a spin box, whose range is its user's to set.
/// It belongs to the kit; no command uses it.
class IntSpinBoxControl : public LabeledControl
{
    Q_OBJECT

public:
    IntSpinBoxControl(const char *caption, const char *toolTip, QWidget *parent = nullptr, const char *name = nullptr);

    QSpinBox *m_control;
};
