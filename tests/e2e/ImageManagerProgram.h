#pragma once

#include "Accessible.h"
#include "Desktop.h"
#include "Program.h"

#include <QByteArray>
#include <QDir>
#include <QImage>
#include <QRect>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <optional>

/// A home directory for the program and a directory for its pictures, apart from each other, so that one
/// survives several starts.
class Place
{
public:
    Place();
    Q_DISABLE_COPY_MOVE(Place)

    [[nodiscard]] QString home() const { return m_home.path(); }
    /// Absolute path of a name in the pictures' directory; nothing is made.
    [[nodiscard]] QString path(const QString &name) const { return m_pictures.filePath(name); }
    /// Writes patterned_page() under the name, in the format of its suffix, and answers its path.
    [[nodiscard]] QString page(const QString &name, QSize size = {100, 80}) const;
    /// The same with another picture.
    [[nodiscard]] QString page(const QString &name, const QImage &picture) const;

    /// Leaves the program lines of the editor's group of its settings file.
    void writeSettings(const QByteArray &lines) const;

    /// What the program has put aside for its undo steps.
    [[nodiscard]] QStringList snapshots() const { return QDir(home() + QStringLiteral("/tmp")).entryList(QDir::Files); }

private:
    QTemporaryDir m_home;
    QTemporaryDir m_pictures;
};

/// Image Manager in a process of its own, and what a user sees of its window.
///
/// Every lookup asks the program anew; a control that is not there is null.
class ImageManagerProgram
{
public:
    explicit ImageManagerProgram(const Place &place);
    /// Started by another path than the usual one.
    ImageManagerProgram(const Place &place, const QString &executable);

    [[nodiscard]] Program &process() { return m_program; }
    [[nodiscard]] Desktop &desktop() { return m_desktop; }

    [[nodiscard]] bool start(const QStringList &arguments) { return m_program.start(arguments); }
    /// Starts and waits until the window is up and holds as many tabs as there are arguments.
    [[nodiscard]] bool open(const QStringList &paths);
    /// Starts, gives the window this size as a user's hand would, and waits until it shows.
    [[nodiscard]] bool open(const QStringList &paths, QSize windowSize);
    /// Closes the window by the window manager and answers the exit status.
    [[nodiscard]] std::optional<int> close();
    /// Presses Return and, right behind it, the close button of the main window, which has been looked up before. The
    /// program finds both when it looks.
    void pressReturnAndClose(WindowId mainWindow);
    /// Waits for a message box, presses a button and answers what the box said once it has gone.
    [[nodiscard]] MessageBox answer(const QString &button);

    [[nodiscard]] WindowId window() { return m_program.waitForWindow(QStringLiteral("Image Manager")); }
    /// Opens a menu of the bar and clicks on one of its entries.
    [[nodiscard]] bool choose(const QString &menu, const QString &entry);
    /// Opens the dialog that inverts the page, by the menu, and waits until it has the keyboard.
    [[nodiscard]] bool askToInvert();
    /// Accepts that dialog and waits until it has gone; what comes of it may still be under way.
    [[nodiscard]] bool agreeToInvert();
    /// Inverts the page by the menu, accepts the preview and waits for the mark of a changed page.
    [[nodiscard]] bool invert();

    [[nodiscard]] Accessible application();
    [[nodiscard]] QStringList tabTitles();
    [[nodiscard]] QString currentTab();
    [[nodiscard]] QString statusText();

    /// The pop-up's entries in order; "-" for a separator. @p menu is a name on the bar or below it.
    [[nodiscard]] QStringList menuEntries(const QString &menu);
    [[nodiscard]] Accessible menuEntry(const QString &menu, const QString &entry);
    /// A tool button, whatever its kind.
    [[nodiscard]] Accessible tool(const QString &name);
    [[nodiscard]] QList<Accessible> tools();

    /// Where the picture is shown, on the screen.
    [[nodiscard]] QRect canvas();
    /// The page's point at the canvas's top left corner at 1:1, read from a page of patterned_page().
    [[nodiscard]] QPoint origin();

private:
    Program m_program;
    Desktop m_desktop;
};

/// A place that lives longer than the program in it.
struct ProgramPlace
{
    Place place;
};

/// The program in a place of its own, with one page open. Without it the test program ends.
class OpenProgram : public ProgramPlace, public ImageManagerProgram
{
public:
    /// @param windowSize  the one of a first start if this is none
    explicit OpenProgram(const QString &name = QStringLiteral("a.bmp"), QSize windowSize = {},
                         QSize pageSize = {100, 80});
};
