#include <gtest/gtest.h>

#include "Tarnwick_Brell/Models/Pages/RecordsPageModel.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/FilingRecords.h"
#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"

namespace app {
namespace {

using namespace test;
using ::test::until;

/// The page of filings and courts, driven by keys.
class RecordsJobTest : public WindowJobTest {
protected:
    void SetUp() override {
        LocalStore store(harness_.desk.library(), Database::Access::readWrite);
        addFiling(store, "0000320193-26-000001", "8-K", {"5.02"});
        addFiling(store, "0000320193-26-000002", "10-Q", {});
        const kit::DocketEntry entry{.key = "77|5",
                                     .caseName = "Marlow Toys v. Apple",
                                     .number = "5",
                                     .kind = "Order",
                                     .text = "Order granting the motion",
                                     .date = harness_.at("10:00"),
                                     .weight = kit::DocketWeight::matters};
        store.docketEntries().put({.key = entry.key,
                                   .feed = docketFile(77).name,
                                   .happenedAt = entry.date,
                                   .firstSeen = harness_.at("10:05"),
                                   .record = boost::json::serialize(kit::encode(entry))});
        openWindow();
        model_->open(QStringLiteral("tracker:records"));
        ASSERT_TRUE(until([&] { return page().state() == PanelModel::Ready; }));
    }
    void addFiling(LocalStore& store, const char* accession, const char* form,
                   std::vector<std::string> items) {
        putFiling(store, {.company = kit::appleCIK,
                          .filing = {.accession = accession,
                                     .form = form,
                                     .filed = "2026-11-20",
                                     .accepted = harness_.at("09:00"),
                                     .items = std::move(items),
                                     .indexURL = "https://www.sec.gov/x-index.htm"},
                          .seenAt = harness_.at("09:10")});
    }
    RecordsPageModel& page() { return dynamic_cast<RecordsPageModel&>(*model_->page()); }
    bool hasListFocus() {
        auto* item = window().activeFocusItem();
        while (item && nameOf(item) != "Filings") item = item->parentItem();
        return item != nullptr;
    }
    int rows(QAbstractListModel* list) { return list->rowCount(); }
};

TEST_F(RecordsJobTest, FilingsAreFilteredChosenAndOpened) {
    ASSERT_EQ(rows(page().filings()), 2);
    page().setWords(QStringLiteral("officers"));
    EXPECT_EQ(rows(page().filings()), 1) << "the words of an item";
    page().actOnNothing();
    EXPECT_EQ(rows(page().filings()), 2);
    const auto first = page().sheetBadge();
    QString opened;
    QObject::connect(&page(), &PanelModel::linkWanted, &page(),
                     [&](const QString& link) { opened = link; });
    ASSERT_TRUE(until([&] { return hasListFocus(); }));
    press(Qt::Key_J);
    EXPECT_NE(page().sheetBadge(), first);
    EXPECT_GT(rows(page().lines()), 2) << "times, number";
    page().openRow(page().row());
    EXPECT_EQ(opened, QStringLiteral("https://www.sec.gov/x-index.htm"));
}

TEST_F(RecordsJobTest, ACaseIsFollowedByItsAddressAndTheStepIsUndone) {
    page().setTab(RecordsPageModel::Court);
    EXPECT_EQ(rows(page().cases()), 0);
    page().addCase(QStringLiteral("https://example.org/x"));
    ASSERT_EQ(noticed_.size(), 1) << "what is no docket is refused";
    page().addCase(QStringLiteral("https://www.courtlistener.com/docket/77/marlow-v-apple/"));
    ASSERT_TRUE(until([&] { return rows(page().cases()) == 1; }));
    EXPECT_EQ(page().sheetTitle(), QStringLiteral("Marlow Toys v. Apple"));
    EXPECT_EQ(rows(page().entries()), 1);
    page().setCaseNote(QStringLiteral("The trial is in March."));
    ASSERT_TRUE(until([&] { return !page().caseNote().isEmpty(); }));
    EXPECT_TRUE(undo_.undo());
    ASSERT_TRUE(until([&] { return page().caseNote().isEmpty(); }));
    page().unfollowCase();
    ASSERT_TRUE(until([&] { return rows(page().cases()) == 0; }));
    EXPECT_TRUE(undo_.undo());
    EXPECT_TRUE(until([&] { return rows(page().cases()) == 1; })) << "undone";
}

}  // namespace
}  // namespace app
