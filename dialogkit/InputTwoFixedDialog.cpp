#include "InputTwoFixedDialog.h"

#include "dialog_frame.h"
#include "FixedSpinBox.h"
#include "FixedSpinBoxControl.h"

#include <QVBoxLayout>

namespace {

constexpr int MinimumWidth = 200;

} // namespace

InputTwoFixedDialog::InputTwoFixedDialog(const QString &title, const QString &label1, const QString &toolTip1,
                                         const QString &label2, const QString &toolTip2, double min, double max,
                                         double init, double step, int decimals, QWidget *parent, const char *name,
                                         bool modal) :
    QDialog(parent, DialogFlags)
{
    const auto makeControl = [&, this](const QString &label, const QString &toolTip) {
        return new FixedSpinBoxControl(label.toLocal8Bit().constData(), toolTip.toLocal8Bit().constData(), min, max,
                                       init, step, decimals, this);
    };
    identify_dialog(*this, title, name, modal);
    m_first = makeControl(label1, toolTip1);
    m_second = makeControl(label2, toolTip2);

    auto *const layout = new QVBoxLayout(this);
    set_dialog_spacing(*layout);
    layout->setAlignment(Qt::AlignTop); // an enlarged dialog does not pull its parts asunder
    layout->addWidget(m_first);
    layout->addWidget(m_second);
    layout->addLayout(make_button_row(*this).layout);
    fit_size(*this, MinimumWidth);
}

double InputTwoFixedDialog::first() const
{
    return m_first->m_control->value();
}

double InputTwoFixedDialog::second() const
{
    return m_second->m_control->value();
}
