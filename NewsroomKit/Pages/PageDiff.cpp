#include "NewsroomKit/Pages/PageDiff.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>

#include "NewsroomKit/Pages/BlockPairing.h"
#include "NewsroomKit/Pages/ChangeSentence.h"
#include "NewsroomKit/Pages/PageNoise.h"
#include "NewsroomKit/Text/SequenceDiff.h"
#include "NewsroomKit/Pages/WordDiff.h"

namespace kit {
namespace {

using Blocks = std::vector<PageBlock>;
using Places = std::vector<std::size_t>;

class PageComparison {
public:
    PageComparison(const Blocks& before, const Blocks& after) : before_(before), after_(after) {
        beforeKeys_ = keysOf(before);
        afterKeys_ = keysOf(after);
    }

    PageDiff diff() {
        PageDiff diff;
        diff.verdict = verdict();
        if (diff.verdict == PageDiff::Verdict::order) return diff;
        auto common = commonElements(beforeKeys_, afterKeys_);
        findMoved(common);
        common.push_back({before_.size(), after_.size()});
        std::size_t i = 0;
        std::size_t j = 0;
        for (const auto& match : common) {
            addGap(i, match.before, j, match.after);
            if (match.before == before_.size()) break;
            addLinks(match);
            i = match.before + 1;
            j = match.after + 1;
        }
        diff.changes = std::move(changes_);
        return diff;
    }

private:
    std::vector<std::uint32_t> keysOf(const Blocks& blocks) {
        std::vector<std::uint32_t> keys;
        for (const auto& block : blocks) {
            const auto next = static_cast<std::uint32_t>(numbers_.size());
            keys.push_back(numbers_.try_emplace(comparedText(block.text), next).first->second);
        }
        return keys;
    }

    PageDiff::Verdict verdict() const {
        if (beforeKeys_ == afterKeys_) return PageDiff::Verdict::same;
        auto before = beforeKeys_;
        auto after = afterKeys_;
        std::sort(before.begin(), before.end());
        std::sort(after.begin(), after.end());
        return before == after ? PageDiff::Verdict::order : PageDiff::Verdict::changed;
    }

    /// Equal blocks that stand on both sides without being matched have moved.
    void findMoved(const std::vector<SequenceMatch>& common) {
        std::vector<bool> isMatchedBefore(before_.size()), isMatchedAfter(after_.size());
        for (const auto& match : common) {
            isMatchedBefore[match.before] = isMatchedAfter[match.after] = true;
        }
        std::multimap<std::uint32_t, std::size_t> left;
        for (std::size_t i = 0; i < before_.size(); ++i) {
            if (!isMatchedBefore[i]) left.emplace(beforeKeys_[i], i);
        }
        for (std::size_t j = 0; j < after_.size(); ++j) {
            if (isMatchedAfter[j]) continue;
            const auto same = left.lower_bound(afterKeys_[j]);
            if (same == left.end() || same->first != afterKeys_[j]) continue;
            movedFrom_.emplace(j, same->second);
            movedAway_.emplace(same->second, j);
            left.erase(same);
        }
    }

    void addGap(std::size_t i, std::size_t iEnd, std::size_t j, std::size_t jEnd) {
        Places removed, added;
        for (auto at = i; at < iEnd; ++at) {
            if (!movedAway_.contains(at)) removed.push_back(at);
        }
        for (auto at = j; at < jEnd; ++at) {
            if (!movedFrom_.contains(at)) added.push_back(at);
        }
        const auto pairs = pairBlocks(before_, removed, after_, added);
        auto pair = pairs.begin();
        const auto nextPaired = [&] { return pair == pairs.end() ? iEnd : pair->before; };
        for (auto at = j; at < jEnd; ++at) {
            // Removed blocks stand before the block that follows the one they stood behind.
            const bool isPair = pair != pairs.end() && pair->after == at;
            if (isPair || pairs.empty()) addRemoved(i, nextPaired());
            if (isPair) {
                addChanged(*pair);
                i = (pair++)->before + 1;
            } else if (movedFrom_.contains(at)) {
                changes_.push_back({.kind = PageChange::Kind::moved,
                                    .before = movedFrom_.at(at),
                                    .after = at,
                                    .words = 0,
                                    .sentence = movedSentence(after_[at])});
            } else {
                addAdded(at);
            }
            if (pairs.empty()) i = iEnd;
        }
        addRemoved(i, iEnd);
    }

    void addRemoved(std::size_t i, std::size_t end) {
        for (; i < end; ++i) {
            if (movedAway_.contains(i)) continue;
            changes_.push_back({.kind = PageChange::Kind::removed,
                                .before = i,
                                .after = std::nullopt,
                                .words = wordsOf(before_[i].text).size(),
                                .sentence = removedSentence(before_[i])});
        }
    }

    void addAdded(std::size_t j) {
        changes_.push_back({.kind = PageChange::Kind::added,
                            .before = std::nullopt,
                            .after = j,
                            .words = wordsOf(after_[j].text).size(),
                            .sentence = addedSentence(after_[j])});
    }

    void addChanged(const SequenceMatch& pair) {
        const auto& old = before_[pair.before];
        const auto& fresh = after_[pair.after];
        const auto diff = compareWords(old.text, fresh.text);
        changes_.push_back({.kind = PageChange::Kind::changed,
                            .before = pair.before,
                            .after = pair.after,
                            .words = diff.words,
                            .sentence = changedSentence(old, fresh, diff)});
    }

    void addLinks(const SequenceMatch& match) {
        const auto& old = before_[match.before];
        const auto& fresh = after_[match.after];
        const auto leadsToSame = [](const PageLink& a, const PageLink& b) {
            return comparedText(a.url) == comparedText(b.url);
        };
        if (std::equal(old.links.begin(), old.links.end(), fresh.links.begin(), fresh.links.end(),
                       leadsToSame)) {
            return;
        }
        changes_.push_back({.kind = PageChange::Kind::links,
                            .before = match.before,
                            .after = match.after,
                            .words = 0,
                            .sentence = linksSentence(old, fresh)});
    }

    const Blocks& before_;
    const Blocks& after_;
    std::unordered_map<std::string, std::uint32_t> numbers_;
    std::vector<std::uint32_t> beforeKeys_;
    std::vector<std::uint32_t> afterKeys_;
    std::map<std::size_t, std::size_t> movedFrom_;  ///< places in the later state to the earlier
    std::map<std::size_t, std::size_t> movedAway_;
    std::vector<PageChange> changes_;
};

}  // namespace

PageDiff comparePages(const std::vector<PageBlock>& before, const std::vector<PageBlock>& after) {
    return PageComparison(before, after).diff();
}

}  // namespace kit
