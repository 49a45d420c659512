#include "DeskWork.h"

#include "pictures.h"

#include <QTest>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;
using Role = Accessible::Role;
using State = Accessible::State;

namespace {

constexpr std::array<const char *, 6> Formats{"png", "bmp", "jpg", "tif", "ppm", "webp"};
constexpr std::array<const char *, 8> ZoomSteps{"8:1", "4:1", "2:1", "1:1", "1:2", "1:4", "1:8", "1:16"};
constexpr int MostTabs = 8;
constexpr int SmallestSide = 24;
constexpr int LargestSide = 250;

QString name_of(const QString &path)
{
    return path.section(u'/', -1);
}

} // namespace

/// One thing to do.
struct DeskWork::Kind
{
    const char *name;
    int weight; ///< how often it is done, among all
    bool (DeskWork::*step)();
    bool needsTab;
};

/// A dialog by the keys that open it from the menu bar.
struct DeskWork::DialogKeys
{
    const char *menu;
    const char *entry; ///< keys of the menu, in their order
    const char *adjust; ///< moves its first control, null if there is nothing to move
    Effect effect;
};

std::span<const DeskWork::Kind> DeskWork::kinds()
{
    static constexpr auto all = std::to_array<Kind>({
        {"open by a later start", 1, &DeskWork::openByStart, false},
        {"open by a message", 6, &DeskWork::openByMessage, false},
        {"open by the dialog", 2, &DeskWork::openByDialog, false},
        {"save", 6, &DeskWork::save, true},
        {"save under another name", 2, &DeskWork::saveAs, true},
        {"leave the dialogs that save", 1, &DeskWork::saveNothing, true},
        {"print", 1, &DeskWork::print, true},
        {"close", 5, &DeskWork::closeTab, true},
        {"bring up another tab", 8, &DeskWork::bringUpATab, true},
        {"undo", 16, &DeskWork::stepBack, true},
        {"redo", 10, &DeskWork::stepForward, true},
        {"zoom", 10, &DeskWork::zoom, true},
        {"show or hide the labels", 1, &DeskWork::toggleLabels, false},
        {"select", 8, &DeskWork::select, true},
        {"crop", 4, &DeskWork::crop, true},
        {"resize", 3, &DeskWork::resize, true},
        {"use a dialog", 30, &DeskWork::useADialog, true},
    });
    return all;
}

DeskWork::DeskWork(int documentCount, Senders ways) :
    program(place, qEnvironmentVariable("IM_TEST_WRAPPED_PROGRAM", QStringLiteral(IM_PROGRAM))),
    senders(std::move(ways))
{
    place.writeSettings("tools_menu=true");
    find_lpr_in(program, place);
    program.process().discardErrors(); // every message is repeated there
    for (int i = 0; i < documentCount; ++i) {
        const QString path = place.inHome(u"d%1.%2"_s.arg(i).arg(QLatin1StringView(Formats.at(i % Formats.size()))));
        const QSize size(random.bounded(SmallestSide, LargestSide), random.bounded(SmallestSide, LargestSide));
        if (!patterned_page(size).save(path))
            qFatal("DeskWork - cannot write %s", qPrintable(path));
        documents.append(path);
    }
}

bool DeskWork::begin()
{
    tabs = {{.path = anyDocument()}};
    if (!program.open({current().path}, {1100, 700}))
        return false;
    window = program.window();
    frame = program.application().find(Role::Frame);
    tabList = program.application().find(Role::TabList);
    pictureCorner = program.canvas().topLeft();
    return showsTheTabs();
}

bool DeskWork::doEach()
{
    const auto isDone = [this](const Kind &kind) { return perform(kind); };
    const auto isUsed = [this](const DialogKeys &dialog) {
        dialogToUse = &dialog;
        return perform({"use a dialog", 0, &DeskWork::useThatDialog, true});
    };
    return std::ranges::all_of(kinds(), isDone) && std::ranges::all_of(dialogs(), isUsed);
}

bool DeskWork::work(int commands)
{
    int all = 0;
    for (const Kind &kind : kinds())
        all += kind.weight;
    for (int i = 0; i < commands; ++i) {
        int drawn = random.bounded(all);
        const auto kind = std::ranges::find_if(kinds(), [&drawn](const Kind &each) {
            drawn -= each.weight;
            return drawn < 0;
        });
        if (!perform(*kind))
            return false;
    }
    return true;
}

bool DeskWork::closeAllTabs()
{
    while (!tabs.isEmpty()) {
        if (!closeTab())
            return false;
    }
    return true;
}

bool DeskWork::perform(const Kind &kind)
{
    if (kind.needsTab && tabs.isEmpty())
        return true;
    if ((this->*kind.step)())
        return true;
    trouble = u"%1 (last keys in the menu: %2): [%3] in the place of [%4], \"%5\" on top"_s.arg(
        QLatin1StringView(kind.name), QLatin1StringView(lastKeys), shownTitles().join(u' '), titles().join(u' '),
        program.desktop().title(program.desktop().activeWindow()));
    return false;
}

bool DeskWork::openByStart()
{
    const QString &path = anyDocument();
    return tabs.size() == MostTabs || (senders.laterStart(place, path) && tabHasCome(path));
}

bool DeskWork::openByMessage()
{
    const QString &path = anyDocument();
    if (tabs.size() == MostTabs)
        return true;
    senders.message(path);
    return tabHasCome(path);
}

bool DeskWork::openByDialog()
{
    program.desktop().pressKey("o", {"Control_L"});
    if (!dialogIsUp())
        return false;
    const QString &path = anyDocument();
    if (tabs.size() == MostTabs)
        return answer("Escape");
    type(name_of(path));
    return answer("Return") && tabHasCome(path);
}

bool DeskWork::save()
{
    if (!entry(u"File"_s, u"Save"_s).press())
        return false;
    current().isModified = false;
    return isWhatWasSaved();
}

bool DeskWork::saveAs()
{
    if (!askInMenu("f", "a"))
        return false;
    const QString name = u"copy%1."_s.arg(++copies) + current().path.section(u'.', -1);
    program.desktop().pressKey("a", {"Control_L"});
    type(name);
    if (!answer("Return"))
        return false;
    current() = {.path = place.inHome(name)};
    return isWhatWasSaved();
}

bool DeskWork::saveNothing()
{
    for (const char *const key : {"a", "l"}) {
        if (!askInMenu("f", key) || !answer("Escape"))
            return false;
    }
    return showsTheTabs();
}

bool DeskWork::print()
{
    return press(u"File"_s, u"Print"_s);
}

bool DeskWork::closeTab()
{
    if (!current().isModified)
        return entry(u"File"_s, u"Close"_s).press() && currentTabHasGone();

    if (!askInMenu("f", "c"))
        return false;
    switch (random.bounded(3)) {
    case 0:
        return answer("Escape") && showsTheTabs();
    case 1:
        return answer("n", {"Alt_L"}) && currentTabHasGone();
    default:
        return answer("y", {"Alt_L"}) && currentTabHasGone();
    }
}

bool DeskWork::bringUpATab()
{
    const QList<Accessible> shown = tabList.children();
    const qsizetype chosen = random.bounded(tabs.size());
    if (!shown.value(chosen).press())
        return false;
    currentIndex = chosen;
    return showsTheTabs();
}

bool DeskWork::stepBack()
{
    return !entry(u"Edit"_s, u"Undo"_s).has(State::Enabled) || press(u"Edit"_s, u"Undo"_s, Effect::Edit);
}

bool DeskWork::stepForward()
{
    return !entry(u"Edit"_s, u"Redo"_s).has(State::Enabled) || press(u"Edit"_s, u"Redo"_s, Effect::Edit);
}

bool DeskWork::zoom()
{
    return press(u"Zoom"_s, QString::fromLatin1(ZoomSteps.at(random.bounded(static_cast<quint32>(ZoomSteps.size())))));
}

bool DeskWork::toggleLabels()
{
    return press(u"View"_s, u"Labels"_s);
}

bool DeskWork::select()
{
    const auto anyPoint = [this] { return pictureCorner + QPoint(random.bounded(120), random.bounded(120)); };
    const QPoint from = anyPoint();
    program.desktop().drag(from, {anyPoint(), anyPoint()});
    return showsTheTabs();
}

bool DeskWork::crop()
{
    return !entry(u"Image"_s, u"Crop"_s).has(State::Enabled) || press(u"Image"_s, u"Crop"_s, Effect::MaybeEdit);
}

/// To a size that keeps the page neither too small for the dialog nor large.
bool DeskWork::resize()
{
    if (!askInMenu("i", "s r"))
        return false;
    for (int field = 0; field < 2; ++field) {
        program.desktop().pressKey("a", {"Control_L"});
        type(QString::number(random.bounded(SmallestSide, LargestSide)));
        program.desktop().pressKey("Tab");
    }
    return answer("Return") && hasHappened(Effect::Edit);
}

std::span<const DeskWork::DialogKeys> DeskWork::dialogs()
{
    static constexpr auto all = std::to_array<DialogKeys>({
        {"i", "Home Right 1", nullptr, Effect::MaybeEdit},
        {"i", "Home Right 8", nullptr, Effect::MaybeEdit},
        {"i", "Home Right 3", nullptr, Effect::MaybeEdit},
        {"i", "i", nullptr, Effect::Edit},
        {"i", "b", "Right", Effect::Edit},
        {"i", "Home Down Down Down Return", "Left", Effect::Edit},
        {"i", "Home Down Down Down Down Right 9", nullptr, Effect::Edit},
        {"i", "Home Down Down Down Down Right 0", nullptr, Effect::Edit},
        {"i", "Home Down Down Down Down Right 1", nullptr, Effect::Edit},
        {"i", "f h", nullptr, Effect::Edit},
        {"i", "f v", nullptr, Effect::Edit},
        {"i", "s h", "Down", Effect::MaybeEdit},
        {"i", "s v", "Up", Effect::MaybeEdit},
        {"i", "s p", "Down", Effect::MaybeEdit},
        {"i", "p", nullptr, Effect::None},
        {"t", "s", nullptr, Effect::None},
        {"t", "u", nullptr, Effect::None},
        {"t", "c", nullptr, Effect::None},
    });
    return all;
}

bool DeskWork::useADialog()
{
    const std::span<const DialogKeys> all = dialogs();
    dialogToUse = &all[random.bounded(static_cast<quint32>(all.size()))];
    return useThatDialog();
}

bool DeskWork::useThatDialog()
{
    const DialogKeys &dialog = *dialogToUse;
    if (!askInMenu(dialog.menu, dialog.entry))
        return false;
    for (int i = random.bounded(1, 4); dialog.adjust != nullptr && i > 0; --i)
        program.desktop().pressKey(dialog.adjust);
    if (dialog.effect == Effect::None || random.bounded(4) == 0)
        return answer("Escape") && showsTheTabs();
    return answer("Return") && hasHappened(dialog.effect);
}
