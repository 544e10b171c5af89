#include <gtest/gtest.h>

#include "NewsroomKit/Panels/ActivityContent.h"
#include "NewsroomKit/Trackers/Signing/SigningSignals.h"

namespace kit {
namespace {

using namespace std::chrono_literals;

constexpr Instant kNoon(500'000h);

TEST(ActivityContent, SigningOfABuildIsOneLineForTheDevicesOfAnHour) {
    std::vector<SigningChange> changes;
    const auto add = [&](const char* device, bool isSigned, Instant at) {
        changes.push_back({device, std::string("Phone ") + device, "27.1", "24B", isSigned, at});
    };
    add("iPhone1,1", false, kNoon - 2h);
    add("iPhone1,2", false, kNoon - 40min);
    add("iPhone1,3", true, kNoon - 20min);
    add("iPhone1,4", false, kNoon);
    std::vector<LoggedSignal> log;
    std::int64_t number = 0;
    for (auto& signal : signalsOf(changes))
        log.insert(log.begin(), {.number = ++number, .signal = signal});
    log.insert(log.begin() + 1, {.number = 9, .signal = {.id = "p", .kind = SignalKind::page}});
    std::string text;
    for (const auto& row : activityRows(log, 2)) {
        text += std::to_string(row.logged.number) + (row.isNew ? "* " : " ") + row.title + " " +
                std::to_string(row.devices.size()) + "; ";
    }
    EXPECT_EQ(text,
              "4* iOS 27.1 (24B) is no longer signed for Phone iPhone1,4 and Phone iPhone1,2 2; "
              "9*  0; 3* iOS 27.1 (24B) is now signed for Phone iPhone1,3 0; "
              "1 iOS 27.1 (24B) is no longer signed for Phone iPhone1,1 0; ");
}

TEST(ActivityContent, TheWireOfTheHourStandsBySharedWords) {
    const struct {
        const char* title;
        const char* story;
        bool isShared;
    } cases[] = {
        {"Maps works again after 22 min", "Apple’s maps are back", true},
        {"Maps works again after 22 min", "Works again: a printer", false},
        {"iOS 27.1.1 is out, build 24B91", "iOS 27.1.1: what is new", true},
        {"iOS 27.1.1 is out, build 24B91", "What iOS 28 could bring", false},
        {"iOS 27.1.1 is out, build 24B91", "iOS 27.1 is slow", false},
        {"Café Tide leads the free apps, 3 → 1", "Cafe Tide tops the store", true},
        {"Update is out", "Update is out", false},
    };
    for (const auto& c : cases) {
        const Story story{.id = "s", .title = c.story, .publishedAt = kNoon + 5min};
        const std::vector<PanelStory> stories{{.story = &story}};
        const auto wire = wireAround({.title = c.title, .seenAt = kNoon}, stories);
        EXPECT_EQ(wire.shared.size(), c.isShared ? 1u : 0u) << c.title << " | " << c.story;
        EXPECT_EQ(wire.total(), 1u);
    }
}

TEST(ActivityContent, TheWireReachesAnHourToEitherSide) {
    const auto story = [](const char* id, Instant at) {
        return Story{.id = id, .title = "Harbor opens", .publishedAt = at};
    };
    const Story all[]{story("early", kNoon - 61min), story("late", kNoon + 1h),
                      story("first", kNoon - 1h), story("after", kNoon + 61min)};
    std::vector<PanelStory> stories;
    for (const auto& each : all) stories.push_back({.story = &each});
    const auto wire = wireAround({.title = "Harbor works again", .seenAt = kNoon}, stories);
    ASSERT_EQ(wire.shared.size(), 2u);
    EXPECT_EQ(wire.shared[0].storyID + wire.shared[1].storyID, "firstlate");
    EXPECT_EQ(wire.lead, -1h);
}

}  // namespace
}  // namespace kit
