#include "NewsroomKit/Text/SequenceDiff.h"

#include <algorithm>
#include <unordered_map>

namespace kit {
namespace {

/// The shortest edit is searched for up to this many edits; its memory grows with the square.
constexpr int mostEdits = 1'500;
constexpr std::size_t longestGap = 20'000;

using Elements = std::span<const std::uint32_t>;

class SequenceDiff {
public:
    SequenceDiff(Elements before, Elements after) : before_(before), after_(after) {}

    std::vector<SequenceMatch> matches() {
        gaps_.push_back({0, before_.size(), 0, after_.size()});
        while (!gaps_.empty()) {
            const auto gap = gaps_.back();
            gaps_.pop_back();
            matchInside(gap);
        }
        const auto isEarlier = [](const auto& a, const auto& b) { return a.before < b.before; };
        std::sort(found_.begin(), found_.end(), isEarlier);
        return std::move(found_);
    }

private:
    struct Gap {
        std::size_t beforeBegin, beforeEnd, afterBegin, afterEnd;
        bool isEmpty() const { return beforeBegin == beforeEnd || afterBegin == afterEnd; }
    };

    void matchInside(Gap gap);
    void matchEnds(Gap& gap);
    std::vector<SequenceMatch> anchors(const Gap& gap) const;
    void matchByShortestEdit(const Gap& gap);

    Elements before_;
    Elements after_;
    std::vector<Gap> gaps_;
    std::vector<SequenceMatch> found_;
};

void SequenceDiff::matchEnds(Gap& gap) {
    while (!gap.isEmpty() && before_[gap.beforeBegin] == after_[gap.afterBegin]) {
        found_.push_back({gap.beforeBegin++, gap.afterBegin++});
    }
    while (!gap.isEmpty() && before_[gap.beforeEnd - 1] == after_[gap.afterEnd - 1]) {
        found_.push_back({--gap.beforeEnd, --gap.afterEnd});
    }
}

void SequenceDiff::matchInside(Gap gap) {
    // 1. What the two have in common at their ends.
    matchEnds(gap);
    if (gap.isEmpty()) return;

    // 2. Elements that occur once in both part the gap.
    const auto fixed = anchors(gap);
    if (fixed.empty()) return matchByShortestEdit(gap);
    auto rest = gap;
    for (const auto& match : fixed) {
        found_.push_back(match);
        gaps_.push_back({rest.beforeBegin, match.before, rest.afterBegin, match.after});
        rest.beforeBegin = match.before + 1;
        rest.afterBegin = match.after + 1;
    }
    gaps_.push_back(rest);
}

/// The longest run of unique common elements that stand in the same order in both.
std::vector<SequenceMatch> SequenceDiff::anchors(const Gap& gap) const {
    struct Place {
        std::size_t before = 0, after = 0;
        int beforeCount = 0, afterCount = 0;
    };
    std::unordered_map<std::uint32_t, Place> places;
    for (auto i = gap.beforeBegin; i < gap.beforeEnd; ++i) {
        auto& place = places[before_[i]];
        place.before = i;
        ++place.beforeCount;
    }
    for (auto j = gap.afterBegin; j < gap.afterEnd; ++j) {
        const auto place = places.find(after_[j]);
        if (place == places.end()) continue;
        place->second.after = j;
        ++place->second.afterCount;
    }
    std::vector<SequenceMatch> unique;
    for (const auto& [id, place] : places) {
        if (place.beforeCount == 1 && place.afterCount == 1) {
            unique.push_back({place.before, place.after});
        }
    }
    std::sort(unique.begin(), unique.end(),
              [](const auto& a, const auto& b) { return a.before < b.before; });

    // Piles of patience sorting: `tops` holds the last element of the best run of each length.
    std::vector<std::size_t> tops;
    std::vector<std::size_t> previous(unique.size());
    for (std::size_t i = 0; i < unique.size(); ++i) {
        const auto pile = std::lower_bound(
            tops.begin(), tops.end(), unique[i].after,
            [&](std::size_t top, std::size_t after) { return unique[top].after < after; });
        previous[i] = pile == tops.begin() ? i : *(pile - 1);
        if (pile == tops.end()) {
            tops.push_back(i);
        } else {
            *pile = i;
        }
    }
    std::vector<SequenceMatch> run(tops.size());
    if (tops.empty()) return run;
    for (std::size_t length = tops.size(), at = tops.back(); length-- > 0; at = previous[at]) {
        run[length] = unique[at];
    }
    return run;
}

/// Myers' algorithm.
void SequenceDiff::matchByShortestEdit(const Gap& gap) {
    const auto rows = gap.beforeEnd - gap.beforeBegin;
    const auto columns = gap.afterEnd - gap.afterBegin;
    if (rows + columns > longestGap) return;
    const int n = static_cast<int>(rows);
    const int m = static_cast<int>(columns);
    const int most = std::min(n + m, mostEdits);
    const auto old = before_.subspan(gap.beforeBegin, rows);
    const auto fresh = after_.subspan(gap.afterBegin, columns);

    // furthest[d][k + d]: how far one comes in the old sequence with d edits on diagonal k.
    std::vector<std::vector<int>> furthest;
    const auto reached = [&](int d, int k) {
        return d < 0 || k < -d || k > d
                   ? -1
                   : furthest[static_cast<std::size_t>(d)][static_cast<std::size_t>(k + d)];
    };
    const auto comesFromAbove = [&](int d, int k) {
        return k == -d || (k != d && reached(d - 1, k - 1) < reached(d - 1, k + 1));
    };
    bool isDone = false;
    for (int d = 0; d <= most && !isDone; ++d) {
        furthest.emplace_back(static_cast<std::size_t>(2 * d + 1), -1);
        for (int k = -d; k <= d; k += 2) {
            int x = d == 0                 ? 0
                    : comesFromAbove(d, k) ? reached(d - 1, k + 1)
                                           : reached(d - 1, k - 1) + 1;
            while (x < n && x - k < m && x >= k &&
                   old[static_cast<std::size_t>(x)] == fresh[static_cast<std::size_t>(x - k)]) {
                ++x;
            }
            furthest.back()[static_cast<std::size_t>(k + d)] = x;
            if (x >= n && x - k >= m) {
                isDone = true;
                break;
            }
        }
    }
    if (!isDone) return;
    for (int d = static_cast<int>(furthest.size()) - 1, k = n - m; d >= 0; --d) {
        const bool above = d > 0 && comesFromAbove(d, k);
        const int start = d == 0 ? 0 : above ? reached(d - 1, k + 1) : reached(d - 1, k - 1) + 1;
        for (int x = reached(d, k); x-- > start;) {
            found_.push_back({gap.beforeBegin + static_cast<std::size_t>(x),
                              gap.afterBegin + static_cast<std::size_t>(x - k)});
        }
        k += above ? 1 : -1;
    }
}

}  // namespace

std::vector<SequenceMatch> commonElements(std::span<const std::uint32_t> before,
                                          std::span<const std::uint32_t> after) {
    return SequenceDiff(before, after).matches();
}

}  // namespace kit
