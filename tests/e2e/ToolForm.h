#pragma once

#include "ImageManagerProgram.h"
#include "pictures.h"

#include <QSettings>
#include <QTest>

#include <utility>

/// The program with a page open and a form of the menu "Tools" on show.
class ToolForm
{
public:
    ToolForm(QString title, QString entry, const QList<std::pair<QString, QVariant>> &settings,
             const QImage &picture = patterned_page({100, 80})) :
        program(place),
        page(place.page(QStringLiteral("page.bmp"), picture)),
        formTitle(std::move(title)),
        menuEntry(std::move(entry))
    {
        QSettings stored(place.home() + QStringLiteral("/.config/Unknown Organization/imagemanager.conf"),
                         QSettings::IniFormat);
        stored.setValue(QStringLiteral("image_editor/tools_menu"), true);
        for (const auto &[key, value] : settings)
            stored.setValue(key, value);
        stored.sync();
        isReady = program.open({page}, {1100, 700}) && open();
    }

    /// Opens the form, also again, and waits until it shows.
    [[nodiscard]] bool open()
    {
        const auto isShown = [this] {
            return activeTitle() == formTitle
                && control(Accessible::Role::Button, QStringLiteral("Close")).has(Accessible::State::Showing);
        };
        return program.choose(QStringLiteral("Tools"), menuEntry) && QTest::qWaitFor(isShown, Program::patienceMs);
    }

    /// Closes it by its button and waits until it has gone.
    [[nodiscard]] bool close()
    {
        const WindowId window = program.window();
        click(control(Accessible::Role::Button, QStringLiteral("Close")));
        return QTest::qWaitFor([&] { return form().isNull() && program.desktop().activeWindow() == window; },
                               Program::patienceMs);
    }

    [[nodiscard]] Accessible form() { return dialog(formTitle); }
    /// Null if there is none. Looks at top-level windows alone: those have many controls, each of which takes a while.
    [[nodiscard]] Accessible dialog(const QString &title)
    {
        const QList<Accessible> windows = program.application().children();
        for (const Accessible &window : windows) {
            if (window.name() == title)
                return window;
        }
        return {};
    }
    [[nodiscard]] Accessible control(Accessible::Role role, const QString &name) { return form().find(role, name); }
    [[nodiscard]] QString activeTitle() { return program.desktop().title(program.desktop().activeWindow()); }
    /// Those on show that tell a blind user nothing.
    [[nodiscard]] QList<Accessible> namelessControls()
    {
        return form().findAll([](const Accessible &shown) {
            return shown.has(Accessible::State::Showing) && shown.name().isEmpty()
                && shown.role() != Accessible::Role::Filler && shown.role() != Accessible::Role::Label;
        });
    }
    void click(const Accessible &shown) { program.desktop().click(shown.extents().center()); }

    Place place;
    ImageManagerProgram program;
    QString page;
    QString formTitle;
    QString menuEntry;
    bool isReady = false;
};
