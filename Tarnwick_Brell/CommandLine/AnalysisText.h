#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include <boost/json.hpp>

#include "NewsroomKit/Panels/PanelStory.h"
#include "Tarnwick_Brell/CommandLine/QueryOptions.h"
#include "Tarnwick_Brell/CommandLine/Session.h"
#include "Tarnwick_Brell/Desk/SubjectReader.h"

/// Common parts of the commands about who had news, and what became of it.
namespace cli {

/// What such a command looks at.
struct AnalysisOptions {
    QueryOptions query{};
    std::int64_t days = 7;
    std::int64_t limit = 20;
};

/// The subjects of the last days, read from the library. Throws WrongUsage.
app::Subjects subjectsOf(Session& session, const QueryOptions& options, std::chrono::days span);

boost::json::object mentionRecord(const kit::StoryMention& story);

/// "12 min", "−3 h 5 min"; "–" for none.
std::string leadColumn(const std::optional<double>& seconds);

/// Prints one JSON value on a line.
void printValue(Session& session, const boost::json::value& value);

}  // namespace cli
