#include "SliderControl.h"

#include "slider_frame.h"
#include "SliderLabels.h"

#include <QSlider>

SliderControl::SliderControl(const char *caption, const char *toolTip, QWidget *parent, const char *name) :
    Q3VBox(parent, name)
{
    const SliderFrame frame = make_slider_frame(*this, caption, Qt::AlignLeft | Qt::AlignTop);
    m_labels = new SliderLabels(frame.column, "labels");
    m_slider = add_slider(frame, "slider", toolTip);
}
