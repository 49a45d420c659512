#include "LineEditControl.h"

#include <QLabel>
#include <QLineEdit>

LineEditControl::LineEditControl(const char *caption, const char *text, const char *toolTip, QWidget *parent,
                                 const char *name) :
    LabeledControl(caption, toolTip, parent, name),
    m_control(new QLineEdit(QString::fromLatin1(text), this))
{
    captionInput(m_control, toolTip);
}
