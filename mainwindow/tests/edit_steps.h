#pragma once

#include "ImageItem.h"
#include "NextDialog.h"
#include "WindowFixture.h"

#include <QDialog>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <utility>

/// Presses OK in the dialog of a command and looks at its title.
inline std::function<void(QDialog &)> accepted(const QString &title)
{
    return [title](QDialog &dialog) {
        QCOMPARE(dialog.windowTitle(), title);
        auto *const ok = dialog.findChild<QPushButton *>(QStringLiteral("my_ok_btn"));
        QVERIFY(ok);
        ok->click();
    };
}

inline void edit(const WindowFixture &fixture, const QString &action, const QString &title)
{
    const NextDialog dialog(accepted(title));
    fixture.action(action)->trigger();
}

inline QImage page_of(const WindowFixture &fixture)
{
    return std::as_const(*fixture.currentView()->document()).page(1);
}

inline QStringList snapshots(const WindowFixture &fixture)
{
    return fixture.home.filesIn(QStringLiteral("tmp"));
}
