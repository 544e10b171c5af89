#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// A post on a social platform, as derived from its address.
struct SocialPost {
    std::string platform;  ///< "X", "Bluesky", "Mastodon", "Threads"
    std::string account;   ///< "@name", with "@server" where accounts need one
    /// Decoded from the post's number where that contains the time.
    std::optional<Instant> postedAt;
};

/// Nothing when the address is not that of a single post.
std::optional<SocialPost> socialPost(std::string_view address);

}  // namespace kit
