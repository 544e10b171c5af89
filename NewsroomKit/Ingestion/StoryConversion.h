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

/// Makes stories from feed entries; the only place where one becomes the other.
class StoryConversion {
public:
    /// `links` is shared by all conversions of the process and must outlive this.
    explicit StoryConversion(CanonicalLinks& links) : links_(links) {}

    /// Nothing when the entry is refused: no headline, no http(s) link with a host, or a link
    /// longer than any server takes.
    std::optional<Story> story(const FeedEntry& entry, const NewsSource& source, Instant now) const;

    /// The stories of a whole feed in its order, refused entries left out, and those for which
    /// `limit` leaves no time.
    std::vector<Story> stories(const std::vector<FeedEntry>& entries, const NewsSource& source,
                               Instant now, const WorkLimit& limit = {}) const;

private:
    std::optional<Story> convert(const FeedEntry& entry, const NewsSource& source, Instant now,
                                 std::string_view feedHost) const;

    CanonicalLinks& links_;
};

}  // namespace kit
