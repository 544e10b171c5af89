#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "NewsroomKit/Court/DocketSignals.h"

namespace kit {
namespace {

DocketEntry entry(const std::string& key, const std::string& day, const std::string& text,
                  const std::string& kind = "Order") {
    return {.key = key,
            .kind = kind,
            .text = text,
            .date = parseISO8601(day + "T08:00:00Z"),
            .weight = DocketWeight::matters};
}

std::string told(const std::vector<DocketEntry>& known, const std::vector<DocketEntry>& latest) {
    std::string ids;
    const auto changes = docketChanges(known, {.entries = latest});
    for (const auto& signal : signalsOf(changes, "https://feed.example/", Instant()))
        ids += signal.id.substr(std::string("docket|").size()) + " ";
    return ids;
}

TEST(DocketSignals, TellNewEntriesAndStubsThatBecameReadable) {
    const auto stub = entry("a", "2026-11-18", "Order");
    const auto text = entry("a", "2026-11-18", "ORDER granting the motion in part.");
    auto corrected = text;
    corrected.text += " Entered again.";
    EXPECT_EQ(told({}, {stub, entry("b", "2026-11-19", "Order")}), "a b ");
    EXPECT_EQ(told({stub}, {stub}), "");
    EXPECT_EQ(told({stub}, {text}), "a|readable ");
    EXPECT_EQ(told({text}, {corrected}), "");
    EXPECT_EQ(told({text}, {stub}), "") << "an entry does not lose its text";
    EXPECT_TRUE(docketChanges(std::vector{text}, {.entries = {stub}}).empty());
}

TEST(DocketSignals, TellNothingOfEntriesThatOnlyComeIntoViewOfAFullFeed) {
    std::vector<DocketEntry> known;
    for (int i = 0; i < 30; ++i)
        known.push_back(entry("k" + std::to_string(i), "2026-11-10", "Order"));
    EXPECT_EQ(told(known, {entry("old", "2026-11-01", "Order")}), "");
    EXPECT_EQ(told({known.front()}, {entry("old", "2026-11-01", "Order")}), "old ");
}

TEST(CourtFeeds, AreSilentAfterThreeWorkingDays) {
    const auto silent = [](const char* built, const char* now) {
        return silentSince({.built = parseISO8601(built)}, parseISO8601(now).value()).has_value();
    };
    // The 20th is a Friday.
    EXPECT_FALSE(silent("2026-11-20T22:00:00Z", "2026-11-25T12:00:00Z"));
    EXPECT_TRUE(silent("2026-11-20T22:00:00Z", "2026-11-26T12:00:00Z"));
    EXPECT_FALSE(silent("2026-11-27T22:00:00Z", "2026-11-26T12:00:00Z"));
    EXPECT_TRUE(silent("2026-01-05T22:00:00Z", "2026-11-26T12:00:00Z"));
}

TEST(CourtFeeds, NameAppleAsAParty) {
    for (const auto* name : {"Oak LLC v. Apple Inc.", "Apple Inc. v. Oak", "In re Apple Inc.",
                             "STATE OF ASH et al v. APPLE INC.", "Oak v. Apple, Inc., et al",
                             "Apple v. Oak", "Oak v. Apple Computer, Inc."})
        EXPECT_TRUE(namesApple(name)) << name;
    for (const auto* name : {"Oak v. Apple Valley Foods", "Big Apple Deli v. Oak",
                             "Applebaum v. Oak", "Oak v. Pineapple Inc.", ""})
        EXPECT_FALSE(namesApple(name)) << name;
}

}  // namespace
}  // namespace kit
