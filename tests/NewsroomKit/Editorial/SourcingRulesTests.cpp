#include "NewsroomKit/Editorial/SourcingRules.h"

#include <gtest/gtest.h>

#include <string>

#include "NewsroomKit/Editorial/EditorialNames.h"

namespace kit {
namespace {

struct Case {
    std::string title;
    std::string summary;
    Sourcing sourcing;
};

void expectSourcings(std::initializer_list<Case> cases) {
    for (const auto& [title, summary, sourcing] : cases) {
        EXPECT_EQ(SourcingRules::classify(title, summary, false), sourcing)
            << title << " | " << summary;
    }
}

TEST(SourcingRules, aStoryFromAppleIsConfirmedWhateverItSays) {
    EXPECT_EQ(SourcingRules::classify("Rumor: leak", "allegedly", true), Sourcing::confirmed);
    EXPECT_EQ(SourcingRules::classify("", "", true), Sourcing::confirmed);
}

TEST(SourcingRules, theHeadlineIsAskedInAFixedOrder) {
    const std::string chief(EditorialNames::chiefExecutive);
    expectSourcings({
        {"New iPad rumored for spring", "", Sourcing::rumor},
        {"Leaker: Apple reportedly plans to wait", "", Sourcing::rumor},
        {"Kuo says so", "", Sourcing::rumor},
        {"Gurman on the new Mac", "", Sourcing::report},
        {"Report: new Mac", "", Sourcing::report},
        {"Reports say much", "", Sourcing::report},
        {"Apple says yes, according to a report", "", Sourcing::report},
        {"Apple says yes", "", Sourcing::onRecord},
        {"Apple Statement on repairs", "", Sourcing::onRecord},
        {"Pineapple says yes", "", Sourcing::unlabeled},
        {"Apple releases a Mac", "", Sourcing::confirmed},
        {"A Mac is OUT NOW", "", Sourcing::confirmed},
        {"Apple confirms what Apple releases", "", Sourcing::onRecord},
        {"Leakage in the roof", "", Sourcing::unlabeled},
        {"", "", Sourcing::unlabeled},
        {chief + " says hello", "", Sourcing::onRecord},
        {chief + " reportedly says hello", "", Sourcing::report},
        {chief + " visits a school", "", Sourcing::unlabeled},
        {chief + " visits as Apple opens a store", "", Sourcing::confirmed},
        {"Joz talks", "", Sourcing::onRecord},
        {"Deirdre O’Brien in an interview", "", Sourcing::onRecord},
        {"Somebody says hello", "", Sourcing::unlabeled},
        {"An Apple spokeswoman explains", "", Sourcing::onRecord},
    });
}

TEST(SourcingRules, theExcerptCountsOnlyForRumorsAndReports) {
    expectSourcings({
        {"A new Mac", "A leak shows it", Sourcing::rumor},
        {"A new Mac", "Leaks, according to a report", Sourcing::rumor},
        {"A new Mac", "according to one shop", Sourcing::report},
        {"A new Mac", "Apple says so and it is now available", Sourcing::unlabeled},
        {"Apple releases a Mac", "It was rumored", Sourcing::confirmed},
        {"Reportedly a Mac", "It was rumored", Sourcing::report},
    });
}

TEST(SourcingRules, aRumorComeTrueTurnsOffRumorsButNotReports) {
    expectSourcings({
        {"Long-rumored feature finally arrives", "Rumors said so", Sourcing::unlabeled},
        {"Long–rumored feature arrives", "It leaks", Sourcing::unlabeled},
        {"Long-rumored leak, sources say", "", Sourcing::report},
        {"Long-rumoured feature arrives", "according to a rumor", Sourcing::report},
        {"Apple launches long rumored leak", "", Sourcing::confirmed},
        {"A feature arrives", "the long-rumored feature", Sourcing::rumor},
        {"It became reality: rumor", "", Sourcing::unlabeled},
    });
}

/// An excerpt of `count` times the filler, then the ending.
std::string filled(int count, std::string_view filler, std::string_view ending) {
    std::string text;
    for (int index = 0; index < count; ++index) text.append(filler);
    return text.append(ending);
}

TEST(SourcingRules, onlyTheFirst280CharactersOfTheExcerptAreRead) {
    expectSourcings({
        {"Mac", filled(274, ".", " rumor"), Sourcing::rumor},
        {"Mac", filled(275, ".", " rumor"), Sourcing::unlabeled},
        // Cut inside a word: what is left of it stands as a word of its own.
        {"Mac", filled(274, ".", " rumored"), Sourcing::rumor},
        {"Mac", filled(275, ".", "rumoring"), Sourcing::rumor},
        // One character, two code points.
        {"Mac", filled(274, "e\u0301", " rumor"), Sourcing::rumor},
        {"Mac", filled(275, "e\u0301", " rumor"), Sourcing::unlabeled},
        // One character before normalising, two letters after it.
        {"Mac", filled(274, "ß", " rumor"), Sourcing::rumor},
    });
}

TEST(SourcingRules, theReasonNamesEveryPhraseThatHadASay) {
    using Where = RuleHit::Where;
    const auto speaking = SourcingRules::explain("Tim Cook said, and says, it", "", false);
    EXPECT_EQ(speaking.why, (RuleHit{"spokespeople", "tim cook", Where::title}));
    EXPECT_EQ(speaking.speech, (RuleHit{"speech verbs", "says", Where::title}));

    const auto quiet = SourcingRules::explain("As rumored", "Leaks said to be true", false);
    EXPECT_EQ(quiet.why, (RuleHit{"report phrases", "said to be", Where::summary}));
    EXPECT_EQ(quiet.rumorsTurnedOffBy,
              (RuleHit{"fulfilled-rumor phrases", "as rumored", Where::title}));

    EXPECT_EQ(SourcingRules::explain("Tim Cook walks", "", false), SourcingDecision{});
}

}  // namespace
}  // namespace kit
