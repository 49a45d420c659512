#include "IdMenu.h"

namespace {

constexpr int FirstId = -2;

} // namespace

IdMenu::IdMenu(QWidget *parent) : QMenu(parent)
{
    connect(this, &QMenu::triggered, this, [this](QAction *action) { emit activated(findIdForAction(action)); });
}

int IdMenu::findIdForAction(QAction *action)
{
    if (!action)
        return NoId;
    if (!m_numbered.contains(action))
        m_numbered.append(action);
    return FirstId - static_cast<int>(m_numbered.indexOf(action));
}

QAction *IdMenu::findActionForId(int id) const
{
    return id > FirstId ? nullptr : m_numbered.value(FirstId - id, nullptr);
}
