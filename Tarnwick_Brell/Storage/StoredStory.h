#pragma once

#include <cstdint>
#include <optional>

#include "NewsroomKit/Records/EnumTable.h"
#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Stories/Story.h"

namespace desk {

/// How a story came to the desk.
enum class Arrival {
    fresh,   ///< as news
    seeded,  ///< with the first fetch of its source
    bulk,    ///< in a crowd that looks like an archive published anew
    late     ///< days after it was published
};

/// A story with what the desk knows about it.
struct StoredStory {
    newsroom::Story story{};
    std::int64_t number = 0;  ///< see StoryNumber.h
    newsroom::Instant firstSeen{};
    Arrival arrival = Arrival::fresh;
    std::optional<newsroom::Instant> readAt{};
    std::optional<newsroom::Instant> savedAt{};
};

}  // namespace desk

template <>
inline constexpr std::array<newsroom::EnumRow<desk::Arrival>, 4> newsroom::enumTable<desk::Arrival>{
    {
        {desk::Arrival::fresh, "fresh", "As news"},
        {desk::Arrival::seeded, "seeded", "With the first fetch of its source"},
        {desk::Arrival::bulk, "bulk", "In bulk"},
        {desk::Arrival::late, "late", "Days after it was published"},
    }};
