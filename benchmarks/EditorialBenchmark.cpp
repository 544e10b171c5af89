#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "NewsroomKit/Editorial/AppleOrigin.h"
#include "NewsroomKit/Editorial/PhraseMatcher.h"
#include "NewsroomKit/Editorial/StoryLabels.h"
#include "tests/support/ExpressionRules.h"

namespace kit {
namespace {

struct Sample {
    std::string title;
    std::string summary;
};

/// Headlines of about 70 characters and excerpts of about 300 in the usual mixture: half in
/// plain ASCII, half with curly quotes and dashes, an accent here and there.
std::vector<Sample> samples() {
    const std::string_view titles[] = {
        "The new MacBook Air is quieter, lighter and a little cheaper than before",
        "Apple’s next display could leave the desk behind, according to a supplier",
        "Review: three weeks with the smallest phone that the company still makes",
        "A café in Malmö runs on one tablet – and has not printed a bill since May",
        "How a forgotten menu bar utility found forty thousand new users in a week",
        "Save $150 on last year’s tablet while the shops are making room for more",
        "Long-rumored feature finally arrives for people who write in two languages",
        "Developers ask what the new rules for outside payments mean for small apps",
    };
    const std::string_view sentences[] = {
        "The update is small, but it changes how windows behave when a second screen is joined. ",
        "“We did not expect anyone to notice,” the maker told us – and nobody did for a month. ",
        "People who tried it early speak of longer battery life and of fewer dropped calls. ",
        "It’s the third change of this kind within a year; the next one is due in early spring. ",
        "Prices stay where they were, although shipping now takes a few days more than usual. ",
    };
    std::vector<Sample> all;
    for (std::size_t title = 0; title < std::size(titles); ++title) {
        for (std::size_t first = 0; first < std::size(sentences); ++first) {
            Sample sample{.title = std::string(titles[title]), .summary = {}};
            for (std::size_t next = 0; sample.summary.size() < 300; ++next) {
                sample.summary += sentences[(first + next) % std::size(sentences)];
            }
            sample.summary.resize(sample.summary.rfind(' '));
            all.push_back(std::move(sample));
        }
    }
    return all;
}

template <class Work>
void overSamples(benchmark::State& state, Work work) {
    const auto stories = samples();
    std::size_t next = 0;
    for (auto _ : state) {
        const Sample& story = stories[next];
        benchmark::DoNotOptimize(work(story));
        if (++next == stories.size()) next = 0;
    }
    state.SetItemsProcessed(state.iterations());
}

void foldAndLabelStories(benchmark::State& state) {
    overSamples(state, [](const Sample& story) {
        return labelStory(story.title, story.summary, false, true);
    });
}
BENCHMARK(foldAndLabelStories);

void foldAndLabelStoriesByOneExpressionPerPhrase(benchmark::State& state) {
    const ExpressionRules rules;
    overSamples(state, [&](const Sample& story) {
        return std::pair(rules.kind(story.title, story.summary),
                         rules.sourcing(story.title, story.summary));
    });
}
BENCHMARK(foldAndLabelStoriesByOneExpressionPerPhrase);

void foldStories(benchmark::State& state) {
    overSamples(state, [](const Sample& story) {
        return std::pair(PhraseMatcher::normalize(story.title),
                         PhraseMatcher::normalize(story.summary));
    });
}
BENCHMARK(foldStories);

void recogniseAppleSpeaking(benchmark::State& state) {
    overSamples(state, [](const Sample& story) {
        return AppleOrigin::isAppleOnRecord(story.title, story.summary);
    });
}
BENCHMARK(recogniseAppleSpeaking);

}  // namespace
}  // namespace kit

BENCHMARK_MAIN();
