#include "NewsroomKit/Clusters/ClusterBuilder.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace kit {

namespace {

/// At most this many members of each group, the earliest, are compared with another group.
constexpr std::size_t kComparedMembers = 24;

class ClusterBuilder {
public:
    ClusterBuilder(std::span<const ClusterEntry* const> entries, Instant::duration window)
        : entries_(entries), window_(window) {}

    std::vector<std::vector<std::size_t>> groups(std::vector<EntryPair> pairs) {
        for (std::size_t place = 0; place < entries_.size(); ++place) {
            groups_.push_back({place});
            groupOf_.push_back(place);
            formOf_.push_back(nextForm_++);
        }
        std::sort(pairs.begin(), pairs.end(), [](const EntryPair& a, const EntryPair& b) {
            if (a.right != b.right) return a.right < b.right;
            return a.strength != b.strength ? a.strength > b.strength : a.left < b.left;
        });
        known_.reserve(2 * pairs.size());
        for (const auto& pair : pairs) known_.emplace(keyOf(pair.left, pair.right), pair.strength);
        for (const auto& pair : pairs) join(groupOf_[pair.left], groupOf_[pair.right]);
        std::erase_if(groups_, [](const auto& group) { return group.empty(); });
        return std::move(groups_);
    }

private:
    void join(std::size_t left, std::size_t right) {
        if (left == right) return;
        if (left > right) std::swap(left, right);
        const std::uint64_t attempt = std::uint64_t{formOf_[left]} << 32 | formOf_[right];
        if (refused_.contains(attempt)) return;
        if (!belongTogether(groups_[left], groups_[right])) {
            refused_.insert(attempt);
            return;
        }
        formOf_[left] = nextForm_++;
        auto& grown = groups_[left];
        const std::size_t middle = grown.size();
        for (const std::size_t member : groups_[right]) {
            groupOf_[member] = left;
            grown.push_back(member);
        }
        std::inplace_merge(grown.begin(), grown.begin() + static_cast<std::ptrdiff_t>(middle),
                           grown.end());
        groups_[right].clear();
    }

    bool belongTogether(const std::vector<std::size_t>& a, const std::vector<std::size_t>& b) {
        // 1. The gap between the end of one group and the beginning of the other is small.
        const auto at = [&](std::size_t place) { return entries_[place]->publishedAt; };
        if (at(b.front()) - at(a.back()) > window_ || at(a.front()) - at(b.back()) > window_) {
            return false;
        }
        // 2. No members exclude each other, and the ties are strong on average.
        const std::size_t aCount = std::min(a.size(), kComparedMembers);
        const std::size_t bCount = std::min(b.size(), kComparedMembers);
        double sum = 0;
        for (std::size_t i = 0; i < aCount; ++i) {
            for (std::size_t j = 0; j < bCount; ++j) {
                const auto strength = strengthOf(a[i], b[j]);
                if (!strength) return false;
                sum += *strength;
            }
        }
        const bool isMerging = a.size() > 1 && b.size() > 1;
        return sum >= (isMerging ? kAlikeToMerge : kAlike) * static_cast<double>(aCount * bCount);
    }

    static std::uint64_t keyOf(std::size_t left, std::size_t right) {
        return std::uint64_t{std::min(left, right)} << 32 | std::max(left, right);
    }

    /// Nothing when the two exclude each other.
    std::optional<double> strengthOf(std::size_t left, std::size_t right) {
        const auto [row, isNew] = known_.try_emplace(keyOf(left, right));
        if (isNew) {
            const auto tie = tieBetween(*entries_[left], *entries_[right]);
            if (!tie.isExcluded) row->second = tie.likeness;
        }
        return row->second;
    }

    std::span<const ClusterEntry* const> entries_;
    Instant::duration window_;
    std::vector<std::vector<std::size_t>> groups_;  ///< by their first member; empty when joined
    std::vector<std::size_t> groupOf_;
    /// The version of each group, which changes whenever the group grows.
    std::vector<std::uint32_t> formOf_;
    std::uint32_t nextForm_ = 0;
    /// Versions of two groups that could not be joined.
    std::unordered_set<std::uint64_t> refused_;
    std::unordered_map<std::uint64_t, std::optional<double>> known_;  ///< by both places
};

}  // namespace

std::vector<std::vector<std::size_t>> grownGroups(std::span<const ClusterEntry* const> entries,
                                                  std::vector<EntryPair> pairs,
                                                  Instant::duration window) {
    return ClusterBuilder(entries, window).groups(std::move(pairs));
}

}  // namespace kit
