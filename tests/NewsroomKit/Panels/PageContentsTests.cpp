#include <gtest/gtest.h>

#include <chrono>

#include "NewsroomKit/Panels/EventsContent.h"
#include "NewsroomKit/Panels/SoftwarePageContent.h"

namespace kit {
namespace {

using std::chrono::days;

const Instant kToday = std::chrono::sys_days(std::chrono::year(2026) / 11 / 20);

SeenBuild build(const char* platform, ReleaseChannel channel, int daysAgo, const char* version) {
    return {.platform = platform,
            .channel = channel,
            .release = {.version = version,
                        .build = std::string(version) + "-" + std::to_string(daysAgo),
                        .published = kToday - days(daysAgo)}};
}

TEST(SoftwarePage, EachReleaseIsTimedAgainstTheOneBeforeOfItsPlatformAndChannel) {
    using enum ReleaseChannel;
    const std::vector<SeenBuild> builds{
        build("iOS", general, 1, "27.1.1"), build("macOS", general, 2, "27.1"),
        build("iOS", beta, 3, "27.2"),      build("iOS", general, 17, "27.1"),
        build("iOS", beta, 17, "27.2"),     build("iOS", general, 67, "26.9"),
    };
    const auto line = [&](const SoftwareFilter& filter) {
        std::string text;
        for (const auto& row : softwarePageContent({}, builds, filter, kToday).releases) {
            const auto after = row.after ? std::to_string(*row.after / days(1)) : "-";
            text += row.build.platform + " " + row.build.release.version + " " + after + ", ";
        }
        return text;
    };
    struct Case {
        SoftwareFilter filter;
        const char* rows;
    };
    const Case cases[] = {
        {{}, "iOS 27.1.1 16, macOS 27.1 -, iOS 27.2 14, iOS 27.1 50, iOS 27.2 -, iOS 26.9 -, "},
        {{.channel = beta}, "iOS 27.2 14, iOS 27.2 -, "},
        {{.platform = "macOS"}, "macOS 27.1 -, "},
        {{.major = "26"}, "iOS 26.9 -, "},
        {{.words = "27.1-17"}, "iOS 27.1 50, "},
    };
    for (const auto& c : cases) EXPECT_EQ(line(c.filter), c.rows);
    EXPECT_EQ(softwarePageContent({}, builds, {}, kToday).majors,
              (std::vector<std::string>{"27", "26"}));
}

TEST(EventsPage, SortsTheCalendarIntoWhatComesWhatIsOverAndAnniversaries) {
    const auto event = [](const char* id, int daysAhead, const char* title, const char* status) {
        return AppleCalendarEvent{
            .id = id, .title = title, .starts = kToday + days(daysAhead), .status = status};
    };
    const CachedValue<std::vector<AppleCalendarEvent>> events{
        .value = {{event("rumor", 90, "Spring event", "rumored"),
                   event("soon", 6, "In stores", "announced"),
                   event("out", 0, "A release", "released"),
                   event("long ago", -70, "Autumn event", "announced"),
                   event("old", 3, "Anniversary: 43 years of a computer", "anniversary"),
                   event("later", 20, "A release", "expected")}}};
    const auto content = eventsContent(
        events, "",
        {.daysUntil = [](Instant then) { return static_cast<int>((then - kToday) / days(1)); },
         .storiesOnDay = [](Instant) { return std::size_t(7); }});
    const auto ids = [](const std::vector<EventsContent::Event>& list) {
        std::string text;
        for (const auto& each : list) text += each.event.id + ", ";
        return text;
    };
    ASSERT_TRUE(content.next);
    EXPECT_EQ(content.next->event.id, "soon");
    EXPECT_EQ(ids(content.coming), "soon, later, rumor, ");
    EXPECT_EQ(ids(content.past), "out, long ago, ");
    EXPECT_EQ(content.past[0].stories, 7u);
    EXPECT_EQ(ids(content.anniversaries), "old, ");
}

}  // namespace
}  // namespace kit
