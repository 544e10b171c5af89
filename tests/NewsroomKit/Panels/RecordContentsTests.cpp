#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/CourtContent.h"
#include "NewsroomKit/Panels/PressContent.h"

namespace kit {
namespace {

Instant hourOf(int hour) { return Instant(std::chrono::hours(494'000 + hour)); }

CourtItem entryOf(const char* feed, const char* number, int filed, int seen,
                  DocketWeight weight = DocketWeight::matters) {
    CourtItem item{.firstSeen = hourOf(seen), .feed = feed};
    item.entry.number = number;
    item.entry.caseName = "Marlow Toys v. Apple";
    item.entry.caseNumber = "3:26-cv-00001";
    item.entry.date = hourOf(filed);
    item.entry.weight = weight;
    return item;
}

TEST(CourtCaseRows, CountWhatCameSinceTheLastLookAndMatters) {
    const std::vector<FollowedDocket> followed{{.docket = 7, .feed = "docket/7"},
                                               {.docket = 8, .feed = "docket/8", .note = "why"},
                                               {.feed = "courtFeed/x", .name = "Fed. Cir."}};
    const std::vector<CourtItem> items{
        entryOf("docket/7", "3", 1, 1),
        entryOf("docket/7", "4", 3, 12),
        entryOf("docket/7", "5", 2, 12, DocketWeight::routine),
        entryOf("courtFeed/x", "9", 9, 9),
    };
    const CourtCase described{.docket = 8, .court = "cand", .number = "4:26-cv-2", .name = "Ort"};
    const auto rows = courtCaseRows(followed, items, {{described}}, hourOf(10));
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0].name, "Fed. Cir.") << "a feed of many cases bears its own name";
    EXPECT_EQ(rows[0].unseen, 0U);
    EXPECT_EQ(rows[1].name, "Marlow Toys v. Apple");
    EXPECT_EQ(rows[1].latest, hourOf(3));
    EXPECT_EQ(rows[1].entries, 3U);
    EXPECT_EQ(rows[1].matters, 2U);
    EXPECT_EQ(rows[1].unseen, 1U) << "neither the routine one nor the one seen before";
    EXPECT_EQ(rows[2].name, "Ort") << "known from a search before its feed was read";
    EXPECT_EQ(courtCaseRows(followed, items, {}, std::nullopt)[1].unseen, 0U) << "first look";
}

TEST(PressRows, AreByTheTimeTheyWerePublishedElseSeen) {
    std::vector<PressItem> items(3);
    items[0].release = {.title = "Old", .symbol = "GLW", .published = hourOf(1)};
    items[0].firstSeen = hourOf(20);
    items[1].release = {.title = "Undated", .company = "Apple"};
    items[1].firstSeen = hourOf(5);
    items[2].release = {.title = "New", .company = "Apple", .published = hourOf(9)};
    items[2].firstSeen = hourOf(9);
    std::string titles;
    for (const auto& row : pressRows(items, {}, {})) titles += row.item.release.title + " ";
    EXPECT_EQ(titles, "New Undated Old ");
    EXPECT_EQ(pressRows(items, {}, {.company = "GLW"}).size(), 1U) << "the symbol names it";
    EXPECT_EQ(pressRows(items, {}, {.since = hourOf(8)}).size(), 2U)
        << "what was published earlier may have been seen later";
}

}  // namespace
}  // namespace kit
