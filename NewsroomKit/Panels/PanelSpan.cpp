#include "NewsroomKit/Panels/PanelSpan.h"

#include "NewsroomKit/Panels/Claims.h"
#include "NewsroomKit/Panels/Coverage.h"
#include "NewsroomKit/Panels/Scoops.h"
#include "NewsroomKit/Panels/TopStories.h"

namespace kit {

std::optional<std::chrono::hours> spanOf(PanelKind kind) {
    switch (kind) {
        case PanelKind::topStories: return kTopStoriesSpan;
        case PanelKind::claims: return kClaimsSpan;
        case PanelKind::coverage: return kCoverageSpan;
        case PanelKind::scoops: return kScoopsSpan;
        default: return std::nullopt;
    }
}

}  // namespace kit
