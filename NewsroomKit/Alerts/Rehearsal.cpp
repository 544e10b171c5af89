#include "NewsroomKit/Alerts/Rehearsal.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <map>
#include <utility>

#include "NewsroomKit/Alerts/SeenClusters.h"

namespace kit {

namespace {

/// Why the match that was taken last is held.
std::optional<HeldAlert::Why> whyHeld(const AlertPipeline& pipeline, const AlertMatch& match) {
    if (pipeline.held().empty()) return std::nullopt;
    const auto& last = pipeline.held().back();
    const bool isHeld = last.match.rule == match.rule && last.match.event == match.event;
    return isHeld ? std::optional(last.why) : std::nullopt;
}

void count(Rehearsal::Count& count, const std::optional<HeldAlert::Why>& why) {
    if (!why) {
        ++count.atOnce;
        return;
    }
    switch (*why) {
        case HeldAlert::Why::quietHours: ++count.afterQuietHours; return;
        case HeldAlert::Why::minutes: ++count.heldBack; return;
        case HeldAlert::Why::cap: ++count.overCap; return;
    }
}

/// When, and how, each event was told.
std::map<std::string, std::pair<AlertTelling::How, Instant>, std::less<>> tellingsOf(
    const AlertRun& run) {
    std::map<std::string, std::pair<AlertTelling::How, Instant>, std::less<>> tellings;
    for (const auto& telling : run.told) {
        for (const auto& match : telling.matches)
            tellings.emplace(match.event, std::pair(telling.how, telling.at));
    }
    return tellings;
}

}  // namespace

AlertRun runAlerts(const std::vector<AlertRule>& rules,
                   const AlertRuleSet::QueryOfBeat& queryOfBeat, std::span<const AlertEvent> events,
                   std::span<const StoryCluster> clusters, const AlertQuiet& quiet, Instant until) {
    const AlertRuleSet set(rules, queryOfBeat);
    SeenClusters seen(clusters);
    AlertPipeline pipeline;
    pipeline.setQuiet(quiet);
    AlertRun run;
    const auto tell = [&](std::vector<AlertTelling> told) {
        std::ranges::move(told, std::back_inserter(run.told));
    };
    for (std::size_t place = 0; place < events.size(); ++place) {
        const auto& event = events[place];
        if (const auto* story = std::get_if<Story>(&event.subject)) seen.see(*story);
        for (auto& match : set.matches(event, [&](const Story& one) { return seen.of(one); })) {
            const bool wasKnown = pipeline.hasMatched(match.rule, match.event);
            tell(pipeline.take(match));
            if (wasKnown || !pipeline.hasMatched(match.rule, match.event)) continue;
            const auto why = whyHeld(pipeline, match);
            run.matches.push_back({.match = std::move(match), .event = place, .why = why});
        }
    }
    tell(pipeline.advance(until));
    run.held = pipeline.held();
    return run;
}

Rehearsal rehearse(const AlertRule& rule, const AlertRuleSet::QueryOfBeat& queryOfBeat,
                   std::span<const AlertEvent> events, std::span<const StoryCluster> clusters,
                   const AlertQuiet& quiet, Instant now, std::size_t days) {
    auto tried = rule;
    tried.on = true;
    auto run = runAlerts({tried}, queryOfBeat, events, clusters, quiet, now);
    const auto tellings = tellingsOf(run);
    const auto since = now - std::chrono::days(static_cast<int>(days));
    Rehearsal rehearsal{.total = run.matches.size(), .perDay = std::vector<std::size_t>(days)};
    for (const auto& match : run.matches) {
        count(rehearsal.count, match.why);
        const auto day = std::chrono::floor<std::chrono::days>(match.match.at - since).count();
        if (days == 0 || day < 0 || match.match.at > now) continue;
        ++rehearsal.perDay[std::min(static_cast<std::size_t>(day), days - 1)];
    }
    for (auto match = run.matches.rbegin();
         match != run.matches.rend() && rehearsal.told.size() < Rehearsal::kMostShown; ++match) {
        Rehearsal::Told told{.match = *match};
        if (const auto telling = tellings.find(match->match.event); telling != tellings.end()) {
            told.how = telling->second.first;
            told.toldAt = telling->second.second;
        }
        rehearsal.told.push_back(std::move(told));
    }
    return rehearsal;
}

}  // namespace kit
