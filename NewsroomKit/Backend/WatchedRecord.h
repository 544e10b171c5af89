#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Records/EnumTable.h"

namespace kit {

/// What kind of public file is watched, which decides what a record of it is.
enum class WatchedSource {
    gdmf,           ///< versions for managed devices
    assets,         ///< a list of assets for updates
    catalogue,      ///< the catalogue of installers
    configuration,  ///< settings that are fetched by apps
    aasa,           ///< paths that open apps (apple-app-site-association)
    robots,
    sitemap,
    json,
    plist,
};

template <>
inline constexpr std::array<EnumRow<WatchedSource>, 9> enumTable<WatchedSource>{{
    {WatchedSource::gdmf, "gdmf", "Apple's list of versions for managed devices"},
    {WatchedSource::assets, "assets", "Apple's list of assets"},
    {WatchedSource::catalogue, "catalogue", "Apple's catalogue of installers"},
    {WatchedSource::configuration, "configuration", "Apple's remote configuration"},
    {WatchedSource::aasa, "aasa", "the list of links that open apps"},
    {WatchedSource::robots, "robots", "robots.txt"},
    {WatchedSource::sitemap, "sitemap", "the site map"},
    {WatchedSource::json, "json", "the file"},
    {WatchedSource::plist, "plist", "the property list"},
}};

/// One entry of a watched file: what identifies it, and what else it says. Order, signatures and
/// dates that move by themselves are no part of it.
struct WatchedRecord {
    std::string key;
    std::map<std::string, std::string> fields;

    bool operator==(const WatchedRecord&) const = default;
};

template <>
struct JSONFields<WatchedRecord> {
    static constexpr auto fields =
        std::tuple{field("key", &WatchedRecord::key), field("fields", &WatchedRecord::fields)};
};

/// The records of a file, sorted by unique keys. JSON and property lists in XML and binary form
/// are told apart by their bytes. Nothing when the file cannot be read: it is malformed, has more
/// than two million entries, is nested deeper than 128, or contains itself.
std::optional<std::vector<WatchedRecord>> readWatchedRecords(WatchedSource source,
                                                             std::string_view bytes);

}  // namespace kit
