#include "SimplePreviewDialog.h"

#include "dialog_frame.h"
#include "Q3GroupBox.h"
#include "SliderIntAsFixedControl.h"

#include <QGridLayout>
#include <QSlider>

using namespace Qt::StringLiterals;

namespace {

constexpr int MinimumWidth = 200;
constexpr int MinimumSliderWidth = 220; // a pixel for each value of brightness and contrast, and some to spare

} // namespace

SimplePreviewDialog::SimplePreviewDialog(const QString &title, const QImage &image, ImageTransform transform,
                                         QWidget *parent, int kind, const PreviewParameters &parameters,
                                         const char *name, bool modal) :
    QDialog(parent, DialogFlags),
    m_kind(kind),
    m_transform(transform),
    m_pageSize(image.size())
{
    identify_dialog(*this, title, name, modal);

    auto *const group = new Q3GroupBox(1, Qt::Horizontal, tr("Preview"), this);
    group->setInsideMargin(DialogSpacing);
    group->setInsideSpacing(DialogSpacing);
    m_thumbnail = new Thumbnail(image, group);
    m_thumbnail->setAccessibleName(group->title());
    group->alignInside(m_thumbnail, Qt::AlignCenter);
    m_thumbnail->show();
    if (m_kind == PreviewWithSlider) {
        m_control = new SliderIntAsFixedControl(parameters.min, parameters.max, parameters.init, parameters.step,
                                                parameters.label.toLocal8Bit().constData(), this);
        m_control->m_slider->setMinimumWidth(MinimumSliderWidth);
    }

    auto *const layout = new QGridLayout(this);
    layout->setObjectName("DLayout"_L1);
    set_dialog_spacing(*layout);
    layout->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    layout->addWidget(group, 0, 0);
    if (m_control)
        layout->addWidget(m_control, 0, 2, Qt::AlignVCenter);
    layout->addLayout(make_button_row(*this).layout, 2, m_control ? 2 : 0);

    if (m_control) {
        connect(m_control->m_slider, &QSlider::valueChanged, this,
                qOverload<int>(&SimplePreviewDialog::change_preview));
        change_preview(parameters.init);
    } else {
        change_preview();
    }
    fit_size(*this, MinimumWidth);
}

void SimplePreviewDialog::value(int *out) const
{
    if (m_kind == PreviewWithSlider)
        *out = m_control->m_slider->value();
}

void SimplePreviewDialog::change_preview()
{
    if (m_thumbnail->convert(m_transform, nullptr)) // on failure the last picture stands
        m_thumbnail->setAccessibleDescription(shownSize());
}

void SimplePreviewDialog::change_preview(int i)
{
    if (m_thumbnail->convert(m_transform, &i)) // on failure the last picture stands
        m_thumbnail->setAccessibleDescription(u"%1 %2. %3"_s.arg(windowTitle()).arg(i).arg(shownSize()));
}

/// What the preview is of, for one who does not see it.
QString SimplePreviewDialog::shownSize() const
{
    const QSize shown = m_thumbnail->pictureSize();
    return tr("Page of %1 x %2 pixels, shown at %3 x %4.")
        .arg(m_pageSize.width())
        .arg(m_pageSize.height())
        .arg(shown.width())
        .arg(shown.height());
}
