#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "NewsroomKit/Clusters/StoryCluster.h"
#include "NewsroomKit/Panels/PanelStory.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "Tarnwick_Brell/CommandLine/Session.h"
#include "Tarnwick_Brell/Storage/Tables/StoredStory.h"

namespace cli {

/// What the library holds for panels. Read when first asked for, and once.
class PanelHoldings {
public:
    enum class Origin { any, apple };

    PanelHoldings(Session& session, kit::Instant now) : session_(session), now_(now) {}

    Session& session() { return session_; }
    kit::Instant now() const { return now_; }
    std::size_t width() const { return session_.out().width(); }

    /// The newest stories that the query matches, at most `limit`, however old.
    std::vector<app::StoredStory> newest(const kit::StoryQuery& query, Origin origin,
                                         std::size_t limit);

    /// The stories of the last month, newest first, and their clusters.
    const std::vector<app::StoredStory>& recent();
    const std::vector<kit::StoryCluster>& clusters();

    const kit::CorrectionOverlay* corrections();

    /// When the user last left the window, if ever.
    std::optional<kit::Instant> lastLook();

private:
    Session& session_;
    kit::Instant now_;
    std::optional<std::vector<app::StoredStory>> recent_;
    std::optional<std::vector<kit::StoryCluster>> clusters_;
};

/// Those of the recent stories that a query matches, as the makers of panels want them.
class MatchedNews {
public:
    MatchedNews(PanelHoldings& holdings, const kit::StoryQuery& query);

    bool isEmpty() const { return stories_.empty(); }
    kit::PanelNews news() const {
        return {.stories = stories_,
                .clusters = holdings_.clusters(),
                .now = holdings_.now(),
                .corrections = holdings_.corrections()};
    }

private:
    PanelHoldings& holdings_;
    std::vector<kit::PanelStory> stories_;
};

}  // namespace cli
