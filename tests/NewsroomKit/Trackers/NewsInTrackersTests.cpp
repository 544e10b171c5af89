#include <gtest/gtest.h>

#include "NewsroomKit/Trackers/Events/AppleCalendarEvent.h"
#include "NewsroomKit/Trackers/Releases/NewBuilds.h"
#include "NewsroomKit/Trackers/Status/ServiceProblems.h"

namespace kit {
namespace {

using Services = AppleServiceStatus::Services;
using Known = ServiceProblems::Known;

/// A service with one ongoing incident, told apart by its message.
AppleServiceStatus::Service troubled(const char* name, const char* message = "m") {
    return {.name = name, .events = {{.status = "ongoing", .message = message}}};
}

TEST(ServiceProblems, OnlyWhatHasChangedSinceTheLastLookIsTold) {
    struct Case {
        const char* name;
        std::optional<Known> known;
        std::optional<Services> consumer;
        std::optional<Services> developer;
        std::vector<std::string> problems;
        std::vector<std::string> restored;
        std::optional<Known> after;
    };
    const Services calm{{.name = "A"}, {.name = "B"}};
    const Case cases[] = {
        {"the first look only remembers",
         {},
         Services{troubled("A")},
         Services{troubled("D")},
         {},
         {},
         Known{{"A|m", "A"}, {"D|m", "D"}}},
        {"without the consumer status nothing changes",
         Known{{"A|m", "A"}},
         {},
         Services{troubled("D")},
         {},
         {},
         Known{{"A|m", "A"}}},
        {"not even on the first look", {}, {}, Services{troubled("D")}, {}, {}, {}},
        {"problems come in order, consumer before developer, each once",
         Known{{"A|m", "A"}},
         Services{troubled("Z"), troubled("A"), troubled("B"), troubled("B")},
         Services{troubled("D"), troubled("B")},
         {"Z|m", "B|m", "D|m"},
         {},
         Known{{"A|m", "A"}, {"B|m", "B"}, {"D|m", "D"}, {"Z|m", "Z"}}},
        {"a service with several reports comes back once",
         Known{{"A|1", "A"}, {"A|2", "A"}, {"B|m", "B"}},
         calm,
         Services{},
         {},
         {"A", "B"},
         Known{}},
        {"another problem in place of the first is a problem and no recovery",
         Known{{"A|m", "A"}},
         Services{troubled("A", "worse")},
         {},
         {"A|worse"},
         {},
         Known{{"A|worse", "A"}}},
        {"a service that both files name is back when neither complains",
         Known{{"A|m", "A"}},
         calm,
         Services{troubled("A")},
         {},
         {},
         Known{{"A|m", "A"}}},
    };
    for (const auto& c : cases) {
        const auto look = ServiceProblems::detect(c.known, c.consumer, c.developer);
        std::vector<std::string> ids;
        for (const auto& report : look.problems) ids.push_back(report.id());
        EXPECT_EQ(ids, c.problems) << c.name;
        EXPECT_EQ(look.restored, c.restored) << c.name;
        EXPECT_EQ(look.known, c.after) << c.name;
    }
}

PlatformRelease release(const char* platform, const char* general, const char* beta) {
    PlatformRelease made{.platform = platform};
    if (general) made.current = SoftwareRelease{.build = general};
    if (beta) made.beta = SoftwareRelease{.build = beta};
    return made;
}

TEST(NewBuilds, OnlyABuildInTheTracksOfAnotherIsAnnounced) {
    struct Case {
        const char* name;
        NewBuilds::Known known;
        std::vector<PlatformRelease> releases;
        std::vector<std::string> announced;
        NewBuilds::Known after;
    };
    const Case cases[] = {
        {"the first look only remembers",
         {},
         {release("iOS", "1", "2"), release("iOS", "3", nullptr)},
         {},
         {{"iOS.public", "3"}, {"iOS.beta", "2"}}},
        {"a platform with a beta alone has one key",
         {{"iOS.public", "1"}},
         {release("visionOS", nullptr, "9")},
         {},
         {{"iOS.public", "1"}, {"visionOS.beta", "9"}}},
        {"public before beta, also when a build goes back",
         {{"iOS.public", "2"}, {"iOS.beta", "8"}, {"macOS.beta", "5"}},
         {release("iOS", "1", "9"), release("macOS", "4", "5")},
         {"iOS.public", "iOS.beta"},
         {{"iOS.public", "1"}, {"iOS.beta", "9"}, {"macOS.public", "4"}, {"macOS.beta", "5"}}},
    };
    for (const auto& c : cases) {
        const auto look = NewBuilds::detect(c.known, c.releases);
        std::vector<std::string> keys;
        for (const auto& build : look.announced) keys.push_back(build.key());
        EXPECT_EQ(keys, c.announced) << c.name;
        EXPECT_EQ(look.known, c.after) << c.name;
    }
}

TEST(AppleCalendarEvents, OnlyWhatIsToHappenIsUnderWay) {
    using namespace std::chrono_literals;
    const Instant start(1'800'000'000s);
    const auto isOn = [&](const char* title, const char* status, Instant now) {
        return AppleCalendarEvent{.title = title, .starts = start, .status = status}.isOn(now, 2h);
    };
    EXPECT_FALSE(isOn("Keynote", "announced", start - 1us));
    EXPECT_TRUE(isOn("Keynote", "announced", start));
    EXPECT_TRUE(isOn("Earnings call", "expected", start + 2h - 1us));
    EXPECT_FALSE(isOn("Keynote", "announced", start + 2h));
    for (const auto* status : {"rumored", "Rumoured", "rumor", "released"}) {
        EXPECT_FALSE(isOn("Keynote", status, start)) << status;
    }
    EXPECT_FALSE(isOn("Ten-year Anniversary of the Keynote", "announced", start));
}

}  // namespace
}  // namespace kit
