#include "NewsroomKit/Panels/BackendContent.h"

#include <algorithm>
#include <set>
#include <string>

namespace kit {

namespace {

constexpr std::size_t kMostChanges = 30;

}  // namespace

BackendContent backendContent(const CachedValue<std::vector<UpdateOffer>>& updates,
                              const std::vector<OfferChange>& changes,
                              const std::vector<LoggedSignal>& findings) {
    BackendContent content{.changes = changes};
    for (const auto& logged : findings) {
        if (content.findings.size() < kMostChanges) content.findings.push_back(logged.signal);
    }
    if (changes.size() > kMostChanges) content.changes.resize(kMostChanges);
    std::set<std::string> platforms;
    if (updates.value) {
        // The catalogue has the latest offer first.
        for (const auto& offer : *updates.value) {
            if (platforms.insert(offer.platform).second) content.newest.push_back(offer);
        }
    }
    const bool hasRows =
        !content.findings.empty() || !content.changes.empty() || !content.newest.empty();
    content.condition = PanelCondition::of(updates, hasRows);
    return content;
}

}  // namespace kit
