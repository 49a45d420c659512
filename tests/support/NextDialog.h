#pragma once

#include <QDialog>
#include <QMessageBox>
#include <QObject>

#include <functional>
#include <type_traits>

/// Meets the next modal dialog of a kind, as its event loop begins, and fails the test if none came.
///
/// Made on the stack before the call that shows the dialog. Several of them meet several dialogs, in the order in which
/// they were made; each leaves alone what is not of its kind.
///
/// Threads: GUI thread only.
class NextModal : public QObject
{
public:
    ~NextModal() override;
    Q_DISABLE_COPY_MOVE(NextModal)

    [[nodiscard]] bool hasCome() const { return m_bCome; }

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    NextModal();

private:
    [[nodiscard]] virtual bool takes(const QDialog &dialog) const = 0;
    virtual void meet(QDialog &dialog) = 0;

    bool m_bCome = false;
};

/// Works the next modal dialog of a class; a message box only if it is that class.
template <typename Dialog> class NextOf : public NextModal
{
public:
    using Work = std::function<void(Dialog &)>;

    /// @param work  looks at the dialog, fills it in, and accepts or rejects it
    explicit NextOf(Work work) : m_work(std::move(work)) { }

private:
    [[nodiscard]] bool takes(const QDialog &dialog) const override
    {
        return qobject_cast<const Dialog *>(&dialog)
            && (std::is_same_v<Dialog, QMessageBox> || !qobject_cast<const QMessageBox *>(&dialog));
    }
    void meet(QDialog &dialog) override { m_work(static_cast<Dialog &>(dialog)); }

    Work m_work;
};

using NextDialog = NextOf<QDialog>;
