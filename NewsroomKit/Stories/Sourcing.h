#pragma once

#include "NewsroomKit/Records/EnumTable.h"

namespace kit {

/// How firmly a story is sourced, from firmest to weakest.
enum class Sourcing { confirmed, onRecord, report, rumor, unlabeled };

template <>
inline constexpr std::array<EnumRow<Sourcing>, 5> enumTable<Sourcing>{{
    {Sourcing::confirmed, "confirmed", "Confirmed"},
    {Sourcing::onRecord, "onRecord", "On the record"},
    {Sourcing::report, "report", "Report"},
    {Sourcing::rumor, "rumor", "Rumor"},
    {Sourcing::unlabeled, "unlabeled", ""},
}};

}  // namespace kit
