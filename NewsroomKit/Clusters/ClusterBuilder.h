#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

#include "NewsroomKit/Clusters/ClusterEntry.h"

namespace kit {

/// The least strength of a tie that suggests one cluster, and of all ties of an entry with a group
/// on average.
inline constexpr double kAlike = 0.22;
/// Likewise of two groups with several members: two pieces of news rather than one so far.
inline constexpr double kAlikeToMerge = 0.35;

struct EntryPair {
    std::size_t left = 0;
    std::size_t right = 0;
    double strength = 0;
};

/// The likeness of pairs of entries by their numbers, for as long as these stay the same. Pairs
/// that exclude each other have kExcluded.
class PairMemo {
public:
    static constexpr float kExcluded = -1;

    /// That of the two, from `find` where it is not known.
    template <class Find>
    float of(std::uint32_t one, std::uint32_t other, Find find) {
        const auto key = std::uint64_t{std::min(one, other)} << 32 | std::max(one, other);
        const auto [row, isNew] = known_.try_emplace(key);
        if (isNew) row->second = find();
        return row->second;
    }
    void clear() { known_.clear(); }

private:
    std::unordered_map<std::uint64_t, float> known_;
};

/// Groups indices of `entries`, which must be in order of time and have these numbers. Each group
/// is ascending; groups of one are included. One entry after the other meets the earlier ones,
/// those with the strongest tie first: two groups are joined when they are close in time, no two
/// members exclude each other, and their ties are strong on average. So a later entry extends or
/// joins the groups of earlier ones and never divides them, and a chain of half-similar headlines
/// does not join its two ends.
std::vector<std::vector<std::size_t>> grownGroups(std::span<const ClusterEntry* const> entries,
                                                  std::span<const std::uint32_t> numbers,
                                                  std::vector<EntryPair> pairs,
                                                  Instant::duration window, PairMemo& memo);

}  // namespace kit
