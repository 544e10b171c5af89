#include "NewsroomKit/Editorial/StoryLabels.h"

#include "NewsroomKit/Editorial/StoryScan.h"

namespace kit {

StoryLabels labelStory(std::string_view title, std::string_view summary, bool isAppleSource,
                       bool classifyKind) {
    if (!classifyKind) {
        return {.kind = std::nullopt,
                .sourcing = SourcingRules::explain(title, summary, isAppleSource)};
    }
    const StoryScan scan(title, summary);
    return {.kind = StoryKindRules::explain(scan),
            .sourcing =
                isAppleSource ? SourcingRules::explainAppleSource() : SourcingRules::explain(scan)};
}

}  // namespace kit
