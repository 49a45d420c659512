#include "colored_documents.h"

#include "ImageDocument.h"
#include "pictures.h"

QImage page_of(QRgb color)
{
    return solid_page({3, 2}, color);
}

std::unique_ptr<ImageDocument> document_of(const QList<QRgb> &colors)
{
    auto document = std::make_unique<ImageDocument>(QString(), QString());
    for (const QRgb color : colors) {
        if (!document->addPage(page_of(color)))
            qFatal("document_of - a page was refused");
    }
    document->setModified(false);
    return document;
}

QList<QRgb> colors_of(const ImageDocument &document)
{
    QList<QRgb> colors;
    for (uint pi = 1; pi <= document.pageCount(); ++pi)
        colors.append(document.page(pi).pixel(0, 0));
    return colors;
}
