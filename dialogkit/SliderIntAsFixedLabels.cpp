#include "SliderIntAsFixedLabels.h"

#include "QIntAsFixedLabel.h"
#include "slider_frame.h"

SliderIntAsFixedLabels::SliderIntAsFixedLabels(QWidget *parent, const char *name) : Q3HBox(parent, name)
{
    setSpacing(5);
    m_min = new QIntAsFixedLabel(this); // the order of creation is the order on screen
    m_value = new QIntAsFixedLabel(this);
    m_max = new QIntAsFixedLabel(this);
    align_numbers(*m_min, *m_value, *m_max);
}
