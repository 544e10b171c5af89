#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Stories/Story.h"
#include "Tarnwick_Brell/Storage/Database.h"

namespace desk {

/// A story with the moment in which the desk first saw it.
struct StoredStory {
    newsroom::Story story;
    newsroom::Instant firstSeen{};
};

/// What came of adding stories to the wire.
struct MergeCount {
    std::size_t added = 0;
    std::size_t revised = 0;   ///< already known, with another title, excerpt or label now
    std::size_t collided = 0;  ///< same id, other link: the story that was there stays

    MergeCount& operator+=(const MergeCount& other);
};

/// The stories of the library.
class StoryTable {
public:
    explicit StoryTable(Database& database) : database_(database) {}

    /// Adds new stories. A known one keeps its id, link, publication time and first-seen
    /// time; everything else follows the newest fetch. Within the caller's transaction.
    MergeCount merge(std::span<const newsroom::Story> stories, newsroom::Instant seen);

    /// Stories in the order of the wire (newest first), until `visit` says false.
    void eachInWireOrder(std::optional<newsroom::Instant> since,
                         const std::function<bool(const StoredStory&)>& visit);

    /// Stories whose id begins with `prefix`, at most `limit`; an exact id comes alone.
    std::vector<StoredStory> findByID(std::string_view prefix, std::size_t limit);

    std::size_t count();

    /// Returns how many went.
    std::size_t dropPublishedBefore(newsroom::Instant cutoff);

private:
    Database& database_;
};

}  // namespace desk
