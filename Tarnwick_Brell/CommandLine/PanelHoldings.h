#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "NewsroomKit/Clusters/StoryCluster.h"
#include "NewsroomKit/Panels/PanelStory.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "Tarnwick_Brell/CommandLine/Session.h"
#include "Tarnwick_Brell/Storage/StoredStory.h"

namespace brell {

/// What the library holds for panels. Read when first asked for, and once.
class PanelHoldings {
public:
    enum class Origin { any, apple };

    explicit PanelHoldings(Session& session) : session_(session) {}

    Session& session() { return session_; }
    newsroom::Instant now() const { return session_.now(); }
    std::size_t width() const { return session_.out().width(); }

    /// The newest stories that the query matches, at most `limit`, however old.
    std::vector<desk::StoredStory> newest(const newsroom::StoryQuery& query, Origin origin,
                                          std::size_t limit);

    /// The stories of the last month, newest first, and the clusters of those of late.
    const std::vector<desk::StoredStory>& recent();
    const std::vector<newsroom::StoryCluster>& clusters();

    /// When the user last left the window, if ever.
    std::optional<newsroom::Instant> lastLook();

private:
    Session& session_;
    std::optional<std::vector<desk::StoredStory>> recent_;
    std::optional<std::vector<newsroom::StoryCluster>> clusters_;
};

/// Those of the recent stories that a query matches, as the makers of panels want them.
class MatchedNews {
public:
    MatchedNews(PanelHoldings& holdings, const newsroom::StoryQuery& query);

    newsroom::PanelNews news() const {
        return {.stories = stories_, .clusters = holdings_.clusters(), .now = holdings_.now()};
    }

private:
    PanelHoldings& holdings_;
    std::vector<newsroom::PanelStory> stories_;
};

}  // namespace brell
