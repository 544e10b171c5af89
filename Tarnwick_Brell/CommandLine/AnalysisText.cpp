#include "Tarnwick_Brell/CommandLine/AnalysisText.h"

#include <cmath>

#include "NewsroomKit/Clusters/StoryClusterer.h"
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

// Stories of somewhat earlier show who told the first news of the span.
AnalysedNews::AnalysedNews(Session& session, const QueryOptions& options, std::chrono::days span)
    : AnalysedNews(session, checkedQuery(session, options),
                   session.now() - span - kit::kEarlierContext) {}

AnalysedNews::AnalysedNews(Session& session, const kit::StoryQuery& query, kit::Instant since)
    : corrections_(session.storeForReading().corrections().overlay().get()), now_(session.now()) {
    const auto compiled = query.compiled();
    kit::StoryClusterer clusterer;
    const auto add = [&](const app::StoredStory& stored) {
        const auto& story = all_.emplace_back(stored.story);
        clusterer.add({&story, 1});
        if (compiled.matches(story)) {
            stories_.push_back({.story = &story,
                                .firstSeen = stored.firstSeen,
                                .isRead = stored.readAt.has_value()});
        }
        return all_.size() < kMostStories;
    };
    session.storeForReading().stories().eachInWireOrder(since, add);
    // The weights of words and the user's word are the same as for panels.
    clusterer.rememberBefore(std::chrono::floor<std::chrono::days>(now_) -
                             kit::WordMemory::kLeftOut);
    clusterer.setOverrides({.joined = corrections_->joined(), .apart = corrections_->apart()});
    clusters_ = clusterer.clusters();
}

kit::PanelNews AnalysedNews::news() const {
    return {.stories = stories_, .clusters = clusters_, .now = now_, .corrections = corrections_};
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
