#include "IntSpinBoxControl.h"

#include <QSpinBox>

IntSpinBoxControl::IntSpinBoxControl(const char *caption, const char *toolTip, QWidget *parent, const char *name) :
    LabeledControl(caption, toolTip, parent, name),
    m_control(new QSpinBox(this))
{
    captionInput(m_control, toolTip);
}
