#include "NewsroomKit/Panels/Claims.h"

#include <algorithm>
#include <set>

#include "NewsroomKit/Panels/StoryGroup.h"

namespace kit {

namespace {

bool isConfirmation(const Story& story) {
    return story.isAppleSource || story.sourcing == Sourcing::confirmed;
}

bool isAnswer(const Story& story) {
    return isConfirmation(story) || story.sourcing == Sourcing::onRecord;
}

bool isClaim(const Story& story) {
    return !isAnswer(story) &&
           (story.sourcing == Sourcing::report || story.sourcing == Sourcing::rumor);
}

std::optional<Claim> claimOf(const StoryGroup& group) {
    Claim claim{.newest = group.newest()};
    std::set<std::string> outlets;
    for (const auto* member : group.stories) {
        const Story& story = *member->story;
        if (claim.state == Claim::State::confirmed) break;
        if (isClaim(story)) {
            if (outlets.empty()) claim.first = StoryMention::of(*member);
            outlets.insert(outletKey(story));
            if (story.sourcing == Sourcing::report) {
                claim.state = std::max(claim.state, Claim::State::reported);
            }
        } else if (isAnswer(story)) {
            // Said by Apple before anybody claimed it.
            if (outlets.empty()) return std::nullopt;
            const auto state =
                isConfirmation(story) ? Claim::State::confirmed : Claim::State::answered;
            if (state <= claim.state) continue;
            claim.state = state;
            claim.answer = StoryMention::of(*member);
        }
    }
    if (outlets.empty()) return std::nullopt;
    claim.outlets = outlets.size();
    return claim;
}

}  // namespace

std::vector<Claim> claims(const PanelNews& news) {
    std::vector<Claim> claims;
    for (const auto& group : groupStories(news, news.now - kClaimsSpan)) {
        if (claims.size() == kMostClaims) break;
        if (auto claim = claimOf(group)) claims.push_back(std::move(*claim));
    }
    return claims;
}

}  // namespace kit
