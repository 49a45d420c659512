#pragma once

#include <QPixmap>
#include <QScrollBar>
#include <QStyleOptionSlider>

/// A scroll bar that draws what a plain one draws, from pictures of its parts.
///
/// Styles build a bar of gradients and lines, which takes longer than the part of a scan next to it;
/// but while contents are pulled along, only the place of the slider changes.
class CachedScrollBar : public QScrollBar
{
    Q_OBJECT

public:
    explicit CachedScrollBar(Qt::Orientation orientation, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
    void sliderChange(SliderChange change) override;

private:
    [[nodiscard]] bool isLit() const;
    [[nodiscard]] QRect sliderOf(const QStyleOptionSlider &option) const;
    [[nodiscard]] bool showsCached(const QStyleOptionSlider &option, QSize sliderSize) const;
    void cache(const QStyleOptionSlider &option, const QRect &slider);
    [[nodiscard]] QPixmap drawn(QStyleOptionSlider option, QStyle::SubControls parts) const;

    QStyleOptionSlider m_cachedOption;
    QSize m_cachedSliderSize;
    const QStyle *m_cachedStyle = nullptr; ///< compared, never used
    qreal m_cachedRatio = 0;
    QPixmap m_ground;
    QPixmap m_slider; ///< with a rim, for outlines beside it
    QPixmap m_arrows; ///< clear between them
    QRect m_shownSlider; ///< where the last painting had it; empty if that was not by the pictures
};
