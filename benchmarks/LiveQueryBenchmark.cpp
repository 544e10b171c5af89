#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

#include "Tarnwick_Brell/Desk/LiveQuery.h"
#include "benchmarks/StorySamples.h"

namespace {

using namespace std::chrono_literals;
using Steady = std::chrono::steady_clock;

constexpr std::size_t kStories = 300'000;
constexpr std::size_t kArrivals = 200;

/// Stories newer than all that were made before.
class Arrivals {
public:
    app::Wire::Batch take(std::size_t count) {
        auto stories = benchmarks::storySamples(count, ++seed_);
        app::Wire::Batch batch;
        for (auto& story : stories) {
            batch.push_back(app::PackedStory::make(
                app::StoredStory{.story = std::move(story), .number = ++number_}));
        }
        return batch;
    }

private:
    unsigned seed_ = 0;
    std::int64_t number_ = 0;
};

/// The given number of live queries apply the 200 stories of a pass.
void followAPass(benchmark::State& state) {
    Arrivals arrivals;
    app::Wire wire;
    wire.replace(arrivals.take(kStories));
    std::vector<app::LiveQuery> queries;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        queries.emplace_back(benchmarks::beat(static_cast<std::size_t>(i)));
        queries.back().rebuild(wire);
    }
    for (auto _ : state) {
        state.PauseTiming();
        const auto change = wire.merge(arrivals.take(kArrivals));
        state.ResumeTiming();
        for (auto& query : queries) benchmark::DoNotOptimize(query.follow(wire, change));
    }
}
BENCHMARK(followAPass)->Arg(1)->Arg(12)->Iterations(200)->Unit(benchmark::kMillisecond);

void fillALiveQuery(benchmark::State& state) {
    Arrivals arrivals;
    app::Wire wire;
    wire.replace(arrivals.take(kStories));
    app::LiveQuery query(benchmarks::twentyTerms());
    Steady::duration longest{};
    for (auto _ : state) {
        query.begin();
        while (!query.isComplete()) {
            const auto start = Steady::now();
            query.continueFor(wire, 8ms);
            longest = std::max(longest, Steady::now() - start);
        }
    }
    state.counters["longest step in ms"] =
        std::chrono::duration<double, std::milli>(longest).count();
}
BENCHMARK(fillALiveQuery)->Unit(benchmark::kMillisecond);

}  // namespace
