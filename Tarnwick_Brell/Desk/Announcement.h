#pragma once

#include <cstddef>
#include <vector>

#include "NewsroomKit/Stories/Story.h"

namespace desk {

/// News to tell the user of. A crowd is told of as one: then `stories` has the newest only.
struct Announcement {
    static constexpr std::size_t kMostOneByOne = 20;

    std::vector<newsroom::Story> stories{};  ///< newest first
    std::size_t total = 0;

    bool isSummary() const { return total > kMostOneByOne; }
};

}  // namespace desk
