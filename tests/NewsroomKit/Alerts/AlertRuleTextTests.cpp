#include "NewsroomKit/Alerts/AlertRuleText.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "NewsroomKit/Alerts/AlertRuleSet.h"
#include "tests/NewsroomKit/Alerts/SampleAlerts.h"

namespace kit {
namespace {

using samples::alertMinute;
using samples::eventOf;
using samples::kNoBeats;
using samples::newsSignal;
using samples::newsStory;
using samples::ruleOn;

TEST(TextsOfAlertRules, SayInOneSentenceWhatIsTold) {
    using Kind = PriceCondition::Kind;
    const std::pair<AlertTrigger, std::string_view> cases[] = {
        {StoriesTrigger{}, "Stories."},
        {StoriesTrigger{
             .query = {.anyTerms = {"homepad"}}, .leastSourcing = Sourcing::report, .outlets = 3},
         "Stories with “homepad”, report or firmer, once 3 outlets have it."},
        {StoriesTrigger{
             .query = {.anyTerms = {"a", "b"}, .excludedTerms = {"c"}, .sourceIDs = {"x"}},
             .leastSourcing = Sourcing::confirmed},
         "Stories with “a” or “b”, without “c”, from 1 source, confirmed."},
        {StoriesTrigger{.query = {.anyTerms = {"a", "b", "c", "d", "e", "f"}},
                        .leastSourcing = Sourcing::unlabeled,
                        .outlets = 1},
         "Stories with “a”, “b”, “c”, “d” or 2 more."},
        {SignalsTrigger{}, "Everything in the log."},
        {SignalsTrigger{.kinds = {SignalKind::docket, SignalKind::filing},
                        .words = {"epic"},
                        .leastWeight = SignalWeight::major},
         "Court and Filings with “epic”, major only."},
        {PriceTrigger{"AAPL", {.kind = Kind::move, .percent = 2.5, .minutes = 30}},
         "AAPL moves by 2.5 % in 30 minutes."},
    };
    for (const auto& [trigger, expected] : cases) EXPECT_EQ(alertTriggerText(trigger), expected);
}

TEST(TextsOfAlertRules, SayWhyARuleCanNeverTell) {
    const auto now = alertMinute(0);
    const auto stories = [](StoryQuery query, std::optional<Sourcing> least = {}) {
        return ruleOn(StoriesTrigger{.query = std::move(query), .leastSourcing = least});
    };
    const std::pair<AlertRule, std::string_view> cases[] = {
        {stories({}), ""},
        {stories({.anyTerms = {"m6 chip"}, .excludedTerms = {"M6"}}), "Every word"},
        {stories({.anyTerms = {"m6 chip", "ipad"}, .excludedTerms = {"m6"}}), ""},
        {stories({.anyTerms = {"m6"}, .excludedTerms = {"m6 chip"}}), ""},
        {stories({.sourcings = {Sourcing::rumor, Sourcing::report}}, Sourcing::onRecord),
         "No story"},
        {stories({.sourcings = {Sourcing::rumor, Sourcing::onRecord}}, Sourcing::onRecord), ""},
        {ruleOn(SignalsTrigger{.words = {"beta"}, .excludedWords = {"Beta"}}), "Every word"},
        {ruleOn(StoriesTrigger{}, {.expires = now}), "The rule has ended"},
        {ruleOn(StoriesTrigger{}, {.expires = alertMinute(1)}), ""},
    };
    for (const auto& [rule, beginning] : cases) {
        const auto problem = alertRuleProblem(rule, now).value_or("");
        EXPECT_TRUE(beginning.empty() ? problem.empty() : problem.starts_with(beginning))
            << json::serialize(encode(rule)) << ": " << problem;
    }
}

/// Does the rule, made narrower as the user has asked, still match what annoyed?
bool matches(const AlertRule& rule, const AlertEvent& event) {
    return !AlertRuleSet({rule}, kNoBeats).matches(event, samples::alone).empty();
}

TEST(NarrowedAlertRules, AreSilentAboutWhatWasTold) {
    const auto rumor = eventOf(newsStory("a", "M6 in a roundup", Sourcing::rumor));
    auto rule = ruleOn(StoriesTrigger{.query = {.anyTerms = {"m6"}}});
    EXPECT_TRUE(matches(rule, rumor));
    EXPECT_FALSE(matches(*withoutWord(rule, "Roundup"), rumor));
    for (int steps = 0; steps < 2; ++steps) rule = *withHigherLeast(rule);
    EXPECT_FALSE(matches(rule, rumor));
    EXPECT_TRUE(matches(rule, eventOf(newsStory("b", "M6", Sourcing::report))));

    const auto routine =
        eventOf(newsSignal("1", SignalKind::chart, "Chart", "Up", SignalWeight::routine));
    const auto signals = ruleOn(SignalsTrigger{});
    EXPECT_TRUE(matches(signals, routine));
    EXPECT_FALSE(matches(*withHigherLeast(signals), routine));
    EXPECT_FALSE(matches(*withoutWord(signals, "chart"), routine));
}

TEST(NarrowedAlertRules, AreNotOfferedWhereNothingCanBeNarrower) {
    EXPECT_FALSE(withHigherLeast(ruleOn(StoriesTrigger{.leastSourcing = Sourcing::confirmed})));
    EXPECT_FALSE(withHigherLeast(ruleOn(SignalsTrigger{.leastWeight = SignalWeight::major})));
    EXPECT_FALSE(withHigherLeast(ruleOn(PriceTrigger{})));
    EXPECT_FALSE(withoutWord(ruleOn(StoriesTrigger{.beat = "chips"}), "m6"));
    EXPECT_FALSE(withoutWord(ruleOn(SignalsTrigger{}), " "));
    auto full =
        ruleOn(SignalsTrigger{.excludedWords = std::vector<std::string>(kMostTermsOfRule, "a")});
    EXPECT_FALSE(withoutWord(full, "b"));
    std::get<SignalsTrigger>(full.trigger).excludedWords.pop_back();
    EXPECT_EQ(encode(decode<AlertRule>(encode(*withoutWord(full, "b")))),
              encode(*withoutWord(full, "b")));
}

}  // namespace
}  // namespace kit
