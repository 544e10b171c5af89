#include "NewsroomKit/Stories/Story.h"

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Records/RecordHash.h"
#include "NewsroomKit/Sources/PlatformHosts.h"
#include "NewsroomKit/Stories/StoryShape.h"
#include "NewsroomKit/Text/Unicode.h"

namespace newsroom {

bool Story::needsArticleLink() const {
    if (articleLink) return false;
    const auto address = WebAddress::parse(link);
    return address && address->host == hosts::kGoogleNews;
}

std::optional<std::string> Story::shownDestinationName() const {
    if (!destinationName || equalIgnoringCase(*destinationName, sourceName)) return std::nullopt;
    return destinationName;
}

}  // namespace newsroom

std::size_t std::hash<newsroom::Story>::operator()(const newsroom::Story& story) const noexcept {
    return newsroom::RecordHash<newsroom::Story>{}(story);
}
