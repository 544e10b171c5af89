#include <gtest/gtest.h>

#include <fmt/format.h>

#include "NewsroomKit/Attribution/Attribution.h"
#include "tests/NewsroomKit/Attribution/AttributionSamples.h"

namespace kit {
namespace {

/// "MacRumors (a) 2520 before 9to5Mac; timed by time, credited by 0, scoop"
std::string text(const Attribution& found) {
    std::string text = found.first.value_or("nobody");
    if (found.story) text += " (" + *found.story + ")";
    if (found.lead) text += " " + std::to_string(*found.lead);
    if (found.second) text += " before " + *found.second;
    text += fmt::format("; {} by {}, credited by {}", rawValue(found.confidence),
                        rawValue(found.basis), found.creditedBy);
    return text + (found.scoop ? ", scoop" : "");
}

std::string attributed(const std::vector<Story>& stories,
                       const std::vector<ArchivedStory>& archive = {},
                       const std::vector<TraceResult>& traces = {},
                       const std::vector<Correction>& corrections = {}) {
    const CorrectionOverlay overlay(corrections);
    const auto found = attributionOf({.stories = pointersTo(stories),
                                      .archive = archive,
                                      .traces = traces,
                                      .corrections = &overlay});
    EXPECT_FALSE(found.sentence.empty());
    EXPECT_EQ(found.sentence.find('\n'), std::string::npos);
    return text(found);
}

const Story mac = toldBy("MacRumors", "a", minute(540));
const Story nine = toldBy("9to5Mac", "b", minute(582));
const std::string bloomberg = "https://www.bloomberg.com/lamp";

TEST(Attribution, NamesTheFirstOnlyWhereTheTimesSaySo) {
    struct Case {
        const char* what;
        std::vector<Story> stories;
        std::string expected;
    };
    const auto post = [](Story story) {
        story.destinationName = "MacRumors";
        return story;
    };
    const auto at = [](const Story& story, Instant time) {
        auto moved = story;
        moved.publishedAt = time;
        return moved;
    };
    const Case cases[] = {
        {"two to the minute",
         {nine, mac},
         "MacRumors (a) 2520 before 9to5Mac; timed by time, credited by 0, scoop"},
        {"equal times", {mac, at(nine, minute(540))}, "nobody; unclear by time, credited by 0"},
        {"midnight in New York",
         {at(mac, kMonday + std::chrono::hours(5)), nine},
         "nobody; unclear by time, credited by 0"},
        {"midnight of the day before",
         {at(mac, kMonday - std::chrono::hours(16)), nine},
         "MacRumors (a) before 9to5Mac; unclear by time, credited by 0"},
        {"midnight one second later",
         {at(mac, kMonday + std::chrono::seconds(18'001)), nine},
         "MacRumors (a) 16962 before 9to5Mac; timed by time, credited by 0, scoop"},
        {"a link post is nobody's news",
         {post(toldBy("Links", "l", minute(530))), mac, nine},
         "MacRumors (a) 2520 before 9to5Mac; timed by time, credited by 0, scoop"},
        {"one outlet alone",
         {mac, at(mac, minute(900))},
         "MacRumors (a); timed by time, credited by 0"},
        {"second hand",
         {toldBy("MacRumors", "a", minute(540), Sourcing::report,
                 "Report: Apple Watch to gain a lamp"),
          nine},
         "9to5Mac (b); unclear by time, credited by 0"},
        {"its own name is no second hand",
         {toldBy("Bloomberg", "a", minute(540), Sourcing::report, "Watch lamp, says Bloomberg"),
          nine},
         "Bloomberg (a) 2520 before 9to5Mac; timed by time, credited by 0, scoop"},
        {"words are no outlet",
         {toldBy("MacRumors", "a", minute(540), Sourcing::report,
                 "Watch lamp, according to the information in a filing"),
          nine},
         "MacRumors (a) 2520 before 9to5Mac; timed by time, credited by 0, scoop"},
    };
    for (const auto& c : cases) EXPECT_EQ(attributed(c.stories), c.expected) << c.what;
}

TEST(Attribution, FollowsCreditsToTheirEnd) {
    struct Case {
        const char* what;
        std::vector<Story> stories;
        std::string expected;
    };
    const auto linked = [](const Story& story, const char* name) {
        return crediting(story, name, std::string("https://") + name + ".example/x");
    };
    const Story verge = toldBy("The Verge", "c", minute(600));
    const Case cases[] = {
        {"off the wire",
         {linked(mac, "Bloomberg"), linked(nine, "bloomberg news")},
         "Bloomberg; stated by credit, credited by 2, scoop"},
        {"a chain",
         {linked(nine, "MacRumors"), linked(mac, "Bloomberg")},
         "Bloomberg; stated by credit, credited by 1, scoop"},
        {"by name alone",
         {crediting(mac, "Bloomberg"), nine},
         "Bloomberg; unclear by credit, credited by 1"},
        {"by name alone, as the times say",
         {mac, crediting(nine, "MacRumors")},
         "MacRumors (a) 2520 before 9to5Mac; timed by time, credited by 1, scoop"},
        {"its own item is later",
         {linked(mac, "9to5Mac"), nine},
         "9to5Mac (b); stated by credit, credited by 1, scoop"},
        {"a tie",
         {linked(mac, "Bloomberg"), linked(nine, "Reuters")},
         "nobody; unclear by credit, credited by 0"},
        {"the more credited of two",
         {linked(mac, "Bloomberg"), linked(nine, "Reuters"), linked(verge, "Reuters")},
         "Reuters; stated by credit, credited by 2, scoop"},
        {"a circle",
         {linked(mac, "9to5Mac"), linked(nine, "MacRumors")},
         "nobody; unclear by time, credited by 0"},
        {"a later nod to who followed",
         {mac, linked(nine, "MacRumors"), linked(toldBy("MacRumors", "d", minute(900)), "9to5Mac")},
         "MacRumors (a) 2520 before 9to5Mac; stated by credit, credited by 1, scoop"},
    };
    for (const auto& c : cases) EXPECT_EQ(attributed(c.stories), c.expected) << c.what;
}

TEST(Attribution, IsNoScoopWhereAppleToldIt) {
    const auto labelled = [](Story story, Sourcing sourcing) {
        story.sourcing = sourcing;
        return story;
    };
    Story apple = toldBy("Apple Newsroom", "n", minute(700), Sourcing::confirmed);
    apple.isAppleSource = true;
    const auto leads = "MacRumors (a) 2520 before 9to5Mac; timed by time, credited by 0";
    EXPECT_EQ(attributed({labelled(mac, Sourcing::onRecord), nine}), leads);
    EXPECT_EQ(attributed({labelled(mac, Sourcing::unlabeled), nine, apple}), leads);
    EXPECT_EQ(attributed({labelled(mac, Sourcing::unlabeled), nine}),
              leads + std::string(", scoop"));
    EXPECT_EQ(attributed({mac, nine, apple}), leads + std::string(", scoop"));
    apple.publishedAt = minute(500);
    EXPECT_EQ(attributed({mac, apple}),
              "Apple (n) 2400 before MacRumors; timed by time, credited by 0");
}

TEST(Attribution, TakesEarlierTimesFromTheArchiveAndTheTrace) {
    const auto archived = [](std::string outlet, Instant at, bool dayOnly = false) {
        return ArchivedStory{.sourceName = outlet,
                             .url = "https://" + outlet + ".example/watch",
                             .title = "apple watch to gain a LAMP",
                             .publishedAt = at,
                             .dayOnly = LenientBool{dayOnly}};
    };
    EXPECT_EQ(attributed({mac, nine}, {archived("Wired", minute(530))}),
              "Wired 600 before MacRumors; timed by archive, credited by 0, scoop");
    EXPECT_EQ(attributed({mac, nine}, {archived("9to5Mac", minute(530))}),
              "9to5Mac (b) 600 before MacRumors; timed by archive, credited by 0, scoop");
    EXPECT_EQ(attributed({mac, nine}, {archived("Wired", minute(-100), true)}),
              "Wired before MacRumors; unclear by archive, credited by 0");
    EXPECT_EQ(attributed({mac, nine}, {archived("Wired", minute(530), true)}),
              "nobody; unclear by time, credited by 0");
    EXPECT_EQ(attributed({mac, nine}, {archived("MacRumors", minute(530), true)}),
              "MacRumors (a) 2520 before 9to5Mac; timed by time, credited by 0, scoop")
        << "the day of its own story adds nothing";
    auto other = archived("Wired", minute(530));
    other.title = "Another watch";
    EXPECT_EQ(attributed({mac, nine}, {other}), attributed({mac, nine}));

    using Precision = TraceNode::Precision;
    const auto node = [](std::string kind, Precision precision) {
        return TraceNode{.kind = kind,
                         .url = "https://www.wired.com/lamp",
                         .publishedAt = minute(500),
                         .precision = precision};
    };
    EXPECT_EQ(attributed({mac, nine}, {}, {{.nodes = {node("story", Precision::minute)}}}),
              "Wired 2400 before MacRumors; timed by trace, credited by 0, scoop");
    const TraceResult useless{
        .nodes = {node("post", Precision::minute), node("story", Precision::day)}};
    EXPECT_EQ(attributed({mac, nine}, {}, {useless}), attributed({mac, nine}));
}

TEST(Attribution, IsWhatTheUserSays) {
    const auto first = [](std::string outlet, std::string story, Instant madeAt) {
        return Correction{.id = outlet,
                          .kind = Correction::Kind::first,
                          .stories = {std::move(story)},
                          .instead = Correction::Instead{.outlet = outlet},
                          .madeAt = madeAt};
    };
    const std::vector<Story> credited{crediting(mac, "Bloomberg", bloomberg), nine};
    EXPECT_EQ(attributed(credited, {}, {}, {first("9TO5MAC", "a", minute(0))}),
              "9to5Mac (b); stated by correction, credited by 0, scoop");
    EXPECT_EQ(attributed(credited, {}, {},
                         {first("Wired", "a", minute(9)), first("Reuters", "b", minute(3))}),
              "Wired; stated by correction, credited by 0, scoop");
    EXPECT_EQ(attributed(credited, {}, {}, {first("Wired", "elsewhere", minute(9))}),
              attributed(credited));
}

}  // namespace
}  // namespace kit
