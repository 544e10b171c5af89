#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include <boost/json.hpp>

#include "NewsroomKit/Attribution/Attribution.h"
#include "NewsroomKit/Panels/PanelStory.h"
#include "Tarnwick_Brell/CommandLine/QueryOptions.h"
#include "Tarnwick_Brell/CommandLine/Session.h"

/// Common parts of the commands about who had news, and what became of it.
namespace cli {

/// What such a command looks at.
struct AnalysisOptions {
    QueryOptions query{};
    std::int64_t days = 7;
    std::int64_t limit = 20;
};

/// The stories of a time that a query selects, with the clusters of all stories of that time.
class AnalysedNews {
public:
    /// Of more stories only the newest are read.
    static constexpr std::size_t kMostStories = 50'000;

    /// The last days. Throws WrongUsage.
    AnalysedNews(Session& session, const QueryOptions& options, std::chrono::days span);
    AnalysedNews(Session& session, const kit::StoryQuery& query, kit::Instant since);
    AnalysedNews(const AnalysedNews&) = delete;
    AnalysedNews& operator=(const AnalysedNews&) = delete;

    kit::PanelNews news() const;

private:
    std::deque<kit::Story> all_;
    std::vector<kit::PanelStory> stories_;
    std::vector<kit::StoryCluster> clusters_;
    const kit::CorrectionOverlay* corrections_;
    kit::Instant now_;
};

boost::json::object mentionRecord(const kit::StoryMention& story);

/// "12 min", "−3 h 5 min"; "–" for none.
std::string leadColumn(const std::optional<double>& seconds);

/// Prints one JSON value on a line.
void printValue(Session& session, const boost::json::value& value);

}  // namespace cli
