#include "ComboControl.h"

#include "ComboBoxEx.h"

ComboControl::ComboControl(const char *caption, const char *toolTip, QWidget *parent, const char *name) :
    LabeledControl(caption, toolTip, parent, name),
    m_control(new ComboBoxEx(false, this))
{
    captionInput(m_control, toolTip);
}
