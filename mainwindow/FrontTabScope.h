#pragma once

#include <QPointer>
#include <QTabWidget>

/// Brings the tab that was current back to the front when it is destroyed: while a dialog about a tab is open,
/// another start may open a file, which becomes the current one.
///
/// Ownership: borrows the tabs, which have to outlive it; the tab itself may go.
class FrontTabScope
{
public:
    explicit FrontTabScope(QTabWidget *tabs) : m_tabs(tabs), m_front(tabs->currentWidget()) { }
    ~FrontTabScope() { m_tabs->setCurrentWidget(m_front); }
    Q_DISABLE_COPY_MOVE(FrontTabScope)

private:
    QTabWidget *m_tabs;
    QPointer<QWidget> m_front;
};
