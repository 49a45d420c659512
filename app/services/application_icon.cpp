#include "application_icon.h"

#include "embedded_images.h"

#include <QPixmap>

QIcon application_icon()
{
    QIcon icon;
    for (const EmbeddedImage *row = embedded_application_pictures(); row->data; ++row)
        icon.addPixmap(QPixmap::fromImage(unpack_embedded_image(*row)));
    return icon;
}
