#include "CheckBoxControl.h"

#include <QCheckBox>

CheckBoxControl::CheckBoxControl(const char *text, const char *toolTip, QWidget *parent, const char *name) :
    Q3HBox(parent, name),
    m_control(new QCheckBox(QString::fromLatin1(text), this))
{
    setSpacing(5);
    m_control->setToolTip(QString::fromLocal8Bit(toolTip));
}
