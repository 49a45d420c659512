#pragma once

#include <QPointer>
#include <QStackedWidget>
#include <QTabWidget>

/// Has the pages of a tab widget painted anew as a whole after a change of tabs, and by nothing before.
///
/// The change itself would see to that by turning the updates of every widget in every tab off and on, which takes the
/// longer the more tabs there are.
class StillPages
{
public:
    explicit StillPages(QTabWidget *tabs) :
        m_pages(tabs->findChild<QStackedWidget *>({}, Qt::FindDirectChildrenOnly)),
        m_wereStill(!m_pages->updatesEnabled())
    {
        m_pages->setAttribute(Qt::WA_UpdatesDisabled);
    }
    ~StillPages()
    {
        if (!m_pages || m_wereStill)
            return;
        m_pages->setAttribute(Qt::WA_UpdatesDisabled, false);
        m_pages->update();
    }
    Q_DISABLE_COPY_MOVE(StillPages)

private:
    QPointer<QStackedWidget> m_pages;
    bool m_wereStill;
};
