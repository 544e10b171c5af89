#include "NewsroomKit/Panels/Claims.h"

#include <algorithm>
#include <set>
#include <string_view>

#include "NewsroomKit/Attribution/Ledger.h"
#include "NewsroomKit/Panels/StoryGroup.h"
#include "NewsroomKit/Text/Folding.h"

namespace kit {

namespace {

StoryMention mentionIn(const StoryGroup& group, std::string_view id) {
    for (const auto* member : group.stories) {
        if (member->story->id == id) return StoryMention::of(*member);
    }
    return {};
}

/// The claim that tells most of what became of the news: one that was confirmed, else denied.
const LedgerClaim& furthest(const std::vector<LedgerClaim>& claims) {
    const auto found = [&](LedgerClaim::State state) {
        return std::ranges::find(claims, state, &LedgerClaim::state);
    };
    if (const auto confirmed = found(LedgerClaim::State::confirmed); confirmed != claims.end())
        return *confirmed;
    const auto denied = found(LedgerClaim::State::denied);
    return denied == claims.end() ? claims.front() : *denied;
}

void addAnswer(Claim& claim, const LedgerClaim& known, const StoryGroup& group) {
    if (known.settledBy) {
        claim.state = known.state == LedgerClaim::State::denied ? Claim::State::denied
                                                                : Claim::State::confirmed;
        claim.answer = mentionIn(group, *known.settledBy);
        return;
    }
    for (const auto* member : group.stories) {
        const Story& story = *member->story;
        if (story.sourcing != Sourcing::onRecord || story.publishedAt < known.at) continue;
        claim.state = Claim::State::answered;
        claim.answer = StoryMention::of(*member);
        return;
    }
}

std::optional<Claim> claimOf(const StoryGroup& group, Instant now) {
    std::vector<const Story*> stories;
    std::vector<std::string> ids;
    for (const auto* member : group.stories) {
        stories.push_back(member->story);
        ids.push_back(member->story->id);
    }
    const auto claims = makeLedger(stories, {ids}, now).claims;
    if (claims.empty()) return std::nullopt;
    const bool isReported = std::ranges::any_of(
        claims, [](const LedgerClaim& claim) { return claim.sourcing == Sourcing::report; });
    Claim claim{.state = isReported ? Claim::State::reported : Claim::State::rumored,
                .first = mentionIn(group, claims.front().story),
                .outlets = claims.size(),
                .newest = group.newest()};
    addAnswer(claim, furthest(claims), group);
    return claim;
}

}  // namespace

std::vector<Claim> claims(const PanelNews& news) {
    std::vector<Claim> claims;
    std::set<std::string> headlines;
    for (const auto& group : groupStories(news, news.now - kClaimsSpan)) {
        if (claims.size() == kMostClaims) break;
        auto claim = claimOf(group, news.now);
        if (claim && headlines.insert(fold(claim->first.title)).second)
            claims.push_back(std::move(*claim));
    }
    return claims;
}

}  // namespace kit
