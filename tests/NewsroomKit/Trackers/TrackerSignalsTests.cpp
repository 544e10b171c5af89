#include <gtest/gtest.h>

#include <algorithm>

#include "NewsroomKit/Trackers/Charts/ChartSignals.h"
#include "NewsroomKit/Trackers/Releases/ReleaseSignals.h"
#include "NewsroomKit/Trackers/Signing/SigningSignals.h"
#include "NewsroomKit/Trackers/Status/ServiceSignals.h"
#include "NewsroomKit/Trackers/Updates/OfferSignals.h"

namespace kit {
namespace {

using namespace std::chrono_literals;
using Lines = std::vector<std::string>;
using Services = AppleServiceStatus::Services;

constexpr Instant kNow = std::chrono::sys_days{std::chrono::year{2026} / 11 / 21} + 9h;

/// "weight title", sorted.
Lines told(const std::vector<Signal>& found) {
    Lines lines;
    for (const auto& signal : found)
        lines.push_back(std::string(rawValue(signal.weight)) + " " + signal.title);
    std::ranges::sort(lines);
    return lines;
}

AppleServiceStatus::Incident incident(const char* kind, const char* status, int started,
                                      int ended = 0) {
    const auto at = [](int minutes) { return Instant(kNow - 24h + minutes * 1min); };
    return {.kind = kind,
            .status = status,
            .started = at(started),
            .ended = ended ? std::optional(at(ended)) : std::nullopt};
}

TEST(TrackerSignals, AServiceTellsWhatBeganEndedAndPassedUnseen) {
    const auto slow = incident("Issue", "ongoing", 10);
    const Services calm{{"Mail"}, {"Maps"}}, slowMail{{"Mail", {slow}}, {"Maps"}};
    const struct {
        std::optional<Services> before;
        Services after;
        Lines told;
    } cases[] = {
        {std::nullopt, slowMail, {}},
        {slowMail, slowMail, {}},
        {calm, slowMail, {"notable Mail has a problem"}},
        {calm,
         {{"Mail"}, {"Maps", {incident("Outage", "ongoing", 5)}}},
         {"major Maps has an outage"}},
        {calm,
         {{"Mail", {incident("Maintenance", "ongoing", 5, 90)}}, {"Maps"}},
         {"routine Mail is under maintenance"}},
        {slowMail,
         {{"Mail", {incident("Issue", "resolved", 10, 32)}}, {"Maps"}},
         {"notable Mail works again after 22 min"}},
        {slowMail, {{"Maps"}}, {"notable Mail works again"}},
        {slowMail,
         {{"Mail", {incident("Outage", "ongoing", 20), incident("Issue", "resolved", 10, 200)}}},
         {"major Mail has an outage", "notable One of several problems of Mail is over"}},
        {calm,
         {{"Mail", {incident("Outage", "resolved", 10, 310)}},
          {"Wallet", {incident("Issue", "resolved", 1, 2)}}},
         {"routine Mail had an outage for 5 h"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(told(signalsOf(c.before, c.after, StatusFeed::consumer, kNow)), c.told);
}

PlatformRelease platform(const char* name, const char* current, const char* beta = nullptr) {
    PlatformRelease made{.platform = name};
    if (current) made.current = SoftwareRelease{.version = "27.1", .build = current};
    if (beta) made.beta = SoftwareRelease{.version = "27.2", .stage = "beta", .build = beta};
    return made;
}

TEST(TrackerSignals, ABuildIsASignalWhenItsPlatformWasThereBefore) {
    const std::vector before{platform("iOS", "A", "B"), platform("macOS", "C")};
    const std::vector after{platform("iOS", "D", "B"), platform("macOS", "C", "E"),
                            platform("tvOS", "F")};
    EXPECT_EQ(told(signalsOf(before, after, kNow)),
              (Lines{"major iOS 27.1 is out, build D", "notable macOS 27.2 beta is out, build E"}));
    EXPECT_TRUE(signalsOf(std::nullopt, after, kNow).empty());
    const auto found = signalsOf(before, after, kNow);
    EXPECT_TRUE(isPublicRelease(found.at(0)) && !isPublicRelease(found.at(1)));
}

TEST(TrackerSignals, ASigningSignalKnowsItsChange) {
    const SigningStatus before{"Phone X", {{"27.0", "A", true, {}}, {"27.1", "B", true, {}}}};
    const SigningStatus after{"Phone X", {{"27.0", "A", false, {}}, {"27.1", "B", true, {}}}};
    const auto changes = signingChanges("iPhone18,3", before, after, kNow);
    const auto found = signalsOf(changes);
    ASSERT_EQ(told(found), Lines{"notable iOS 27.0 (A) is no longer signed for Phone X"});
    EXPECT_EQ(found[0].id, "signing|iPhone18,3|A|0|2026-11-21");
    EXPECT_EQ(signingChangeOf(found[0]), changes.at(0));
}

TEST(TrackerSignals, AnOfferThatIsReplacedIsRoutine) {
    const auto offer = [](const char* name, const char* build) {
        return UpdateOffer{.platform = name, .version = "27", .build = build, .deviceCount = 1};
    };
    const std::vector before{offer("iOS", "A"), offer("macOS", "C")}, after{offer("iOS", "B")};
    const auto catalogue = [](const char* rest) {
        return std::string("Apple's update catalogue ") + rest;
    };
    EXPECT_EQ(told(signalsOf(offerChanges(before, after, kNow))),
              (Lines{"notable " + catalogue("no longer offers macOS 27 (C)"),
                     "notable " + catalogue("now offers iOS 27 (B)"),
                     "routine " + catalogue("no longer offers iOS 27 (A)")}));
}

TEST(TrackerSignals, AChartTellsItsLeaderAndWhatEntersTheTopTen) {
    const auto entry = [](std::int64_t rank, const char* id, const char* developer = "Tide Ltd") {
        return ChartEntry{.rank = rank, .name = id, .developer = developer, .id = id};
    };
    const std::vector before{entry(1, "a"), entry(2, "b"), entry(10, "c"), entry(11, "d")};
    const std::vector after{entry(1, "b"), entry(2, "a"), entry(9, "d"), entry(10, "new", "Apple"),
                            entry(11, "c")};
    using enum AppStoreCharts::Kind;
    EXPECT_EQ(
        told(signalsOf(topPaid, before, after, kNow)),
        (Lines{"notable b leads the paid apps, 2 → 1", "notable new enters the top 10 of paid apps",
               "routine d enters the top 10 of paid apps, 11 → 9"}));
    EXPECT_TRUE(signalsOf(topPaid, std::nullopt, after, kNow).empty());
}

}  // namespace
}  // namespace kit
