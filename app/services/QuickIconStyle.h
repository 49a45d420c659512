#pragma once

#include <QIcon>
#include <QProxyStyle>

/// The desktop's style, which reads the pictures of one button itself. Menu bars and tool bars have that button ready
/// for when they get too narrow, and to look at its three small pictures the toolkit would load every image plug-in
/// there is: some milliseconds of each start.
class QuickIconStyle : public QProxyStyle
{
    Q_OBJECT

public:
    using QProxyStyle::QProxyStyle;

    [[nodiscard]] QIcon standardIcon(StandardPixmap standardIcon, const QStyleOption *option,
                                     const QWidget *widget) const override;

private:
    mutable QIcon m_extension; ///< null until somebody asks
};
