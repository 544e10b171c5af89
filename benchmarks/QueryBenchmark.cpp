#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "NewsroomKit/Editorial/PhraseMatcher.h"
#include "benchmarks/StorySamples.h"

namespace {

using kit::PhraseMatcher;
using kit::Story;

const std::vector<Story>& library() {
    static const auto stories = benchmarks::storySamples(200'000, 1);
    return stories;
}

/// Includes compiling, and the stories exceed the processor's caches.
void queryStories(benchmark::State& state) {
    const auto count = static_cast<std::ptrdiff_t>(state.range(0));
    const auto begin = library().begin();
    const auto query = benchmarks::twentyTerms();
    std::ptrdiff_t matching = 0;
    for (auto _ : state) {
        const auto compiled = query.compiled();
        matching = std::count_if(begin, begin + count,
                                 [&](const Story& story) { return compiled.matches(story); });
        benchmark::DoNotOptimize(matching);
    }
    state.counters["matching"] = static_cast<double>(matching);
}
BENCHMARK(queryStories)->Arg(200'000)->Arg(200)->Unit(benchmark::kMillisecond);

/// The same by definition: fold the joined text and test each term.
void queryStoriesTermByTerm(benchmark::State& state) {
    std::vector<PhraseMatcher> terms;
    for (const auto& term : benchmarks::twentyTerms().anyTerms) terms.emplace_back(term);
    for (auto _ : state) {
        auto matching = std::count_if(library().begin(), library().end(), [&](const Story& story) {
            const auto text = PhraseMatcher::normalize(story.title + " \n " + story.summary);
            return std::any_of(terms.begin(), terms.end(),
                               [&](const auto& term) { return term.matches(text); });
        });
        benchmark::DoNotOptimize(matching);
    }
}
BENCHMARK(queryStoriesTermByTerm)->Unit(benchmark::kMillisecond);

/// The cost of only reading the texts.
void readStories(benchmark::State& state) {
    for (auto _ : state) {
        for (const Story& story : library()) {
            for (const auto* text : {&story.title, &story.summary}) {
                benchmark::DoNotOptimize(std::memchr(text->data(), 1, text->size()));
            }
        }
    }
}
BENCHMARK(readStories)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
