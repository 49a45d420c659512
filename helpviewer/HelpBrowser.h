#pragma once

#include "HelpPages.h"

#include <QTextBrowser>

/// Shows pages of the help directory and follows the links between them.
///
/// Pictures and pages come from the directory alone; nothing is fetched from a network, and no script is run.
class HelpBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    explicit HelpBrowser(HelpPages pages, QWidget *parent = nullptr);

    /// Shows the page, hands it to the desktop, or refuses it, as its target tells.
    void follow(const QUrl &address);

signals:
    /// A link leads to where nothing is shown from.
    void linkRefused(const QUrl &address);
    /// A link is for a program of the desktop.
    void desktopAsked(const QUrl &address);

protected:
    QVariant loadResource(int type, const QUrl &name) override;

private:
    HelpPages m_pages;
};
