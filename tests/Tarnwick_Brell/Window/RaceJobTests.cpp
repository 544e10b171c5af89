#include <gtest/gtest.h>

#include "Tarnwick_Brell/Models/Pages/LedgerPageModel.h"
#include "Tarnwick_Brell/Models/Pages/RacesPageModel.h"
#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"

namespace app {
namespace {

using namespace test;
using ::test::until;

/// The pages of races and claims, driven by keys.
class RaceJobTest : public WindowJobTest {
protected:
    void SetUp() override {
        const std::string headset = "Apple tests a lighter Vision headset without a fan";
        const std::string phone = "Foldable iPhone Ultra said to get a titanium hinge from Lux";
        harness_.tell("Harbour", "10:11", headset, kit::Sourcing::rumor);
        harness_.tell("Lantern", "10:31", headset, kit::Sourcing::rumor);
        harness_.tell("Lantern", "10:51", phone, kit::Sourcing::rumor);
        harness_.tell("Harbour", "10:56", phone, kit::Sourcing::rumor);
        openWindow();
    }

    template <class Page>
    Page& open(const char* place) {
        model_->open(QString::fromLatin1(place));
        EXPECT_TRUE(until([&] { return model_->page()->state() == PanelModel::Ready; }));
        return dynamic_cast<Page&>(*model_->page());
    }
    bool focuses(const char* list) {
        return until([&] {
            auto* item = window().activeFocusItem();
            return item && nameOf(item) == QLatin1String(list);
        });
    }
};

TEST_F(RaceJobTest, TwoOutletsArePickedByKeysAndTheirRacesShown) {
    auto& page = open<RacesPageModel>("page:races");
    ASSERT_EQ(page.rows()->rowCount(), 2);
    ASSERT_TRUE(focuses("Outlets by how often they led"));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(page.pairTitle(), "Harbour and Lantern");
    EXPECT_EQ(page.score(), "1 : 1");
    EXPECT_EQ(page.races()->rowCount(), 2);
    EXPECT_EQ(page.medians(), "Median leads: Harbour 20 min, Lantern 5 min.");
    press(Qt::Key_Return);
    EXPECT_TRUE(page.pairTitle().isEmpty()) << "picked again, an outlet is dropped";
}

TEST_F(RaceJobTest, TheLedgerListsTheClaimsOfTheOutletThatIsChosen) {
    auto& page = open<LedgerPageModel>("page:ledger");
    EXPECT_EQ(page.claimsTitle(), "All claims");
    EXPECT_EQ(page.claims()->rowCount(), 4);
    ASSERT_TRUE(focuses("Outlets by their claims"));
    press(Qt::Key_Down);
    EXPECT_EQ(page.claimsTitle(), "Claims of Harbour");
    page.setStateShown(2);
    EXPECT_EQ(page.nothingShown(), "No claim matches the filter.");
}

TEST_F(RaceJobTest, WhatHasSettledAClaimIsKept) {
    harness_.tell("Apple Newsroom", "11:31", "Apple unveils a lighter Vision headset without a fan",
                  kit::Sourcing::confirmed);
    open<LedgerPageModel>("page:ledger");
    LocalStore store(harness_.desk.library(), Database::Access::readOnly);
    ASSERT_TRUE(until([&] { return store.claimAnswers().all().size() == 2; }));
    EXPECT_FALSE(store.claimAnswers().all().front().why.empty());
}

}  // namespace
}  // namespace app
