#include "NewsroomKit/Feeds/FeedDates.h"
#include "NewsroomKit/Feeds/FeedParser.h"
#include "NewsroomKit/Feeds/HTMLText.h"
#include "NewsroomKit/Ingestion/StoryConversion.h"
#include "NewsroomKit/Queries/StoryQuery.h"
#include "NewsroomKit/Sources/SourceJSON.h"
#include "NewsroomKit/Stories/StoryJSON.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace kit {

/// The serialised form of a feed entry: its keys in this order.
template <>
struct JSONFields<FeedEntry> {
    static constexpr auto fields = std::tuple{
        field("guid", &FeedEntry::guid),
        field("title", &FeedEntry::title),
        field("link", &FeedEntry::link),
        field("summaryHTML", &FeedEntry::summaryHTML),
        field("contentHTML", &FeedEntry::contentHTML),
        field("publishedAt", &FeedEntry::publishedAt),
        field("imageURL", &FeedEntry::imageURL),
        field("author", &FeedEntry::author),
        field("publisher", &FeedEntry::publisher),
        field("medium", &FeedEntry::medium),
    };
};

}  // namespace kit

namespace cli::inspect {

namespace {

json::object failure(kit::FeedParserError error) {
    return {{"error", kit::rawValue(error)}, {"description", kit::description(error)}};
}

}  // namespace

json::object date(const json::object& input) {
    const auto instant = kit::parseFeedDate(required<std::string>(input, "text"));
    if (!instant) return {};
    return {{"instant", kit::encode(*instant, DateStyle::secondsSince1970)}};
}

json::object feed(const json::object& input) {
    const auto parsed = kit::parseFeed(document(input));
    if (!parsed) return failure(parsed.error());
    return {{"entries", kit::encode(parsed.value().entries, DateStyle::secondsSince1970)}};
}

json::object excerpt(const json::object& input) {
    const auto limit = required<std::int64_t>(input, "limit");
    if (limit < 0) throw kit::RecordError("limit", "the number must not be negative");
    return {{"text",
             kit::excerpt(required<std::string>(input, "html"), static_cast<std::size_t>(limit))}};
}

json::object stories(const json::object& input) {
    const auto source = required<kit::NewsSource>(input, "source");
    const auto now = required<kit::Instant>(input, "now");
    const auto parsed = kit::parseFeed(document(input), source.feedURL);
    if (!parsed) return failure(parsed.error());
    kit::CanonicalLinks links;
    const auto made = kit::StoryConversion(links).stories(parsed.value().entries, source, now);
    return {{"stories", kit::encode(made, DateStyle::secondsSince1970)}};
}

json::object story(const json::object& input) {
    const auto entry = required<kit::FeedEntry>(input, "entry");
    const auto source = required<kit::NewsSource>(input, "source");
    const auto now = required<kit::Instant>(input, "now");
    kit::CanonicalLinks links;
    const auto made = kit::StoryConversion(links).story(entry, source, now);
    if (!made) return {};
    return {{"story", kit::encode(*made, DateStyle::secondsSince1970)}};
}

json::object query(const json::object& input) {
    const auto compiled = required<kit::StoryQuery>(input, "query").compiled();
    json::array matches, terms;
    for (const auto& item : required<std::vector<kit::Story>>(input, "stories")) {
        matches.push_back(compiled.matches(item));
        const auto term = compiled.matchedTerm(item);
        terms.push_back(term ? json::value(*term) : json::value());
    }
    return {{"matches", std::move(matches)}, {"terms", std::move(terms)}};
}

}  // namespace cli::inspect
