#include "NewsroomKit/Sources/FeedAddresses.h"

#include <fmt/format.h>

#include "NewsroomKit/Sources/PlatformHosts.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

std::string googleNewsSearchFeed(std::string_view domain) {
    return fmt::format("https://{}/rss/search?q=Apple+site:{}+when:7d&hl=en-US&gl=US&ceid=US:en",
                       hosts::kGoogleNews, domain);
}

std::string youTubeChannelFeed(std::string_view channelID) {
    return fmt::format("https://{}/feeds/videos.xml?channel_id={}", hosts::kYouTubeFeeds,
                       channelID);
}

std::string blueskyProfileFeed(std::string_view handle) {
    return fmt::format("https://{}/profile/{}/rss", hosts::kBluesky, lowercasedASCII(handle));
}

std::string mastodonFeed(std::string_view server, std::string_view user) {
    return fmt::format("https://{}/@{}.rss", lowercasedASCII(server), user);
}

std::string redditFeed(std::string_view subreddit) {
    return fmt::format("https://{}/r/{}/.rss", hosts::kRedditFeeds, subreddit);
}

std::string mediumFeed(std::string_view account) {
    return fmt::format("https://{}/feed/{}", hosts::kMedium, account);
}

}  // namespace kit
