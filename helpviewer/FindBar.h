#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QTextBrowser;

/// Searches the page that a browser shows for what is typed, going on at the other end when one end is reached.
class FindBar : public QWidget
{
    Q_OBJECT

public:
    /// @param browser  borrowed, outlives the bar
    FindBar(QTextBrowser *browser, QWidget *parent);

    /// Shows the bar with its text selected, so that typing begins a new search.
    void open();
    /// Hides the bar and gives the keyboard back to the page.
    void leave();

public slots:
    void findNext();
    void findPrevious();

private:
    void findWhileTyping();
    /// @return whether the text was found, before or behind the end too
    bool find(bool bBackward);
    void tell(bool bFound);

    QTextBrowser *m_browser;
    QLineEdit *m_text;
    QLabel *m_answer;
};
