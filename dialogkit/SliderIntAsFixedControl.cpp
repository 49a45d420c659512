#include "SliderIntAsFixedControl.h"

#include "QIntAsFixedLabel.h"
#include "slider_frame.h"
#include "SliderIntAsFixedLabels.h"

#include <QSlider>

SliderIntAsFixedControl::SliderIntAsFixedControl(int min, int max, int init, int step, const char *caption,
                                                 QWidget *parent, const char *name) :
    Q3VBox(parent, name)
{
    const SliderFrame frame = make_slider_frame(*this, caption, Qt::AlignLeft | Qt::AlignBottom);
    auto *const labels = new SliderIntAsFixedLabels(frame.column, "labels");
    m_slider = add_slider(frame, "int_slider", nullptr);

    // Intended: QLabel's setNum throughout, here and in the connection. Users of the preview set whole
    // percents; the tenths of QIntAsFixedLabel are not theirs.
    labels->m_min->QLabel::setNum(min);
    labels->m_value->QLabel::setNum(init);
    labels->m_max->QLabel::setNum(max);
    m_slider->setRange(min, max);
    m_slider->setPageStep(step);
    m_slider->setValue(init);
    connect(m_slider, &QSlider::valueChanged, labels->m_value, qOverload<int>(&QLabel::setNum));
}
