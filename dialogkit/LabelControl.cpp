#include "LabelControl.h"

#include <QLabel>

LabelControl::LabelControl(const char *caption, const char *text, const char *toolTip, QWidget *parent,
                           const char *name) :
    LabeledControl(caption, toolTip, parent, name),
    m_control(new QLabel(QString::fromLatin1(text), this))
{
    m_control->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    // Its own text is what it has to say, so the caption does not become its name.
    m_control->setToolTip(QString::fromLocal8Bit(toolTip));
}
