#include "Tarnwick_Brell/CommandLine/AnalysisText.h"

#include <cmath>

#include "NewsroomKit/Panels/StoryGroup.h"
#include "Tarnwick_Brell/CommandLine/NameLookup.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

kit::StoryQuery checkedQuery(Session& session, const QueryOptions& options) {
    const auto query = options.query();
    requireKnownSources(session.storeForReading(), options.sources);
    return query;
}

}  // namespace

app::Subjects subjectsOf(Session& session, const QueryOptions& options, std::chrono::days span) {
    // Stories of somewhat earlier show who told the first news of the span.
    return {session.storeForReading(),
            {.query = checkedQuery(session, options),
             .from = session.now() - span - kit::kEarlierContext,
             .now = session.now()}};
}

boost::json::object mentionRecord(const kit::StoryMention& story) {
    return {{"id", story.storyID},
            {"title", story.title},
            {"outlet", story.outlet},
            {"publishedAt", kit::encode(story.publishedAt)},
            {"sourcing", kit::rawValue(story.sourcing)}};
}

std::string leadColumn(const std::optional<double>& seconds) {
    if (!seconds) return "–";
    const auto length =
        spanText(std::chrono::seconds(static_cast<std::int64_t>(std::abs(*seconds))));
    return *seconds < 0 ? "−" + length : length;
}

void printValue(Session& session, const boost::json::value& value) {
    session.out().line(boost::json::serialize(value));
}

}  // namespace cli
