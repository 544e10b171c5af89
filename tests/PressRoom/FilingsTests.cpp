#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "NewsroomKit/Filings/Filing.h"
#include "PressRoom/Filings/FilingDates.h"
#include "PressRoom/Filings/FilingsRequestHandler.h"
#include "tests/PressRoom/SampleWorld.h"

namespace pressroom::testing {
namespace {

using namespace std::chrono_literals;
using std::chrono::minutes;

const std::string feedOfApple = "/cgi-bin/browse-edgar?action=getcompany&CIK=0000320193";

Response ask(const std::string& host, const std::string& target, minutes time,
             const std::string& agent = "Test me@example.org") {
    Misbehaviours none;
    const auto folder = std::filesystem::path(BRELL_FIXTURES) / "../../PressRoom/World";
    const FilingsRequestHandler room(readFilingsWorld(folder), anchor, none);
    const Request request{
        .method = "GET", .host = host, .target = target, .headers = {{"user-agent", agent}}};
    return room.answer(request, anchor + time).value();
}

TEST(FilingsWorld, TheLegalDayFollowsFromTheHourInNewYork) {
    using namespace std::chrono;
    const auto accepted = [](const char* form, sys_seconds moment) {
        return filingDay({.form = form, .minutesAgo = 0}, moment);
    };
    const sys_days friday = 2026y / November / 20;
    EXPECT_EQ(accepted("8-K", friday + 22h + 29min), "2026-11-20");
    EXPECT_EQ(accepted("8-K", friday + 22h + 30min), "2026-11-23") << "half past five, then Monday";
    EXPECT_EQ(accepted("4", friday + 26h + 59min), "2026-11-20");
    EXPECT_EQ(accepted("4", friday + 27h), "2026-11-23") << "ten in the evening";
}

TEST(FilingsWorld, TheListIsBehindTheFeedAndLettersComeUnderOldDates) {
    const auto numbers = [](const std::string& host, const std::string& target, minutes time) {
        std::vector<std::string> forms;
        const auto filings = kit::parseFilings(ask(host, target, time).body).value();
        for (const auto& filing : filings) forms.push_back(filing.form);
        return forms;
    };
    const std::string list = "/submissions/CIK0000320193.json";
    EXPECT_EQ(numbers("www.sec.gov", feedOfApple, 60min).front(), "8-K");
    EXPECT_EQ(numbers("data.sec.gov", list, 65min).front(), "144");
    EXPECT_EQ(numbers("data.sec.gov", list, 100min).front(), "8-K");
    const auto before = numbers("www.sec.gov", feedOfApple, 690min);
    const auto after = numbers("www.sec.gov", feedOfApple, 700min);
    EXPECT_EQ(std::ranges::count(before, "CORRESP"), 0);
    EXPECT_EQ(std::ranges::count(after, "CORRESP"), 1);
    EXPECT_EQ(after.front(), before.front());
}

TEST(FilingsWorld, TheLatestFeedHasAFilingOnceForEachParty) {
    const auto answer = ask("www.sec.gov", "/cgi-bin/browse-edgar?action=getcurrent", 300min);
    std::size_t entries = 0;
    for (auto at = answer.body.find("<entry>"); at != std::string::npos;
         at = answer.body.find("<entry>", at + 1))
        ++entries;
    const auto filings = kit::parseFilings(answer.body).value();
    EXPECT_GT(entries, filings.size() + 3);
    EXPECT_EQ(filings.front().form, "4");
    EXPECT_EQ(filings.front().parties.size(), 3U) << "two owners and the issuer";
}

TEST(FilingsWorld, ProgramsWithoutAMailAddressAreRefused) {
    EXPECT_EQ(ask("www.sec.gov", feedOfApple, 0min, "Test").status, 403);
    EXPECT_EQ(ask("www.sec.gov", feedOfApple, 0min, "Test me@barred.example").status, 403);
    EXPECT_EQ(ask("www.sec.gov", feedOfApple, 0min).status, 200);
}

}  // namespace
}  // namespace pressroom::testing
