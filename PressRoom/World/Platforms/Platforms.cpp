#include "PressRoom/World/Platforms/Platforms.h"

namespace pressroom {

std::string renderFeed(const Edition& edition) {
    switch (edition.source->platform) {
        case Platform::wordPress: return renderWordPress(edition);
        case Platform::rss: return renderRSS(edition);
        case Platform::rdf: return renderRDF(edition);
        case Platform::atom: return renderAtom(edition);
        case Platform::linkedList: return renderLinkedList(edition);
        case Platform::appleNewsroom: return renderAppleNewsroom(edition);
        case Platform::appleBulletin: return renderAppleBulletin(edition);
        case Platform::googleNews: return renderGoogleNews(edition);
        case Platform::medium: return renderMedium(edition);
        case Platform::podcast: return renderPodcast(edition);
        case Platform::youTube: return renderYouTube(edition);
        case Platform::bluesky: return renderBluesky(edition);
        case Platform::mastodon: return renderMastodon(edition);
        case Platform::reddit: return renderReddit(edition);
    }
    return {};
}

std::string feedContentType(Platform platform) {
    switch (platform) {
        case Platform::atom:
        case Platform::linkedList:
        case Platform::reddit: return "application/atom+xml; charset=UTF-8";
        case Platform::youTube:
        case Platform::rdf: return "text/xml; charset=UTF-8";
        case Platform::googleNews:
        case Platform::appleNewsroom:
        case Platform::appleBulletin: return "application/xml";
        case Platform::wordPress:
        case Platform::rss:
        case Platform::medium:
        case Platform::podcast:
        case Platform::bluesky:
        case Platform::mastodon: return "application/rss+xml; charset=UTF-8";
    }
    return {};
}

}  // namespace pressroom
