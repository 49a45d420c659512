#pragma once

#include "ImageManagerProgram.h"

#include <QSettings>
#include <QTest>

#include <utility>

/// The program with a page open and a form of the menu "Tools" on show.
class ToolForm
{
public:
    ToolForm(QString title, const QString &entry, const QList<std::pair<QString, QVariant>> &settings,
             QSize pageSize = {100, 80}) :
        program(place),
        page(place.page(QStringLiteral("page.bmp"), pageSize)),
        formTitle(std::move(title))
    {
        QSettings stored(place.home() + QStringLiteral("/.config/Unknown Organization/imagemanager.conf"),
                         QSettings::IniFormat);
        stored.setValue(QStringLiteral("image_editor/tools_menu"), true);
        for (const auto &[key, value] : settings)
            stored.setValue(key, value);
        stored.sync();
        const auto isShown = [this] {
            return activeTitle() == formTitle
                && control(Accessible::Role::Button, QStringLiteral("Close")).has(Accessible::State::Showing);
        };
        isReady = program.open({page}, {1100, 700}) && program.choose(QStringLiteral("Tools"), entry)
            && QTest::qWaitFor(isShown, Program::patienceMs);
    }

    [[nodiscard]] Accessible form() { return program.application().find(Accessible::Role::Dialog, formTitle); }
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
    bool isReady = false;
};
