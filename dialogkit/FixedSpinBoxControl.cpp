#include "FixedSpinBoxControl.h"

#include "FixedSpinBox.h"

FixedSpinBoxControl::FixedSpinBoxControl(const char *caption, const char *toolTip, double min, double max, double init,
                                         double step, int decimals, QWidget *parent, const char *name) :
    LabeledControl(caption, toolTip, parent, name),
    m_control(new FixedSpinBox(min, max, init, step, decimals, this))
{
    captionInput(m_control, toolTip);
}
