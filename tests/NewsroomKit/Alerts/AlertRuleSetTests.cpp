#include "NewsroomKit/Alerts/AlertRuleSet.h"

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "tests/NewsroomKit/Alerts/SampleAlerts.h"

namespace kit {
namespace {

using samples::eventOf;
using samples::kNoBeats;
using samples::newsSignal;
using samples::newsStory;
using samples::ruleOn;

/// "words, of, it" when the rule matches, "-" when it does not.
std::string matchedBy(const AlertTrigger& trigger, const AlertEvent& event) {
    const AlertRuleSet set({ruleOn(trigger)}, kNoBeats);
    const auto matches = set.matches(event, samples::alone);
    return matches.empty() ? "-" : fmt::format("{}", fmt::join(matches[0].words, ", "));
}

TEST(AlertRuleSets, MatchStoriesByQueryAndSourcing) {
    const auto event = eventOf(newsStory("a", "Chips: the M6 is late", Sourcing::report));
    const auto with = [](StoryQuery query, std::optional<Sourcing> least = {}) {
        return StoriesTrigger{.query = std::move(query), .leastSourcing = least};
    };
    const std::pair<StoriesTrigger, std::string_view> cases[] = {
        {with({}), ""},
        {with({.anyTerms = {" "}}), ""},
        {with({.anyTerms = {"M6", "iPad", "CHIPS"}}), "m6, chips"},
        {with({.anyTerms = {"m6", "M6"}}), "m6"},
        {with({.anyTerms = {"chip"}}), "-"},
        {with({.anyTerms = {"m6"}, .excludedTerms = {"late"}}), "-"},
        {with({.sourceIDs = {"other"}}), "-"},
        {with({.sourcings = {Sourcing::rumor}}), "-"},
        {with({}, Sourcing::report), ""},
        {with({}, Sourcing::rumor), ""},
        {with({}, Sourcing::onRecord), "-"},
    };
    for (const auto& [trigger, expected] : cases)
        EXPECT_EQ(matchedBy(trigger, event), expected)
            << json::serialize(encode<AlertTrigger>(trigger));
    auto deal = newsStory("a", "M6 for less");
    deal.kind = StoryKind::deal;
    EXPECT_EQ(matchedBy(with({}), eventOf(deal)), "-");
    EXPECT_EQ(matchedBy(with({.includesSetAside = true}), eventOf(deal)), "");
}

TEST(AlertRuleSets, MatchSignalsByWordsInTitleOrSubject) {
    const auto event = eventOf(newsSignal("1", SignalKind::release, "iOS 27", "Beta 3 is out"));
    const std::pair<SignalsTrigger, std::string_view> cases[] = {
        {{}, ""},
        {{.kinds = {SignalKind::docket, SignalKind::release}}, ""},
        {{.kinds = {SignalKind::docket}}, "-"},
        {{.words = {"ios 27"}}, "ios 27"},
        {{.words = {"beta"}}, "beta"},
        {{.words = {"27 beta"}}, "-"},  // over the border between the two
        {{.words = {"ios 2"}}, "-"},
        {{.excludedWords = {"beta"}}, "-"},
        {{.words = {"out"}, .excludedWords = {"IOS"}}, "-"},
        {{.leastWeight = SignalWeight::notable}, ""},
        {{.leastWeight = SignalWeight::major}, "-"},
    };
    for (const auto& [trigger, expected] : cases)
        EXPECT_EQ(matchedBy(trigger, event), expected)
            << json::serialize(encode<AlertTrigger>(trigger));
    EXPECT_EQ(matchedBy(StoriesTrigger{}, event), "-") << "a rule on stories";
}

TEST(AlertRuleSets, AreSilentAboutWhatIsNoNews) {
    for (const auto& row : enumTable<AlertArrival>) {
        auto event = eventOf(newsStory("a", "M6"));
        event.arrival = row.value;
        EXPECT_EQ(matchedBy(StoriesTrigger{}, event) == "-", row.value != AlertArrival::news)
            << row.raw;
    }
}

TEST(AlertRuleSets, MatchNothingWhenOffOrWithoutTheirBeat) {
    auto off = ruleOn(StoriesTrigger{});
    off.on = false;
    const auto chips = ruleOn(StoriesTrigger{.beat = "chips"});
    const auto price = ruleOn(PriceTrigger{.symbol = "AAPL"});
    const auto queryOf = [](const std::string& id) {
        return id == "chips" ? std::optional(StoryQuery{.anyTerms = {"m6"}}) : std::nullopt;
    };
    const auto event = eventOf(newsStory("a", "M6"));
    EXPECT_EQ(AlertRuleSet({off, chips, price}, kNoBeats).matches(event, samples::alone).size(),
              0u);
    const auto matches = AlertRuleSet({off, chips, price}, queryOf).matches(event, samples::alone);
    ASSERT_EQ(matches.size(), 1u);
    EXPECT_EQ(matches[0].words, std::vector<std::string>{"m6"});
}

/// An outlet counts once, and only by a story that matches.
TEST(AlertRuleSets, CountTheOutletsOfMatchingStories) {
    const auto from = [](const char* id, const char* outlet, const char* title = "M6 is late") {
        auto story = newsStory(id, title);
        story.sourceID = story.sourceName = outlet;
        return story;
    };
    const StoriesTrigger three{
        .query = {.anyTerms = {"m6"}}, .leastSourcing = Sourcing::report, .outlets = 3};
    const AlertRuleSet set({ruleOn(three)}, kNoBeats);
    auto rumor = from("r", "Fourth");
    rumor.sourcing = Sourcing::rumor;
    const auto first = from("1", "First"), again = from("2", "First"), second = from("3", "Second");
    const auto third = from("4", "Third"), other = from("5", "Third", "Silicon is late");
    const std::pair<std::vector<const Story*>, bool> cases[] = {
        {{&first, &again, &second}, false},
        {{&first, &second, &other}, false},
        {{&first, &second, &rumor}, false},
        {{&first, &second, &third}, true},
        {{&first, &again, &second, &rumor, &third}, true},
    };
    for (const auto& [cluster, isMatched] : cases) {
        const auto clusterOf = [&](const Story&) { return cluster; };
        const auto matches = set.matches(eventOf(first), clusterOf);
        ASSERT_EQ(matches.size(), isMatched ? 1u : 0u);
        if (isMatched) {
            EXPECT_EQ(matches[0].sameAs.size(), cluster.size() - 1);
        }
    }
}

/// Many rules that are searched together match what each query matches by itself.
TEST(AlertRuleSets, AgreeWithTheQueriesOfTheirRules) {
    std::mt19937 random(7);
    const std::string_view parts[] = {"m6",        "M6-Pro", "chip", "C++",  "größe",
                                      "App Store", "store",  ".net", "e.u.", "“no”",
                                      "日本",      "appé",   "app",  "$5"};
    const auto any = [&](std::size_t below) { return random() % below; };
    const auto words = [&](std::size_t most, std::string_view between) {
        std::string text;
        for (auto left = any(most) + 1; left > 0; --left)
            text += fmt::format("{}{}", parts[any(std::size(parts))], any(3) ? between : "");
        return text;
    };
    const auto terms = [&](std::size_t most) {
        std::vector<std::string> list;
        for (auto left = any(most); left > 0; --left) list.push_back(words(2, " "));
        return list;
    };
    std::vector<AlertRule> rules;
    for (int i = 0; i < 60; ++i) {
        rules.push_back(
            ruleOn(StoriesTrigger{.query = {.anyTerms = terms(4), .excludedTerms = terms(2)}}));
        rules.back().id = std::to_string(i);
    }
    const AlertRuleSet set(rules, kNoBeats);
    std::size_t matched = 0;
    for (int i = 0; i < 500; ++i) {
        auto story = newsStory("s", words(8, i % 2 ? " " : "-"));
        story.summary = words(6, " ");
        std::vector<std::string> expected, found;
        for (const auto& rule : rules) {
            const auto query = std::get<StoriesTrigger>(rule.trigger).query.compiled();
            if (query.matches(story)) expected.push_back(rule.id);
        }
        for (const auto& match : set.matches(eventOf(story), samples::alone))
            found.push_back(match.rule);
        ASSERT_EQ(found, expected) << story.title << " / " << story.summary;
        matched += found.size();
    }
    EXPECT_GT(matched, 1'000u);
}

}  // namespace
}  // namespace kit
