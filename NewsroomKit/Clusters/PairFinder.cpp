#include "NewsroomKit/Clusters/PairFinder.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace kit {

namespace {

/// The weightiest words of a title and an excerpt lead to candidates: so many, and lighter ones
/// than kHeavy only where a title has fewer than kLeastProbedWords heavy ones.
constexpr std::size_t kProbedTitleWords = 6;
constexpr std::size_t kProbedExcerptWords = 3;
constexpr std::size_t kLeastProbedWords = 4;
constexpr float kHeavy = 2.5F;
/// Candidates share at least so much of what is probed; less never makes a pair.
constexpr float kLeastProbedWeight = 5.0F;
constexpr float kWeightInExcerpt = 0.6F;
constexpr float kSameAddress = 100;
constexpr float kSameEvent = kLeastProbedWeight;
/// Of the stories with one word at most the last ones added are candidates; more is a flood.
constexpr std::size_t kMostHolders = 1500;

using Items = std::vector<HeadlineVector::Item>;

Items weightiest(const HeadlineVector& vector, bool inTitle, std::size_t most, std::size_t least) {
    Items items;
    for (const auto& item : vector.items) {
        if (item.inTitle == inTitle) items.push_back(item);
    }
    const auto end = items.begin() + static_cast<std::ptrdiff_t>(std::min(most, items.size()));
    std::partial_sort(items.begin(), end, items.end(), [](const auto& a, const auto& b) {
        return a.weight != b.weight ? a.weight > b.weight : a.key < b.key;
    });
    items.erase(end, items.end());
    while (items.size() > least && items.back().weight < kHeavy) items.pop_back();
    return items;
}

std::vector<std::uint64_t> eventKeys(const HeadlineFacts& facts) {
    constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15U;
    std::vector<std::uint64_t> keys;
    for (const auto event : facts.events) {
        for (const auto party : facts.parties) keys.push_back(event * kSpread + party);
    }
    return keys;
}

}  // namespace

void PairFinder::probe(const Holders& holders, std::uint64_t key, float weight) {
    const auto row = holders.find(key);
    if (row == holders.end()) return;
    const auto& numbers = row->second;
    const std::size_t count = std::min(numbers.size(), kMostHolders);
    for (auto other = numbers.end() - static_cast<std::ptrdiff_t>(count); other != numbers.end();
         ++other) {
        if (shared_[*other] == 0) candidates_.push_back(*other);
        shared_[*other] += weight;
    }
}

void PairFinder::add(std::uint32_t number, const std::vector<ClusterEntry>& entries, double least,
                     Instant::duration window, std::vector<Pair>& pairs) {
    const ClusterEntry& entry = entries[number];
    shared_.resize(std::max<std::size_t>(shared_.size(), number + 1), 0);

    // 1. Stories that share a word. A word of both excerpts alone is no evidence.
    const auto titleWords = weightiest(entry.vector, true, kProbedTitleWords, kLeastProbedWords);
    const auto excerptWords = weightiest(entry.vector, false, kProbedExcerptWords, 0);
    for (const auto& word : titleWords) {
        probe(titleHolders_, word.key, word.weight);
        probe(excerptHolders_, word.key, word.weight * kWeightInExcerpt);
    }
    for (const auto& word : excerptWords) {
        probe(titleHolders_, word.key, word.weight * kWeightInExcerpt);
    }

    // 2. Stories that are or cite the same article.
    for (const auto* list : {&entry.articles, &entry.cited}) {
        for (const auto article : *list) {
            probe(articleHolders_, article, kSameAddress);
            probe(citing_, article, kSameAddress);
        }
    }

    // 3. Stories that tell of the same event.
    const auto events = eventKeys(entry.headline.facts);
    for (const auto event : events) probe(eventHolders_, event, kSameEvent);

    // 4. Those that are close enough, in time too.
    for (const std::uint32_t other : candidates_) {
        const float weight = std::exchange(shared_[other], 0.0F);
        if (weight < kLeastProbedWeight) continue;
        const ClusterEntry& known = entries[other];
        if (known.storyID.empty() || known.outlet == entry.outlet) continue;
        if (std::chrono::abs(known.publishedAt - entry.publishedAt) > window) continue;
        const bool isByWords = weight < kSameAddress;
        if (isByWords && wordStrength(known, entry) < least) continue;
        const auto tie = tieBetween(known, entry);
        if (tie.isExcluded || tie.strength < least) continue;
        pairs.push_back(
            {std::min(other, number), std::max(other, number), static_cast<float>(tie.strength)});
    }
    candidates_.clear();

    for (const auto& word : titleWords) titleHolders_[word.key].push_back(number);
    for (const auto& word : excerptWords) excerptHolders_[word.key].push_back(number);
    for (const auto article : entry.articles) articleHolders_[article].push_back(number);
    for (const auto event : events) eventHolders_[event].push_back(number);
    for (const auto article : entry.cited) citing_[article].push_back(number);
}

}  // namespace kit
