#include "NewsroomKit/Clusters/ClusterBuilder.h"

#include <algorithm>
#include <cstdint>
#include <unordered_set>
#include <utility>

namespace kit {

namespace {

/// At most this many members of each group, the earliest, are compared with another group.
constexpr std::size_t kComparedMembers = 24;

class ClusterBuilder {
public:
    ClusterBuilder(std::span<const ClusterEntry* const> entries,
                   std::span<const std::uint32_t> numbers, Instant::duration window, PairMemo& memo)
        : entries_(entries), numbers_(numbers), window_(window), memo_(memo) {}

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
        const bool isMerging = a.size() > 1 && b.size() > 1;
        const auto pairs = static_cast<double>(aCount * bCount);
        // How much the pairs may still fall short of their greatest strength.
        double slack = pairs * (1 - (isMerging ? kAlikeToMerge : kAlike));
        for (std::size_t i = 0; i < aCount; ++i) {
            for (std::size_t j = 0; j < bCount; ++j) {
                const auto strength = strengthOf(a[i], b[j]);
                if (strength == PairMemo::kExcluded) return false;
                slack -= 1 - static_cast<double>(strength);
                if (slack < 0) return false;
            }
        }
        return true;
    }

    float strengthOf(std::size_t left, std::size_t right) {
        return memo_.of(numbers_[left], numbers_[right], [&] {
            const auto tie = tieBetween(*entries_[left], *entries_[right]);
            return tie.isExcluded ? PairMemo::kExcluded : static_cast<float>(tie.likeness);
        });
    }

    std::span<const ClusterEntry* const> entries_;
    std::span<const std::uint32_t> numbers_;
    Instant::duration window_;
    PairMemo& memo_;
    std::vector<std::vector<std::size_t>> groups_;  ///< by their first member; empty when joined
    std::vector<std::size_t> groupOf_;
    /// The version of each group, which changes whenever the group grows.
    std::vector<std::uint32_t> formOf_;
    std::uint32_t nextForm_ = 0;
    /// Versions of two groups that could not be joined.
    std::unordered_set<std::uint64_t> refused_;
};

}  // namespace

std::vector<std::vector<std::size_t>> grownGroups(std::span<const ClusterEntry* const> entries,
                                                  std::span<const std::uint32_t> numbers,
                                                  std::vector<EntryPair> pairs,
                                                  Instant::duration window, PairMemo& memo) {
    return ClusterBuilder(entries, numbers, window, memo).groups(std::move(pairs));
}

}  // namespace kit
