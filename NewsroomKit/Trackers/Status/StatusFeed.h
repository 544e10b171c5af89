#pragma once

#include "NewsroomKit/Records/EnumTable.h"

namespace kit {

/// Whose services: Apple publishes a status file for each.
enum class StatusFeed { consumer, developer };

template <>
inline constexpr std::array<EnumRow<StatusFeed>, 2> enumTable<StatusFeed>{{
    {StatusFeed::consumer, "consumer", "Apple services"},
    {StatusFeed::developer, "developer", "Developer services"},
}};

}  // namespace kit
