#include "NewsroomKit/Sources/SourceAddress.h"
#include "NewsroomKit/Sources/SourceCatalog.h"
#include "NewsroomKit/Sources/SourceShape.h"
#include "NewsroomKit/Stories/CanonicalLink.h"
#include "NewsroomKit/Stories/PublisherNames.h"
#include "NewsroomKit/Stories/StoryIdentity.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace brell::inspect {

json::object link(const json::object& input) {
    const auto canonical = newsroom::canonicalLink(required<std::string>(input, "link"));
    return {{"canonical", canonical}, {"id", newsroom::storyID(canonical)}};
}

json::object storyID(const json::object& input) {
    return {{"id", newsroom::storyID(required<std::string>(input, "text"))}};
}

json::object publisher(const json::object& input) {
    const auto link = required<std::string>(input, "link");
    const auto name = newsroom::publisherName(link, required<std::string>(input, "feed"));
    return name ? json::object{{"name", *name}} : json::object{};
}

json::object address(const json::object& input) {
    const auto candidates =
        newsroom::SourceAddress::candidates(required<std::string>(input, "text"));
    return {{"candidates", newsroom::encode(candidates)}};
}

json::object catalogue(const json::object&) {
    return {{"sources", newsroom::encode(newsroom::defaultSourceCatalog())}};
}

}  // namespace brell::inspect
