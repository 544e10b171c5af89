#include "NewsroomKit/Pages/BlockPairing.h"

#include <algorithm>
#include <cstdint>
#include <functional>

#include "NewsroomKit/Pages/PageNoise.h"
#include "NewsroomKit/Pages/WordDiff.h"

namespace kit {
namespace {

constexpr double leastLikeness = 0.5;
/// Larger gaps are paired by their places alone.
constexpr std::size_t mostComparisons = 40'000;
/// Below this many words pairs of words say little, and single words count too.
constexpr std::size_t fewWords = 8;

/// The words of a block and its pairs of neighbouring words, as sorted numbers.
struct BlockWords {
    explicit BlockWords(const PageBlock& block) {
        const auto text = comparedText(block.text);
        std::size_t previous = 0;
        for (const auto word : wordsOf(text)) {
            const auto hash = std::hash<std::string_view>{}(word);
            if (!words.empty()) pairs.push_back(previous * 31 + hash);
            words.push_back(hash);
            previous = hash;
        }
        std::sort(words.begin(), words.end());
        std::sort(pairs.begin(), pairs.end());
    }

    std::vector<std::size_t> words;
    std::vector<std::size_t> pairs;
};

/// Dice's coefficient of two sorted multisets.
double dice(const std::vector<std::size_t>& a, const std::vector<std::size_t>& b) {
    if (a.empty() || b.empty()) return 0;
    std::size_t common = 0;
    for (auto i = a.begin(), j = b.begin(); i != a.end() && j != b.end();) {
        if (*i < *j) {
            ++i;
        } else if (*j < *i) {
            ++j;
        } else {
            ++common, ++i, ++j;
        }
    }
    return 2.0 * static_cast<double>(common) / static_cast<double>(a.size() + b.size());
}

double likeness(const BlockWords& a, const BlockWords& b) {
    const double byPairs = dice(a.pairs, b.pairs);
    if (std::min(a.words.size(), b.words.size()) > fewWords) return byPairs;
    return std::max(byPairs, dice(a.words, b.words));
}

/// The pairs in order whose likenesses have the greatest sum.
std::vector<SequenceMatch> likeliestPairs(const std::vector<BlockWords>& removed,
                                          const std::vector<BlockWords>& added) {
    const auto width = added.size() + 1;
    std::vector<double> likenesses(removed.size() * added.size());
    std::vector<double> best((removed.size() + 1) * width);
    for (auto i = removed.size(); i-- > 0;) {
        for (auto j = added.size(); j-- > 0;) {
            const double like = likeness(removed[i], added[j]);
            likenesses[i * added.size() + j] = like;
            double& here = best[i * width + j];
            here = std::max(best[(i + 1) * width + j], best[i * width + j + 1]);
            if (like >= leastLikeness) {
                here = std::max(here, like + best[(i + 1) * width + j + 1]);
            }
        }
    }
    std::vector<SequenceMatch> pairs;
    for (std::size_t i = 0, j = 0; i < removed.size() && j < added.size();) {
        const double like = likenesses[i * added.size() + j];
        const double here = best[i * width + j];
        if (like >= leastLikeness && here <= like + best[(i + 1) * width + j + 1]) {
            pairs.push_back({i++, j++});
        } else if (best[(i + 1) * width + j] >= here) {
            ++i;
        } else {
            ++j;
        }
    }
    return pairs;
}

bool areBothHeadingsOrNeither(const PageBlock& a, const PageBlock& b) {
    return (a.kind == PageBlock::Kind::heading) == (b.kind == PageBlock::Kind::heading);
}

std::vector<BlockWords> wordsAt(const std::vector<PageBlock>& blocks,
                                const std::vector<std::size_t>& places) {
    std::vector<BlockWords> words;
    words.reserve(places.size());
    for (const auto place : places) words.emplace_back(blocks[place]);
    return words;
}

}  // namespace

std::vector<SequenceMatch> pairBlocks(const std::vector<PageBlock>& before,
                                      const std::vector<std::size_t>& removed,
                                      const std::vector<PageBlock>& after,
                                      const std::vector<std::size_t>& added) {
    std::vector<SequenceMatch> alike;
    if (removed.size() * added.size() <= mostComparisons) {
        alike = likeliestPairs(wordsAt(before, removed), wordsAt(after, added));
    }
    alike.push_back({removed.size(), added.size()});

    std::vector<SequenceMatch> pairs;
    std::size_t i = 0;
    std::size_t j = 0;
    for (const auto& match : alike) {
        // One block in the place of one other: it was rewritten.
        if (match.before == i + 1 && match.after == j + 1 &&
            areBothHeadingsOrNeither(before[removed[i]], after[added[j]])) {
            pairs.push_back({removed[i], added[j]});
        }
        if (match.before == removed.size()) break;
        pairs.push_back({removed[match.before], added[match.after]});
        i = match.before + 1;
        j = match.after + 1;
    }
    return pairs;
}

}  // namespace kit
