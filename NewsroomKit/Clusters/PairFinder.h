#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "NewsroomKit/Clusters/ClusterEntry.h"
#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// Finds the entries that may tell the same news as another one: those that share one of its
/// weightiest words, or an article.
class PairFinder {
public:
    /// Two entries by their numbers, the smaller first.
    struct Pair {
        std::uint32_t left = 0;
        std::uint32_t right = 0;
        float strength = 0;
    };

    /// Adds the entry `number` and appends its pairs with all entries added before that are tied
    /// to it at least by `least` and at most `window` apart. `entries` is indexed by number; an
    /// entry without an id has been removed.
    void add(std::uint32_t number, const std::vector<ClusterEntry>& entries, double least,
             Instant::duration window, std::vector<Pair>& pairs);

private:
    using Holders = std::unordered_map<std::uint64_t, std::vector<std::uint32_t>>;

    /// Adds `weight` to what the holders of `key` share with the entry that is being added.
    void probe(const Holders& holders, std::uint64_t key, float weight);

    Holders titleHolders_;  ///< entries by the words of their titles
    Holders excerptHolders_;
    Holders articleHolders_;
    Holders citing_;
    Holders eventHolders_;       ///< by an event and its party
    std::vector<float> shared_;  ///< by entry: the weight of the probed words that it shares
    std::vector<std::uint32_t> candidates_;
};

}  // namespace kit
