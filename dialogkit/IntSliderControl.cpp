#include "IntSliderControl.h"

#include "slider_frame.h"
#include "SliderLabels.h"

#include <QLabel>
#include <QSlider>

IntSliderControl::IntSliderControl(int min, int max, int init, int step, const char *caption, const char *toolTip,
                                   QWidget *parent, const char *name) :
    Q3VBox(parent, name)
{
    const SliderFrame frame = make_slider_frame(*this, caption, Qt::AlignLeft | Qt::AlignTop);
    m_labels = new SliderLabels(frame.column, "labels");
    m_slider = add_slider(frame, "int_slider", toolTip);

    m_labels->m_min->setNum(min);
    m_labels->m_value->setNum(init);
    m_labels->m_max->setNum(max);
    m_slider->setRange(min, max);
    m_slider->setPageStep(step);
    m_slider->setValue(init);
    connect(m_slider, &QSlider::valueChanged, m_labels->m_value, qOverload<int>(&QLabel::setNum));
}
