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

void Alerts::post(std::string_view setting, Notification notification, Asked asked) {
    if (asked == Asked::byPanel || defaults_.isOn(setting)) post(std::move(notification));
}

void Alerts::post(Notification notification) {
    notification.withSound = defaults_.isOn(SettingKey::kAlertSound);
    post_(std::move(notification));
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

void Alerts::serviceProblem(const AppleServiceStatus::Report& report, Asked asked) {
    post(SettingKey::kAlertServiceStatus, ofProblem(report), asked);
}

void Alerts::serviceRestored(const std::string& service, Asked asked) {
    post(SettingKey::kAlertServiceStatus, ofRecovery(service, clock_()), asked);
}

void Alerts::newRelease(const kit::NewBuild& build, Asked asked) {
    post(SettingKey::kAlertReleases, ofRelease(build), asked);
}

/// Above the limit posts only the summary, whose body is composed of theirs.
void Alerts::postEachOrAll(std::vector<Notification> notifications, Notification summary) {
    if (notifications.size() <= kMostMatchesOneByOne) {
        for (auto& notification : notifications) post(std::move(notification));
        return;
    }
    for (std::size_t i = 0; i < kHeadlinesInSummary; ++i)
        summary.body += notifications[i].body + "\n";
    summary.body += fmt::format("and {} more", notifications.size() - kHeadlinesInSummary);
    post(std::move(summary));
}

void Alerts::signing(const std::vector<kit::SigningNews>& news) {
    std::vector<Notification> notifications;
    for (const auto& one : news) {
        const std::string_view state = one.isSigned ? "signed" : "no longer signed";
        notifications.push_back(
            {.identifier = fmt::format("signing-{}-{}-{}", one.system, one.build, state),
             .title = fmt::format("{} is {}", one.system, state),
             .body = one.sentence(),
             .target = trackerPage("signing")});
    }
    postEachOrAll(std::move(notifications),
                  {.identifier = "signing",
                   .title = fmt::format("{} firmware signing changes", news.size()),
                   .target = trackerPage("signing")});
}

void Alerts::updates(const std::vector<kit::OfferChange>& changes) {
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
    postEachOrAll(std::move(notifications),
                  {.identifier = "updates",
                   .title = fmt::format("{} update catalogue changes", changes.size()),
                   .target = trackerPage("updates")});
}

void Alerts::stories(const Announcement& announcement) {
    if (announcement.isSummary()) {
        post(SettingKey::kAlertStories,
             {.identifier = "stories",
              .title = fmt::format("{} new stories", announcement.total),
              .body = headlines(announcement.stories, announcement.total),
              .target = Target{.kind = Target::Kind::newStories}});
        return;
    }
    for (const auto& story : announcement.stories) {
        post(SettingKey::kAlertStories, {.identifier = "story-" + story.id,
                                         .title = story.title,
                                         .body = kit::outletOf(story),
                                         .link = story.link,
                                         .target = storyTarget(story)});
    }
}

void Alerts::beat(const std::string& name, const std::string& id, const std::vector<Story>& stories,
                  std::size_t total, const Target& page) {
    if (total > kMostMatchesOneByOne) {
        post({.identifier = "beat-" + id,
              .title = fmt::format("{}: {} new stories", name, total),
              .body = headlines(stories, total),
              .target = page});
        return;
    }
    for (const auto& story : stories) {
        post({.identifier = "beat-" + id + "-" + story.id,
              .title = name + ": " + story.title,
              .body = kit::outletOf(story),
              .link = story.link,
              .target = storyTarget(story)});
    }
}

}  // namespace app
