#include "Tarnwick_Brell/Notifications/Alerts.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include "NewsroomKit/Panels/PanelStory.h"
#include "NewsroomKit/Trackers/Releases/ReleaseTitle.h"
#include "NewsroomKit/Trackers/Status/AppleStatusAPI.h"

namespace app {

using kit::AppleServiceStatus;
using kit::Story;

namespace {

using Target = NotificationTarget;

constexpr std::size_t kHeadlinesInSummary = 3;

std::string headlines(const std::vector<Story>& stories, std::size_t total) {
    const auto shown = std::min(stories.size(), kHeadlinesInSummary);
    std::string text;
    for (std::size_t i = 0; i < shown; ++i) text += stories[i].title + "\n";
    if (total > shown) text += fmt::format("and {} more", total - shown);
    return text;
}

/// A page of the window's sidebar.
Target trackerPage(std::string_view id) {
    return {.kind = Target::Kind::tracker, .id = std::string(id)};
}

Target storyTarget(const Story& story) { return {.kind = Target::Kind::story, .id = story.id}; }

}  // namespace

Alerts::Alerts(const Defaults& defaults, kit::Clock clock, Post post)
    : defaults_(defaults), clock_(std::move(clock)), post_(std::move(post)) {}

void Alerts::postBySetting(std::string_view setting, std::string event, Notification notification,
                           const Asker& panel) {
    if (panel) return post(*panel, std::move(event), std::move(notification));
    if (!defaults_.isOn(setting)) return;
    const AlertAsker asker{.id = fmt::format("setting|{}", setting),
                           .name = std::string(SettingKey::named(setting)->title)};
    post(asker, std::move(event), std::move(notification));
}

void Alerts::post(const AlertAsker& asker, std::string event, Notification notification) {
    notification.withSound = defaults_.isOn(SettingKey::kAlertSound);
    post_({.asker = asker, .event = std::move(event), .notification = std::move(notification)});
}

Notification Alerts::ofProblem(const AppleServiceStatus::Report& report) {
    const auto& incident = report.incident;
    return {
        .identifier = "status-" + report.id(),
        .title = report.service + ": " + std::string(rawValue(kit::problemLevel(incident.kind))),
        .body = incident.message.empty() ? "Apple's System Status page reports a problem."
                                         : incident.message,
        .link = std::string(kit::AppleStatusAPI::kPage),
        .target = trackerPage("status")};
}

Notification Alerts::ofRecovery(const std::string& service, kit::Instant now) {
    return {.identifier = "status-ok-" + service + "-" + kit::decimalSeconds(now),
            .title = service + " is working again",
            .body = "Apple's System Status page shows it resolved.",
            .link = std::string(kit::AppleStatusAPI::kPage),
            .target = trackerPage("status")};
}

Notification Alerts::ofRelease(const kit::NewBuild& build) {
    const auto& release = build.release;
    return {.identifier = "release-" + build.key() + "-" + release.build,
            .title = kit::titleOf(build.platform.platform, release),
            .body = fmt::format("Build {} is out.", release.build),
            .link = release.url,
            .target = trackerPage("software")};
}

Notification Alerts::ofSignal(const kit::Signal& signal) {
    return {.identifier = "signal-" + signal.id,
            .title = signal.title,
            .body = signal.detail,
            .link = signal.link.value_or(""),
            .target = Target{.kind = Target::Kind::page, .id = "activity"}};
}

Notification Alerts::ofStory(const Story& story) {
    return {.identifier = "story-" + story.id,
            .title = story.title,
            .body = kit::outletOf(story),
            .link = story.link,
            .target = storyTarget(story)};
}

void Alerts::serviceProblem(const AppleServiceStatus::Report& report, const Asker& panel) {
    auto notification = ofProblem(report);
    postBySetting(SettingKey::kAlertServiceStatus, eventNow(notification), notification, panel);
}

void Alerts::serviceRestored(const std::string& service, const Asker& panel) {
    auto notification = ofRecovery(service, clock_());
    postBySetting(SettingKey::kAlertServiceStatus, eventNow(notification), notification, panel);
}

void Alerts::newRelease(const kit::NewBuild& build, const Asker& panel) {
    auto notification = ofRelease(build);
    postBySetting(SettingKey::kAlertReleases, eventNow(notification), notification, panel);
}

void Alerts::signal(const kit::Signal& signal, const AlertAsker& panel) {
    post(panel, "signal|" + signal.id, ofSignal(signal));
}

/// What is told when it changes may change back, and again: an incident may be reopened. Each time
/// is another event, so the moment is part of it.
std::string Alerts::eventNow(const Notification& notification) const {
    return fmt::format("{}|{}", notification.identifier, kit::decimalSeconds(clock_()));
}

/// Above the limit posts only the summary, whose body is composed of theirs.
void Alerts::postEachOrAll(const AlertAsker& asker, std::vector<Notification> notifications,
                           Notification summary) {
    if (notifications.size() <= kMostMatchesOneByOne) {
        for (auto& notification : notifications) {
            auto event = eventNow(notification);
            post(asker, std::move(event), std::move(notification));
        }
        return;
    }
    for (std::size_t i = 0; i < kHeadlinesInSummary; ++i)
        summary.body += notifications[i].body + "\n";
    summary.body += fmt::format("and {} more", notifications.size() - kHeadlinesInSummary);
    auto event = eventNow(summary);
    post(asker, std::move(event), std::move(summary));
}

void Alerts::signing(const std::vector<kit::SigningNews>& news, const AlertAsker& panel) {
    std::vector<Notification> notifications;
    for (const auto& one : news) {
        const std::string_view state = one.isSigned ? "signed" : "no longer signed";
        notifications.push_back(
            {.identifier = fmt::format("signing-{}-{}-{}", one.system, one.build, state),
             .title = fmt::format("{} is {}", one.system, state),
             .body = one.sentence(),
             .target = trackerPage("signing")});
    }
    postEachOrAll(panel, std::move(notifications),
                  {.identifier = "signing",
                   .title = fmt::format("{} firmware signing changes", news.size()),
                   .target = trackerPage("signing")});
}

void Alerts::updates(const std::vector<kit::OfferChange>& changes, const AlertAsker& panel) {
    std::vector<Notification> notifications;
    for (const auto& change : changes) {
        const auto& offer = change.offer;
        const std::string_view state = change.isOffered ? "offered" : "no longer offered";
        notifications.push_back(
            {.identifier = fmt::format("update-{}-{}-{}", offer.platform, offer.build, state),
             .title = fmt::format("{} {} is {}", offer.platform, offer.version, state),
             .body = sentence(change),
             .target = trackerPage("updates")});
    }
    postEachOrAll(panel, std::move(notifications),
                  {.identifier = "updates",
                   .title = fmt::format("{} update catalogue changes", changes.size()),
                   .target = trackerPage("updates")});
}

void Alerts::stories(const Announcement& announcement) {
    if (announcement.isSummary()) {
        postBySetting(SettingKey::kAlertStories, "stories|" + announcement.stories.front().id,
                      {.identifier = "stories",
                       .title = fmt::format("{} new stories", announcement.total),
                       .body = headlines(announcement.stories, announcement.total),
                       .target = Target{.kind = Target::Kind::newStories}});
        return;
    }
    for (const auto& story : announcement.stories)
        postBySetting(SettingKey::kAlertStories, "story|" + story.id, ofStory(story));
}

void Alerts::beat(const AlertAsker& beat, const std::string& id, const std::vector<Story>& stories,
                  std::size_t total, const Target& page) {
    const auto identifier = "beat-" + id;
    if (total > kMostMatchesOneByOne) {
        post(beat, "stories|" + stories.front().id,
             {.identifier = identifier,
              .title = fmt::format("{}: {} new stories", beat.name, total),
              .body = headlines(stories, total),
              .target = page});
        return;
    }
    for (const auto& story : stories) {
        auto notification = ofStory(story);
        notification.identifier = identifier + "-" + story.id;
        notification.title = beat.name + ": " + story.title;
        post(beat, "story|" + story.id, std::move(notification));
    }
}

}  // namespace app
