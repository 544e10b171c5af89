#include <gtest/gtest.h>

#include <fmt/format.h>

#include "NewsroomKit/Attribution/LaterAnswers.h"
#include "NewsroomKit/Attribution/Ledger.h"
#include "NewsroomKit/Attribution/SubjectTimeline.h"
#include "tests/NewsroomKit/Attribution/AttributionSamples.h"

namespace kit {
namespace {

constexpr int kDay = 1440;

std::string text(const Ledger& ledger) {
    std::string text;
    for (const auto& claim : ledger.claims) {
        text +=
            fmt::format("{}{} {}", text.empty() ? "" : "; ", claim.story, rawValue(claim.state));
        if (claim.settledBy) text += fmt::format(" by {} after {}", *claim.settledBy, *claim.days);
    }
    return text;
}

TEST(Ledger, FollowsAClaimUntilItIsSettledOrAYearHasPassed) {
    const auto rumor = toldBy("MacRumors", "a", minute(0));
    const auto says = [](std::string title, Sourcing sourcing = Sourcing::onRecord) {
        return toldBy("Wired", "y", minute(10 * kDay), sourcing, std::move(title));
    };
    const auto later = [](Story story, int minutes) {
        story.publishedAt = minute(minutes);
        return story;
    };
    auto apple = toldBy("Apple Newsroom", "0", minute(0), Sourcing::confirmed);
    apple.isAppleSource = true;
    struct Case {
        const char* what;
        std::vector<Story> stories;
        int now;  ///< minutes
        std::string expected;
    };
    const Case cases[] = {
        {"alone", {rumor}, kDay, "a open"},
        {"a ruling",
         {toldBy("Reuters", "a", minute(0), Sourcing::report,
                 "Judge tosses lawsuit accusing Apple of collusion")},
         kDay,
         ""},
        {"leaked data",
         {toldBy("Wired", "a", minute(0), Sourcing::rumor,
                 "macOS flaw leaks passwords of Apple IDs")},
         kDay,
         ""},
        {"a roundup",
         {toldBy("MacRumors", "a", minute(0), Sourcing::rumor,
                 "Top Stories: Apple Watch Rumors, Lamp Reviews, and More")},
         kDay,
         ""},
        {"a minute before a year", {rumor}, 365 * kDay - 1, "a open"},
        {"a year", {rumor}, 365 * kDay, "a expired"},
        {"confirmed",
         {rumor, says("Out now", Sourcing::confirmed)},
         11 * kDay,
         "a confirmed by y after 10"},
        {"confirmed after a year",
         {rumor, later(says("x", Sourcing::confirmed), 365 * kDay + 1)},
         400 * kDay,
         "a expired"},
        {"Apple confirms on the record",
         {rumor, says("Apple confirms the lamp")},
         11 * kDay,
         "a confirmed by y after 10"},
        {"denied",
         {rumor, says("Apple says lamp story is not true")},
         11 * kDay,
         "a denied by y after 10"},
        {"something else on the record",
         {rumor, says("Apple executive on lamps")},
         11 * kDay,
         "a open"},
        {"each outlet once",
         {rumor, toldBy("macrumors", "b", minute(5)),
          toldBy("Wired", "c", minute(6), Sourcing::report)},
         kDay,
         "a open; c open"},
        {"no claim after the confirmation",
         {rumor, says("x", Sourcing::confirmed), toldBy("9to5Mac", "z", minute(11 * kDay))},
         12 * kDay,
         "a confirmed by y after 10"},
        {"second hand",
         {crediting(rumor, "Bloomberg"), toldBy("Wired", "r", minute(1), Sourcing::report,
                                                "Apple Watch to gain a lamp, per Bloomberg")},
         kDay,
         ""},
        {"not of Apple",
         {toldBy("Wired", "s", minute(0), Sourcing::rumor, "A lamp of glass")},
         kDay,
         ""},
        {"Apple told it first", {apple, later(rumor, 5)}, kDay, ""},
    };
    for (const auto& c : cases) {
        std::vector<std::string> ids;
        for (const auto& story : c.stories) ids.push_back(story.id);
        EXPECT_EQ(text(makeLedger(pointersTo(c.stories), {ids}, minute(c.now))), c.expected)
            << c.what;
    }
}

TEST(Ledger, CountsEachOutletsClaims) {
    const std::vector<Story> stories{
        toldBy("MacRumors", "a", minute(0)),
        toldBy("Wired", "a2", minute(2), Sourcing::confirmed),
        toldBy("MacRumors", "b", minute(0)),
        toldBy("Wired", "b2", minute(kDay), Sourcing::confirmed),
        toldBy("Wired", "c", minute(0)),
        toldBy("9to5Mac", "d", minute(0)),
        toldBy("MacRumors", "e", minute(-400 * kDay)),
    };
    const auto ledger =
        makeLedger(pointersTo(stories), {{"a", "a2"}, {"b", "b2", "gone"}}, minute(2 * kDay));
    std::string text;
    for (const auto& row : ledger.outlets) {
        text += fmt::format("{} {} {} {} {}; ", row.outlet, row.claims, row.confirmed, row.open,
                            row.expired);
        EXPECT_EQ(row.open + row.confirmed + row.denied + row.expired, row.claims);
    }
    EXPECT_EQ(text, "MacRumors 3 2 0 1; 9to5Mac 1 0 1 0; Wired 1 0 1 0; ");
    EXPECT_NEAR(*ledger.outlets[0].medianDays, (2.0 / kDay + 1) / 2, 1e-9);
    EXPECT_FALSE(ledger.outlets[1].medianDays);
}

TEST(SubjectTimeline, HasTheFirstStoryOfEachStage) {
    const std::vector<Story> stories{
        toldBy("MacRumors", "u", minute(0)),
        toldBy("Wired", "v", minute(-5), Sourcing::unlabeled),
        toldBy("Wired", "r", minute(40 * kDay), Sourcing::report),
        toldBy("Wired", "o", minute(2 * kDay), Sourcing::onRecord),
        toldBy("Wired", "k", minute(30 * kDay), Sourcing::confirmed,
               "Apple Watch with lamp is out now"),
        toldBy("Wired", "k2", minute(29 * kDay), Sourcing::confirmed, "Apple shows a lamp"),
    };
    const auto text = [&](const std::vector<TimelineSignal>& signals) {
        std::string all;
        for (const auto& stage : subjectTimeline(pointersTo(stories), signals)) {
            all += fmt::format("{} {}", rawValue(stage.stage),
                               stage.story ? *stage.story : *stage.signal);
            all += stage.days ? fmt::format(" +{}; ", *stage.days) : "; ";
        }
        return all;
    };
    const std::string before = "firstRumor u; onRecord o +2; confirmed k2 +27; ";
    EXPECT_EQ(text({}), before + "released k +1; ");
    const TimelineSignal page{.id = "p", .kind = "page", .seenAt = minute(29 * kDay)};
    const TimelineSignal release{
        .id = "r", .kind = "release", .happenedAt = minute(29 * kDay), .seenAt = minute(31 * kDay)};
    EXPECT_EQ(text({page, release}), before + "released r +0; ");
    EXPECT_EQ(text({{.id = "r", .kind = "release", .seenAt = minute(31 * kDay)}}),
              before + "released k +1; ");
    EXPECT_TRUE(subjectTimeline({}, {}).empty());
}

TEST(Ledger, AnswersThatComeMonthsLaterSettleTheClaimTheyAreAbout) {
    const auto says = [](const char* id, int day, std::string title,
                         Sourcing sourcing = Sourcing::confirmed) {
        return toldBy("Apple Press", id, minute(day * kDay), sourcing, std::move(title));
    };
    const std::vector<Story> stories{
        says("a", 0, "Apple Watch Ultra 5 to gain a satellite lamp", Sourcing::rumor),
        says("b", 5, "Apple to buy the satellite maker Globalstar", Sourcing::rumor),
        says("c", 9, "Apple Watch Ultra 6 to gain a satellite lamp", Sourcing::rumor),
        says("v", 60, "Apple opens a store in Lisbon"),
        says("w", 80, "Apple introduces the Watch Ultra 5 with a satellite lamp"),
        says("x", 90, "Apple releases the Watch Ultra 5 with its satellite lamp"),
        says("y", 100, "Apple denies Globalstar satellite maker deal", Sourcing::onRecord)};
    auto ledger = makeLedger(pointersTo(stories), {}, minute(120 * kDay));
    const auto claims = ledger;
    settleByLaterAnswers(ledger, pointersTo(stories), nullptr);
    EXPECT_EQ(text(ledger), "a confirmed by w after 80; b denied by y after 95; c open");
    ASSERT_EQ(ledger.outlets.size(), 1u);
    EXPECT_EQ(ledger.outlets[0].medianDays, 80);

    const Correction wrong[]{{.id = "1", .kind = Correction::Kind::notSame, .stories = {"w", "a"}},
                             {.id = "2", .kind = Correction::Kind::notSame, .stories = {"y"}}};
    const CorrectionOverlay overlay(wrong);
    ledger = claims;
    settleByLaterAnswers(ledger, pointersTo(stories), &overlay);
    EXPECT_EQ(text(ledger), "a confirmed by x after 90; b open; c open") << "as the user says";

    const ClaimAnswer known[]{{.claim = "b", .story = "v", .why = "kept"},
                              {.claim = "a", .story = "w", .why = "kept"},
                              {.claim = "c", .story = "gone", .why = "kept"}};
    ledger = claims;
    settleByLaterAnswers(ledger, pointersTo(stories), &overlay, known);
    EXPECT_EQ(text(ledger), "a confirmed by x after 90; b confirmed by v after 55; c open")
        << "as before, but for what the user says";
}

}  // namespace
}  // namespace kit
