#pragma once

#include <QApplication>

/// While it lives, the pointer tells that the user has to wait.
class WaitCursor
{
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY_MOVE(WaitCursor)
};
