#pragma once

#include "ImageDocument.h"
#include "ImageDocumentView.h"

#include <QPointer>

/// The tab that a command began with. Wherever a command lets events through - processEvents(), a dialog, a box -
/// the user may close the tab or the window, so the command asks here before it goes on, and leaves without a tab.
///
/// Ownership: borrows view and document, which may go at any time.
class CommandTab
{
public:
    /// @param view  the tab's view, null for no tab
    explicit CommandTab(ImageDocumentView *view) : m_view(view), m_document(view ? view->document() : nullptr) { }

    /// Whether there was a tab with a document, and both are still there.
    [[nodiscard]] explicit operator bool() const { return m_view && m_document; }

    /// Null once it has gone.
    [[nodiscard]] ImageDocumentView *view() const { return m_view; }
    [[nodiscard]] ImageDocument *document() const { return m_document; }

private:
    QPointer<ImageDocumentView> m_view;
    QPointer<ImageDocument> m_document;
};
