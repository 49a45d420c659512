#include "InputFixedDialog.h"

#include "dialog_frame.h"
#include "DoubleSliderControl.h"

#include <QSlider>
#include <QVBoxLayout>

namespace {

constexpr int MinimumWidth = 320;

} // namespace

InputFixedDialog::InputFixedDialog(const QString &title, const QString &label, const QString &toolTip, double min,
                                   double max, double init, double step, int /*decimals*/, QWidget *parent,
                                   const char *name, bool modal) :
    QDialog(parent, DialogFlags),
    m_control(new DoubleSliderControl(min, max, init, step, label.toLocal8Bit().constData(),
                                      toolTip.toLocal8Bit().constData(), this))
{
    identify_dialog(*this, title, name, modal);
    auto *const layout = new QVBoxLayout(this);
    set_dialog_spacing(*layout);
    layout->setAlignment(Qt::AlignTop); // an enlarged dialog does not pull its parts asunder
    layout->addWidget(m_control);
    layout->addLayout(make_button_row(*this).layout);
    fit_size(*this, MinimumWidth);
}

double InputFixedDialog::value() const
{
    return m_control->m_slider->value() * m_control->m_step;
}
