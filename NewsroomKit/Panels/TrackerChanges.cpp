#include "NewsroomKit/Panels/TrackerChanges.h"

#include <utility>

#include "NewsroomKit/Trackers/Releases/ReleaseTitle.h"
#include "NewsroomKit/Trackers/Status/AppleStatusAPI.h"

namespace kit {

namespace {

bool isWanted(const CompiledStoryQuery& wanted, const TrackerChange& change) {
    const auto title = change.subject + " " + change.build;
    return wanted.matches(StoryFacts{.sourcing = Sourcing::confirmed, .title = title});
}

void addProblems(std::vector<TrackerChange>& changes, const TrackerAnswers::Status& status,
                 Instant since) {
    if (!status.services) return;
    for (const auto& report : AppleServiceStatus::ongoingReports(*status.services)) {
        const auto& started = report.incident.started;
        if (started && *started < since) continue;
        changes.push_back({.kind = TrackerChange::Kind::problem,
                           .subject = report.service,
                           .at = started,
                           .seenAt = status.fetchedAt,
                           .link = std::string(AppleStatusAPI::kPage)});
    }
}

void addBuilds(std::vector<TrackerChange>& changes, const std::vector<PlatformRelease>& releases,
               Instant since) {
    for (const auto& platform : releases) {
        for (const auto* release : {&platform.current, &platform.beta}) {
            if (!*release || (*release)->published < since) continue;
            changes.push_back({.kind = TrackerChange::Kind::build,
                               .subject = titleOf(platform.platform, **release),
                               .build = (*release)->build,
                               .at = (*release)->published,
                               .link = (*release)->url});
        }
    }
}

std::vector<TrackerChange> loggedChanges(std::span<const LoggedSignal> logged,
                                         const CompiledStoryQuery& wanted, Instant since) {
    std::vector<TrackerChange> changes;
    for (const auto& [number, signal] : logged) {
        if (signal.seenAt < since || changes.size() == kMostLoggedChanges) break;
        TrackerChange change{.kind = TrackerChange::Kind::logged,
                             .subject = signal.title,
                             .at = signal.happenedAt,
                             .seenAt = signal.seenAt,
                             .signal = signal.kind,
                             .link = signal.link.value_or("")};
        if (isWanted(wanted, change)) changes.push_back(std::move(change));
    }
    return changes;
}

}  // namespace

TrackerAnswers TrackerAnswers::of(const CachedValue<AppleServiceStatus::Services>& consumer,
                                  const CachedValue<AppleServiceStatus::Services>& developer,
                                  const CachedValue<std::vector<PlatformRelease>>& releases) {
    TrackerAnswers answers;
    if (consumer.value) answers.consumer = {&*consumer.value, consumer.fetchedAt};
    if (developer.value) answers.developer = {&*developer.value, developer.fetchedAt};
    if (releases.value) answers.releases = &*releases.value;
    return answers;
}

std::vector<TrackerChange> trackerChanges(const TrackerAnswers& answers,
                                          const CompiledStoryQuery& wanted, Instant since) {
    std::vector<TrackerChange> changes;
    addProblems(changes, answers.consumer, since);
    addProblems(changes, answers.developer, since);
    if (answers.releases) addBuilds(changes, *answers.releases, since);
    std::erase_if(changes, [&](const auto& change) { return !isWanted(wanted, change); });
    for (const auto logged : {answers.records, answers.findings}) {
        for (auto& change : loggedChanges(logged, wanted, since))
            changes.push_back(std::move(change));
    }
    return changes;
}

}  // namespace kit
