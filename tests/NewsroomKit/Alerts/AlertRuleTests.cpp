#include "NewsroomKit/Alerts/AlertRule.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace kit {
namespace {

std::string ruleText(std::string_view trigger) {
    return R"({"id":"r1","name":"Rule","on":true,"trigger":)" + std::string(trigger) +
           R"(,"delivery":{"how":"quiet","sound":false,"respectsQuietHours":true,"minutes":30,)"
           R"("once":true}})";
}

TEST(AlertRules, KeepTheirFormThroughReadingAndWriting) {
    const std::string_view triggers[] = {
        R"({"kind":"stories","query":{"anyTerms":["homepad"],"excludedTerms":[],"sourceIDs":[],)"
        R"("sourcings":[],"includesSetAside":false},"leastSourcing":"report","outlets":3})",
        R"({"kind":"stories","beat":"chips"})",
        R"({"kind":"signals","kinds":["release"],"words":["ios 27"],"leastWeight":"notable"})",
        R"({"kind":"signals","kinds":[],"words":[],"excludedWords":["beta"],)"
        R"("leastWeight":"routine"})",
        R"({"kind":"price","symbol":"AAPL","condition":{"kind":"above","price":300}})",
        R"({"kind":"price","symbol":"QRVO","condition":{"kind":"move","percent":2.5,)"
        R"("minutes":30}})",
    };
    for (const auto trigger : triggers) {
        const auto form = parseJSON(ruleText(trigger));
        EXPECT_EQ(encode(decode<AlertRule>(form)), form);
    }
}

TEST(AlertRules, RefuseWhatTheyCannotMean) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {R"({"kind":"weather"})", "trigger.kind"},
        {R"({"kind":"stories"})", "trigger.query"},
        {R"({"kind":"stories","beat":"chips","outlets":0})", "trigger.outlets"},
        {R"({"kind":"price","symbol":"AAPL","condition":{"kind":"below","price":0}})",
         "trigger.condition.price"},
        {R"({"kind":"price","symbol":"AAPL","condition":{"kind":"gap","percent":-3}})",
         "trigger.condition.percent"},
        {R"({"kind":"price","symbol":"AAPL","condition":{"kind":"move","percent":3}})",
         "trigger.condition.minutes"},
        {R"({"kind":"price","symbol":"AAPL","condition":{"kind":"above","price":1e400}})",
         "trigger.condition.price"},
    };
    for (const auto& [trigger, path] : cases) {
        try {
            decode<AlertRule>(parseJSON(ruleText(trigger)));
            ADD_FAILURE() << trigger << " was read";
        } catch (const RecordError& error) {
            EXPECT_EQ(error.path(), path) << trigger;
        }
    }
}

TEST(AlertRules, HaveNoMoreThanAHundredWords) {
    AlertRule rule{.id = "r1", .name = "Rule"};
    rule.trigger = SignalsTrigger{.words = std::vector<std::string>(kMostTermsOfRule, "mac")};
    EXPECT_EQ(decode<AlertRule>(encode(rule)), rule);
    std::get<SignalsTrigger>(rule.trigger).words.push_back("mac");
    EXPECT_THROW(decode<AlertRule>(encode(rule)), RecordError);
}

}  // namespace
}  // namespace kit
