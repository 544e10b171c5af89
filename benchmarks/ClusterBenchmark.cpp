// How well and how fast stories are clustered: figures on the labelled headlines beside simpler
// ways, then the time for 20,000 stories of 72 hours and for 200 more.

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Clusters/ClusterVocabulary.h"
#include "NewsroomKit/Clusters/HeadlineTokens.h"
#include "NewsroomKit/Clusters/StoryClusterer.h"
#include "benchmarks/ClusterBaselines.h"

namespace {

using test::LabelledHeadlines;

LabelledHeadlines readSet(const char* name) {
    return LabelledHeadlines::read(fmt::format("{}/clusters/{}.txt", BRELL_FIXTURES, name));
}

baselines::Parts clusteredParts(const LabelledHeadlines& labelled) {
    kit::StoryClusterer clusterer(kit::WordMemory::of(labelled.stories));
    clusterer.add(labelled.stories);
    return test::partsOf(labelled, clusterer.clusters());
}

void printScores(const std::string& way, const LabelledHeadlines& labelled,
                 const baselines::Parts& parts) {
    const auto scores = test::scoresOf(labelled, parts);
    fmt::print("{:<22} {:9.3f} {:6.3f} {:6.3f} {:9.3f} {:6.3f} {:8.2f} %\n", way, scores.precision,
               scores.recall, scores.f1, scores.pairPrecision, scores.pairRecall,
               scores.hardPairsJoined * 100);
}

using Way = std::function<baselines::Parts(const LabelledHeadlines&, double)>;

double bestLimit(std::span<const LabelledHeadlines> tuning, const Way& way) {
    double best = 0;
    double bestSum = 0;
    for (int percent = 5; percent < 100; percent += 5) {
        const double limit = percent / 100.0;
        double sum = 0;
        for (const auto& labelled : tuning)
            sum += test::scoresOf(labelled, way(labelled, limit)).f1;
        if (sum > bestSum) best = limit;
        bestSum = std::max(bestSum, sum);
    }
    return best;
}

void printQuality() {
    constexpr std::array kNames{"tuning", "tuning-second", "tuning-third", "reporting"};
    std::vector<LabelledHeadlines> sets;
    for (const char* name : kNames) sets.push_back(readSet(name));
    const auto tuning = std::span(sets).first(kNames.size() - 1);
    const double jaccardLimit = bestLimit(tuning, baselines::jaccard);
    const double tfidfLimit = bestLimit(tuning, baselines::tfidf);
    for (std::size_t at = 0; at < sets.size(); ++at) {
        const auto& labelled = sets[at];
        const auto parts = clusteredParts(labelled);
        fmt::print("\n{}: {} headlines, {} hard pairs\n", kNames[at], labelled.stories.size(),
                   test::scoresOf(labelled, parts).hardPairs);
        fmt::print("{:<22} {:>9} {:>6} {:>6} {:>9} {:>6} {:>10}\n", "", "B3 prec.", "recall", "F1",
                   "pair prec.", "recall", "hard joined");
        printScores("same title", labelled, baselines::sameTitle(labelled));
        printScores(fmt::format("Jaccard {:.2f}", jaccardLimit), labelled,
                    baselines::jaccard(labelled, jaccardLimit));
        printScores(fmt::format("TF-IDF cosine {:.2f}", tfidfLimit), labelled,
                    baselines::tfidf(labelled, tfidfLimit));
        printScores("clusters", labelled, parts);
    }
}

/// Four letters that stand for a text.
std::string letters(const std::string& text) {
    std::string mark;
    for (auto hash = std::hash<std::string>{}(text); mark.size() < 4; hash /= 26) {
        mark += static_cast<char>('a' + hash % 26);
    }
    return mark;
}

/// Other names and figures in place of the text's; every other known word stays, as no two pieces
/// of news use the same ones.
std::string renamed(const std::string& text, const std::string& mark) {
    std::string changed;
    for (const auto& token : kit::headlineTokens(text)) {
        const bool isKnown = !kit::ClusterVocabulary::shared().beginningWith(token.key).empty();
        const bool stays = isKnown && (token.text.size() < 4 ||
                                       std::hash<std::string>{}(token.text + mark) % 2 == 0);
        changed += (changed.empty() ? "" : " ") + token.text + (stays ? "" : mark);
    }
    return changed;
}

/// The labelled stories over and over, each time with other names and numbers, within 72 hours.
std::vector<kit::Story> manyStories(std::size_t count) {
    auto labelled = readSet("tuning");
    const auto more = readSet("tuning-second");
    labelled.stories.insert(labelled.stories.end(), more.stories.begin(), more.stories.end());
    labelled.subjects.insert(labelled.subjects.end(), more.subjects.begin(), more.subjects.end());
    std::minstd_rand random(11);
    std::vector<kit::Story> stories;
    for (std::size_t round = 0; stories.size() < count; ++round) {
        for (std::size_t at = 0; at < labelled.stories.size() && stories.size() < count; ++at) {
            auto story = labelled.stories[at];
            story.id = fmt::format("{}-{}", round, at);
            story.link = "https://outlet.example/" + story.id;
            const auto mark = letters(labelled.subjects[at] + std::to_string(round));
            story.title = renamed(story.title, mark);
            story.summary = renamed(story.summary, mark);
            const auto subject = std::hash<std::string>{}(mark) % (70 * 60);
            story.publishedAt = kit::Instant{} + std::chrono::minutes(subject + random() % 120);
            stories.push_back(std::move(story));
        }
    }
    std::shuffle(stories.begin(), stories.end(), random);
    return stories;
}

template <class Work>
double millisecondsOf(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

void printSpeed() {
    constexpr std::size_t kHeld = 20'000;
    constexpr std::size_t kNew = 200;
    const auto stories = manyStories(kHeld + kNew);
    const std::span<const kit::Story> all(stories);
    constexpr int kRuns = 5;
    std::vector<double> whole;
    std::vector<double> more;
    std::size_t clusters = 0;
    for (int run = 0; run < kRuns; ++run) {
        kit::StoryClusterer clusterer;
        whole.push_back(millisecondsOf([&] {
            clusterer.add(all.first(kHeld));
            clusters = clusterer.clusters().size();
        }));
        more.push_back(millisecondsOf([&] {
            clusterer.add(all.subspan(kHeld));
            clusters = clusterer.clusters().size();
        }));
    }
    std::sort(whole.begin(), whole.end());
    std::sort(more.begin(), more.end());
    fmt::print(
        "\n{} stories of 72 hours from nothing: {:.0f} ms; {} more: {:.1f} ms; {} clusters "
        "(median of {} runs)\n",
        kHeld, whole[kRuns / 2], kNew, more[kRuns / 2], clusters, kRuns);
}

}  // namespace

int main() {
    printQuality();
    printSpeed();
    return 0;
}
