#pragma once

#include <cstdint>
#include <optional>

#include "NewsroomKit/Records/EnumTable.h"
#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Stories/Story.h"

namespace app {

/// How a story came to the desk.
enum class Arrival {
    fresh,   ///< as news
    seeded,  ///< with the first fetch of its source
    bulk,    ///< in a crowd that looks like an archive published anew
    late     ///< days after it was published
};

/// A story with what the desk knows about it.
struct StoredStory {
    kit::Story story{};
    std::int64_t number = 0;  ///< see StoryNumber.h
    kit::Instant firstSeen{};
    Arrival arrival = Arrival::fresh;
    std::optional<kit::Instant> readAt{};
    std::optional<kit::Instant> savedAt{};
};

}  // namespace app

template <>
inline constexpr std::array<kit::EnumRow<app::Arrival>, 4> kit::enumTable<app::Arrival>{{
    {app::Arrival::fresh, "fresh", "As news"},
    {app::Arrival::seeded, "seeded", "With the first fetch of its source"},
    {app::Arrival::bulk, "bulk", "In bulk"},
    {app::Arrival::late, "late", "Days after it was published"},
}};
