#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <vector>

#include <QKeySequence>

#include "Tarnwick_Brell/Models/Actions/ActionModel.h"

namespace app {
namespace {

struct BoundKey {
    Action action;
    QKeySequence keys;
};

std::vector<BoundKey> boundKeys() {
    std::vector<BoundKey> bound;
    for (const auto& entry : actionTable()) {
        for (const auto& key : entry.keys) {
            if (!key.isEmpty())
                bound.push_back({entry.action, QKeySequence::fromString(QString(key.text))});
        }
    }
    return bound;
}

TEST(Actions, NoKeyIsTakenTwiceOrHidesALongerOne) {
    const auto bound = boundKeys();
    for (const auto& one : bound) {
        ASSERT_FALSE(one.keys.isEmpty()) << one.action;
        ASSERT_NE(one.keys[0].key(), Qt::Key_unknown) << one.action;
        for (const auto& other : bound) {
            if (&one == &other) continue;
            EXPECT_EQ(other.keys.matches(one.keys), QKeySequence::NoMatch)
                << one.keys.toString().toStdString() << " and "
                << other.keys.toString().toStdString();
        }
        // Waiting for a second key makes the first one slow.
        EXPECT_TRUE(one.keys.count() == 1 || one.keys[0] == QKeyCombination(Qt::Key_G));
    }
}

TEST(Actions, EachIsListedOnceWithAnIconAndAKey) {
    const std::filesystem::path icons =
        std::filesystem::path(BRELL_FIXTURES) / "../../Tarnwick_Brell/Interface/Controls/Icons";
    std::set<Action> seen;
    for (const auto& entry : actionTable()) {
        EXPECT_TRUE(seen.insert(entry.action).second) << entry.title;
        EXPECT_TRUE(std::filesystem::exists(icons / (std::string(entry.symbol) + ".svg")))
            << entry.symbol;
        EXPECT_FALSE(entry.keys[0].isEmpty()) << entry.title;
    }
    EXPECT_EQ(seen.size(), static_cast<std::size_t>(DeskAction::UseDarkAppearance) + 1);
}

TEST(Actions, KeysAreShownAsTheirCapsAndBoundWhereTheyWork) {
    struct Case {
        Action action;
        const char* caps;
        const char* otherCaps;
        const char* shortcuts;
        const char* shortcutsInText;
    };
    const Case cases[] = {
        {DeskAction::MarkAllRead, "Shift M", "", "Shift+M", ""},
        {DeskAction::GoToSaved, "g s", "", "G, S", ""},
        {DeskAction::Search, "Ctrl F", "/", "Ctrl+F /", "Ctrl+F"},
        {DeskAction::NextStory, "j", "↓", "J", ""},
        {DeskAction::OpenInBrowser, "Enter", "", "", ""},
        {DeskAction::ToggleSidebar, "Ctrl \\", "", "Ctrl+\\", "Ctrl+\\"},
    };
    const ActionModel actions;
    for (const auto& c : cases) {
        const auto& row = actions.row(c.action);
        EXPECT_EQ(row.keyCaps.join(u' '), c.caps);
        EXPECT_EQ(row.otherKeyCaps.join(u' '), c.otherCaps);
        EXPECT_EQ(row.shortcuts.join(u' '), c.shortcuts);
        EXPECT_EQ(row.shortcutsInText.join(u' '), c.shortcutsInText);
    }
}

TEST(Actions, OnlyWhatCanBeDoneIsDoneAndNamedByWhatItWouldDo) {
    ActionModel actions;
    std::vector<Action> done;
    QObject::connect(&actions, &ActionModel::triggered, &actions,
                     [&](Action action) { done.push_back(action); });
    actions.trigger(DeskAction::ToggleSaved);
    actions.trigger(DeskAction::Refresh);
    EXPECT_EQ(actions.title(DeskAction::ToggleSaved), "Save story");
    actions.setProperty("hasStory", true);
    actions.setProperty("storyIsSaved", true);
    EXPECT_EQ(actions.title(DeskAction::ToggleSaved), "Remove story from saved");
    actions.trigger(DeskAction::ToggleSaved);
    actions.trigger(DeskAction::Undo);
    EXPECT_EQ(done, (std::vector{DeskAction::Refresh, DeskAction::ToggleSaved}));
    actions.setProperty("undoText", "Remove panel Latest");
    EXPECT_EQ(actions.title(DeskAction::Undo), "Undo Remove panel Latest");
}

}  // namespace
}  // namespace app
