#include "BrellSharedSync/TextMerge.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "NewsroomKit/Text/SequenceDiff.h"

namespace shared {
namespace {

using Lines = std::vector<std::string_view>;
using Numbers = std::vector<std::uint32_t>;

/// Lines with their ends, so that a missing last end is a difference.
Lines linesOf(std::string_view text) {
    Lines lines;
    while (!text.empty()) {
        const auto end = text.find('\n');
        const auto length = end == std::string_view::npos ? text.size() : end + 1;
        lines.push_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return lines;
}

class Numbering {
public:
    Numbers of(const Lines& lines) {
        Numbers numbers;
        numbers.reserve(lines.size());
        for (const auto line : lines) {
            const auto fresh = static_cast<std::uint32_t>(known_.size());
            numbers.push_back(known_.try_emplace(line, fresh).first->second);
        }
        return numbers;
    }

private:
    std::unordered_map<std::string_view, std::uint32_t> known_;
};

/// Lines of the base that were replaced by lines of a changed text.
struct Hunk {
    std::size_t begin, end;  ///< in the base
    std::size_t changedBegin, changedEnd;
    std::size_t reachBegin, reachEnd;  ///< of the base: where the same change could stand as well

    bool touches(const Hunk& other) const {
        return reachBegin <= other.reachEnd && other.reachBegin <= reachEnd;
    }
};

/// Lines put in or taken out beside equal lines could stand further up or down.
void spread(Hunk& hunk, const Numbers& base, const Numbers& changed) {
    const bool isInsertion = hunk.begin == hunk.end;
    if (!isInsertion && hunk.changedBegin != hunk.changedEnd) return;
    const auto& lines = isInsertion ? changed : base;
    const auto begin = isInsertion ? hunk.changedBegin : hunk.begin;
    const auto end = isInsertion ? hunk.changedEnd : hunk.end;
    const auto above = std::min(begin, hunk.begin);
    std::size_t up = 0;
    while (up < above && lines[begin - 1 - up] == lines[end - 1 - up]) ++up;
    std::size_t down = 0;
    while (hunk.end + down < base.size() && end + down < lines.size() &&
           lines[begin + down] == lines[end + down]) {
        ++down;
    }
    hunk.reachBegin = hunk.begin - up;
    hunk.reachEnd = hunk.end + down;
}

std::vector<Hunk> hunksOf(const Numbers& base, const Numbers& changed) {
    auto matches = kit::commonElements(base, changed);
    matches.push_back({base.size(), changed.size()});
    std::vector<Hunk> hunks;
    std::size_t at = 0;
    std::size_t changedAt = 0;
    for (const auto& match : matches) {
        if (match.before != at || match.after != changedAt) {
            Hunk hunk{at, match.before, changedAt, match.after, at, match.before};
            spread(hunk, base, changed);
            hunks.push_back(hunk);
        }
        at = match.before + 1;
        changedAt = match.after + 1;
    }
    return hunks;
}

struct Side {
    Lines lines;
    Numbers numbers;
    std::vector<Hunk> hunks{};

    std::size_t changedLines() const {
        std::size_t count = 0;
        for (const auto& hunk : hunks) {
            count += hunk.end - hunk.begin + hunk.changedEnd - hunk.changedBegin;
        }
        return count;
    }
};

bool areSame(const Side& a, const Hunk& x, const Side& b, const Hunk& y) {
    const auto wordsOf = [](const Side& side, const Hunk& hunk) {
        return std::span(side.numbers)
            .subspan(hunk.changedBegin, hunk.changedEnd - hunk.changedBegin);
    };
    return x.begin == y.begin && x.end == y.end && std::ranges::equal(wordsOf(a, x), wordsOf(b, y));
}

class Weaving {
public:
    explicit Weaving(const Lines& base) : base_(base) {}

    void apply(const Side& side, const Hunk& hunk) {
        while (at_ < hunk.begin) text_ += base_[at_++];
        at_ = hunk.end;
        for (auto i = hunk.changedBegin; i < hunk.changedEnd; ++i) text_ += side.lines[i];
    }

    std::string finished() {
        while (at_ < base_.size()) text_ += base_[at_++];
        return std::move(text_);
    }

private:
    const Lines& base_;
    std::size_t at_ = 0;
    std::string text_;
};

std::optional<std::string> woven(const Lines& base, const Side& mine, const Side& theirs) {
    Weaving weaving(base);
    auto i = mine.hunks.begin();
    auto j = theirs.hunks.begin();
    while (i != mine.hunks.end() || j != theirs.hunks.end()) {
        if (i == mine.hunks.end()) {
            weaving.apply(theirs, *j++);
        } else if (j == theirs.hunks.end()) {
            weaving.apply(mine, *i++);
        } else if (areSame(mine, *i, theirs, *j)) {
            weaving.apply(mine, *i++);
            ++j;
        } else if (i->touches(*j)) {
            return std::nullopt;
        } else if (i->begin < j->begin) {
            weaving.apply(mine, *i++);
        } else {
            weaving.apply(theirs, *j++);
        }
    }
    return weaving.finished();
}

}  // namespace

std::optional<std::string> mergeTexts(std::string_view base, std::string_view mine,
                                      std::string_view theirs) {
    Numbering numbering;
    const auto baseLines = linesOf(base);
    const auto baseNumbers = numbering.of(baseLines);
    const auto sideOf = [&](std::string_view text) {
        const auto lines = linesOf(text);
        Side side{lines, numbering.of(lines)};
        side.hunks = hunksOf(baseNumbers, side.numbers);
        return side;
    };
    const auto left = sideOf(mine);
    const auto right = sideOf(theirs);
    if (left.changedLines() + right.changedLines() > kMostChangedLines) return std::nullopt;
    return woven(baseLines, left, right);
}

}  // namespace shared
