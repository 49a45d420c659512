#include "BusyScope.h"

BusyScope::BusyScope(QWidget *window, QWidget *view, bool *statusEnabled) :
    m_window(window),
    m_view(view),
    m_statusEnabled(statusEnabled)
{
    m_window->setCursor(Qt::WaitCursor);
    *m_statusEnabled = false;
    if (m_view)
        m_view->setCursor(Qt::WaitCursor);
}

BusyScope::~BusyScope()
{
    if (m_view)
        m_view->setCursor(Qt::ArrowCursor);
    m_window->setCursor(Qt::ArrowCursor);
    *m_statusEnabled = true;
}
