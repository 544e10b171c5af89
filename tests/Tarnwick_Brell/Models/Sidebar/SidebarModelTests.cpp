#include <gtest/gtest.h>

#include "NewsroomKit/Newsrooms/NewsroomMaking.h"
#include "Tarnwick_Brell/Models/Sidebar/SidebarModel.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "tests/support/models/TestStories.h"
#include "tests/support/EventLoop.h"

namespace app {
namespace {

using namespace test;
using kit::StoryKind;
using Kind = Destination::Kind;
using ::test::until;

TEST(Destination, IsKnownByItsKeyAgain) {
    const std::vector<std::pair<Destination, QString>> cases{
        {{Kind::newsroom, "8B3D"}, "newsroom:8B3D"},
        {{Kind::all, {}}, "wire:all"},
        {{Kind::unread, {}}, "wire:unread"},
        {{Kind::saved, {}}, "wire:saved"},
        {{Kind::topStories, {}}, "wire:top"},
        {{Kind::beat, "a:b"}, "beat:a:b"},
        {{Kind::source, "six-colors"}, "source:six-colors"},
        {{Kind::tracker, "status"}, "tracker:status"}};
    for (const auto& [place, key] : cases) {
        EXPECT_EQ(place.key(), key);
        EXPECT_EQ(Destination::fromKey(key), place) << key.toStdString();
    }
    for (const auto* key : {"", "wire", "wire:", "wire:none", ":all", "beat:", "shop:1"}) {
        EXPECT_EQ(Destination::fromKey(key), std::nullopt) << key;
    }
}

/// A sidebar with a source, "tide", of which three stories and a deal are there.
class SidebarModelTest : public ::testing::Test {
protected:
    SidebarModelTest() {
        LocalStore store(harness_.desk.library(), Database::Access::readWrite);
        auto transaction = store.transaction();
        store.sources().add(TestDesk::source("tide"));
        transaction.commit();
    }

    void SetUp() override {
        for (int i = 1; i <= 3; ++i) {
            harness_.tell(harness_.story("tide", i * 60, "Story " + std::to_string(i)));
        }
        auto deal = harness_.story("tide", 300, "Deal");
        deal.kind = StoryKind::deal;
        harness_.tell(deal);
        harness_.open();
        sidebar_ = std::make_unique<SidebarModel>(DeskStores{.news = *harness_.news,
                                                             .trackers = *harness_.trackers,
                                                             .newsrooms = *harness_.newsrooms,
                                                             .alerts = *harness_.alerts,
                                                             .kept = *harness_.kept,
                                                             .defaults = harness_.defaults,
                                                             .clock = harness_.desk.clock(),
                                                             .undo = undo_});
    }

    QString cell(const QString& key, const char* role) {
        const auto row = column(*sidebar_->rows(), "key").indexOf(key);
        return row < 0 ? "none" : column(*sidebar_->rows(), role).at(row);
    }
    /// "All, unread, saved, the source, its group", as counts; an empty one is "-".
    std::string counts() {
        QStringList texts;
        for (const auto* key :
             {"wire:all", "wire:unread", "wire:saved", "source:tide", "category:custom"}) {
            const auto count = cell(key, "count");
            texts << (count.isEmpty() ? "-" : count);
        }
        return texts.join(' ').toStdString();
    }
    bool countsBecome(const std::string& expected) {
        return until([&] { return counts() == expected; });
    }

    TestStories harness_;
    UndoStack undo_;
    std::unique_ptr<SidebarModel> sidebar_;
};

TEST_F(SidebarModelTest, CountsFollowArrivalsAndMarks) {
    EXPECT_TRUE(countsBecome("3 3 - 3 3")) << counts() << ": a deal is set aside";
    harness_.come({harness_.story("tide", 500, "Fresh"), harness_.story("post", 510, "Fresh")});
    EXPECT_TRUE(countsBecome("5 5 - 4 4")) << counts();
    harness_.news->setRead({harness_.idOf("Story 1")}, true);
    harness_.news->setSaved({harness_.idOf("Story 2")}, true);
    EXPECT_TRUE(countsBecome("5 4 1 3 3")) << counts();
    EXPECT_TRUE(cell("source:tide", "spokenText").endsWith(", 3 unread"));
    harness_.news->refreshSource("tide");  // which nobody serves
    EXPECT_TRUE(until([&] { return cell("source:tide", "hint") != ""; })) << "why it fails";
    EXPECT_EQ(cell("source:tide", "spokenText"), "tide, failing, 3 unread");

    harness_.newsrooms->put(kit::madeBeat("Three", "bolt", {.anyTerms = {"Story 3"}}, false));
    const auto beat = "beat:" + QString::fromStdString(harness_.newsrooms->beats().entries()[0].id);
    EXPECT_TRUE(until([&] { return cell(beat, "count") == "1"; }));
    harness_.come({harness_.story("post", 520, "Again Story 3")});
    EXPECT_TRUE(until([&] { return cell(beat, "count") == "2"; }));
    harness_.news->setRead({harness_.idOf("Story 3")}, true);
    EXPECT_TRUE(until([&] { return cell(beat, "count") == "1"; }));
}

TEST_F(SidebarModelTest, StoriesThatShareALinkAndAWrongClockAreTold) {
    std::string feed = "<rss><channel>";
    for (const char* title : {"One", "Two", "Three", "Four"}) {
        feed += "<item><title>" + std::string(title) + "</title><link>https://tide/</link></item>";
    }
    harness_.desk.serve("tide", {TestDesk::dated({.body = feed + "</channel></rss>"},
                                                 harness_.desk.now() - std::chrono::hours(48))});
    harness_.news->refreshSource("tide");
    EXPECT_TRUE(until([&] {
        return cell("source:tide", "hint") == "1 story, 3 more share its link";
    })) << cell("source:tide", "hint").toStdString();
    EXPECT_TRUE(until([&] { return sidebar_->foot() == "The clock seems wrong"; }));
}

TEST_F(SidebarModelTest, GroupsCloseAndPlacesAreStillThereForOthers) {
    QStringList told;
    QObject::connect(sidebar_.get(), &SidebarModel::groupToggled,
                     [&](const QString& key, bool closed) { told << key + (closed ? "-" : "+"); });
    QObject::connect(sidebar_.get(), &SidebarModel::placeWanted,
                     [&](const QString& key) { told << key; });
    sidebar_->activate("source:tide");
    sidebar_->activate("category:custom");
    EXPECT_EQ(cell("source:tide", "title"), "none");
    EXPECT_EQ(cell("category:custom", "isExpanded"), "false");
    sidebar_->setExpanded("category:custom", false);
    const auto places = sidebar_->destinations();
    EXPECT_TRUE(std::any_of(places.begin(), places.end(),
                            [](const auto& each) { return each.place.key() == "source:tide"; }));
    sidebar_->activate("category:custom");
    EXPECT_EQ(cell("source:tide", "title"), "tide");
    EXPECT_EQ(told.join(' '), "source:tide category:custom- category:custom+");
}

TEST_F(SidebarModelTest, ItemsAreCountedAndHaveNeighboursWithoutTheLabelsBetween) {
    EXPECT_EQ(sidebar_->item(1)->kind, Kind::newsroom);
    EXPECT_EQ(sidebar_->item(2), (Destination{Kind::all, {}}));
    EXPECT_EQ(sidebar_->item(99), std::nullopt);
    sidebar_->setCurrent("wire:all");
    EXPECT_EQ(cell("wire:all", "isCurrent"), "true");
    EXPECT_EQ(sidebar_->neighbour(1), (Destination{Kind::unread, {}}));
    EXPECT_EQ(sidebar_->neighbour(-1)->kind, Kind::newsroom);
    sidebar_->setCurrent("wire:top");
    EXPECT_EQ(sidebar_->neighbour(1), (Destination{Kind::page, "activity"}));
    sidebar_->setCurrent("page:activity");
    EXPECT_EQ(sidebar_->neighbour(1), (Destination{Kind::saved, {}}));
    sidebar_->setCurrent("page:removed");
    EXPECT_EQ(sidebar_->neighbour(1), (Destination{Kind::page, "sources"}));
    sidebar_->setCurrent("page:sources");
    EXPECT_EQ(sidebar_->neighbour(1), (Destination{Kind::source, "tide"}));
    sidebar_->setCurrent(sidebar_->item(1)->key());
    EXPECT_EQ(sidebar_->neighbour(-1), std::nullopt);
}

}  // namespace
}  // namespace app
