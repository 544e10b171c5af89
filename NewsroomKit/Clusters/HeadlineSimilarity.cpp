#include "NewsroomKit/Clusters/HeadlineSimilarity.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <unordered_map>

namespace kit {

namespace {

// Two headlines are comparable only when they share this many words, one of which is not everyday
// language in Apple news. A shared name alone is a topic, not news.
constexpr std::size_t kLeastSharedWords = 2;
constexpr double kLeastSharedWeight = 7.5;

}  // namespace

HeadlineSimilarity::HeadlineSimilarity(std::span<const ClusterEntry* const> entries)
    : entries_(entries) {
    countWords();
    for (Headline& headline : headlines_) {
        std::sort(headline.words.begin(), headline.words.end());
        double squares = 0;
        for (const std::uint32_t word : headline.words) squares += squared(word);
        headline.length = std::sqrt(squares);
    }
}

void HeadlineSimilarity::countWords() {
    // 1. In how many stories each word stands.
    std::unordered_map<std::uint64_t, std::uint32_t> known;
    known.reserve(entries_.size() * 4);
    std::vector<double> usualShares;
    headlines_.resize(entries_.size());
    for (std::size_t place = 0; place < entries_.size(); ++place) {
        const auto& words = entries_[place]->headline.words;
        headlines_[place].words.reserve(words.size());
        for (const auto& word : words) {
            const auto next = static_cast<std::uint32_t>(words_.size());
            const auto [row, isNew] = known.emplace(word.key, next);
            if (isNew) {
                words_.push_back({.distinctive = word.usualShare == 0});
                usualShares.push_back(word.usualShare);
            }
            ++words_[row->second].stories;
            headlines_[place].words.push_back(row->second);
        }
    }

    // 2. What each weighs.
    const double stories = static_cast<double>(entries_.size()) + kFormerStories;
    for (std::size_t word = 0; word < words_.size(); ++word) {
        const double holding = words_[word].stories + kFormerStories * usualShares[word];
        words_[word].weight = static_cast<float>(std::max(0.0, std::log(stories / holding)));
    }

    // 3. The heaviest first, equal ones as they came.
    std::vector<std::uint32_t> order(words_.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
        return words_[a].weight > words_[b].weight;
    });
    std::vector<Word> ordered(words_.size());
    std::vector<std::uint32_t> placeOf(words_.size());
    for (std::uint32_t place = 0; place < order.size(); ++place) {
        ordered[place] = words_[order[place]];
        placeOf[order[place]] = place;
    }
    words_ = std::move(ordered);
    for (Headline& headline : headlines_) {
        for (std::uint32_t& word : headline.words) word = placeOf[word];
    }
}

double HeadlineSimilarity::between(std::size_t left, std::size_t right) const {
    const auto& a = headlines_[left].words;
    const auto& b = headlines_[right].words;
    double squares = 0;
    double weights = 0;
    std::size_t count = 0;
    bool distinctive = false;
    for (std::size_t i = 0, j = 0; i < a.size() && j < b.size();) {
        if (a[i] == b[j]) {
            squares += squared(a[i]);
            weights += words_[a[i]].weight;
            distinctive = distinctive || words_[a[i]].distinctive;
            ++count, ++i, ++j;
        } else if (a[i] < b[j]) {
            ++i;
        } else {
            ++j;
        }
    }
    if (!distinctive || count < kLeastSharedWords || weights < kLeastSharedWeight) return 0;
    return squares / (headlines_[left].length * headlines_[right].length);
}

HeadlineSimilarity::Probe HeadlineSimilarity::probeOf(const Headline& headline,
                                                      double least) const {
    // By Cauchy's inequality, two headlines are less similar than `least` when the words they share
    // make up less than least² of one headline's squared length. So headlines that are similar
    // enough share at least one word that remains after the lightest words up to that bound are
    // dropped.
    const double spare = least * least * headline.length * headline.length;
    std::size_t count = headline.words.size();
    double rest = 0;
    while (count > 0) {
        const std::uint32_t word = headline.words[count - 1];
        const double squares = squared(word);
        if (rest + squares >= spare && words_[word].stories <= kTooCommon) break;
        rest += squares;
        --count;
    }
    return {.words = std::span(headline.words).first(count), .rest = rest};
}

std::vector<HeadlineSimilarity::Pair> HeadlineSimilarity::pairs(double least,
                                                                Instant::duration window) const {
    std::vector<Pair> found;
    std::vector<std::vector<std::uint32_t>> holders(words_.size());
    std::vector<double> rests;
    std::vector<double> shared(headlines_.size(), 0);
    std::vector<std::uint32_t> touched;
    for (std::uint32_t right = 0; right < headlines_.size(); ++right) {
        const Probe probe = probeOf(headlines_[right], least);
        rests.push_back(probe.rest);
        // 1. Earlier stories with the same heavy words, back to the window's edge.
        for (const std::uint32_t word : probe.words) {
            if (words_[word].stories < 2) continue;
            for (auto left = holders[word].rbegin(); left != holders[word].rend(); ++left) {
                if (entries_[right]->publishedAt - entries_[*left]->publishedAt > window) break;
                if (shared[*left] == 0) touched.push_back(*left);
                shared[*left] += squared(word);
            }
            holders[word].push_back(right);
        }
        // 2. Candidates that could reach `least` with their light words are compared in full.
        for (const std::uint32_t left : touched) {
            const double most = shared[left] + std::max(probe.rest, rests[left]);
            shared[left] = 0;
            if (most < least * headlines_[right].length * headlines_[left].length) continue;
            const double similarity = between(left, right);
            if (similarity >= least) found.push_back({left, right, similarity});
        }
        touched.clear();
    }
    return found;
}

}  // namespace kit
