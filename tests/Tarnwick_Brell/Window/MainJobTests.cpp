#include <gtest/gtest.h>

#include "Tarnwick_Brell/Models/Panels/StockPanelModel.h"
#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"
#include "tests/support/app/TestTrackers.h"

namespace app {
namespace {

using namespace test;
using ::test::until;

/// A desk with twelve stories.
class MainJobTest : public WindowJobTest {
protected:
    void SetUp() override {
        for (int i = 1; i <= 12; ++i) {
            harness_.tell(harness_.story(
                i % 2 == 0 ? "tide" : "post", i * 30,
                (i % 4 == 0 ? "Orchard news " : "Harbour news ") + std::to_string(i)));
        }
        for (const char* range : {"1m", "1w"}) {
            const auto price = range[1] == 'm' ? 211.0 : 212.0;
            harness_.desk.http.script.on(
                "desk.example",
                std::string("/wp-json/tb-wire/v1/quote?range=") + range + "&symbol=AAPL",
                {quoteAnswer("AAPL", range, price)});
        }
        openWindow();
        QObject::connect(model_.get(), &WindowModel::linkWanted,
                         [this](const QString& link) { opened_ << link; });
    }

    StoryListController& stories() { return *model_->storyList(); }
    SelectedStory& selected() { return *model_->selectedStory(); }
    StoryListModel& list() { return *stories().list(); }

    void goToWire() {
        type("gw");
        ASSERT_EQ(model_->placeKey().toStdString(), "wire:all");
        ASSERT_TRUE(until([&] { return list().isComplete() && list().count() == 12; }));
    }
    /// It or a row of it.
    bool listHasFocus() {
        auto* item = window().activeFocusItem();
        while (item && !item->inherits("QQuickListView")) item = item->parentItem();
        return item != nullptr && nameOf(item) == stories().title();
    }
    std::string currentID() { return selected().reader()->storyID().toStdString(); }

    QStringList opened_;
};

TEST_F(MainJobTest, NewsIsReadKeptFoundAndOpenedWithTheKeyboard) {
    EXPECT_EQ(model_->view(), WindowModel::Newsroom);
    EXPECT_NE(named("Today"), nullptr) << "what a desk opens with";

    goToWire();
    type("jj");
    EXPECT_EQ(selected().row(), 1);
    EXPECT_EQ(selected().reader()->title(), "Harbour news 11");
    const auto id = currentID();
    EXPECT_NE(named("Unread, Harbour news 11, post, 6 h"), nullptr);

    type("s");
    EXPECT_TRUE(harness_.news->isSaved(id));
    EXPECT_NE(named("Unread, Saved, Harbour news 11, post, 6 h"), nullptr);
    EXPECT_NE(named("Saved."), nullptr) << "and a notice with which it can be undone";
    type("m");
    EXPECT_TRUE(harness_.news->isRead(id));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(harness_.news->isRead(id));
    EXPECT_TRUE(harness_.news->isSaved(id)) << "only the last mark is taken back";

    type("/");
    EXPECT_FALSE(listHasFocus());
    type("orchard");
    EXPECT_TRUE(until([&] { return list().count() == 3; }));
    EXPECT_FALSE(harness_.news->isRead(id)) << "letters are text there";
    press(Qt::Key_Down);
    EXPECT_TRUE(listHasFocus());
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(opened_, QStringList("https://tide.example/360"));
    EXPECT_TRUE(harness_.news->isRead(currentID())) << "what has been opened has been read";

    type("/");
    press(Qt::Key_Escape);
    EXPECT_EQ(stories().searchText(), "");
    EXPECT_TRUE(until([&] { return list().count() == 12; }));
    press(Qt::Key_Escape);
    EXPECT_TRUE(listHasFocus());
}

TEST_F(MainJobTest, ThePaletteAndTheKeysStandOverThePageAndGiveTheFocusBack) {
    press(Qt::Key_K, Qt::ControlModifier);
    ASSERT_TRUE(until([&] { return named("Commands, places and stories") != nullptr; }));
    type("unread");
    press(Qt::Key_Return);
    EXPECT_EQ(model_->placeKey().toStdString(), "wire:unread");
    ASSERT_TRUE(until([&] { return named("Commands, places and stories") == nullptr; }));
    ASSERT_TRUE(until([&] { return list().count() == 12; }));
    EXPECT_TRUE(until([&] { return listHasFocus(); })) << "the page that has been opened";
    press(Qt::Key_Down);
    EXPECT_EQ(selected().row(), 0);

    type("?");
    ASSERT_TRUE(until([&] { return named("Keys") != nullptr; }));
    type("j");
    EXPECT_EQ(selected().row(), 0) << "the page below has no keys meanwhile";
    press(Qt::Key_Escape);
    ASSERT_TRUE(until([&] { return named("Keys") == nullptr; }));
    press(Qt::Key_Down);
    EXPECT_EQ(selected().row(), 1);
}

TEST_F(MainJobTest, NewsIsReadKeptAndFilteredWithThePointer) {
    goToWire();
    click("Unread, Harbour news 10, tide, 7 h");
    EXPECT_EQ(selected().row(), 2);
    EXPECT_EQ(selected().reader()->title(), "Harbour news 10");
    EXPECT_TRUE(listHasFocus());
    click("Save");
    EXPECT_TRUE(harness_.news->isSaved(currentID()));
    click("Undo");
    EXPECT_FALSE(harness_.news->isSaved(currentID()));

    click("Kind");
    click("Podcast");
    EXPECT_TRUE(stories().kinds()->isActive());
    EXPECT_TRUE(until([&] { return named("No story here matches the filters.") != nullptr; }));
    click("Show all");
    EXPECT_TRUE(until([&] { return list().count() == 12; }));

    click("Saved");
    EXPECT_EQ(model_->placeKey(), "wire:saved");
    EXPECT_TRUE(until([&] { return named("You have not saved any stories yet.") != nullptr; }));
}

TEST_F(MainJobTest, WhatANotificationIsAboutIsShownInTheWindow) {
    using Target = NotificationTarget;
    model_->state()->setReader(WindowState::Hidden);
    window().showMinimized();
    openTarget(*model_, {.kind = Target::Kind::story, .id = harness_.idOf("Harbour news 7")});
    window_->raise({});
    EXPECT_EQ(model_->placeKey(), "wire:all");
    EXPECT_EQ(selected().reader()->title(), "Harbour news 7");
    EXPECT_EQ(model_->state()->reader(), WindowState::Right) << "the story can be seen";
    EXPECT_FALSE(window().windowStates() & Qt::WindowMinimized);

    ASSERT_TRUE(until([&] { return list().count() == 12; }));
    harness_.come({harness_.story("tide", 700, "Harbour news 13")});
    EXPECT_EQ(list().arrivals(), 1) << "it waits, since a story is being read";
    openTarget(*model_, {.kind = Target::Kind::newStories});
    EXPECT_EQ(list().arrivals(), 0);
    EXPECT_EQ(list().count(), 13);

    const std::pair<Target, const char*> cases[] = {
        {{.kind = Target::Kind::tracker, .id = "status"}, "tracker:status"},
        {{.kind = Target::Kind::tracker, .id = "software"}, "tracker:software"},
        {{.kind = Target::Kind::tracker, .id = "signing"}, "tracker:signing"},
        {{.kind = Target::Kind::tracker, .id = "updates"}, "tracker:updates"},
        {{.kind = Target::Kind::newStories}, "wire:all"},
        {{.kind = Target::Kind::newsroom, .id = std::string(kit::NewsroomSpec::kBuiltInID)},
         "newsroom:8B3D5F20-0000-4000-8000-00000000A7D1"},
        {{.kind = Target::Kind::beat, .id = "gone"},
         "newsroom:8B3D5F20-0000-4000-8000-00000000A7D1"},
    };
    for (const auto& [target, place] : cases) {
        openTarget(*model_, target);
        EXPECT_EQ(model_->placeKey().toStdString(), place);
    }
    EXPECT_EQ(opened_, QStringList()) << "nothing goes to the browser";
}

TEST_F(MainJobTest, TheRangeOfTheShareOnTodayIsChosenWithAClick) {
    StockPanelModel* stock = nullptr;
    const auto& today = *model_->newsroom();
    for (int row = 0; row < today.rowCount(); ++row) {
        const auto content = today.index(row).data(today.roleNames().key("content"));
        if (auto* found = qobject_cast<StockPanelModel*>(content.value<PanelModel*>()))
            stock = found;
    }
    ASSERT_NE(stock, nullptr);
    EXPECT_TRUE(until([&] { return stock->price().contains("211"); }));
    click("1W");
    EXPECT_EQ(stock->range(), 1);
    EXPECT_TRUE(until([&] { return stock->price().contains("212"); })) << "fetched at once";
}

}  // namespace
}  // namespace app
