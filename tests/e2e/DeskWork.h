#pragma once

#include "ToolPlace.h"

#include <QHash>
#include <QList>
#include <QRandomGenerator>
#include <QString>
#include <QStringList>

#include <functional>
#include <span>

/// A day at the program, seen from a chair before the screen: commands by chance, and what the window shows of them
/// compared with a plain list of tabs.
///
/// Documents are small, of six formats, and lie in the home directory, where the dialog that opens files begins.
/// Errors: a step that does not go as it has to answers with false, and problem() tells what was seen.
class DeskWork
{
public:
    /// How the running program is told to open a file.
    struct Senders
    {
        std::function<bool(const Place &place, const QString &path)> laterStart; ///< false if that did not end with 0
        std::function<void(const QString &path)> message;
    };

    /// The program is that of the build, or the one that IM_TEST_WRAPPED_PROGRAM names, which runs it within another.
    DeskWork(int documentCount, Senders ways);

    /// Starts the program with a document.
    [[nodiscard]] bool begin();
    /// Does each thing there is to do once, and uses each dialog.
    [[nodiscard]] bool doEach();
    /// Does so many things by chance.
    [[nodiscard]] bool work(int commands);
    [[nodiscard]] bool closeAllTabs();

    [[nodiscard]] QString problem() const { return trouble; }
    /// How many steps there have been that may have left a snapshot.
    [[nodiscard]] int edits() const { return editCount; }

    ToolPlace place;
    ImageManagerProgram program;

private:
    struct Tab
    {
        QString path;
        bool isModified = false;

        [[nodiscard]] QString title() const;
    };
    struct Kind;
    struct DialogKeys;
    enum class Effect { None, Edit, MaybeEdit };

    [[nodiscard]] static std::span<const Kind> kinds();
    [[nodiscard]] static std::span<const DialogKeys> dialogs();
    [[nodiscard]] bool perform(const Kind &kind);

    [[nodiscard]] bool openByStart();
    [[nodiscard]] bool openByMessage();
    [[nodiscard]] bool openByDialog();
    [[nodiscard]] bool save();
    [[nodiscard]] bool saveAs();
    [[nodiscard]] bool saveNothing();
    [[nodiscard]] bool print();
    [[nodiscard]] bool closeTab();
    [[nodiscard]] bool bringUpATab();
    [[nodiscard]] bool stepBack();
    [[nodiscard]] bool stepForward();
    [[nodiscard]] bool zoom();
    [[nodiscard]] bool toggleLabels();
    [[nodiscard]] bool select();
    [[nodiscard]] bool crop();
    [[nodiscard]] bool resize();
    [[nodiscard]] bool useADialog();
    [[nodiscard]] bool useThatDialog();

    [[nodiscard]] const QString &anyDocument() { return documents.at(random.bounded(documents.size())); }
    [[nodiscard]] Tab &current() { return tabs[currentIndex]; }
    [[nodiscard]] bool tabHasCome(const QString &path);
    [[nodiscard]] bool currentTabHasGone();
    [[nodiscard]] bool isWhatWasSaved();

    [[nodiscard]] Accessible entry(const QString &menu, const QString &name);
    [[nodiscard]] bool press(const QString &menu, const QString &name, Effect effect = Effect::None);
    [[nodiscard]] bool hasHappened(Effect effect);
    [[nodiscard]] bool answer(const char *key, const QList<const char *> &held = {});
    void type(const QString &text);
    /// @param keys  apart by blanks
    [[nodiscard]] bool askInMenu(const char *menu, const char *keys);
    [[nodiscard]] bool dialogIsUp();
    [[nodiscard]] bool windowIsUp();
    [[nodiscard]] QStringList titles() const;
    [[nodiscard]] QStringList shownTitles();
    [[nodiscard]] bool showsTheTabs();
    [[nodiscard]] QSize shownSize();

    Senders senders;
    QRandomGenerator random{21};
    QStringList documents;
    QList<Tab> tabs;
    qsizetype currentIndex = 0;
    const DialogKeys *dialogToUse = nullptr;
    int editCount = 0;
    int copies = 0; ///< pages saved under another name
    QByteArray lastKeys; ///< in the menu bar
    QString trouble;

    WindowId window = 0;
    Accessible frame;
    Accessible tabList;
    QHash<QString, Accessible> entries; ///< by menu and name
    QPoint pictureCorner;
};
