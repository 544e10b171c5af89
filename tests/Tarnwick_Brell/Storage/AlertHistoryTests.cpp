#include <gtest/gtest.h>

#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {
namespace {

kit::Instant second(int number) { return kit::Instant(std::chrono::seconds(number)); }

StoredAlert alertOf(const char* rule, const char* event, int matched, AlertOutcome outcome) {
    StoredAlert alert{.rule = rule,
                      .ruleName = "Chips",
                      .event = event,
                      .title = "A chip is announced",
                      .link = "https://press.example/1",
                      .words = {"chip", "m6"},
                      .matchedAt = second(matched),
                      .outcome = outcome};
    if (outcome != AlertOutcome::held) alert.toldAt = alert.matchedAt;
    return alert;
}

class AlertHistoryTest : public ::testing::Test {
protected:
    std::string outcomes() {
        std::string text;
        for (const auto& alert : history_.newest(100)) {
            text += alert.rule + "/" + alert.event + " " +
                    std::string(kit::rawValue(alert.outcome)) + ";";
        }
        return text;
    }

    LocalStore store_{Database::kInMemory, Database::Access::readWrite};
    AlertHistory& history_ = store_.alerts();
};

TEST_F(AlertHistoryTest, ARuleMatchesAnEventOnce) {
    const auto first = alertOf("r1", "story|a", 10, AlertOutcome::notified);
    EXPECT_TRUE(history_.add(first));
    EXPECT_FALSE(history_.add(alertOf("r1", "story|a", 20, AlertOutcome::held)));
    EXPECT_TRUE(history_.add(alertOf("r2", "story|a", 20, AlertOutcome::quiet)));
    auto stored = history_.newest(1, "r1").at(0);
    EXPECT_EQ(stored.number, 1);
    stored.number = 0;
    EXPECT_EQ(stored, first);
    EXPECT_EQ(outcomes(), "r2/story|a quiet;r1/story|a notified;");
}

TEST_F(AlertHistoryTest, WhatWasHeldIsSettledOnce) {
    history_.add(alertOf("r1", "story|a", 10, AlertOutcome::notified));
    history_.add(alertOf("r1", "story|b", 20, AlertOutcome::held));
    history_.add(alertOf("r2", "story|b", 20, AlertOutcome::held));
    EXPECT_EQ(history_.countUntoldAfter(1), 2);
    history_.settle("r1", "story|a", second(90));
    history_.settle("r1", "story|b", second(90));
    EXPECT_EQ(outcomes(), "r2/story|b held;r1/story|b summarised;r1/story|a notified;");
    EXPECT_EQ(history_.newest(9, "r1").at(0).toldAt, second(90));
    EXPECT_EQ(history_.newest(9, "r1").at(1).toldAt, second(10)) << "told when it came";
    EXPECT_EQ(history_.countUntoldAfter(0), 1);
    EXPECT_EQ(history_.countUntoldAfter(history_.lastNumber()), 0);
}

TEST_F(AlertHistoryTest, CountsAreOfTheSpanAndTheLastTellingIsOfAllTime) {
    history_.add(alertOf("r1", "story|a", 10, AlertOutcome::notified));
    history_.add(alertOf("r1", "story|b", 50, AlertOutcome::held));
    history_.add(alertOf("r2", "story|a", 10, AlertOutcome::quiet));
    const auto counts = history_.countsSince(second(50));
    EXPECT_EQ(counts.at("r1"), (AlertHistory::RuleCount{1, second(10)}));
    EXPECT_EQ(counts.at("r2"), (AlertHistory::RuleCount{0, second(10)}));
    history_.dropBefore(second(11));
    EXPECT_EQ(outcomes(), "r1/story|b held;");
}

}  // namespace
}  // namespace app
