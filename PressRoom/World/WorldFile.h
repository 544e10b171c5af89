#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "PressRoom/World/DataFile.h"

namespace pressroom {

/// The platform of a feed, which determines the format of its document.
enum class Platform {
    wordPress,
    rss,
    rdf,
    atom,
    linkedList,
    appleNewsroom,
    appleBulletin,
    googleNews,
    medium,
    podcast,
    youTube,
    bluesky,
    mastodon,
    reddit
};

/// Where an item has its picture.
enum class PicturePlace { mediaContent, mediaThumbnail, enclosure, inText, emojiThenText };

struct WorldPicture {
    PicturePlace place = PicturePlace::mediaContent;
    std::string url;
    std::optional<bool> missing = {};  ///< the server does not have it
};

/// A headline that replaces the earlier one when its time has come.
struct WorldRevision {
    double minutesAgo = 0;
    std::string title;
};

/// One item of a data file. Times are minutes before the world's anchor; negative ones are after
/// it. README.md explains every key.
struct WorldStory {
    double minutesAgo = 0;
    std::optional<std::string> title;
    std::string text;
    std::optional<std::string> html;
    std::optional<std::string> author;
    std::optional<std::string> link;
    std::optional<std::string> linkOf;
    std::optional<std::string> names;
    std::optional<std::string> tracking;
    std::optional<std::string> slug;
    std::optional<std::string> publisher;
    std::optional<WorldPicture> picture;
    std::optional<std::vector<WorldRevision>> revisions;
    std::optional<std::vector<std::string>> tags;
    std::optional<double> datedMinutesAgo;
    std::optional<bool> undated;
    std::optional<bool> guidOnly;
    std::optional<std::int64_t> post;
};

/// How a feed misbehaves.
struct WorldFault {
    std::optional<std::int64_t> status;
    std::optional<std::string> page;
    std::optional<std::int64_t> retryAfter;
    std::optional<double> untilMinutesAgo;
};

/// One data file: a feed, its owner and its stories.
struct WorldSource {
    std::string id;
    Platform platform = Platform::rss;
    std::string address;  ///< of the feed
    std::string home;     ///< page of the owner
    std::string title;    ///< of the feed
    std::string description;
    std::string articles;  ///< pattern of the addresses of its stories
    std::optional<std::string> author;
    std::optional<std::string> account;
    std::optional<std::string> footer;
    std::optional<WorldFault> fault;
    std::vector<WorldStory> stories;
};

using World = std::vector<WorldSource>;

/// Reads and checks one data file on its own. Throws WorldError.
WorldSource readWorldSource(const std::filesystem::path& file);

/// Reads every `sources/*.json` below `directory`, ordered by name, and refuses two sources with
/// the same id or address. Throws WorldError.
World readWorld(const std::filesystem::path& directory);

}  // namespace pressroom

namespace kit {

template <>
inline constexpr std::array<EnumRow<pressroom::Platform>, 14> enumTable<pressroom::Platform>{{
    {pressroom::Platform::wordPress, "wordPress", "WordPress"},
    {pressroom::Platform::rss, "rss", "RSS 2.0"},
    {pressroom::Platform::rdf, "rdf", "RSS 1.0"},
    {pressroom::Platform::atom, "atom", "Atom"},
    {pressroom::Platform::linkedList, "linkedList", "Linked list"},
    {pressroom::Platform::appleNewsroom, "appleNewsroom", "Apple Newsroom"},
    {pressroom::Platform::appleBulletin, "appleBulletin", "Apple Developer"},
    {pressroom::Platform::googleNews, "googleNews", "Google News"},
    {pressroom::Platform::medium, "medium", "Medium"},
    {pressroom::Platform::podcast, "podcast", "Podcast"},
    {pressroom::Platform::youTube, "youTube", "YouTube"},
    {pressroom::Platform::bluesky, "bluesky", "Bluesky"},
    {pressroom::Platform::mastodon, "mastodon", "Mastodon"},
    {pressroom::Platform::reddit, "reddit", "Reddit"},
}};

template <>
inline constexpr std::array<EnumRow<pressroom::PicturePlace>, 5> enumTable<pressroom::PicturePlace>{
    {
        {pressroom::PicturePlace::mediaContent, "mediaContent", "media:content"},
        {pressroom::PicturePlace::mediaThumbnail, "mediaThumbnail", "media:thumbnail"},
        {pressroom::PicturePlace::enclosure, "enclosure", "enclosure"},
        {pressroom::PicturePlace::inText, "inText", "img"},
        {pressroom::PicturePlace::emojiThenText, "emojiThenText", "emoji, then img"},
    }};

}  // namespace kit
