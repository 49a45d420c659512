#include "QuickIconStyle.h"

#include <QApplication>
#include <QImageReader>
#include <QPixmap>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace {

/// From the files that the toolkit's styles take it from; null if they are not there, as in another version of it.
QIcon extension_icon()
{
    QIcon icon;
    for (const int width : {8, 16, 32}) {
        QImageReader reader(u":/qt-project.org/styles/commonstyle/images/toolbar-ext-h-%1.png"_s.arg(width), "png");
        reader.setAutoDetectImageFormat(false); // by the built-in reader
        const QPixmap pixmap = QPixmap::fromImageReader(&reader);
        if (pixmap.isNull())
            return {};
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace

QIcon QuickIconStyle::standardIcon(StandardPixmap standardIcon, const QStyleOption *option, const QWidget *widget) const
{
    const Qt::LayoutDirection direction = option ? option->direction : QApplication::layoutDirection();
    if (standardIcon == SP_ToolBarHorizontalExtensionButton && direction == Qt::LeftToRight) {
        if (m_extension.isNull())
            m_extension = extension_icon();
        if (!m_extension.isNull())
            return m_extension;
    }
    return QProxyStyle::standardIcon(standardIcon, option, widget);
}
