#include <benchmark/benchmark.h>

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include "NewsroomKit/Alerts/Rehearsal.h"
#include "NewsroomKit/Alerts/SeenClusters.h"
#include "benchmarks/StorySamples.h"

namespace {

using kit::AlertEvent;
using kit::AlertRule;
using kit::StoriesTrigger;

constexpr std::size_t kDays = 14;
/// Two weeks of a library that has got 200,000 stories in 90 days.
constexpr std::size_t kPast = 31'000;
constexpr std::size_t kOfOneCluster = 6;

const kit::Instant kStart{std::chrono::hours(490'000)};

std::optional<kit::StoryQuery> noBeat(const std::string&) { return std::nullopt; }

/// Evenly spread over the days, every fifth of an outlet of its own.
std::vector<AlertEvent> events(std::size_t count) {
    auto stories = benchmarks::storySamples(count, 1);
    std::vector<AlertEvent> made;
    const std::chrono::seconds all = std::chrono::days(kDays);
    for (std::size_t i = 0; i < count; ++i) {
        stories[i].id = std::to_string(i);
        stories[i].sourceName = "Outlet " + std::to_string(i % 5);
        made.push_back({.at = kStart + all * i / count, .subject = std::move(stories[i])});
    }
    return made;
}

std::vector<kit::StoryCluster> clusters(std::size_t count) {
    std::vector<kit::StoryCluster> made(count / kOfOneCluster);
    for (std::size_t i = 0; i < made.size() * kOfOneCluster; ++i)
        made[i / kOfOneCluster].storyIDs.push_back(std::to_string(i));
    return made;
}

AlertRule rule(std::size_t number, StoriesTrigger trigger) {
    return {.id = std::to_string(number), .name = "Rule", .trigger = std::move(trigger)};
}

/// A pass of 2,000 stories; every fifth of the 200 rules counts outlets.
void matchAPass(benchmark::State& state) {
    const auto arrived = events(2'000);
    const auto clustered = clusters(arrived.size());
    std::vector<AlertRule> rules;
    for (std::size_t i = 0; i < 200; ++i) {
        rules.push_back(rule(i, {.query = benchmarks::beat(i)}));
        if (i % 5 == 0) std::get<StoriesTrigger>(rules.back().trigger).outlets = 3;
    }
    const kit::AlertRuleSet set(rules, noBeat);
    for (auto _ : state) {
        kit::SeenClusters seen(clustered);
        for (const auto& event : arrived) {
            seen.see(std::get<kit::Story>(event.subject));
            benchmark::DoNotOptimize(
                set.matches(event, [&](const kit::Story& story) { return seen.of(story); }));
        }
    }
}
BENCHMARK(matchAPass)->Unit(benchmark::kMillisecond);

void rehearse(benchmark::State& state, const StoriesTrigger& trigger,
              const kit::AlertDelivery& delivery) {
    const auto past = events(kPast);
    const auto clustered = clusters(past.size());
    auto tried = rule(0, trigger);
    tried.delivery = delivery;
    const kit::AlertQuiet quiet{.hours = kit::QuietHours{.from = std::chrono::hours(22),
                                                         .to = std::chrono::hours(7),
                                                         .zone = kit::TimeZone("Europe/Berlin")}};
    const auto now = kStart + std::chrono::days(kDays);
    for (auto _ : state)
        benchmark::DoNotOptimize(kit::rehearse(tried, noBeat, past, clustered, quiet, now, kDays));
}
BENCHMARK_CAPTURE(rehearse, twentyTerms, {.query = benchmarks::twentyTerms()}, {})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(rehearse, everything, {}, {})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(rehearse, everythingOnceInAMonth, {}, {.minutes = 40'000})
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(rehearse, everythingOfThreeOutlets, {.outlets = 3}, {})
    ->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
