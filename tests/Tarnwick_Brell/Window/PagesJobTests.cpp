#include <gtest/gtest.h>

#include "NewsroomKit/Pages/PageKeys.h"
#include "Tarnwick_Brell/Models/Pages/PagesPageModel.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/FollowedPages.h"
#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"

namespace app {
namespace {

using namespace test;
using ::test::until;

/// The page of followed pages.
class PagesJobTest : public WindowJobTest {
protected:
    void SetUp() override {
        openWindow();
        model_->open(QStringLiteral("tracker:pages"));
        ASSERT_TRUE(until([&] { return page().state() == PanelModel::Ready; }));
    }
    PagesPageModel& page() { return dynamic_cast<PagesPageModel&>(*model_->page()); }
    bool isShown(const char* name) {
        for (int row = 0; row < page().rows()->rowCount(); ++row) {
            page().setRow(row);
            if (page().chosenName() == QString::fromUtf8(name)) return page().isFollowed();
        }
        return false;
    }
};

TEST_F(PagesJobTest, APageIsFollowedUnfollowedAndTheStepIsUndone) {
    EXPECT_TRUE(page().isSuggested()) << "nothing is followed before the user wants it";
    page().addPage(QStringLiteral("ftp://tide.example/table"));
    EXPECT_EQ(noticed_.size(), 1) << "only pages of https";
    page().followSuggested();
    ASSERT_TRUE(until([&] { return isShown("App Store Review Guidelines"); }));
    page().removePage();
    ASSERT_TRUE(until([&] { return !isShown("App Store Review Guidelines"); }));
    EXPECT_TRUE(undo_.undo());
    EXPECT_TRUE(until([&] { return isShown("App Store Review Guidelines"); }));
}

/// A page of which three texts are kept, and a part of which is left out.
class PageTextsJobTest : public WindowJobTest {
protected:
    static constexpr const char* kAddress = "https://tide.example/table";

    void SetUp() override {
        LocalStore store(harness_.desk.library(), Database::Access::readWrite);
        auto transaction = store.transaction();
        followPage(store, {.id = "tide", .address = kAddress, .name = "Tide table"});
        kit::PageWatch watch;
        watch.state.rules = 1;
        watch.state.volatileBlocks = {{.place = "text/0/0", .sample = "Wave <b>17</b> of today"}};
        for (const char* boats : {"one", "two", "three"}) {
            kit::PageBlock block;
            block.text = "The harbour has room for " + std::string(boats) +
                         " boats & their <crews>, no more.";
            watch.blocks = {block};
            watch.state.key = kit::pageKeys(watch.blocks).key;
            kit::PageRevision revision;
            revision.address = kAddress;
            revision.kind = kit::PageRevision::Kind::changed;
            revision.seenAt = revision.confirmedAt = harness_.at("11:59");
            store.pages().add(revision, watch.blocks, "<p>");
        }
        store.pages().storeState(kAddress, watch.state,
                                 {.last = harness_.at("11:59"), .next = harness_.at("12:30")});
        store.pages().storeTexts(kAddress, watch);
        transaction.commit();
        openWindow();
        model_->open(QStringLiteral("tracker:pages"));
        ASSERT_TRUE(until([&] { return marked(0).contains("three"); }));
    }
    PagesPageModel& page() { return dynamic_cast<PagesPageModel&>(*model_->page()); }
    QVariant member(int row, const char* name) {
        const auto roles = page().changes()->roleNames();
        return page().changes()->index(row, 0).data(roles.key(name));
    }
    /// "room for -two- +three+ boats"
    QString marked(int row, const char* list = "words") {
        QStringList words;
        for (const auto& word : member(row, list).toList()) {
            const auto parts = word.toMap();
            const QString mark = parts["isRemoved"].toBool() ? "-"
                                 : parts["isAdded"].toBool() ? "+"
                                                             : "";
            words << mark + parts["text"].toString() + mark;
        }
        return words.join(u' ');
    }
    bool shows(const char* words) {
        return until([&] { return marked(0).contains(QString::fromUtf8(words)); });
    }
};

TEST_F(PageTextsJobTest, ChangesAreMarkedWordByWordAndReadTextByText) {
    EXPECT_EQ(marked(0), "The harbour has room for -two- +three+ boats & their <crews>, no more.");
    EXPECT_TRUE(member(0, "spokenText").toString().contains("\"two\" became \"three\""));
    type("]");
    type("[");
    EXPECT_TRUE(shows("-one- +two+"));
    type("}");
    type("]");
    EXPECT_TRUE(shows("-two- +three+"));
    type("{");
    EXPECT_TRUE(shows("-one- +three+"));
}

TEST_F(PageTextsJobTest, APartThatIsLeftOutIsComparedAgainAndTheStepIsUndone) {
    EXPECT_EQ(marked(1), "Wave <b>17</b> of today");
    const auto leavesOut = [&](int parts) {
        return until([&] { return page().changes()->rowCount() == 1 + parts; });
    };
    click(QStringLiteral("Compare again"));
    EXPECT_TRUE(leavesOut(0));
    EXPECT_TRUE(undo_.undo());
    EXPECT_TRUE(leavesOut(1));
}

TEST_F(PageTextsJobTest, ChangesStandSideBySideOrInTheWholeTextAndAreFiltered) {
    click(QStringLiteral("Side by side"));
    EXPECT_EQ(marked(0), "The harbour has room for +three+ boats & their <crews>, no more.");
    EXPECT_EQ(marked(0, "wordsBefore"),
              "The harbour has room for -two- boats & their <crews>, no more.");
    click(QStringLiteral("Full text"));
    EXPECT_TRUE(shows("-two- +three+"));
    EXPECT_EQ(page().changes()->rowCount(), 1) << "without what is left out";
    click(QStringLiteral("Changes"));
    EXPECT_TRUE(until([&] { return page().changes()->rowCount() == 2; }));
    const auto pages = [&] { return page().rows()->rowCount(); };
    const auto all = pages();
    page().setWords(QStringLiteral("TIDE"));
    EXPECT_EQ(pages(), 1) << "suggested pages are not searched";
    page().setWords(QStringLiteral("ebb"));
    EXPECT_EQ(pages(), 0);
    EXPECT_EQ(page().changes()->rowCount(), 0) << "no page is chosen";
    page().setWords({});
    EXPECT_EQ(pages(), all);
    EXPECT_TRUE(shows("-two- +three+"));
    EXPECT_EQ(page().subsets(), QStringList({"All 1", "Changed 1", "Failing 0"}));
    click(QStringLiteral("Failing 0"));
    EXPECT_EQ(pages(), 0);
}

}  // namespace
}  // namespace app
