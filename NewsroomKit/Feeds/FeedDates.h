#pragma once

#include <optional>
#include <string_view>

#include "NewsroomKit/Records/Instant.h"

namespace newsroom {

/// Reads the date of a feed item: ISO 8601, then "Thu, 01 Oct 2026 08:30:00 GMT" and its
/// shorter forms, then "2026-10-01 08:30:00". White space around it is ignored.
///
/// Names of days and months are English, in either letter case, cut to three letters or
/// more ("Sep", "Sept", "September"); the weekday need not fit the date, and publishers
/// often get it wrong. Days, months and hours may lack their leading zero. Years of two
/// digits lie between 1950 and 2049. A time without a zone is UTC. A date that does not
/// exist, an unknown zone or anything left over gives nothing.
std::optional<Instant> parseFeedDate(std::string_view text);

}  // namespace newsroom
