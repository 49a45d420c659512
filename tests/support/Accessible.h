#pragma once

#include <QList>
#include <QRect>
#include <QString>

#include <functional>
#include <memory>

/// A control of a running program as assistive technology sees it.
///
/// Nothing is cached: each call asks the program, so answers are as fresh as its event loop.
///
/// Units:   extents in screen pixels.
/// Errors:  a null object, and a control that has gone, answer with nothing: empty text, no children.
/// Needs:   a session bus with the accessibility services, as scripts/with-display --bus gives.
class Accessible
{
public:
    enum class Role {
        Other,
        Alert,
        Button,
        CheckBox,
        CheckMenuItem,
        Dialog,
        Filler,
        Frame,
        Label,
        Menu,
        MenuBar,
        MenuButton,
        MenuItem,
        RadioMenuItem,
        ScrollBar,
        Separator,
        StatusBar,
        Tab,
        TabList,
        Text,
        ToggleButton,
        ToolBar,
        Window,
    };

    enum class State {
        Checked,
        Default,
        Enabled,
        Focused,
        Modal,
        Showing,
    };

    Accessible() = default;

    /// The program with this process id, null while it has not registered.
    [[nodiscard]] static Accessible application(qint64 processId);

    [[nodiscard]] bool isNull() const { return m_node == nullptr; }
    [[nodiscard]] QString name() const;
    [[nodiscard]] QString description() const;
    [[nodiscard]] Role role() const;
    [[nodiscard]] QString roleName() const;
    [[nodiscard]] bool has(State state) const;
    [[nodiscard]] QRect extents() const;
    [[nodiscard]] QList<Accessible> children() const;

    /// Does what a press with the mouse would do, and returns once the program has taken it up.
    /// @return false if the control cannot be pressed or does not answer in time
    [[nodiscard]] bool press() const;

    /// Controls below this one, in reading order.
    [[nodiscard]] QList<Accessible> findAll(const std::function<bool(const Accessible &)> &matches) const;
    [[nodiscard]] QList<Accessible> findAll(Role wanted) const;
    /// The first of its role with this name, null if there is none.
    [[nodiscard]] Accessible find(Role wanted, const QString &wantedName) const;
    [[nodiscard]] Accessible find(Role wanted) const;

    /// The tree below this control as indented lines "role "name"", for reading when a test fails.
    [[nodiscard]] QString tree() const;

private:
    struct Node;
    explicit Accessible(std::shared_ptr<const Node> node) : m_node(std::move(node)) { }

    using Condition = std::function<bool(const Accessible &)>;

    /// @param limit  no more than so many are looked for
    void collect(const Condition &matches, qsizetype limit, QList<Accessible> &found) const;
    void describe(QString &lines, int depth) const;

    std::shared_ptr<const Node> m_node;
};
