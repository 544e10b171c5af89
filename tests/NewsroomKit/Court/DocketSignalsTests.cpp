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

TEST(DocketSignals, TellNothingTwiceThatAnotherFeedHasListed) {
    const auto listed = [](const std::string& key, const std::string& number,
                           const std::string& text, const std::string& court = "cand",
                           const std::string& caseNumber = "4:26-cv-04101") {
        auto made = entry(key, "2026-11-18", text);
        made.court = court;
        made.caseNumber = caseNumber;
        made.number = number;
        return made;
    };
    const std::vector elsewhere{listed("x", "31", "Order", "CAND", "4:26-cv-04101-ABC"),
                                listed("y", "32", "ORDER denying it.")};
    const auto news = [&](const DocketEntry& latest) {
        const auto changes = docketChanges({}, {.entries = {latest}});
        std::string ids;
        for (const auto& signal : signalsOf(newBeside(changes, {}, elsewhere), "", Instant()))
            ids += signal.id + " ";
        return ids;
    };
    EXPECT_EQ(news(listed("a", "31", "Order")), "");
    EXPECT_EQ(news(listed("a", "31", "ORDER granting it.")), "docket|a|readable ");
    EXPECT_EQ(news(listed("b", "32", "ORDER denying it.")), "");
    EXPECT_EQ(news(listed("c", "33", "Order")), "docket|c ");
    EXPECT_EQ(news(listed("d", "31", "Order", "njd")), "docket|d ") << "of another court";
    EXPECT_EQ(news(listed("e", "31", "Order", "cand", "4:26-cv-04102")), "docket|e ");
    EXPECT_EQ(news(entry("f", "2026-11-18", "Order")), "docket|f ") << "of an unknown case";
}

TEST(DocketSignals, TellOfEntriesWithoutNumberAsManyAsThereAre) {
    const auto minute = [](const std::string& key, const std::string& text) {
        auto made = entry(key, "2026-11-18", text, text.substr(0, 12));
        made.caseNumber = "4:26-cv-04101";
        return made;
    };
    const auto court = minute("https://ecf.cand.uscourts.gov/1", "Minute Entry");
    const auto text = minute("a", "Minute Entry of a hearing.");
    const auto again = minute("b", "Minute Entry of another hearing.");
    const auto news = [](const std::vector<DocketEntry>& latest,
                         const std::vector<DocketEntry>& known,
                         const std::vector<DocketEntry>& elsewhere) {
        std::string ids;
        const auto changes = docketChanges(known, {.entries = latest});
        for (const auto& signal : signalsOf(newBeside(changes, known, elsewhere), "", Instant()))
            ids += signal.id + " ";
        return ids;
    };
    EXPECT_EQ(news({court}, {}, {text}), "");
    EXPECT_EQ(news({text}, {}, {court}), "docket|a|readable ");
    EXPECT_EQ(news({again}, {text}, {court}), "docket|b ") << "the court's is the first one";
    EXPECT_EQ(news({text, again}, {}, {court}), "docket|a|readable docket|b ");
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
