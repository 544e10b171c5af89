#pragma once

#include <string>

#include "PressRoom/World/Edition.h"

namespace pressroom {

/// A feed document in the format of its platform.
std::string renderFeed(const Edition& edition);

/// The content type that servers of the platform send.
std::string feedContentType(Platform platform);

/// The link that Google News uses in place of the article's address.
std::string googleNewsLink(const Item& item);

// One renderer per platform, each in the file of its name.
std::string renderWordPress(const Edition& edition);
std::string renderRSS(const Edition& edition);
std::string renderRDF(const Edition& edition);
std::string renderAtom(const Edition& edition);
std::string renderLinkedList(const Edition& edition);
std::string renderAppleNewsroom(const Edition& edition);
std::string renderAppleBulletin(const Edition& edition);
std::string renderGoogleNews(const Edition& edition);
std::string renderMedium(const Edition& edition);
std::string renderPodcast(const Edition& edition);
std::string renderYouTube(const Edition& edition);
std::string renderBluesky(const Edition& edition);
std::string renderMastodon(const Edition& edition);
std::string renderReddit(const Edition& edition);

}  // namespace pressroom
