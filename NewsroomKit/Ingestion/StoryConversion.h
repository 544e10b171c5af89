#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "NewsroomKit/Feeds/FeedEntry.h"
#include "NewsroomKit/Feeds/WorkLimit.h"
#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Sources/NewsSource.h"
#include "NewsroomKit/Stories/CanonicalLink.h"
#include "NewsroomKit/Stories/Story.h"

namespace kit {

/// Converts feed entries to stories; the only place that does.
class StoryConversion {
public:
    /// `links` is shared by all conversions of the process and must outlive this.
    explicit StoryConversion(CanonicalLinks& links) : links_(links) {}

    /// Nothing when the entry is refused: no headline, no http(s) link with a host, or a link that
    /// is longer than servers accept.
    std::optional<Story> story(const FeedEntry& entry, const NewsSource& source, Instant now) const;

    /// The stories of a whole feed in its order, without refused entries and those for which
    /// `limit` leaves no time.
    std::vector<Story> stories(const std::vector<FeedEntry>& entries, const NewsSource& source,
                               Instant now, const WorkLimit& limit = {}) const;

private:
    std::optional<Story> convert(const FeedEntry& entry, const NewsSource& source, Instant now,
                                 std::string_view feedHost) const;

    CanonicalLinks& links_;
};

}  // namespace kit
