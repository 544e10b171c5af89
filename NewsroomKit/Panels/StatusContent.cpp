#include "NewsroomKit/Panels/StatusContent.h"

namespace kit {

namespace {

using Services = StatusContent::Services;

// Both files are fetched together; only a failure parts them.
constexpr std::chrono::minutes kApart{30};

std::optional<StatusContent::Tally> tallyOf(const CachedValue<Services>& file) {
    if (!file.value) return std::nullopt;
    const auto all = file.value->size();
    return StatusContent::Tally{.up = all - AppleServiceStatus::ongoingReports(*file.value).size(),
                                .all = all,
                                .fetchedAt = file.fetchedAt,
                                .isCurrent = !file.error};
}

/// How long an incident has gone on, or went on; nothing when Apple does not say.
std::optional<Instant::duration> lasted(const AppleServiceStatus::Incident& incident, Instant now) {
    if (!incident.started) return std::nullopt;
    // The end of an ongoing incident is a plan.
    const auto end = incident.isOngoing() ? now : incident.ended;
    if (!end || *end <= *incident.started) return std::nullopt;
    return *end - *incident.started;
}

}  // namespace

StatusContent::Incident incidentOf(const AppleServiceStatus::Report& report, Instant now) {
    const auto& incident = report.incident;
    return {.service = report.service,
            .level = problemLevel(incident.kind),
            .message = incident.message,
            .usersAffected = incident.usersAffected,
            .started = incident.started,
            .lasted = lasted(incident, now)};
}

bool StatusContent::isAllUp() const {
    return condition.state == PanelState::ready && consumer && consumer->isUp() && developer &&
           developer->isCurrent && developer->isUp();
}

StatusContent statusContent(const CachedValue<Services>& consumer,
                            const CachedValue<Services>& developer, Instant now) {
    StatusContent content{.condition = PanelCondition::of(consumer, consumer.value.has_value()),
                          .consumer = tallyOf(consumer),
                          .developer = tallyOf(developer)};
    if (content.consumer && content.developer) {
        const auto lag =
            consumer.fetchedAt.value_or(Instant()) - developer.fetchedAt.value_or(Instant());
        content.developer->isCurrent &= lag < kApart;
    }
    Services all;
    for (const auto* file : {&consumer, &developer}) {
        if (!file->value) continue;
        for (const auto& report : AppleServiceStatus::ongoingReports(*file->value))
            content.ongoing.push_back(incidentOf(report, now));
        all.insert(all.end(), file->value->begin(), file->value->end());
    }
    for (const auto& report : AppleServiceStatus::recentReports(now - kRecentIncidents, all)) {
        const bool isToCome = report.incident.started && *report.incident.started > now;
        if (!isToCome) content.recent.push_back(incidentOf(report, now));
    }
    return content;
}

}  // namespace kit
