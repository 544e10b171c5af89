// Canonical links per second: uncached, cached, and beside a bare parse of the same addresses, the
// lower bound.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Stories/CanonicalLink.h"

namespace {

std::vector<std::string> sampleLinks() {
    std::vector<std::string> links;
    for (int i = 0; i < 2000; ++i) {
        const auto number = std::to_string(i);
        links.push_back(
            "https://www.example" + std::to_string(i % 40) + ".com/2026/11/" + number +
            "/a-headline-of-usual-length-with-some-words/?utm_source=rss&utm_medium=feed&id=" +
            number + "&b=2&a=1#comments");
    }
    return links;
}

void coldCanonicalLink(benchmark::State& state) {
    const auto links = sampleLinks();
    std::size_t next = 0;
    for (auto _ : state) benchmark::DoNotOptimize(kit::canonicalLink(links[next++ % links.size()]));
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(coldCanonicalLink);

void rememberedCanonicalLink(benchmark::State& state) {
    const auto links = sampleLinks();
    kit::CanonicalLinks memory;
    for (const auto& link : links) memory.of(link);
    std::size_t next = 0;
    for (auto _ : state) benchmark::DoNotOptimize(memory.of(links[next++ % links.size()]));
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(rememberedCanonicalLink);

void referenceBareParse(benchmark::State& state) {
    const auto links = sampleLinks();
    std::size_t next = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(kit::WebAddress::parse(links[next++ % links.size()]));
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(referenceBareParse);

}  // namespace

BENCHMARK_MAIN();
