#include "DoubleSliderControl.h"

#include "slider_frame.h"
#include "SliderLabels.h"

#include <QLabel>
#include <QSlider>

#include <cmath>

DoubleSliderControl::DoubleSliderControl(double min, double max, double init, double step, const char *caption,
                                         const char *toolTip, QWidget *parent, const char *name) :
    Q3VBox(parent, name),
    m_step(step),
    m_min(min)
{
    const SliderFrame frame = make_slider_frame(*this, caption, Qt::AlignLeft | Qt::AlignTop);
    m_labels = new SliderLabels(frame.column, "labels");
    m_slider = add_slider(frame, "double_slider", toolTip);

    const auto inSteps = [step](double value) { return static_cast<int>(std::rint(value / step)); };
    const int lowest = inSteps(min);
    // Intended: a range from 0 starts at one step, since no picture can be scaled by 0.
    const int imin = lowest == 0 ? 1 : lowest;
    const int imax = inSteps(max);
    const int iinit = inSteps(init);

    m_labels->m_min->setNum(imin * step);
    m_labels->m_max->setNum(imax * step);
    m_labels->m_value->setNum(iinit * step);
    m_slider->setRange(imin, imax);
    m_slider->setPageStep(1);
    m_slider->setValue(iinit);
    qDebug("DoubleSliderControl::ctor - min = %g(%d), max = %g(%d), org = %g(%d)", min, imin, max, imax, init, iinit);

    connect(m_slider, &QSlider::valueChanged, this, &DoubleSliderControl::numChanged);
    connect(this, &DoubleSliderControl::sigChanged, m_labels->m_value, qOverload<double>(&QLabel::setNum));
}

void DoubleSliderControl::numChanged(int n)
{
    const double d = n * m_step;
    qDebug("DoubleSliderControl::numChanged - n = %d, d = %g", n, d);
    emit sigChanged(d);
}
