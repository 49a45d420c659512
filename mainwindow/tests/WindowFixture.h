#pragma once

#include "ImageDocument.h"
#include "ImageDocumentView.h"
#include "ImageManager.h"
#include "pictures.h"
#include "TemporaryHome.h"

#include <QAction>
#include <QMenuBar>
#include <QStatusBar>
#include <QTabWidget>
#include <QTest>
#include <QToolBar>

/// The main window in a home of its own, and short ways to what it holds.
class WindowFixture
{
public:
    WindowFixture() { window.show(); }

    [[nodiscard]] QAction *action(const QString &name) const { return window.findChild<QAction *>(name); }
    [[nodiscard]] bool enabled(const QString &name) const { return action(name)->isEnabled(); }
    [[nodiscard]] QTabWidget *tabs() const { return window.findChild<QTabWidget *>(); }
    [[nodiscard]] QToolBar *toolBar() const { return window.findChild<QToolBar *>(); }
    [[nodiscard]] ImageDocumentView *view(int index) const
    {
        return qobject_cast<ImageDocumentView *>(tabs()->widget(index));
    }
    [[nodiscard]] ImageDocumentView *currentView() const { return view(tabs()->currentIndex()); }

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
