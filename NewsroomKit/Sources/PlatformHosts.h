#pragma once

#include <string_view>

/// Host names of the platforms whose feeds have forms of their own.
namespace kit::hosts {

inline constexpr std::string_view kGoogleNews = "news.google.com";
inline constexpr std::string_view kYouTube = "youtube.com";
inline constexpr std::string_view kYouTubeFeeds = "www.youtube.com";
inline constexpr std::string_view kYouTubeShort = "youtu.be";
inline constexpr std::string_view kBluesky = "bsky.app";
inline constexpr std::string_view kBlueskyHandleSuffix = ".bsky.social";
inline constexpr std::string_view kReddit = "reddit.com";
inline constexpr std::string_view kRedditFeeds = "www.reddit.com";
inline constexpr std::string_view kMedium = "medium.com";
inline constexpr std::string_view kApple = "apple.com";
inline constexpr std::string_view kAppleWWW = "www.apple.com";

}  // namespace kit::hosts
