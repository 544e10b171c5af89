#include "NewsroomKit/Attribution/Races.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <map>
#include <set>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "NewsroomKit/Attribution/Median.h"
#include "NewsroomKit/Attribution/Telling.h"
#include "NewsroomKit/Attribution/TellingOutlet.h"
#include "NewsroomKit/Attribution/TimeOrder.h"

namespace kit {

namespace {

std::int64_t secondsBetween(Instant earlier, Instant later) {
    return std::chrono::floor<std::chrono::seconds>(later - earlier).count();
}

std::vector<Race::Runner> runnersOf(std::span<const Telling> tellings) {
    std::map<std::string, Race::Runner> byKey;
    for (const auto& telling : tellings) {
        if (!telling.story) continue;
        Race::Runner runner{.outlet = telling.outlet,
                            .story = telling.story->id,
                            .at = telling.at,
                            .isToTheMinute = !telling.isDayOnly};
        const auto [place, isNew] = byKey.try_emplace(telling.key, runner);
        if (!isNew && runner.at < place->second.at) place->second = std::move(runner);
    }
    std::vector<Race::Runner> runners;
    for (auto& [key, runner] : byKey) runners.push_back(std::move(runner));
    std::ranges::sort(runners, [](const Race::Runner& a, const Race::Runner& b) {
        return std::tie(a.at, a.outlet) < std::tie(b.at, b.outlet);
    });
    return runners;
}

/// Who led by the times alone, where the evidence only leads to Apple's own announcement.
void leadByTimes(Race& race, std::span<const Telling> tellings) {
    const auto found = firstByTime(tellings);
    race.leader.reset();
    race.lead.reset();
    race.basis = Attribution::Basis::time;
    race.confidence = Attribution::Confidence::unclear;
    if (!found.first || !found.isSure) return;
    race.leader = found.first->outlet;
    race.confidence = Attribution::Confidence::timed;
    const auto* next = nextAfter(tellings, *found.first);
    if (!next || next->isDayOnly) return;
    const auto lead = secondsBetween(found.first->at, next->at);
    if (lead > 0) race.lead = lead;
}

const Story& shownStory(const Attribution& attribution, std::span<const Story* const> stories) {
    const auto leading = std::ranges::find_if(
        stories, [&](const Story* story) { return attribution.story == story->id; });
    return leading == stories.end() ? *stories.front() : **leading;
}

/// Nothing where fewer than two outlets took part. `stories` by time.
std::optional<Race> raceOf(const std::vector<const Story*>& stories,
                           const CorrectionOverlay* corrections) {
    if (stories.empty()) return std::nullopt;
    const AttributionEvidence evidence{.stories = stories, .corrections = corrections};
    const auto tellings = tellingsOf(evidence);
    const auto attribution = attributionOf(evidence);
    const auto& shown = shownStory(attribution, stories);
    Race race{.id = stories.front()->id,
              .title = shown.title,
              .sourcing = shown.sourcing,
              .at = stories.front()->publishedAt,
              .leader = attribution.first,
              .lead = attribution.lead,
              .confidence = attribution.confidence,
              .basis = attribution.basis,
              .runners = runnersOf(tellings)};
    if (race.confidence == Attribution::Confidence::unclear) race.leader.reset();
    if (race.leader && outletKey(*race.leader) == outletKey(kAppleOutlet))
        leadByTimes(race, tellings);
    std::set<std::string> outlets;
    for (const auto& runner : race.runners) outlets.insert(outletKey(runner.outlet));
    if (race.leader) outlets.insert(outletKey(*race.leader));
    return outlets.size() < 2 ? std::nullopt : std::optional(std::move(race));
}

const Race::Runner* runnerOf(const Race& race, const std::string& key) {
    const auto found = std::ranges::find_if(
        race.runners, [&](const Race::Runner& runner) { return outletKey(runner.outlet) == key; });
    return found == race.runners.end() ? nullptr : &*found;
}

/// By how much the runner led, or came after the leader; absent where one of the times is not
/// known to the minute, or the leader's is the later one.
std::optional<std::int64_t> secondsAhead(const Race& race, const Race::Runner& runner) {
    if (!race.leader) return std::nullopt;
    const auto key = outletKey(*race.leader);
    if (outletKey(runner.outlet) == key) return race.lead;
    const auto* leader = runnerOf(race, key);
    if (!leader || !leader->isToTheMinute || !runner.isToTheMinute) return std::nullopt;
    const auto behind = secondsBetween(leader->at, runner.at);
    return behind > 0 ? std::optional(-behind) : std::nullopt;
}

PairedRace pairedRace(const Race& race, const Race::Runner& one, const Race::Runner& other) {
    PairedRace paired{.race = race.id, .title = race.title, .at = race.at};
    const bool areTimed = one.isToTheMinute && other.isToTheMinute && one.at != other.at;
    const auto* earlier = one.at < other.at ? &one : &other;
    const auto leading = race.leader ? outletKey(*race.leader) : std::string();
    for (const auto* runner : {&one, &other}) {
        if (outletKey(runner->outlet) != leading) continue;
        paired.leader = runner->outlet;
        paired.confidence = race.confidence;
        paired.basis = race.basis;
    }
    if (!paired.leader && areTimed) {
        paired.leader = earlier->outlet;
        paired.confidence = Attribution::Confidence::timed;
    }
    if (paired.leader == earlier->outlet && areTimed)
        paired.lead = std::abs(secondsBetween(one.at, other.at));
    return paired;
}

}  // namespace

std::vector<Race> racesOf(std::span<const Story* const> stories,
                          const std::vector<std::vector<std::string>>& groups,
                          const CorrectionOverlay* corrections) {
    std::unordered_map<std::string_view, const Story*> byID;
    for (const auto* story : stories) {
        if (!story->isAppleSource) byID.emplace(story->id, story);
    }
    std::vector<Race> races;
    for (const auto& group : groups) {
        std::vector<const Story*> members;
        for (const auto& id : group) {
            if (const auto found = byID.find(id); found != byID.end())
                members.push_back(found->second);
        }
        std::ranges::sort(members, [](const Story* a, const Story* b) {
            return std::tie(a->publishedAt, a->id) < std::tie(b->publishedAt, b->id);
        });
        if (auto race = raceOf(members, corrections)) races.push_back(std::move(*race));
    }
    std::ranges::sort(races, [](const Race& a, const Race& b) {
        return std::tie(b.at, b.id) < std::tie(a.at, a.id);
    });
    return races;
}

std::vector<RaceRecord> raceRecords(std::span<const Race> races) {
    std::map<std::string, RaceRecord> byKey;
    const auto recordOf = [&](const std::string& outlet) -> RaceRecord& {
        return byKey.try_emplace(outletKey(outlet), RaceRecord{.outlet = outlet}).first->second;
    };
    for (const auto& race : races) {
        for (const auto& runner : race.runners) {
            auto& record = recordOf(runner.outlet);
            ++record.subjects;
            if (const auto seconds = secondsAhead(race, runner))
                record.leads.push_back({.race = race.id, .at = race.at, .seconds = *seconds});
        }
        if (!race.leader) continue;
        auto& leader = recordOf(*race.leader);
        // Credited by the others, though the desk does not read it.
        if (!runnerOf(race, outletKey(*race.leader))) ++leader.subjects;
        ++leader.led;
        ++leader.ledBySourcing[static_cast<std::size_t>(race.sourcing)];
    }
    std::vector<RaceRecord> records;
    for (auto& [key, record] : byKey) {
        std::ranges::sort(record.leads, [](const RaceLead& a, const RaceLead& b) {
            return std::tie(a.at, a.race) < std::tie(b.at, b.race);
        });
        std::vector<double> seconds;
        for (const auto& lead : record.leads) seconds.push_back(static_cast<double>(lead.seconds));
        record.medianLead = median(std::move(seconds));
        records.push_back(std::move(record));
    }
    std::ranges::sort(records, [](const RaceRecord& a, const RaceRecord& b) {
        return std::tie(b.led, b.subjects, a.outlet) < std::tie(a.led, a.subjects, b.outlet);
    });
    return records;
}

RacePair racePair(std::span<const Race> races, std::string_view one, std::string_view other) {
    const std::array keys{outletKey(one), outletKey(other)};
    RacePair pair{.outlets = {shownOutletName(one), shownOutletName(other)}};
    std::array<std::vector<double>, 2> leads;
    for (const auto& race : races) {
        const auto* first = runnerOf(race, keys[0]);
        const auto* second = runnerOf(race, keys[1]);
        if (!first || !second || first == second) continue;
        auto paired = pairedRace(race, *first, *second);
        for (std::size_t i = 0; i < keys.size(); ++i) {
            if (!paired.leader || outletKey(*paired.leader) != keys[i]) continue;
            ++pair.led[i];
            if (paired.lead) leads[i].push_back(static_cast<double>(*paired.lead));
        }
        pair.races.push_back(std::move(paired));
    }
    for (std::size_t i = 0; i < leads.size(); ++i) pair.medianLeads[i] = median(leads[i]);
    return pair;
}

}  // namespace kit
