#include "NewsroomKit/Panels/Coverage.h"

#include <algorithm>
#include <map>
#include <tuple>

#include "NewsroomKit/Panels/StoryGroup.h"

namespace kit {

std::vector<CoverageRow> coverage(const PanelNews& news) {
    const Instant earliest = news.now - kCoverageSpan;
    std::map<std::string, CoverageRow> byOutlet;
    for (const auto& group : groupStories(news, earliest)) {
        for (const auto* member : group.stories) {
            const Story& story = *member->story;
            if (story.publishedAt < earliest) continue;
            auto& row = byOutlet[outletKey(story)];
            const bool isNew = row.stories++ == 0;
            if (isNew) row.outlet = outletOf(story);
            row.first = isNew ? story.publishedAt : std::min(row.first, story.publishedAt);
            row.last = isNew ? story.publishedAt : std::max(row.last, story.publishedAt);
        }
        const Story& first = *group.first().story;
        if (group.outlets.size() < 2 || first.publishedAt < earliest) continue;
        if (leadOf(first.publishedAt, group.outlets[1]->story->publishedAt))
            ++byOutlet[outletKey(first)].timesFirst;
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
