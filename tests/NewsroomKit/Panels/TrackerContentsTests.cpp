#include <gtest/gtest.h>

#include "NewsroomKit/Panels/BackendContent.h"
#include "NewsroomKit/Panels/SigningContent.h"
#include "NewsroomKit/Panels/SoftwareContent.h"
#include "NewsroomKit/Panels/StatusContent.h"

namespace kit {
namespace {

using namespace std::chrono_literals;
using std::chrono::days;
using Services = AppleServiceStatus::Services;

const Instant kNoon = std::chrono::sys_days(std::chrono::year(2026) / 11 / 20) + 12h;

TEST(PanelCondition, FollowsFromWhatIsHeldAndWhatFailed) {
    struct Case {
        bool isKnown, hasRows, hasFailed;
        PanelState state;
    };
    const Case cases[] = {
        {false, false, false, PanelState::loading}, {false, false, true, PanelState::failed},
        {true, true, false, PanelState::ready},     {true, false, false, PanelState::empty},
        {true, true, true, PanelState::stale},      {true, false, true, PanelState::stale},
    };
    for (const auto& c : cases) {
        const auto error = c.hasFailed ? std::optional<std::string>("No answer.") : std::nullopt;
        EXPECT_EQ(PanelCondition::of(c.isKnown, c.hasRows, kNoon, error).state, c.state)
            << c.isKnown << c.hasRows << c.hasFailed;
    }
}

TEST(StatusContent, TakesALevelOnlyFromItsWholeWord) {
    for (const auto& [kind, level] : {std::pair{"Outage", ProblemLevel::outage},
                                      {"MAINTENANCE", ProblemLevel::maintenance},
                                      {"Partial outage", ProblemLevel::issue},
                                      {"", ProblemLevel::issue}}) {
        EXPECT_EQ(problemLevel(kind), level) << kind;
    }
}

TEST(StatusContent, ListsOngoingIncidentsAndThoseThatEndedOfLate) {
    const auto incident = [](const char* status, std::optional<Instant> started,
                             std::optional<Instant> ended) {
        return AppleServiceStatus::Incident{
            .kind = "Outage", .status = status, .started = started, .ended = ended};
    };
    const CachedValue<Services> consumer{
        .value = Services{{"Mail", {incident("ongoing", kNoon - 2h, kNoon - 1h)}},
                          {"Maps", {incident("resolved", kNoon - days(14), kNoon - days(13))}},
                          {"Notes", {incident("resolved", kNoon - days(14) - 1s, kNoon)}},
                          {"Pay", {incident("resolved", kNoon - 1h, std::nullopt)}},
                          {"News", {incident("upcoming", kNoon + 1h, kNoon + 2h)}}}};
    const auto content = statusContent(consumer, {}, kNoon);
    ASSERT_EQ(content.ongoing.size(), 1u);
    EXPECT_EQ(content.ongoing[0].service, "Mail");
    EXPECT_EQ(content.ongoing[0].lasted, 2h) << "the end of an ongoing incident is a plan";
    ASSERT_EQ(content.recent.size(), 2u);
    EXPECT_EQ(content.recent[0].service, "Pay");
    EXPECT_EQ(content.recent[0].lasted, std::nullopt) << "nobody says when it ended";
    EXPECT_EQ(content.recent[1].service, "Maps");
    EXPECT_EQ(content.recent[1].lasted, days(1));
}

TEST(StatusContent, CallsAllServicesUpOnlyWhenBothFilesSaySoNow) {
    const auto file = [](bool isUp, Instant::duration age, bool hasFailed = false) {
        const auto status = isUp ? "resolved" : "ongoing";
        return CachedValue<Services>{
            .value = Services{{"Kiosk", {{.kind = "Issue", .status = status}}}},
            .fetchedAt = kNoon - age,
            .error = hasFailed ? std::optional<std::string>("No answer.") : std::nullopt};
    };
    struct Case {
        const char* what;
        CachedValue<Services> consumer, developer;
        bool isAllUp, isDeveloperCurrent;
    };
    const Case cases[] = {
        {"both up", file(true, 1min), file(true, 1min), true, true},
        {"a little older", file(true, 0min), file(true, 29min), true, true},
        {"much older", file(true, 0min), file(true, 30min), false, false},
        {"both old", file(true, 5h), file(true, 5h), true, true},
        {"developers down", file(true, 1min), file(false, 1min), false, true},
        {"consumers down", file(false, 1min), file(true, 1min), false, true},
        {"developers failed", file(true, 1min), file(true, 1min, true), false, false},
        {"consumers failed", file(true, 1min, true), file(true, 1min), false, true},
    };
    for (const auto& c : cases) {
        const auto content = statusContent(c.consumer, c.developer, kNoon);
        EXPECT_EQ(content.isAllUp(), c.isAllUp) << c.what;
        EXPECT_EQ(content.developer->isCurrent, c.isDeveloperCurrent) << c.what;
    }
    EXPECT_FALSE(statusContent(file(true, 1min), {}, kNoon).isAllUp());
}

SoftwareRelease build(const char* name, Instant::duration age) {
    return {.build = name, .published = kNoon - age};
}

TEST(SoftwareContent, FollowsThePanelsOrderAndMarksBuildsOfThreeDays) {
    const CachedValue<std::vector<PlatformRelease>> releases{
        .value = {{{.platform = "iOS", .current = build("A1", 71h), .beta = build("B1", 200h)},
                   {.platform = "tvOS", .current = build("T1", 73h)},
                   {.platform = "otherOS", .current = build("O1", 1h)}}}};
    const auto content = softwareContent(releases, {"tvOS", "lostOS", "iOS"}, kNoon);
    ASSERT_EQ(content.rows.size(), 2u);
    EXPECT_EQ(content.rows[0].platform.platform, "tvOS");
    EXPECT_FALSE(content.rows[0].isNew);
    EXPECT_TRUE(content.rows[1].isNew);
    EXPECT_EQ(content.rows[1].latest, kNoon - 71h);
    EXPECT_EQ(softwareContent(releases, {"lostOS"}, kNoon).condition.state, PanelState::empty);
}

TEST(ReleasesContent, HasThePanelsPlatformsByPublicationAndStaysWithoutAList) {
    const std::vector<SeenBuild> seen{
        {.platform = "iOS", .release = build("B1", 200h), .firstSeen = kNoon},
        {.platform = "otherOS", .release = build("O1", 1h)},
        {.platform = "tvOS", .release = build("T1", 71h)}};
    const auto content = releasesContent({.error = "No answer."}, seen, {"iOS", "tvOS"}, kNoon);
    ASSERT_EQ(content.rows.size(), 2u);
    EXPECT_EQ(content.rows[0].build.release.build, "T1");
    EXPECT_TRUE(content.rows[0].isNew);
    EXPECT_FALSE(content.rows[1].isNew);
    EXPECT_EQ(content.condition.state, PanelState::stale) << "the history has something to show";
}

TEST(SigningContent, IsAsOldAsTheOldestModelAndFailsOnlyWithAllOfThem) {
    const auto model = [](const char* device, std::optional<Instant::duration> age,
                          bool hasFailed) {
        DeviceSigning held{.device = device};
        if (age) held.signing.value = SigningStatus{.name = "Slate"};
        if (age) held.signing.fetchedAt = kNoon - *age;
        if (hasFailed) held.signing.error = "No answer.";
        return held;
    };
    struct Case {
        const char* what;
        std::vector<DeviceSigning> devices;
        PanelState state;
        std::optional<Instant> fetchedAt;
    };
    const Case cases[] = {
        {"nothing yet", {model("a", {}, false)}, PanelState::loading, {}},
        {"one of two failed",
         {model("a", 1h, true), model("b", 2h, false)},
         PanelState::ready,
         kNoon - 2h},
        {"both failed",
         {model("a", 1h, true), model("b", 2h, true)},
         PanelState::stale,
         kNoon - 2h},
        {"one was never known",
         {model("a", {}, true), model("b", 1h, false)},
         PanelState::ready,
         kNoon - 1h},
        {"all failed from the start",
         {model("a", {}, true), model("b", {}, true)},
         PanelState::failed,
         {}},
    };
    for (const auto& c : cases) {
        const auto condition = signingContent(c.devices).condition;
        EXPECT_EQ(condition.state, c.state) << c.what;
        EXPECT_EQ(condition.fetchedAt, c.fetchedAt) << c.what;
        EXPECT_EQ(condition.error.has_value(),
                  c.state == PanelState::stale || c.state == PanelState::failed)
            << c.what;
    }
}

TEST(SigningContent, NamesModelsAndKeepsTheBuildsThatAreSigned) {
    const SigningStatus status{.name = "Slate 3",
                               .builds = {{.build = "A", .isSigned = true}, {.build = "B"}}};
    const auto content = signingContent({{"iPhone18,3", {.value = status}}, {"iPhone18,4", {}}});
    ASSERT_EQ(content.devices.size(), 2u);
    EXPECT_EQ(content.devices[0].name, "Slate 3");
    ASSERT_EQ(content.devices[0].builds.size(), 1u);
    EXPECT_EQ(content.devices[0].builds[0].build, "A");
    EXPECT_EQ(content.devices[1].name, "iPhone18,4");
    EXPECT_FALSE(content.devices[1].isKnown);
}

TEST(RecordsContent, NamesModelsInTheOrderInWhichTheyAreFollowed) {
    const auto change = [](const char* device) {
        return SigningChange{.device = device, .version = "26", .build = "B26", .seenAt = kNoon};
    };
    const auto record = [](const char* title, Instant seenAt) {
        return LoggedSignal{.signal = {.title = title, .seenAt = seenAt}};
    };
    const auto content =
        recordsContent({}, {change("iPhone18,4"), change("iPhone18,3")},
                       {record("8-K", kNoon + 1min), record("Order", kNoon - 1min)});
    ASSERT_EQ(content.rows.size(), 3u);
    EXPECT_EQ(content.rows[0].record->title + content.rows[2].record->title, "8-KOrder");
    EXPECT_EQ(content.rows[1].signing->devices,
              (std::vector<std::string>{"iPhone18,3", "iPhone18,4"}));
    const std::vector devices{DeviceSigning{.signing = {.value = SigningStatus()}}};
    EXPECT_EQ(recordsContent(devices, {}).condition.state, PanelState::empty);
}

TEST(BackendContent, HasTheLatestChangesAndTheNewestOfferOfEachPlatform) {
    const auto offer = [](const char* platform, const char* build) {
        return UpdateOffer{.platform = platform, .build = build};
    };
    const CachedValue<std::vector<UpdateOffer>> updates{
        .value = {{offer("iOS", "B2"), offer("macOS", "M1"), offer("iOS", "B1")}}};
    const auto content = backendContent(updates, std::vector<OfferChange>(31));
    EXPECT_EQ(content.changes.size(), 30u);
    ASSERT_EQ(content.newest.size(), 2u);
    EXPECT_EQ(content.newest[0].build, "B2");
    EXPECT_EQ(content.newest[1].build, "M1");
    EXPECT_EQ(backendContent({.value = {{}}}, {}).condition.state, PanelState::empty);
}

}  // namespace
}  // namespace kit
