#include <gtest/gtest.h>

#include "NewsroomKit/Panels/StatusPageContent.h"

namespace kit {
namespace {

Instant at(const std::string& text) { return parseISO8601("2026-" + text + ":00Z").value(); }

LoggedIncident logged(const char* kind, const std::string& begin, const std::string& end) {
    LoggedIncident incident{.service = "Mail", .kind = kind, .started = at(begin)};
    incident.firstSeen = at(begin);
    if (end.empty()) return incident;
    incident.ended = incident.endedSeen = at(end);
    return incident;
}

/// One letter a day: "-" unknown, "u" up, "m" maintenance, "i" issue, "o" outage.
std::string lettersOf(const std::vector<ServiceDay>& days) {
    std::string letters;
    for (const auto day : days) letters += "-umio"[static_cast<int>(day)];
    return letters;
}

TEST(ServiceHistory, ADayIsItsWorstIncidentAndUpOnlyWhereTheDeskWatched) {
    // Days of Berlin around the end of summer time; 25 October has 25 hours.
    const DayBounds days{at("10-23T22:00"), at("10-24T22:00"), at("10-25T23:00"), at("10-26T23:00"),
                         at("10-27T23:00")};
    const auto now = at("10-27T12:00");
    const std::vector<WatchedSpan> watch{{at("10-25T22:30"), now}};
    struct Case {
        const char* what;
        std::vector<LoggedIncident> incidents;
        const char* days;
    };
    const Case cases[] = {
        {"nothing", {}, "-uuu"},
        {"the last of 25 hours", {logged("Issue", "10-25T22:10", "10-25T22:50")}, "-iuu"},
        {"over midnight", {logged("Outage", "10-25T22:50", "10-25T23:10")}, "-oou"},
        {"until midnight", {logged("Issue", "10-25T22:00", "10-25T23:00")}, "-iuu"},
        {"known of a day without watch", {logged("Issue", "10-24T10:00", "10-24T11:00")}, "iuuu"},
        {"the worst of two",
         {logged("Outage", "10-26T01:00", "10-26T02:00"),
          logged("Maintenance", "10-26T03:00", "10-26T04:00")},
         "-uou"},
        {"still going on", {logged("Maintenance", "10-26T12:00", "")}, "-umm"},
        {"without a length", {logged("Issue", "10-26T12:00", "10-26T12:00")}, "-uiu"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(lettersOf(serviceDays(c.incidents, watch, days, now)), c.days) << c.what;
}

TEST(ServiceHistory, TheShareCountsTheWatchedTimeWithoutMaintenanceAndEachHourOnce) {
    const DayBounds days{at("10-01T00:00"), at("10-02T00:00")};
    const auto now = at("10-01T20:00");
    const std::vector<WatchedSpan> watch{{at("10-01T00:00"), at("10-01T10:00")},
                                         {at("10-01T10:00"), now}};
    const auto issue = logged("Issue", "10-01T08:00", "10-01T12:00");
    struct Case {
        std::vector<LoggedIncident> incidents;
        std::optional<double> share;
    };
    const Case cases[] = {
        {{}, 1.0},
        {{issue}, 0.8},
        {{issue, logged("Outage", "10-01T09:00", "10-01T11:00")}, 0.8},
        {{logged("Maintenance", "10-01T01:00", "10-01T09:00")}, 1.0},
        {{logged("Issue", "10-01T18:00", "")}, 0.9},
    };
    for (const auto& c : cases) EXPECT_EQ(upShare(c.incidents, watch, days, now), c.share);
    EXPECT_EQ(upShare({issue}, {}, days, now), std::nullopt) << "nobody watched";
}

TEST(StatusPage, ProblemsLeadThenServicesByTheirLastIncidentAndAnOldDayIsUnknown) {
    const auto now = at("10-03T12:00");
    const AppleServiceStatus::Incident ongoing{
        .kind = "Outage", .status = "ongoing", .started = at("10-03T11:00")};
    const CachedValue<StatusContent::Services> consumer{
        .value =
            StatusContent::Services{{"Books", {}}, {"Mail", {}}, {"Maps", {}}, {"Pay", {ongoing}}},
        .fetchedAt = now,
        .error = "No answer."};
    auto older = logged("Issue", "10-01T10:00", "10-01T11:00");
    older.service = "Maps";
    const StatusHistory history{.incidents = {older, logged("Issue", "10-02T10:00", "10-02T11:00")},
                                .consumerWatch = {{at("10-02T00:00"), now}}};
    const DayBounds days{at("10-01T00:00"), at("10-02T00:00"), at("10-03T00:00"),
                         at("10-04T00:00")};
    const auto page = statusPageContent(consumer, {}, history, {.words = "M"}, days, now);
    ASSERT_EQ(page.tables.size(), 2u);
    std::string names;
    for (const auto& service : page.tables[0].services) names += service.name + " ";
    EXPECT_EQ(names, "Mail Maps ") << "the words are looked for in any case";
    EXPECT_EQ(lettersOf(page.tables[0].services[0].days), "-i-");
    EXPECT_EQ(page.tables[0].watchedDays, 2u);
    const auto all = statusPageContent(consumer, {}, history, {}, days, now);
    EXPECT_EQ(all.tables[0].services[0].name, "Pay");
    EXPECT_EQ(all.problems.size(), 1u);
    EXPECT_EQ(all.log.size(), 2u);
}

}  // namespace
}  // namespace kit
