#pragma once

#include <optional>
#include <string_view>

#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// Reads the date of a feed item: ISO 8601, then "Thu, 01 Oct 2026 08:30:00 GMT" and its
/// relatives ("Do 1. Okt. 2026 8:30", "Oct 1, 2026", "Thu Oct 1 08:30:00 2026"), then
/// "2026-10-01 08:30:00" and "2026/10/1". White space around it is ignored.
///
/// Names of months are those of seven European languages, in either letter case, with or
/// without accents, cut to three letters or more ("Sep", "Sept", "September"). The weekday may
/// be any word: publishers often get it wrong. Days, months and hours may lack their leading
/// zero. Years of two digits lie between 1950 and 2049. A time without a zone is UTC, a day
/// without a time its midnight. A date that does not exist, an unknown zone or anything left
/// over gives nothing.
std::optional<Instant> parseFeedDate(std::string_view text);

}  // namespace kit
