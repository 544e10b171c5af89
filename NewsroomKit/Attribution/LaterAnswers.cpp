#include "NewsroomKit/Attribution/LaterAnswers.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "NewsroomKit/Clusters/ClusterBuilder.h"
#include "NewsroomKit/Clusters/ClusterEntry.h"
#include "NewsroomKit/Clusters/MembershipReason.h"
#include "NewsroomKit/Clusters/WordMemory.h"

namespace kit {

namespace {

struct Answer {
    const Story* story = nullptr;
    LedgerClaim::State state = LedgerClaim::State::open;
    ClusterEntry entry{};
};

bool areApart(const CorrectionOverlay* corrections, const std::string& one,
              const std::string& other) {
    if (!corrections) return false;
    return std::ranges::any_of(corrections->apart(), [&](const auto& ids) {
        const auto names = [&](const auto& id) { return std::ranges::find(ids, id) != ids.end(); };
        // One that is split off alone tells the news of no other.
        return ids.size() == 1 ? names(one) || names(other) : names(one) && names(other);
    });
}

/// The stories that can settle claims, by the rare words of their headlines.
class Answers {
public:
    Answers(std::span<const Story* const> stories, const WordMemory& memory,
            const CorrectionOverlay* corrections)
        : corrections_(corrections) {
        for (const auto* story : stories) {
            const auto state = settlementBy(*story);
            if (!state) continue;
            Answer answer{.story = story, .state = *state, .entry = ClusterEntry::of(*story)};
            answer.entry.vector = headlineVector(answer.entry.headline, memory);
            answers_.push_back(std::move(answer));
        }
        std::ranges::sort(answers_, [](const Answer& a, const Answer& b) {
            return std::tie(a.story->publishedAt, a.story->id) <
                   std::tie(b.story->publishedAt, b.story->id);
        });
        for (std::uint32_t i = 0; i < answers_.size(); ++i) {
            for (const auto& word : answers_[i].entry.vector.items) {
                if (word.inTitle && word.isDistinctive) byWord_[word.key].push_back(i);
            }
        }
    }

    /// The earliest one within the claim's lifetime that tells its news; null without one.
    const Answer* to(const LedgerClaim& claim, const ClusterEntry& told) const {
        std::unordered_set<std::uint32_t> candidates;
        for (const auto& word : told.vector.items) {
            const auto holders = word.inTitle ? byWord_.find(word.key) : byWord_.end();
            if (holders != byWord_.end())
                candidates.insert(holders->second.begin(), holders->second.end());
        }
        std::vector<std::uint32_t> byTime(candidates.begin(), candidates.end());
        std::ranges::sort(byTime);
        for (const auto place : byTime) {
            const auto& answer = answers_[place];
            const auto at = answer.story->publishedAt;
            if (at < claim.at || at > claim.at + kClaimLifetime) continue;
            if (answer.story->id == claim.story ||
                areApart(corrections_, answer.story->id, claim.story))
                continue;
            if (tellsTheSame(answer.entry, told)) return &answer;
        }
        return nullptr;
    }

private:
    static bool tellsTheSame(const ClusterEntry& answer, ClusterEntry told) {
        // Months apart are no reason against it.
        told.publishedAt = answer.publishedAt;
        const auto tie = tieBetween(answer, told);
        return !tie.isExcluded && tie.strength >= kAlikeToMerge;
    }

    const CorrectionOverlay* corrections_;
    std::vector<Answer> answers_;  ///< by time
    std::unordered_map<std::uint64_t, std::vector<std::uint32_t>> byWord_;
};

WordMemory memoryOf(std::span<const Story* const> stories) {
    WordMemory memory;
    Instant newest{};
    for (const auto* story : stories) newest = std::max(newest, story->publishedAt);
    for (const auto* story : stories) {
        if (story->publishedAt < newest - WordMemory::kLeftOut) memory.add(story->title);
    }
    return memory;
}

void settle(LedgerClaim& claim, const Story& story, LedgerClaim::State state, std::string why) {
    claim.state = state;
    claim.settledBy = story.id;
    claim.days = std::chrono::duration<double>(story.publishedAt - claim.at).count() / 86'400;
    claim.why = std::move(why);
}

using StoriesByID = std::unordered_map<std::string_view, const Story*>;

void settleAsKnown(LedgerClaim& claim, const ClaimAnswer& known, const StoriesByID& byID,
                   const CorrectionOverlay* corrections) {
    const auto story = byID.find(known.story);
    if (story == byID.end() || areApart(corrections, known.story, known.claim)) return;
    const auto& answer = *story->second;
    const bool isInTime =
        answer.publishedAt >= claim.at && answer.publishedAt <= claim.at + kClaimLifetime;
    const auto state = settlementBy(answer);
    if (state && isInTime) settle(claim, answer, *state, known.why);
}

}  // namespace

void settleByLaterAnswers(Ledger& ledger, std::span<const Story* const> stories,
                          const CorrectionOverlay* corrections,
                          std::span<const ClaimAnswer> known) {
    using State = LedgerClaim::State;
    const auto memory = memoryOf(stories);
    const Answers answers(stories, memory, corrections);
    StoriesByID byID;
    for (const auto* story : stories) byID.emplace(story->id, story);
    std::unordered_map<std::string_view, const ClaimAnswer*> knownByClaim;
    for (const auto& answer : known) knownByClaim.emplace(answer.claim, &answer);
    for (auto& claim : ledger.claims) {
        const auto story = byID.find(claim.story);
        const auto isSettled = [&] {
            return claim.state == State::confirmed || claim.state == State::denied;
        };
        if (isSettled() || story == byID.end()) continue;
        const auto before = knownByClaim.find(claim.story);
        if (before != knownByClaim.end()) settleAsKnown(claim, *before->second, byID, corrections);
        if (isSettled()) continue;
        auto told = ClusterEntry::of(*story->second);
        told.vector = headlineVector(told.headline, memory);
        const auto* answer = answers.to(claim, told);
        if (!answer) continue;
        const std::array<const ClusterEntry*, 2> both{&told, &answer->entry};
        settle(claim, *answer->story, answer->state, membershipReason(told, both));
    }
    ledger.outlets = ledgerOutlets(ledger.claims);
}

}  // namespace kit
