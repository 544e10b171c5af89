#include <limits>
#include <unordered_set>

#include <gtest/gtest.h>

#include "NewsroomKit/Trackers/Status/AppleServiceStatus.h"

namespace kit {
namespace {

using Report = AppleServiceStatus::Report;

constexpr std::string_view kFile = R"({"drMessage":null,"services":[
  {"serviceName":"Orchard Mail","redirectUrl":null,"events":[
    {"eventStatus":"resolved","statusType":"Outage","message":"Mail was late.",
     "usersAffected":"Some users","epochStartDate":1700000000000,"epochEndDate":1700003600500},
    {"statusType":"Maintenance","message":"Mail rests.","epochStartDate":1700000400250.5},
    {"eventStatus":"ongoing","message":"A second one."}]},
  {"serviceName":"Piano Lessons","events":[
    {"eventStatus":"Ongoing","epochStartDate":1700000000000},
    {"eventStatus":"resolved","epochStartDate":null},
    {"eventStatus":"completed","epochStartDate":1700000900000}]},
  {"serviceName":"Weather Vane","events":[{"message":"It spins.","epochStartDate":1e20}]},
  {"serviceName":"Quiet","events":[]}]})";

std::vector<std::string> ids(const std::vector<Report>& reports) {
    std::vector<std::string> ids;
    for (const auto& report : reports) ids.push_back(report.id());
    return ids;
}

Instant at(double seconds) { return instantFromSeconds(seconds).value(); }

TEST(AppleServiceStatus, WhatTheFileLeavesOutIsFilledInAsPromised) {
    const auto services = AppleServiceStatus::parse(kFile);
    ASSERT_EQ(services.size(), 4U);
    EXPECT_EQ(services[0].events[0], (AppleServiceStatus::Incident{.kind = "Outage",
                                                                   .status = "resolved",
                                                                   .message = "Mail was late.",
                                                                   .usersAffected = "Some users",
                                                                   .started = at(1700000000),
                                                                   .ended = at(1700003600.5),
                                                                   .exactStart = 1700000000}));
    EXPECT_EQ(services[0].events[1], (AppleServiceStatus::Incident{.kind = "Maintenance",
                                                                   .status = "ongoing",
                                                                   .message = "Mail rests.",
                                                                   .started = at(1700000400.2505),
                                                                   .exactStart = 1700000400.2505}));
    EXPECT_EQ(services[1].events[1],
              (AppleServiceStatus::Incident{.kind = "Issue", .status = "resolved"}));
}

TEST(AppleServiceStatus, EachServiceReportsOnlyItsFirstOngoingIncident) {
    EXPECT_EQ(ids(AppleServiceStatus::ongoingReports(AppleServiceStatus::parse(kFile))),
              (std::vector<std::string>{"Orchard Mail|1700000400.2505",
                                        "Weather Vane|100000000000000000.0"}));
}

TEST(AppleServiceStatus, RecentReportsAreNewestFirstAndNeverOngoing) {
    struct Case {
        Instant cutOff;
        std::vector<std::string> ids;
    };
    const Case cases[] = {
        {at(1700000000),
         {"Piano Lessons|1700000900.0", "Orchard Mail|1700000000.0", "Piano Lessons|1700000000.0"}},
        {at(1700000000.000001), {"Piano Lessons|1700000900.0"}},
        {AppleServiceStatus::kDistantPast,
         {"Piano Lessons|1700000900.0", "Orchard Mail|1700000000.0", "Piano Lessons|1700000000.0",
          "Piano Lessons|"}},
    };
    const auto services = AppleServiceStatus::parse(kFile);
    for (const auto& c : cases) {
        EXPECT_EQ(ids(AppleServiceStatus::recentReports(c.cutOff, services)), c.ids);
    }
}

TEST(AppleServiceStatus, TheEnvelopeIsDroppedAndNothingElse) {
    const std::string object = R"({"services":[{"serviceName":"}){(","events":[]}]})";
    struct Case {
        std::string body;
        bool reads;
    };
    const Case cases[] = {
        {object, true},
        {"jsonCallback(" + object + ");\n", true},
        {"\xEF\xBB\xBF" + object, true},
        {" " + object + "\n", true},
        {R"({"services":[]})", true},
        {object + ");", false},
        {"\xFF(" + object + ")", false},
        {"}nothing{", false},
        {"", false},
        {R"(call({"services":{}}))", false},
        {R"({"services":[{"serviceName":"A"}]})", false},
        {R"({"services":[{"events":[]}]})", false},
        {R"({"services":[{"serviceName":"A","events":[{"epochStartDate":"now"}]}]})", false},
    };
    for (const auto& c : cases) {
        try {
            AppleServiceStatus::parse(c.body);
            EXPECT_TRUE(c.reads) << c.body;
        } catch (const RecordError& error) {
            EXPECT_FALSE(c.reads) << c.body << ": " << error.what();
        }
    }
}

TEST(AppleServiceStatus, SecondsAreDecimalsWithAFractionWhateverTheirSize) {
    const std::pair<Instant, const char*> cases[] = {
        {at(0), "0.0"},
        {at(1e-6), "0.000001"},
        {at(-62135596800), "-62135596800.0"},
        {at(100000000000), "100000000000.0"},
        {at(1700000000.1), "1700000000.1"},
        {at(4102444800.25), "4102444800.25"},
    };
    for (const auto& [instant, text] : cases) EXPECT_EQ(decimalSeconds(instant), text);
    EXPECT_EQ(decimalSeconds(-std::numeric_limits<double>::max()).size(), 312u);
    EXPECT_EQ(decimalSeconds(5e-324).size(), 326u);
}

TEST(AppleServiceStatus, AnIDIsMadeOfTheVeryNumberOfTheFile) {
    const std::pair<const char*, const char*> cases[] = {
        {"1700000000000", "Mail|1700000000.0"},
        {"1700000000250.5", "Mail|1700000000.2505"},
        // Finer than an Instant, and outside of the years that have Instants.
        {"1700000000123.4567", "Mail|1700000000.1234567"},
        {"0.00025", "Mail|0.00000025"},
        {"1e18", "Mail|1000000000000000.0"},
        {"-1e20", "Mail|-100000000000000000.0"},
        {"null", "Mail|m"},
    };
    for (const auto& [number, id] : cases) {
        const auto services = AppleServiceStatus::parse(
            R"({"services":[{"serviceName":"Mail","events":[{"message":"m","epochStartDate":)" +
            std::string(number) + "}]}]}");
        EXPECT_EQ(AppleServiceStatus::ongoingReports(services).at(0).id(), id);
    }
}

TEST(AppleServiceStatus, EveryFieldOfAReportMakesAnotherHash) {
    const auto reports = AppleServiceStatus::recentReports(AppleServiceStatus::kDistantPast,
                                                           AppleServiceStatus::parse(kFile));
    std::unordered_set<std::size_t> hashes;
    const auto add = [&](auto change) {
        auto report = reports[1];
        change(report);
        EXPECT_TRUE(hashes.insert(std::hash<Report>()(report)).second) << hashes.size();
    };
    add([](auto&) {});
    add([](auto& report) { report.service += "!"; });
    add([](auto& report) { std::swap(report.incident.kind, report.incident.status); });
    add([](auto& report) { report.incident.message.clear(); });
    add([](auto& report) { report.incident.usersAffected.reset(); });
    add([](auto& report) { *report.incident.started += Instant::duration(1); });
    add([](auto& report) { report.incident.ended.reset(); });
}

}  // namespace
}  // namespace kit
