#include "Accessible.h"

#include <atspi/atspi.h>

#include <QHash>

#include <array>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

/// Holds one reference to the library's object.
struct Accessible::Node
{
    explicit Node(AtspiAccessible *object) : accessible(object) { }
    ~Node() { g_object_unref(accessible); }
    Q_DISABLE_COPY_MOVE(Node)

    AtspiAccessible *accessible;
};

namespace {

constexpr int callMs = 5000;
constexpr int startMs = 15000;

constexpr std::array roles{
    std::pair{ATSPI_ROLE_ALERT, Accessible::Role::Alert},
    std::pair{ATSPI_ROLE_PUSH_BUTTON, Accessible::Role::Button},
    std::pair{ATSPI_ROLE_CHECK_BOX, Accessible::Role::CheckBox},
    std::pair{ATSPI_ROLE_CHECK_MENU_ITEM, Accessible::Role::CheckMenuItem},
    std::pair{ATSPI_ROLE_DIALOG, Accessible::Role::Dialog},
    std::pair{ATSPI_ROLE_FILLER, Accessible::Role::Filler},
    std::pair{ATSPI_ROLE_FRAME, Accessible::Role::Frame},
    std::pair{ATSPI_ROLE_LABEL, Accessible::Role::Label},
    std::pair{ATSPI_ROLE_MENU, Accessible::Role::Menu},
    std::pair{ATSPI_ROLE_POPUP_MENU, Accessible::Role::Menu},
    std::pair{ATSPI_ROLE_MENU_BAR, Accessible::Role::MenuBar},
    std::pair{ATSPI_ROLE_PUSH_BUTTON_MENU, Accessible::Role::MenuButton},
    std::pair{ATSPI_ROLE_MENU_ITEM, Accessible::Role::MenuItem},
    std::pair{ATSPI_ROLE_RADIO_MENU_ITEM, Accessible::Role::RadioMenuItem},
    std::pair{ATSPI_ROLE_SCROLL_BAR, Accessible::Role::ScrollBar},
    std::pair{ATSPI_ROLE_SEPARATOR, Accessible::Role::Separator},
    std::pair{ATSPI_ROLE_STATUS_BAR, Accessible::Role::StatusBar},
    std::pair{ATSPI_ROLE_PAGE_TAB, Accessible::Role::Tab},
    std::pair{ATSPI_ROLE_PAGE_TAB_LIST, Accessible::Role::TabList},
    std::pair{ATSPI_ROLE_TEXT, Accessible::Role::Text},
    std::pair{ATSPI_ROLE_TOGGLE_BUTTON, Accessible::Role::ToggleButton},
    std::pair{ATSPI_ROLE_TOOL_BAR, Accessible::Role::ToolBar},
    std::pair{ATSPI_ROLE_WINDOW, Accessible::Role::Window},
};

AtspiStateType state_type(Accessible::State state)
{
    switch (state) {
    case Accessible::State::Checked:
        return ATSPI_STATE_CHECKED;
    case Accessible::State::Default:
        return ATSPI_STATE_IS_DEFAULT;
    case Accessible::State::Enabled:
        return ATSPI_STATE_ENABLED;
    case Accessible::State::Focused:
        return ATSPI_STATE_FOCUSED;
    case Accessible::State::Modal:
        return ATSPI_STATE_MODAL;
    case Accessible::State::Showing:
        return ATSPI_STATE_SHOWING;
    }
    return ATSPI_STATE_INVALID;
}

/// Takes over the text, which may be null.
QString taken(char *text)
{
    QString result = QString::fromUtf8(text);
    g_free(text);
    return result;
}

/// The desktop object; the first call connects to the bus.
AtspiAccessible *desktop()
{
    static AtspiAccessible *const object = [] {
        atspi_init();
        atspi_set_timeout(callMs, startMs);
        AtspiAccessible *const found = atspi_get_desktop(0);
        // The cache lives on events, which would need the library's own loop.
        atspi_accessible_set_cache_mask(found, ATSPI_CACHE_NONE);
        return found;
    }();
    return object;
}

} // namespace

Accessible Accessible::application(qint64 processId)
{
    const int count = atspi_accessible_get_child_count(desktop(), nullptr);
    for (int i = 0; i < count; ++i) {
        AtspiAccessible *const child = atspi_accessible_get_child_at_index(desktop(), i, nullptr);
        if (child == nullptr)
            continue;
        auto node = std::make_shared<const Node>(child);
        if (atspi_accessible_get_process_id(child, nullptr) != static_cast<guint>(processId))
            continue;
        atspi_accessible_set_cache_mask(child, ATSPI_CACHE_NONE);
        return Accessible(std::move(node));
    }
    return {};
}

QString Accessible::name() const
{
    return isNull() ? QString() : taken(atspi_accessible_get_name(m_node->accessible, nullptr));
}

QString Accessible::description() const
{
    return isNull() ? QString() : taken(atspi_accessible_get_description(m_node->accessible, nullptr));
}

Accessible::Role Accessible::role() const
{
    if (isNull())
        return Role::Other;
    const AtspiRole value = atspi_accessible_get_role(m_node->accessible, nullptr);
    for (const auto &[known, role] : roles) {
        if (known == value)
            return role;
    }
    return Role::Other;
}

QString Accessible::roleName() const
{
    return isNull() ? QString() : taken(atspi_accessible_get_role_name(m_node->accessible, nullptr));
}

bool Accessible::has(State state) const
{
    if (isNull())
        return false;
    AtspiStateSet *const states = atspi_accessible_get_state_set(m_node->accessible);
    if (states == nullptr)
        return false;
    const bool contained = atspi_state_set_contains(states, state_type(state)) != FALSE;
    g_object_unref(states);
    return contained;
}

QRect Accessible::extents() const
{
    if (isNull())
        return {};
    AtspiComponent *const component = atspi_accessible_get_component_iface(m_node->accessible);
    if (component == nullptr)
        return {};
    AtspiRect *const rect = atspi_component_get_extents(component, ATSPI_COORD_TYPE_SCREEN, nullptr);
    QRect result;
    if (rect != nullptr) {
        result = QRect(rect->x, rect->y, rect->width, rect->height);
        g_free(rect);
    }
    g_object_unref(component);
    return result;
}

QList<Accessible> Accessible::children() const
{
    QList<Accessible> result;
    if (isNull())
        return result;
    const int count = atspi_accessible_get_child_count(m_node->accessible, nullptr);
    for (int i = 0; i < count; ++i) {
        AtspiAccessible *const child = atspi_accessible_get_child_at_index(m_node->accessible, i, nullptr);
        if (child != nullptr)
            result.append(Accessible(std::make_shared<const Node>(child)));
    }
    return result;
}

bool Accessible::press() const
{
    if (isNull())
        return false;
    AtspiAction *const action = atspi_accessible_get_action_iface(m_node->accessible);
    if (action == nullptr)
        return false;
    const bool pressed = atspi_action_do_action(action, 0, nullptr) != FALSE;
    g_object_unref(action);
    return pressed;
}

QList<Accessible> Accessible::findAll(const std::function<bool(const Accessible &)> &matches) const
{
    QList<Accessible> found;
    collect(matches, std::numeric_limits<qsizetype>::max(), found);
    return found;
}

QList<Accessible> Accessible::findAll(Role wanted) const
{
    return findAll([wanted](const Accessible &control) { return control.role() == wanted; });
}

Accessible Accessible::find(Role wanted, const QString &wantedName) const
{
    QList<Accessible> found;
    collect([&](const Accessible &control) { return control.role() == wanted && control.name() == wantedName; }, 1,
            found);
    return found.value(0);
}

Accessible Accessible::find(Role wanted) const
{
    QList<Accessible> found;
    collect([wanted](const Accessible &control) { return control.role() == wanted; }, 1, found);
    return found.value(0);
}

QString Accessible::tree() const
{
    QString lines;
    describe(lines, 0);
    return lines;
}

void Accessible::collect(const Condition &matches, qsizetype limit, QList<Accessible> &found) const
{
    const QList<Accessible> below = children();
    for (const Accessible &child : below) {
        if (found.size() < limit && matches(child))
            found.append(child);
        if (found.size() < limit)
            child.collect(matches, limit, found);
    }
}

void Accessible::describe(QString &lines, int depth) const
{
    lines += QString(qsizetype{2} * depth, u' ') + roleName() + R"( ")"_L1 + name() + "\"\n"_L1;
    const QList<Accessible> below = children();
    for (const Accessible &child : below)
        child.describe(lines, depth + 1);
}
