#include "NewsroomKit/Attribution/Ledger.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <tuple>
#include <unordered_map>

#include "NewsroomKit/Attribution/Median.h"
#include "NewsroomKit/Attribution/Telling.h"
#include "NewsroomKit/Attribution/TellingOutlet.h"
#include "NewsroomKit/Clusters/HeadlineGenre.h"
#include "NewsroomKit/Editorial/AppleOrigin.h"
#include "NewsroomKit/Editorial/AppleTopic.h"
#include "NewsroomKit/Text/Pattern.h"

namespace kit {

namespace {

using State = LedgerClaim::State;
using StoryList = std::vector<const Story*>;

bool isDenial(const Story& story) {
    static const Pattern denial(R"(\b(?:denies|denied|false|not true|no plans)\b)",
                                Pattern::Letters::ignoringCase);
    return story.sourcing == Sourcing::onRecord && denial.occursIn(story.title);
}

}  // namespace

std::optional<State> settlementBy(const Story& story) {
    if (story.sourcing == Sourcing::confirmed) return State::confirmed;
    if (story.sourcing != Sourcing::onRecord) return std::nullopt;
    if (isDenial(story)) return State::denied;
    const bool saysSo = AppleOrigin::explain(story.title, "") == RuleHit::Where::title;
    return saysSo ? std::optional(State::confirmed) : std::nullopt;
}

namespace {

/// Courts are no matter of rumors, and what leaks data or is sued over has not leaked as news.
bool isOfCourtsOrLeakedData(const std::string& title) {
    static const Pattern pattern(
        R"(\b(?:judge|jury|court|lawsuits?|sues|sued|verdict)\b|)"
        R"(\bleak(?:s|ed|ing)? (?:nothing|no|passwords?|credentials|(?:\w+ )?data|case)\b)",
        Pattern::Letters::ignoringCase);
    return pattern.occursIn(title);
}

bool isClaim(const Story& story) {
    const bool isUnsure = story.sourcing == Sourcing::report || story.sourcing == Sourcing::rumor;
    return isUnsure && !story.isAppleSource && AppleTopic::matches(story.title) &&
           !isOfCourtsOrLeakedData(story.title) &&
           headlineGenre(story.title, story.kind) == HeadlineGenre::news && isFirstHand(story);
}

/// The stories of each group, and each story of no group by itself, by time.
std::vector<StoryList> storiesOfGroups(std::span<const Story* const> stories,
                                       const std::vector<std::vector<std::string>>& groups) {
    std::unordered_map<std::string_view, std::size_t> groupOf;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        for (const auto& id : groups[i]) groupOf.emplace(id, i);
    }
    std::vector<StoryList> lists(groups.size());
    for (const auto* story : stories) {
        const auto group = groupOf.find(story->id);
        (group == groupOf.end() ? lists.emplace_back() : lists[group->second]).push_back(story);
    }
    for (auto& list : lists) {
        std::ranges::sort(list, [](const Story* a, const Story* b) {
            return std::tie(a->publishedAt, a->id) < std::tie(b->publishedAt, b->id);
        });
    }
    return lists;
}

void settle(LedgerClaim& claim, const StoryList& stories, Instant now) {
    const Instant end = claim.at + kClaimLifetime;
    for (const auto* story : stories) {
        if (story->publishedAt < claim.at || story->id == claim.story) continue;
        if (story->publishedAt > end) break;
        const auto state = settlementBy(*story);
        if (!state) continue;
        claim.state = *state;
        claim.settledBy = story->id;
        claim.why = "One of the stories that tell the same news.";
        claim.days = std::chrono::duration<double>(story->publishedAt - claim.at).count() / 86'400;
        return;
    }
    if (now >= end) claim.state = State::expired;
}

void addClaims(const StoryList& stories, Instant now, std::vector<LedgerClaim>& claims) {
    if (stories.empty() || stories.front()->isAppleSource) return;
    std::map<std::string, LedgerClaim> byOutlet;
    std::optional<Instant> confirmedAt;
    for (const auto* story : stories) {
        if (confirmedAt && story->publishedAt > *confirmedAt) break;
        if (settlementBy(*story) == State::confirmed && !confirmedAt)
            confirmedAt = story->publishedAt;
        if (!isClaim(*story)) continue;
        const auto outlet = tellingOutlet(*story);
        byOutlet.try_emplace(outletKey(outlet), LedgerClaim{.outlet = outlet,
                                                            .story = story->id,
                                                            .sourcing = story->sourcing,
                                                            .at = story->publishedAt});
    }
    for (auto& [key, claim] : byOutlet) {
        settle(claim, stories, now);
        claims.push_back(std::move(claim));
    }
}

}  // namespace

std::vector<LedgerOutlet> ledgerOutlets(const std::vector<LedgerClaim>& claims) {
    std::map<std::string, LedgerOutlet> byOutlet;
    std::map<std::string, std::vector<double>> days;
    for (const auto& claim : claims) {
        auto& row = byOutlet[claim.outlet];
        row.outlet = claim.outlet;
        ++row.claims;
        switch (claim.state) {
            case State::open: ++row.open; break;
            case State::denied: ++row.denied; break;
            case State::expired: ++row.expired; break;
            case State::confirmed:
                ++row.confirmed;
                days[claim.outlet].push_back(*claim.days);
                break;
        }
    }
    std::vector<LedgerOutlet> rows;
    for (auto& [outlet, row] : byOutlet) {
        row.medianDays = median(days[outlet]);
        rows.push_back(std::move(row));
    }
    // By name already.
    std::ranges::stable_sort(rows, std::ranges::greater{}, &LedgerOutlet::claims);
    return rows;
}

Ledger makeLedger(std::span<const Story* const> stories,
                  const std::vector<std::vector<std::string>>& groups, Instant now) {
    Ledger ledger;
    for (const auto& list : storiesOfGroups(stories, groups)) addClaims(list, now, ledger.claims);
    std::ranges::sort(ledger.claims, [](const LedgerClaim& a, const LedgerClaim& b) {
        return std::tie(a.at, a.story) < std::tie(b.at, b.story);
    });
    ledger.outlets = ledgerOutlets(ledger.claims);
    return ledger;
}

}  // namespace kit
