#include "SliderLabels.h"

#include "slider_frame.h"

#include <QLabel>

SliderLabels::SliderLabels(QWidget *parent, const char *name) : Q3HBox(parent, name)
{
    setSpacing(5);
    m_min = new QLabel(this); // the order of creation is the order on screen
    m_value = new QLabel(this);
    m_max = new QLabel(this);
    align_numbers(*m_min, *m_value, *m_max);
}
