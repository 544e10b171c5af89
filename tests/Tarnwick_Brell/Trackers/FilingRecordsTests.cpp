#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Trackers/FilingRecords.h"

namespace app {
namespace {

using kit::Filing;
using std::chrono::hours;
using std::chrono::minutes;

const kit::Instant firstLook = *kit::parseISO8601("2026-11-20T12:00:00Z");

Filing listedFiling(int number, const std::string& form = "10-Q",
                    const std::string& filed = "2026-11-20") {
    return {.accession = "0000000001-26-" + std::to_string(100'000 + number),
            .form = form,
            .filed = filed,
            .accepted = firstLook};
}

class FilingRecords : public testing::Test {
protected:
    std::vector<std::string> told() {
        std::vector<std::string> forms;
        for (const auto& logged : store_.signalLog().newest(99))
            forms.push_back(std::string(logged.signal.evidence.at("after").as_string()));
        return forms;
    }
    bool isListDue(kit::Instant now) {
        return isFilingListDue(store_, kit::appleCIK, filingsOf(store_, kit::appleCIK), now);
    }

    LocalStore store_{Database::kInMemory, Database::Access::readWrite};
};

TEST_F(FilingRecords, LettersOfTheListAreNewsUnlessTheyAreVeryOldOrItIsReadFirst) {
    recordFilingFeed(store_, kit::appleCIK, {listedFiling(1)}, firstLook);
    EXPECT_TRUE(isListDue(firstLook));
    recordFilingList(store_, kit::appleCIK,
                     {listedFiling(1), listedFiling(2, "UPLOAD", "2026-09-01")}, firstLook);
    EXPECT_TRUE(told().empty()) << "the first look";
    EXPECT_FALSE(isListDue(firstLook + hours(23)));
    EXPECT_TRUE(isListDue(firstLook + hours(24)));
    EXPECT_TRUE(isListDue(firstLook - hours(1))) << "the clock was set back";
    const std::vector later{listedFiling(1), listedFiling(3, "CORRESP", "2026-08-01"),
                            listedFiling(4, "CORRESP", "2024-08-01")};
    recordFilingList(store_, kit::appleCIK, later, firstLook + hours(24));
    recordFilingList(store_, kit::appleCIK, later, firstLook + hours(48));
    EXPECT_EQ(told(), (std::vector<std::string>{"CORRESP"}));
}

TEST_F(FilingRecords, TheListGivesWhatTheFeedLacksAndIsReadSoonerForIt) {
    recordFilingFeed(store_, kit::appleCIK, {listedFiling(1)}, firstLook);
    recordFilingList(store_, kit::appleCIK, {listedFiling(1)}, firstLook);
    recordFilingFeed(store_, kit::appleCIK, {listedFiling(2, "10-Q/A"), listedFiling(1)},
                     firstLook + minutes(1));
    EXPECT_FALSE(isListDue(firstLook + minutes(29)));
    EXPECT_TRUE(isListDue(firstLook + minutes(30)));
    auto amending = listedFiling(2, "10-Q/A");
    amending.amends = listedFiling(1).accession;
    recordFilingList(store_, kit::appleCIK, {amending, listedFiling(1)}, firstLook + minutes(30));
    EXPECT_FALSE(isListDue(firstLook + minutes(90)));
    EXPECT_EQ(told(), (std::vector<std::string>{"10-Q/A"})) << "once";
}

TEST_F(FilingRecords, AFeedWithoutAnyKnownFilingHasLeftSomeOut) {
    recordFilingFeed(store_, kit::appleCIK, {listedFiling(1)}, firstLook);
    recordFilingList(store_, kit::appleCIK, {listedFiling(1)}, firstLook);
    std::vector<Filing> many;
    for (int number = 10; number < 50; ++number) many.push_back(listedFiling(number));
    recordFilingFeed(store_, kit::appleCIK, many, firstLook + minutes(5));
    EXPECT_TRUE(isListDue(firstLook + minutes(5)));
    many.push_back(listedFiling(5, "10-K"));
    recordFilingList(store_, kit::appleCIK, many, firstLook + minutes(6));
    EXPECT_EQ(told().size(), 41U);
}

}  // namespace
}  // namespace app
