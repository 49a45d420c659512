#pragma once

#include "EditBracket.h"
#include "EditHost.h"
#include "pictures.h"
#include "UndoHistory.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

/// A file system without a free block.
inline const QByteArray FullDisk = "/proc";

/// Pages are told apart by a number, which is in their red.
[[nodiscard]] inline QImage page_of(int number)
{
    return solid_page(QSize(64, 48), qRgb(number, 0, 0));
}

/// What an edit sees of a tab.
struct PlainTab : QObject
{
    QImage image;
    QSize canvasSize;
};

/// A window without widgets around the bracket of edits: it writes down what it is told, a line each, and lets happen
/// what a test wants to happen whenever events get through. The first tab is the current one.
class PlainWindow final : public EditHost
{
public:
    explicit PlainWindow(const QImage &image) { addTab(image); }

    void addTab(const QImage &image)
    {
        auto tab = std::make_unique<PlainTab>();
        tab->image = image;
        tab->canvasSize = image.size();
        tabs.push_back(std::move(tab));
    }
    void closeTab() { tabs.erase(tabs.begin()); }
    [[nodiscard]] PlainTab &tab() const { return *tabs.front(); }
    [[nodiscard]] int number() const { return qRed(tab().image.pixel(0, 0)); }

    void setFrozen(bool frozen) override
    {
        isFrozen = frozen;
        log(frozen ? "frozen" : "thawed");
    }
    void enableHistory(bool undo, bool redo) override
    {
        log(undo ? redo ? "can undo and redo" : "can undo" : redo ? "can redo" : "no history");
    }
    void setWaiting(bool waiting) override
    {
        isWaiting = waiting;
        log(waiting ? "wait" : "arrow");
    }
    void showStatus(const QString &text) override { lines.append(text); }
    void updateZoomControls() override { log("zoom"); }
    void runBusy(const std::function<void()> &work) override
    {
        log("busy");
        work();
        log("idle");
    }
    void processEvents() override
    {
        log("events");
        ++rounds;
        if (meanwhile)
            meanwhile(rounds);
    }

    [[nodiscard]] QObject *currentTab() const override { return tabs.empty() ? nullptr : tabs.front().get(); }
    [[nodiscard]] EditedPage page() const override
    {
        return {.image = tab().image, .shownSize = tab().canvasSize, .zoom = 0.5};
    }
    [[nodiscard]] bool setPage(const QImage &image) override
    {
        log("set page");
        if (refusesPages)
            return false;
        tab().image = image;
        return true;
    }
    void refreshPage() override { log("refresh"); }
    void resizeCanvas(QSize size) override
    {
        log("canvas");
        tab().canvasSize = size;
    }

    [[nodiscard]] bool confirmWithoutUndo() override
    {
        log("question");
        if (duringBox)
            duringBox();
        return goesOnWithoutUndo;
    }
    void tellOfFailedSnapshot() override { log("snapshot failed"); }

    void openMessage(const QString &message) override
    {
        lines.append(QLatin1StringView("open ") + message);
        bracket.thawUi(); // as a file that opens does
        lines.append(QLatin1StringView("opened ") + message);
    }
    void closeLater() override { log("close"); }

    void log(const char *line) { lines.append(QString::fromLatin1(line)); }

    /// Runs an edit that makes @p image the page.
    bool edit(const QImage &image)
    {
        return bracket.run([&] {
            log("operation");
            tab().image = image;
            return true;
        });
    }

    /// Runs an edit that fails.
    bool failToEdit()
    {
        return bracket.run([&] {
            log("operation");
            return false;
        });
    }

    /// The lines since the last call.
    QStringList takeLines() { return std::exchange(lines, {}); }

    std::function<void(int round)> meanwhile; ///< rounds count from 1
    std::function<void()> duringBox;
    int rounds = 0;
    bool goesOnWithoutUndo = true;
    bool refusesPages = false;
    bool isFrozen = false;
    bool isWaiting = false;

    UndoHistory history;
    EditBracket bracket{*this, history};

private:
    std::vector<std::unique_ptr<PlainTab>> tabs;
    QStringList lines;
};
