#pragma once

#include "ImageView.h"

class ImageDocument;

/// The widget of one tab: an ImageView that shows the pages of a document.
///
/// Ownership: borrows the document, which has to outlive its use by the view; the destructor does not
///            touch it.
class ImageDocumentView : public ImageView
{
    Q_OBJECT

public:
    explicit ImageDocumentView(QWidget *parent);

    /// Binds @p document and gives its pages to the canvas, one after the other: the last one stays on
    /// screen while the current page is 1. False if the canvas could not take a page. A document without
    /// pages leaves the view empty and is not bound.
    [[nodiscard]] bool setDocument(ImageDocument *document);

    /// The document shown, null before setDocument().
    [[nodiscard]] ImageDocument *document() const { return m_document; }

    /// Shows page @p page (from 1) of the document again after a change.
    void refreshPage(uint page);

    /// Crops the current page of the document to the selection. False without either.
    [[nodiscard]] bool cropSelection();

signals:
    /// The document's signal, passed through.
    void modifiedStateChanged(bool modified);

private slots:
    void updateCanvas(int x, int y);

private:
    ImageDocument *m_document = nullptr;
};
