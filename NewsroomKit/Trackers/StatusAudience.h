#pragma once

#include "NewsroomKit/Records/EnumTable.h"

namespace newsroom {

/// Whose services: Apple publishes a status file for each.
enum class StatusAudience { consumer, developer };

template <>
inline constexpr std::array<EnumRow<StatusAudience>, 2> enumTable<StatusAudience>{{
    {StatusAudience::consumer, "consumer", "Apple services"},
    {StatusAudience::developer, "developer", "Developer services"},
}};

}  // namespace newsroom
