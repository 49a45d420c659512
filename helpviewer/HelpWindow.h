#pragma once

#include "HelpPages.h"

#include <QMainWindow>

class FindBar;
class HelpBrowser;
class QListWidget;
class QSplitter;
struct ViewerOptions;

/// The window of the help viewer: the page, the list of pages beside it, and a bar to search the page.
///
/// Size, place, the width of the list and the size of the text are kept from one viewer to the next, in settings of its
/// own. A viewer that is up does not see what another one stores.
class HelpWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// @param options  what the caller asks for
    /// @param locale   such as "de_DE": the language of the pages
    HelpWindow(const ViewerOptions &options, const QString &locale);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void makeContents();
    void makeActions();
    void restoreLayout();
    void storeLayout() const;
    /// Escape: leaves the search, and the window where there is none.
    void leave();
    void changeTextSize(int steps);
    void printPage();
    void showTitle();
    void markInContents(const QUrl &address);

    HelpPages m_pages;
    HelpBrowser *m_browser;
    FindBar *m_findBar;
    QListWidget *m_contents;
    QSplitter *m_splitter;
    int m_textSteps = 0; ///< points above the usual size of text
};
