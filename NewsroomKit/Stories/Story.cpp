#include "NewsroomKit/Stories/Story.h"

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Records/RecordHash.h"
#include "NewsroomKit/Sources/PlatformHosts.h"
#include "NewsroomKit/Stories/StoryJSON.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

bool Story::needsArticleLink() const {
    if (articleLink) return false;
    const auto address = WebAddress::parse(link);
    return address && address->host == hosts::kGoogleNews;
}

std::optional<std::string> Story::shownDestinationName() const {
    if (!destinationName || equalIgnoringCase(*destinationName, sourceName)) return std::nullopt;
    return destinationName;
}

}  // namespace kit

std::size_t std::hash<kit::Story>::operator()(const kit::Story& story) const noexcept {
    return kit::RecordHash<kit::Story>{}(story);
}
