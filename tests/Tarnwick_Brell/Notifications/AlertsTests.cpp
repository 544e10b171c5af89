#include <gtest/gtest.h>

#include "Tarnwick_Brell/Notifications/Alerts.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

using kit::AppleServiceStatus;
using kit::Instant;
using Target = NotificationTarget;

const Target kBeatPage{.kind = Target::Kind::beat, .id = "b"};
const Target kStatusPage{.kind = Target::Kind::tracker, .id = "status"};

class AlertsTest : public ::testing::Test {
protected:
    static AppleServiceStatus::Report report(std::string kind, std::string message) {
        return {.service = "Harbour Mail",
                .incident = {.kind = std::move(kind),
                             .status = "ongoing",
                             .message = std::move(message),
                             .started = Instant(std::chrono::seconds(1'700'000'000))}};
    }

    static kit::NewBuild build() {
        const kit::SoftwareRelease release{.version = "26.2",
                                           .build = "23C5044b",
                                           .title = "iOS 26.2 beta 3",
                                           .url = "https://r/"};
        return {.platform = {.platform = "iOS", .beta = release},
                .channel = kit::ReleaseChannel::beta,
                .release = release};
    }

    static std::vector<kit::Story> stories(int count) {
        std::vector<kit::Story> stories;
        for (int i = 1; i <= count; ++i) {
            const auto number = std::to_string(i);
            stories.push_back({.id = "s" + number,
                               .link = "https://news/" + number,
                               .title = "Story " + number,
                               .sourceName = "Tide Table"});
        }
        return stories;
    }

    ::test::TemporaryFolder folder_;
    Defaults defaults_{folder_.path() / "settings.ini"};
    std::vector<Notification> posted_;
    std::string askers_;
    Alerts alerts_{defaults_, [] { return Instant(std::chrono::milliseconds(1'800'000'000'500)); },
                   [this](const AskedNotification& asked) {
                       askers_ += asked.asker.id + " " + asked.event + ";";
                       posted_.push_back(asked.notification);
                   }};
};

TEST_F(AlertsTest, AProblemIsToldInTheWordsOfItsKind) {
    const std::string page = "https://www.apple.com/support/systemstatus/";
    struct Case {
        const char* kind;
        const char* message;
        const char* title;
        const char* body;
    };
    const Case cases[] = {
        {"Outage", "Letters wait.", "Harbour Mail: outage", "Letters wait."},
        {"MAINTENANCE", "", "Harbour Mail: maintenance",
         "Apple's System Status page reports a problem."},
        {"Slow", "Slow.", "Harbour Mail: issue", "Slow."},
    };
    for (const auto& c : cases) {
        posted_.clear();
        alerts_.serviceProblem(report(c.kind, c.message));
        EXPECT_EQ(posted_,
                  std::vector{(Notification{.identifier = "status-Harbour Mail|1700000000.0",
                                            .title = c.title,
                                            .body = c.body,
                                            .link = page,
                                            .target = kStatusPage})});
    }
    posted_.clear();
    alerts_.serviceRestored("Harbour Mail");
    EXPECT_EQ(posted_,
              std::vector{(Notification{.identifier = "status-ok-Harbour Mail-1800000000.5",
                                        .title = "Harbour Mail is working again",
                                        .body = "Apple's System Status page shows it resolved.",
                                        .link = page,
                                        .target = kStatusPage})});
}

TEST_F(AlertsTest, WhatTheUserSwitchesOffIsNotPosted) {
    struct Case {
        const char* setting;
        const char* value;
        const char* posted;  ///< identifiers
    };
    const Case cases[] = {
        {"alertSound", "", "status-Harbour Mail|1700000000.0 release-iOS.beta-23C5044b beat-b-s1 "},
        {"alertServiceStatus", "false", "release-iOS.beta-23C5044b beat-b-s1 "},
        {"alertReleases", "false", "status-Harbour Mail|1700000000.0 beat-b-s1 "},
        {"alertStories", "true",
         "status-Harbour Mail|1700000000.0 release-iOS.beta-23C5044b story-s1 beat-b-s1 "},
    };
    for (const auto& c : cases) {
        posted_.clear();
        defaults_.set(c.setting, c.value);
        alerts_.serviceProblem(report("Outage", "x"));
        alerts_.newRelease(build());
        alerts_.stories({.stories = stories(1), .total = 1});
        alerts_.beat({"beat|b", "Beat"}, "b", stories(1), 1, kBeatPage);
        std::string identifiers;
        for (const auto& notification : posted_) identifiers += notification.identifier + " ";
        EXPECT_EQ(identifiers, c.posted) << c.setting;
        EXPECT_FALSE(posted_.at(0).withSound);
        defaults_.set(c.setting, "");
    }
    posted_.clear();
    defaults_.set("alertSound", "true");
    alerts_.serviceRestored("Harbour Mail");
    EXPECT_TRUE(posted_.at(0).withSound);
}

TEST_F(AlertsTest, APanelThatAsksIsToldWhateverTheSettingsSay) {
    defaults_.set("alertServiceStatus", "false");
    defaults_.set("alertReleases", "false");
    const AlertAsker panel{"panel|p", "Desk – Status"};
    alerts_.serviceProblem(report("Outage", "x"), panel);
    alerts_.serviceRestored("Harbour Mail", panel);
    alerts_.newRelease(build(), panel);
    EXPECT_EQ(askers_,
              "panel|p status-Harbour Mail|1700000000.0|1800000000.5;"
              "panel|p status-ok-Harbour Mail-1800000000.5|1800000000.5;"
              "panel|p release-iOS.beta-23C5044b|1800000000.5;");
    posted_.clear();

    const kit::SigningNews gone{
        .system = "iOS 26.1", .build = "23B85", .isSigned = false, .devices = {"iPhone 17"}};
    alerts_.signing({gone}, panel);
    const kit::OfferChange offer{
        .offer = {.platform = "macOS", .version = "26.1.1", .build = "25B90"}, .isOffered = true};
    alerts_.updates({offer}, panel);
    alerts_.updates(std::vector(4, offer), panel);
    const Target updates{.kind = Target::Kind::tracker, .id = "updates"};
    const std::string now = "Apple's update catalogue now offers macOS 26.1.1 (25B90).";
    EXPECT_EQ(posted_, (std::vector<Notification>{
                           {.identifier = "signing-iOS 26.1-23B85-no longer signed",
                            .title = "iOS 26.1 is no longer signed",
                            .body = "iOS 26.1 (23B85) is no longer signed for iPhone 17.",
                            .target = Target{.kind = Target::Kind::tracker, .id = "signing"}},
                           {.identifier = "update-macOS-25B90-offered",
                            .title = "macOS 26.1.1 is offered",
                            .body = now,
                            .target = updates},
                           {.identifier = "updates",
                            .title = "4 update catalogue changes",
                            .body = now + "\n" + now + "\n" + now + "\nand 1 more",
                            .target = updates}}));
}

TEST_F(AlertsTest, ACrowdOfStoriesIsOneNotification) {
    defaults_.set("alertStories", "true");
    alerts_.stories({.stories = stories(20), .total = 21});
    alerts_.beat({"beat|b", "Tides"}, "b", stories(4), 4, kBeatPage);
    alerts_.newRelease(build());
    EXPECT_EQ(posted_, (std::vector<Notification>{
                           {.identifier = "stories",
                            .title = "21 new stories",
                            .body = "Story 1\nStory 2\nStory 3\nand 18 more",
                            .target = Target{.kind = Target::Kind::newStories}},
                           {.identifier = "beat-b",
                            .title = "Tides: 4 new stories",
                            .body = "Story 1\nStory 2\nStory 3\nand 1 more",
                            .target = kBeatPage},
                           {.identifier = "release-iOS.beta-23C5044b",
                            .title = "iOS 26.2 beta 3",
                            .body = "Build 23C5044b is out.",
                            .link = "https://r/",
                            .target = Target{.kind = Target::Kind::tracker, .id = "software"}}}));
    posted_.clear();
    askers_.clear();
    alerts_.beat({"beat|b", "Tides"}, "b", stories(4), 4, kBeatPage);
    EXPECT_EQ(askers_, "beat|b stories|s1;") << "the next crowd is another event";
    posted_.clear();
    alerts_.beat({"beat|b", "Tides"}, "b", stories(3), 3, kBeatPage);
    ASSERT_EQ(posted_.size(), 3u);
    EXPECT_EQ(posted_[0],
              (Notification{.identifier = "beat-b-s1",
                            .title = "Tides: Story 1",
                            .body = "Tide Table",
                            .link = "https://news/1",
                            .target = Target{.kind = Target::Kind::story, .id = "s1"}}));
}

}  // namespace
}  // namespace app
