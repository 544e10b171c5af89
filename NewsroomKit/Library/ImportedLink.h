#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Library/ImportPreview.h"
#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// An entry of a file of links, as it stands there.
struct ImportedLink {
    std::size_t line = 0;
    std::string link{};
    std::string title{};
    std::string excerpt{};
    std::vector<std::string> tags{};
    std::optional<Instant> addedAt{};
    bool hasUnreadableDate = false;
    bool isRead = false;
    bool isUnclosed = false;  ///< a quote of its row is never closed

    bool operator==(const ImportedLink&) const = default;
};

/// Sets addedAt from seconds since 1970 (or thousandths or millionths of them) or a written date.
void readAddedAt(std::string_view text, ImportedLink& link);

/// The parts of a list of tags, each on one line and trimmed, empty ones dropped.
void appendTags(std::string_view list, char separator, std::vector<std::string>& tags);

/// Reads the file of bookmarks that browsers write, whatever HTML it is. Titles of folders are
/// tags, apart from those of the browser's own folders. Stops behind `most` links.
std::vector<ImportedLink> readBookmarks(std::string_view utf8, std::size_t most);

/// Reads a table whose first line names its columns: title, url, time_added, tags, status, excerpt
/// and the other names that programs give them, in any order. Refuses one without addresses.
boost::outcome_v2::unchecked<std::vector<ImportedLink>, ImportRefusal> readLinkTable(
    std::string_view utf8, std::size_t most);

/// Whether the first line of a table names a column of addresses.
bool isLinkTable(std::string_view utf8);

}  // namespace kit
