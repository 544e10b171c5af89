#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "NewsroomKit/Clusters/Headline.h"
#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// The part of a story that clustering needs.
struct ClusterEntry {
    std::string storyID{};
    std::string sourceID{};
    Instant publishedAt{};
    Headline headline{};
    std::vector<std::uint64_t> articles{};  ///< hashed links of what the story is or leads to
    std::vector<std::uint64_t> credited{};  ///< hashed links of the articles it credits
};

/// The similarity of the headlines of a set of stories, by the words they share.
///
/// A word's weight grows with its rarity, as if kFormerStories earlier stories had been seen before
/// these N, of which its usual share contained it:
///
///     weight = ln((N + kFormerStories) / (stories with the word + kFormerStories · usual share))
///
/// but never less than 0. The similarity of two headlines is the cosine of the angle between them:
/// the sum of the squared weights of the words they share, divided by the product of both
/// headlines' lengths.
class HeadlineSimilarity {
public:
    static constexpr double kFormerStories = 1000;

    /// `entries` must outlive this.
    explicit HeadlineSimilarity(std::span<const ClusterEntry* const> entries);

    /// From 0 to 1; headlines that share too little to be sure count as 0.
    double between(std::size_t left, std::size_t right) const;

    /// Two similar entries, the earlier first.
    struct Pair {
        std::size_t left;
        std::size_t right;
        double similarity;
    };
    /// All pairs with a similarity of at least `least` that are at most `window` apart. The entries
    /// must be in order of time. Words in more than kTooCommon stories never suggest a pair on
    /// their own.
    std::vector<Pair> pairs(double least, Instant::duration window) const;
    static constexpr std::size_t kTooCommon = 200;

private:
    /// A word of the whole set; words are ordered by weight, heaviest first.
    struct Word {
        float weight = 0;
        std::uint32_t stories = 0;
        bool distinctive = false;  ///< not an everyday word
    };
    struct Headline {
        std::vector<std::uint32_t> words;  ///< places in words_, ascending: the heaviest first
        double length = 0;
    };
    /// The words of a headline that pairs() looks up, and what its other words could add.
    struct Probe {
        std::span<const std::uint32_t> words;
        double rest = 0;
    };

    double squared(std::uint32_t word) const {
        return static_cast<double>(words_[word].weight) * words_[word].weight;
    }
    void countWords();
    Probe probeOf(const Headline& headline, double least) const;

    std::span<const ClusterEntry* const> entries_;
    std::vector<Word> words_;
    std::vector<Headline> headlines_;
};

}  // namespace kit
