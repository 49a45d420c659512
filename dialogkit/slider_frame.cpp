#include "slider_frame.h"

#include "Q3VBox.h"

#include <QLabel>
#include <QSlider>

namespace {

constexpr int Spacing = 5;

} // namespace

SliderFrame make_slider_frame(Q3VBox &control, const char *caption, Qt::Alignment alignment)
{
    control.setSpacing(Spacing);
    auto *const row = new Q3HBox(&control);
    row->setSpacing(Spacing);
    auto *const label = new QLabel(QString::fromLocal8Bit(caption), row);
    label->setAlignment(alignment);
    auto *const column = new Q3VBox(row);
    column->setSpacing(Spacing);
    return {label, column};
}

QSlider *add_slider(const SliderFrame &frame, const char *name, const char *toolTip)
{
    auto *const slider = new QSlider(Qt::Horizontal, frame.column);
    slider->setObjectName(QString::fromLatin1(name));
    slider->setToolTip(QString::fromLocal8Bit(toolTip));
    frame.caption->setBuddy(slider);
    slider->setAccessibleName(frame.caption->text());
    return slider;
}

void align_numbers(QLabel &lowest, QLabel &current, QLabel &highest)
{
    lowest.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    current.setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    highest.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}
