#include "CachedScrollBar.h"

#include <QPainter>
#include <QStyle>

namespace {

constexpr int Rim = 2;

constexpr QStyle::SubControls Ground =
    QStyle::SC_ScrollBarGroove | QStyle::SC_ScrollBarAddPage | QStyle::SC_ScrollBarSubPage;
constexpr QStyle::SubControls Arrows = QStyle::SC_ScrollBarAddLine | QStyle::SC_ScrollBarSubLine;

} // namespace

CachedScrollBar::CachedScrollBar(Qt::Orientation orientation, QWidget *parent) : QScrollBar(orientation, parent) { }

void CachedScrollBar::paintEvent(QPaintEvent *event)
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    // Under the mouse parts of the bar light up, and only this style is known to draw part after part.
    if (option.activeSubControls != QStyle::SC_None || !style()->inherits("QFusionStyle")) {
        QScrollBar::paintEvent(event);
        return;
    }

    const QRect slider = style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
    if (!showsCached(option, slider.size()))
        cache(option, slider);
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_ground);
    painter.drawPixmap(slider.topLeft() - QPoint(Rim, Rim), m_slider);
    painter.drawPixmap(0, 0, m_arrows); // the outline of the slider reaches into theirs
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
