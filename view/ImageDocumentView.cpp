#include "ImageDocumentView.h"

#include "ImageDocument.h"
#include "ImageItem.h"
#include "Q3Canvas.h"

ImageDocumentView::ImageDocumentView(QWidget *parent) : ImageView(parent) { }

bool ImageDocumentView::setDocument(ImageDocument *document)
{
    if (document->isEmpty())
        return true;

    m_document = document;
    const uint pageCount = document->pageCount();
    for (uint page = 1; page <= pageCount; ++page) {
        if (!setImage(std::as_const(*document).page(page)))
            return false;
    }
    // Intended: this changes no picture. The last page stays on screen until the first change of page 1.
    setCurrentPage(1);

    const QSize size = imageItem()->pageImage().size();
    canvas()->resize(size.width(), size.height());
    connect(this, &ImageDocumentView::contentsMoving, this, &ImageDocumentView::updateCanvas);
    connect(document, &ImageDocument::modifiedStateChanged, this, &ImageDocumentView::modifiedStateChanged);
    return true;
}

void ImageDocumentView::refreshPage(uint page)
{
    replaceImage(page, std::as_const(*m_document).page(page));
}

bool ImageDocumentView::cropSelection()
{
    return hasSelection() && m_document && m_document->crop(m_currentPage, selection());
}

void ImageDocumentView::updateCanvas(int /*x*/, int /*y*/)
{
    // Intended: this comes before the contents move, so it is the part in view until now that is marked.
    repaintVisible();
}
