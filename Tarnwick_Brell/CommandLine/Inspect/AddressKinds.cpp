#include "NewsroomKit/Sources/SourceAddress.h"
#include "NewsroomKit/Sources/SourceCatalog.h"
#include "NewsroomKit/Sources/SourceJSON.h"
#include "NewsroomKit/Stories/CanonicalLink.h"
#include "NewsroomKit/Stories/PublisherNames.h"
#include "NewsroomKit/Stories/StoryIdentity.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace cli::inspect {

json::object link(const json::object& input) {
    const auto canonical = kit::canonicalLink(required<std::string>(input, "link"));
    return {{"canonical", canonical}, {"id", kit::storyID(canonical)}};
}

json::object storyID(const json::object& input) {
    return {{"id", kit::storyID(required<std::string>(input, "text"))}};
}

json::object publisher(const json::object& input) {
    const auto link = required<std::string>(input, "link");
    const auto name = kit::publisherName(link, required<std::string>(input, "feed"));
    return name ? json::object{{"name", *name}} : json::object{};
}

json::object address(const json::object& input) {
    const auto candidates = kit::SourceAddress::candidates(required<std::string>(input, "text"));
    return {{"candidates", kit::encode(candidates)}};
}

json::object catalogue(const json::object&) {
    return {{"sources", kit::encode(kit::defaultSourceCatalog())}};
}

}  // namespace cli::inspect
