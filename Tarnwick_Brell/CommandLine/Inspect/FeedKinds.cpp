#include "NewsroomKit/Feeds/EntryShape.h"
#include "NewsroomKit/Feeds/FeedDates.h"
#include "NewsroomKit/Feeds/FeedParser.h"
#include "NewsroomKit/Feeds/HTMLText.h"
#include "NewsroomKit/Ingestion/StoryConversion.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "NewsroomKit/Sources/SourceShape.h"
#include "NewsroomKit/Stories/StoryShape.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace brell::inspect {

namespace {

json::object failure(newsroom::FeedParserError error) {
    return {{"error", newsroom::rawValue(error)}, {"description", newsroom::description(error)}};
}

}  // namespace

json::object date(const json::object& input) {
    const auto instant = newsroom::parseFeedDate(required<std::string>(input, "text"));
    if (!instant) return {};
    return {{"instant", newsroom::encode(*instant, DateStyle::secondsSince1970)}};
}

json::object feed(const json::object& input) {
    const auto parsed = newsroom::parseFeed(document(input));
    if (!parsed) return failure(parsed.error());
    return {{"entries", newsroom::encode(parsed.value().entries, DateStyle::secondsSince1970)}};
}

json::object excerpt(const json::object& input) {
    const auto limit = required<std::int64_t>(input, "limit");
    if (limit < 0) throw newsroom::RecordError("limit", "the number must not be negative");
    return {{"text", newsroom::excerpt(required<std::string>(input, "html"),
                                       static_cast<std::size_t>(limit))}};
}

json::object stories(const json::object& input) {
    const auto source = required<newsroom::NewsSource>(input, "source");
    const auto now = required<newsroom::Instant>(input, "now");
    const auto parsed = newsroom::parseFeed(document(input), source.feedURL);
    if (!parsed) return failure(parsed.error());
    newsroom::CanonicalLinks links;
    const auto made = newsroom::StoryConversion(links).stories(parsed.value().entries, source, now);
    return {{"stories", newsroom::encode(made, DateStyle::secondsSince1970)}};
}

json::object story(const json::object& input) {
    const auto entry = required<newsroom::FeedEntry>(input, "entry");
    const auto source = required<newsroom::NewsSource>(input, "source");
    const auto now = required<newsroom::Instant>(input, "now");
    newsroom::CanonicalLinks links;
    const auto made = newsroom::StoryConversion(links).story(entry, source, now);
    if (!made) return {};
    return {{"story", newsroom::encode(*made, DateStyle::secondsSince1970)}};
}

json::object query(const json::object& input) {
    const auto compiled = required<newsroom::StoryQuery>(input, "query").compiled();
    json::array matches, terms;
    for (const auto& item : required<std::vector<newsroom::Story>>(input, "stories")) {
        matches.push_back(compiled.matches(item));
        const auto term = compiled.matchedTerm(item);
        terms.push_back(term ? json::value(*term) : json::value());
    }
    return {{"matches", std::move(matches)}, {"terms", std::move(terms)}};
}

}  // namespace brell::inspect
