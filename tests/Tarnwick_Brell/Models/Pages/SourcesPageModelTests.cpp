#include <gtest/gtest.h>

#include "Tarnwick_Brell/Models/Pages/SourcesPageModel.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "tests/support/EventLoop.h"
#include "tests/support/models/TestStories.h"

namespace app {
namespace {

using namespace test;
using ::test::until;

class SourcesPageTest : public ::testing::Test {
protected:
    void SetUp() override {
        LocalStore library(harness_.desk.library(), Database::Access::readWrite);
        library.sources().add(TestDesk::source("pier.example"));
        library.sources().setStatus("pier.example", {.lastAttempt = harness_.desk.now(),
                                                     .lastError = "The server answered 503."});
        harness_.open();
        page_ = std::make_unique<SourcesPageModel>(DeskStores{.news = *harness_.news,
                                                              .trackers = *harness_.trackers,
                                                              .newsrooms = *harness_.newsrooms,
                                                              .alerts = *harness_.alerts,
                                                              .kept = *harness_.kept,
                                                              .defaults = harness_.defaults,
                                                              .clock = harness_.desk.clock(),
                                                              .undo = undo_});
    }

    QStringList names() { return column(*page_->rows(), "name"); }
    bool hasPier() { return names().contains(TestDesk::source("pier.example").name.c_str()); }

    TestStories harness_;
    UndoStack undo_;
    std::unique_ptr<SourcesPageModel> page_;
};

TEST_F(SourcesPageTest, TheWholeCatalogueIsListedAndWhyASourceFailsIsSaid) {
    EXPECT_EQ(names().size(), 46);
    page_->setSubset(static_cast<int>(SourceSubset::failing));
    ASSERT_EQ(names().size(), 1);
    page_->open(0);
    EXPECT_EQ(page_->detail().stateText, "The server answered 503.");
    EXPECT_TRUE(page_->offers(DeskAction::FetchSource));
}

TEST_F(SourcesPageTest, ARemovedSourceComesBackUnderItsOldID) {
    page_->setSubset(static_cast<int>(SourceSubset::own));
    const auto id = page_->rows()->row(0)->id;
    page_->perform(DeskAction::RemoveSource);
    EXPECT_TRUE(until([&] { return !hasPier(); }));
    ASSERT_TRUE(undo_.undo());
    EXPECT_TRUE(until([&] { return hasPier(); }));
    EXPECT_EQ(page_->rows()->row(0)->id, id);
}

TEST_F(SourcesPageTest, ASwitchedSourceStaysInTheTableAndTheSwitchIsUndone) {
    page_->setSubset(static_cast<int>(SourceSubset::own));
    const auto isOn = [&] { return page_->rows()->row(0)->isOn; };
    const bool before = isOn();
    page_->perform(DeskAction::SwitchSource);
    EXPECT_TRUE(until([&] { return isOn() != before; }));
    undo_.undo();
    EXPECT_TRUE(until([&] { return isOn() == before; }));
}

}  // namespace
}  // namespace app
