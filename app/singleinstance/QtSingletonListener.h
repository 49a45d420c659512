#pragma once

#include <QWidget>

/// The hidden window that other instances find and write to. It is never shown.
///
/// Nothing may change its title, icon, flags or parent once it is known: it exists to have an X window, and each of
/// these would change properties of that window, which is how instances talk.
class QtSingletonListener : public QWidget
{
public:
    QtSingletonListener() = default;
    ~QtSingletonListener() override = default;
    Q_DISABLE_COPY_MOVE(QtSingletonListener)
};
