#pragma once

#include <QPointer>
#include <QWidget>

/// Shows by the pointer that long work is under way, and holds back the status texts of the views, until it
/// is destroyed.
///
/// Ownership: borrows everything; window and flag have to outlive it, the view may go.
class BusyScope
{
public:
    /// @param view           may be null
    /// @param statusEnabled  whether status texts of the views are shown; true again afterwards
    BusyScope(QWidget *window, QWidget *view, bool *statusEnabled);
    ~BusyScope();
    Q_DISABLE_COPY_MOVE(BusyScope)

private:
    QWidget *m_window;
    QPointer<QWidget> m_view;
    bool *m_statusEnabled;
};
