#include "NewsroomKit/Clusters/ClusterBuilder.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <unordered_set>
#include <utility>

#include "NewsroomKit/Clusters/HeadlineSimilarity.h"

namespace kit {

namespace {

/// The least similarity of two headlines that suggests one cluster, and of two groups on average.
constexpr double kAlike = 0.48;
constexpr double kAlikeOnAverage = 0.3;
/// A credit ties a story to at most this many stories of the credited article, the newest.
constexpr std::size_t kCreditedStories = 8;
/// At most this many members of each group, the earliest, are compared with another group.
constexpr std::size_t kComparedMembers = 24;

bool shareAny(const std::vector<std::uint64_t>& left, const std::vector<std::uint64_t>& right) {
    return std::any_of(left.begin(), left.end(), [&](std::uint64_t address) {
        return std::find(right.begin(), right.end(), address) != right.end();
    });
}

class ClusterBuilder {
public:
    ClusterBuilder(std::span<const ClusterEntry* const> entries, Instant::duration window)
        : entries_(entries), window_(window), similarity_(entries) {}

    std::vector<std::vector<std::size_t>> groups() {
        for (std::size_t place = 0; place < entries_.size(); ++place) {
            groups_.push_back({place});
            groupOf_.push_back(place);
            formOf_.push_back(nextForm_++);
        }
        for (const auto& pair : orderedPairs()) join(groupOf_[pair.left], groupOf_[pair.right]);
        std::erase_if(groups_, [](const auto& group) { return group.empty(); });
        return std::move(groups_);
    }

private:
    using Pair = HeadlineSimilarity::Pair;

    /// The most similar pairs come first. Two stories of one source form no pair, because outlets
    /// repeat the titles of their series.
    std::vector<Pair> orderedPairs() const {
        auto pairs = similarity_.pairs(kAlike, window_);
        addPairsByAddress(pairs);
        std::erase_if(pairs, [&](const Pair& pair) {
            return entries_[pair.left]->sourceID == entries_[pair.right]->sourceID;
        });
        std::sort(pairs.begin(), pairs.end(), [](const Pair& a, const Pair& b) {
            if (a.similarity != b.similarity) return a.similarity > b.similarity;
            return a.left != b.left ? a.left < b.left : a.right < b.right;
        });
        return pairs;
    }

    /// Whether `crediting` relays the news of `credited`. A story that credits several articles may
    /// be a roundup or credit background, so then the headlines must agree as well.
    bool creditTies(std::size_t crediting, std::size_t credited) const {
        const ClusterEntry& entry = *entries_[crediting];
        return crediting != credited && shareAny(entry.credited, entries_[credited]->articles) &&
               (entry.credited.size() == 1 || similarity_.between(crediting, credited) > 0);
    }

    /// Pairs stories that lead to the same article in a chain, and a story that credits an article
    /// with the stories that are that article.
    void addPairsByAddress(std::vector<Pair>& pairs) const {
        using Leading = std::pair<std::uint64_t, std::size_t>;  // an article and a story's place
        std::vector<Leading> leading;
        leading.reserve(entries_.size() + entries_.size() / 4);
        for (std::size_t place = 0; place < entries_.size(); ++place) {
            for (const auto article : entries_[place]->articles) {
                leading.emplace_back(article, place);
            }
        }
        std::sort(leading.begin(), leading.end());
        for (std::size_t next = 1; next < leading.size(); ++next) {
            if (leading[next - 1].first != leading[next].first) continue;
            pairs.push_back({leading[next - 1].second, leading[next].second, 1});
        }
        for (std::size_t place = 0; place < entries_.size(); ++place) {
            for (const auto article : entries_[place]->credited) {
                auto after = std::upper_bound(leading.begin(), leading.end(),
                                              Leading(article, entries_.size()));
                for (std::size_t count = 0; count < kCreditedStories; ++count) {
                    if (after == leading.begin() || (--after)->first != article) break;
                    const std::size_t other = after->second;
                    if (!creditTies(place, other)) continue;
                    pairs.push_back({std::min(place, other), std::max(place, other), 1});
                }
            }
        }
    }

    void join(std::size_t left, std::size_t right) {
        if (left == right) return;
        if (left > right) std::swap(left, right);
        const std::uint64_t attempt = std::uint64_t{formOf_[left]} << 32 | formOf_[right];
        if (refused_.contains(attempt)) return;
        if (!belongTogether(left, right)) {
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

    bool belongTogether(std::size_t left, std::size_t right) const {
        const auto& a = groups_[left];
        const auto& b = groups_[right];
        // 1. The gap between the end of one group and the beginning of the other is small.
        const auto at = [&](std::size_t place) { return entries_[place]->publishedAt; };
        if (at(b.front()) - at(a.back()) > window_ || at(a.front()) - at(b.back()) > window_) {
            return false;
        }
        // 2. No headlines are incompatible, and they are similar on average.
        const std::size_t aCount = std::min(a.size(), kComparedMembers);
        const std::size_t bCount = std::min(b.size(), kComparedMembers);
        double sum = 0;
        for (std::size_t i = 0; i < aCount; ++i) {
            for (std::size_t j = 0; j < bCount; ++j) {
                const auto similarity = similarityOf(a[i], b[j]);
                if (!similarity) return false;
                sum += *similarity;
            }
        }
        return sum >= kAlikeOnAverage * static_cast<double>(aCount * bCount);
    }

    /// Nothing when the headlines are incompatible.
    std::optional<double> similarityOf(std::size_t left, std::size_t right) const {
        const ClusterEntry& a = *entries_[left];
        const ClusterEntry& b = *entries_[right];
        if (shareAny(a.articles, b.articles)) return 1;
        if (areIncompatible(a.headline, b.headline)) return std::nullopt;
        if (creditTies(left, right) || creditTies(right, left)) return 1;
        return similarity_.between(left, right);
    }

    std::span<const ClusterEntry* const> entries_;
    Instant::duration window_;
    HeadlineSimilarity similarity_;
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
                                                  Instant::duration window) {
    return ClusterBuilder(entries, window).groups();
}

}  // namespace kit
