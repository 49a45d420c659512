#include "CachedScrollBar.h"

#include <QPainter>
#include <QProxyStyle>

namespace {

constexpr int Rim = 2;

constexpr QStyle::SubControls Ground =
    QStyle::SC_ScrollBarGroove | QStyle::SC_ScrollBarAddPage | QStyle::SC_ScrollBarSubPage;
constexpr QStyle::SubControls Arrows = QStyle::SC_ScrollBarAddLine | QStyle::SC_ScrollBarSubLine;

/// Only this style is known to draw part after part.
bool is_drawn_in_parts(const QStyle *style)
{
    const auto *proxy = qobject_cast<const QProxyStyle *>(style);
    return (proxy ? proxy->baseStyle() : style)->inherits("QFusionStyle");
}

} // namespace

CachedScrollBar::CachedScrollBar(Qt::Orientation orientation, QWidget *parent) : QScrollBar(orientation, parent) { }

void CachedScrollBar::paintEvent(QPaintEvent *event)
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    if (isLit() || !is_drawn_in_parts(style())) {
        m_shownSlider = {};
        QScrollBar::paintEvent(event);
        return;
    }

    const QRect slider = sliderOf(option);
    if (!showsCached(option, slider.size()))
        cache(option, slider);
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_ground);
    painter.drawPixmap(slider.topLeft() - QPoint(Rim, Rim), m_slider);
    painter.drawPixmap(0, 0, m_arrows); // the outline of the slider reaches into theirs
    m_shownSlider = slider;
}

/// Only the slider's place changes with the value, and a page moves by several pixels before the slider does by one.
void CachedScrollBar::sliderChange(SliderChange change)
{
    if (change == SliderValueChange && !m_shownSlider.isEmpty() && !isLit()) {
        QStyleOptionSlider option;
        initStyleOption(&option);
        const QRect slider = sliderOf(option);
        if (showsCached(option, slider.size())) {
            if (slider != m_shownSlider)
                update((slider | m_shownSlider).adjusted(-Rim, -Rim, Rim, Rim));
            return;
        }
    }
    QScrollBar::sliderChange(change);
}

/// Under the mouse and while they are pressed, parts of a bar look different.
bool CachedScrollBar::isLit() const
{
    return underMouse() || isSliderDown();
}

QRect CachedScrollBar::sliderOf(const QStyleOptionSlider &option) const
{
    return style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
}

bool CachedScrollBar::showsCached(const QStyleOptionSlider &option, QSize sliderSize) const
{
    return m_cachedStyle == style() && m_cachedRatio == devicePixelRatioF() && m_cachedSliderSize == sliderSize
        && m_cachedOption.rect == option.rect && m_cachedOption.state == option.state
        && m_cachedOption.direction == option.direction && m_cachedOption.palette == option.palette
        && m_cachedOption.minimum == option.minimum && m_cachedOption.maximum == option.maximum
        && m_cachedOption.upsideDown == option.upsideDown;
}

void CachedScrollBar::cache(const QStyleOptionSlider &option, const QRect &slider)
{
    m_ground = drawn(option, Ground);
    m_arrows = drawn(option, Arrows);
    const qreal ratio = devicePixelRatioF();
    const QRectF withRim = QRectF(slider.adjusted(-Rim, -Rim, Rim, Rim));
    // The copy of an image may reach beyond it, as the rim does; that of a pixmap would be cut.
    m_slider = QPixmap::fromImage(drawn(option, QStyle::SC_ScrollBarSlider)
                                      .toImage()
                                      .copy(QRectF(withRim.topLeft() * ratio, withRim.size() * ratio).toRect()));
    m_slider.setDevicePixelRatio(ratio);
    m_cachedOption = option;
    m_cachedSliderSize = slider.size();
    m_cachedStyle = style();
    m_cachedRatio = ratio;
}

QPixmap CachedScrollBar::drawn(QStyleOptionSlider option, QStyle::SubControls parts) const
{
    const qreal ratio = devicePixelRatioF();
    QPixmap pixmap(size() * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    option.subControls = parts;
    style()->drawComplexControl(QStyle::CC_ScrollBar, &option, &painter, this);
    return pixmap;
}
