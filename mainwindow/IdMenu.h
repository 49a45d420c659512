#pragma once

#include <QList>
#include <QMenu>

/// A pop-up menu whose actions are known by numbers: -2 for the first one asked for, and downwards.
class IdMenu : public QMenu
{
    Q_OBJECT

public:
    static constexpr int NoId = -1;

    explicit IdMenu(QWidget *parent);

    /// The number of @p action, given to it when it is first asked for; NoId for null.
    [[nodiscard]] int findIdForAction(QAction *action);

    /// The action of a number that was given out, null for any other.
    [[nodiscard]] QAction *findActionForId(int id) const;

signals:
    /// The user has picked the action numbered @p id.
    void activated(int id);

private:
    QList<QAction *> m_numbered;
};
