#pragma once

#include "ImageDocument.h"
#include "ImageDocumentView.h"
#include "ImageManager.h"
#include "NextDialog.h"
#include "pictures.h"
#include "TemporaryHome.h"

#include <QAction>
#include <QDialog>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QTest>
#include <QToolBar>

#include <utility>

/// The main window in a home of its own, and short ways to what it holds.
class WindowFixture
{
public:
    WindowFixture() { window.show(); }
    /// With a page of its own open under @p name. Without it the test program ends.
    explicit WindowFixture(const QString &name, QSize size = QSize(64, 48)) : WindowFixture()
    {
        if (!open(name, size))
            qFatal("cannot open %s", qPrintable(name));
    }

    [[nodiscard]] QAction *action(const QString &name) const { return window.findChild<QAction *>(name); }
    [[nodiscard]] bool enabled(const QString &name) const { return action(name)->isEnabled(); }
    [[nodiscard]] QTabWidget *tabs() const { return window.findChild<QTabWidget *>(); }
    [[nodiscard]] QToolBar *toolBar() const { return window.findChild<QToolBar *>(); }
    [[nodiscard]] ImageDocumentView *view(int index) const
    {
        return qobject_cast<ImageDocumentView *>(tabs()->widget(index));
    }
    [[nodiscard]] ImageDocumentView *currentView() const { return view(tabs()->currentIndex()); }

    /// The page of a tab.
    [[nodiscard]] QImage page(int tab) const { return std::as_const(*view(tab)->document()).page(1); }
    [[nodiscard]] QImage page() const { return page(tabs()->currentIndex()); }
    /// Names of the files in which the history keeps former pages.
    [[nodiscard]] QStringList snapshots() const { return home.filesIn(QStringLiteral("tmp")); }

    /// Presses the key OK of a command's dialog.
    /// @param title  of the dialog; any if it is empty
    static void pressOk(const QDialog &dialog, const QString &title = {})
    {
        if (!title.isEmpty())
            QCOMPARE(dialog.windowTitle(), title);
        auto *const ok = dialog.findChild<QPushButton *>(QStringLiteral("my_ok_btn"));
        QVERIFY(ok);
        ok->click();
    }
    /// Carries out a command that has a dialog, as it stands when it comes.
    void edit(const QString &name, const QString &title = {}) const
    {
        const NextDialog dialog([&title](const QDialog &shown) { pressOk(shown, title); });
        action(name)->trigger();
    }

    /// What the tabs show, without the marks that let "&" through.
    [[nodiscard]] QStringList titles() const
    {
        QStringList titles;
        for (int i = 0; i < tabs()->count(); ++i)
            titles.append(tabs()->tabText(i).replace(QStringLiteral("&&"), QStringLiteral("&")));
        return titles;
    }

    [[nodiscard]] QMenu *menu(const QString &title) const
    {
        for (QAction *const entry : window.menuBar()->actions())
            if (entry->text() == title)
                return entry->menu();
        return nullptr;
    }

    /// Texts of the entries of a menu or a bar, "-" for a separator.
    [[nodiscard]] static QStringList entries(const QWidget *place)
    {
        QStringList texts;
        for (const QAction *const action : place->actions())
            texts.append(action->isSeparator() ? QStringLiteral("-") : action->text());
        return texts;
    }

    /// Writes a page into the home and gives its path.
    [[nodiscard]] QString file(const QString &name, QSize size = QSize(64, 48)) const
    {
        QString path = home.filePath(name);
        if (!patterned_page(size).save(path))
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }

    /// Opens a page of its own under @p name.
    bool open(const QString &name, QSize size = QSize(64, 48)) { return window.load_file(file(name, size), {}, false); }

    /// Draws a selection on the current view with the mouse.
    void select(QPoint from, QPoint to) const
    {
        QWidget *const viewport = currentView()->viewport();
        for (const auto &[type, position] :
             {std::pair{QEvent::MouseButtonPress, from}, std::pair{QEvent::MouseMove, to},
              std::pair{QEvent::MouseButtonRelease, to}}) {
            QMouseEvent event(type, position, viewport->mapToGlobal(position), Qt::LeftButton, Qt::LeftButton,
                              Qt::NoModifier);
            QCoreApplication::sendEvent(viewport, &event);
        }
    }

    const TemporaryHome home; // before the window, which reads its settings there
    ImageManager window;
};
