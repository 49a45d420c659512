#include "HelpBrowser.h"

#include <utility>

HelpBrowser::HelpBrowser(HelpPages pages, QWidget *parent) : QTextBrowser(parent), m_pages(std::move(pages))
{
    setOpenLinks(false); // each link is looked at first
    connect(this, &QTextBrowser::anchorClicked, this, &HelpBrowser::follow);
}

void HelpBrowser::follow(const QUrl &address)
{
    switch (m_pages.target(address)) {
    case HelpPages::Target::Page:
        setSource(address, QTextDocument::HtmlResource);
        break;
    case HelpPages::Target::Desktop:
        emit desktopAsked(address);
        break;
    case HelpPages::Target::Refused:
        emit linkRefused(address);
        break;
    }
}

QVariant HelpBrowser::loadResource(int type, const QUrl &name)
{
    const QUrl address = source().resolved(name);
    if (type == QTextDocument::HtmlResource)
        return m_pages.html(address);
    return m_pages.contents(address);
}
