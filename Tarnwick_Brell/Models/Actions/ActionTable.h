#pragma once

#include <array>
#include <span>
#include <string_view>

#include <QString>
#include <QStringList>

#include "Tarnwick_Brell/Models/Actions/DeskAction.h"

/// The one list of actions: what menus, shortcuts, the palette and the sheet of keys show.
namespace app {

enum class ActionGroup { thisStory, thisPage, goTo, work, view };
inline constexpr std::array kActionGroups{ActionGroup::thisStory, ActionGroup::thisPage,
                                          ActionGroup::goTo, ActionGroup::work, ActionGroup::view};
QString titleOf(ActionGroup group);

/// When an action can be carried out, beside the window being in front.
/// `page`: the page offers it; `clusters`: the list can show clusters; `live`: sources are fetched
/// every minute.
enum class ActionNeed {
    nothing,
    story,
    storyList,
    clusters,
    arrivals,
    undoable,
    redoable,
    refreshing,
    page,
    live,
    newsroom,
    editing
};

/// Keys in QKeySequence's portable form; empty when there is none.
struct ActionKey {
    const char* text = "";
    /// Works in the list of stories only, which takes it itself: controls use these keys too.
    bool isListKey = false;

    bool isEmpty() const { return *text == '\0'; }
};

struct ActionEntry {
    Action action;
    ActionGroup group;
    const char* title;
    /// What it does once it has been done: "Save story", "Remove story from saved"; null
    /// when that is the same.
    const char* otherTitle;
    std::string_view symbol;
    std::array<ActionKey, 2> keys;
    ActionNeed need = ActionNeed::nothing;
    /// The palette lists places itself, and not what opens or closes it.
    bool isInPalette = true;
};

std::span<const ActionEntry> actionTable();
const ActionEntry& entryOf(Action action);

QString titleOf(const ActionEntry& entry, bool isDone = false);
/// Also while a text field has the focus, where other keys are typed.
bool worksInText(const ActionKey& key);
/// What stands on the caps of the keys: "Ctrl", "F"; "g", "t".
QStringList keyCaps(const ActionKey& key);

}  // namespace app
