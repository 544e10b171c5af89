#include "NewsroomKit/Panels/Coverage.h"

#include <algorithm>
#include <map>
#include <tuple>

#include "NewsroomKit/Attribution/TellingOutlet.h"
#include "NewsroomKit/Panels/StoryGroup.h"

namespace kit {

std::vector<CoverageRow> coverage(const PanelNews& news) {
    const Instant earliest = news.now - kCoverageSpan;
    std::map<std::string, CoverageRow> byOutlet;
    for (const auto& group : groupStories(news, earliest)) {
        for (const auto* member : group.stories) {
            const Story& story = *member->story;
            if (story.publishedAt < earliest) continue;
            auto& row = byOutlet[tellingOutletKey(story)];
            const bool isNew = row.stories++ == 0;
            if (isNew) row.outlet = tellingOutlet(story);
            row.first = isNew ? story.publishedAt : std::min(row.first, story.publishedAt);
            row.last = isNew ? story.publishedAt : std::max(row.last, story.publishedAt);
        }
        if (group.outlets.size() < 2 || group.first().story->publishedAt < earliest) continue;
        const auto attribution = attributionOf(group, news);
        if (!attribution.first || attribution.confidence == Attribution::Confidence::unclear)
            continue;
        const auto first = byOutlet.find(outletKey(*attribution.first));
        if (first != byOutlet.end()) ++first->second.timesFirst;
    }

    std::vector<CoverageRow> rows;
    for (auto& [key, row] : byOutlet) rows.push_back(std::move(row));
    // By name already.
    std::stable_sort(rows.begin(), rows.end(), [](const CoverageRow& a, const CoverageRow& b) {
        return std::tie(a.stories, a.timesFirst) > std::tie(b.stories, b.timesFirst);
    });
    if (rows.size() > kMostCoverageRows) rows.resize(kMostCoverageRows);
    return rows;
}

}  // namespace kit
