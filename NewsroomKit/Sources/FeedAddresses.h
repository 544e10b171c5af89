#pragma once

#include <string>
#include <string_view>

namespace kit {

/// Google News's search feed for stories about Apple on one site within the last seven
/// days, United States English edition.
std::string googleNewsSearchFeed(std::string_view domain);

std::string youTubeChannelFeed(std::string_view channelID);

/// The feed of a Bluesky profile; the handle is written in lower case.
std::string blueskyProfileFeed(std::string_view handle);

/// The feed of a Mastodon (or other fediverse) account.
std::string mastodonFeed(std::string_view server, std::string_view user);

std::string redditFeed(std::string_view subreddit);

/// `account` begins with "@".
std::string mediumFeed(std::string_view account);

}  // namespace kit
