#pragma once

#include <string>

#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Trackers/Market/PriceChange.h"

/// Times, durations and prices as every command prints them: Presentation's texts in the plain
/// style.
namespace cli {

/// "now", "4 min", "3 h", "Yesterday", "2026-11-02".
std::string ageText(kit::Instant then, kit::Instant now);

/// "just now", "3 h ago", "yesterday", "in 35 min", "in 19 days".
std::string agoText(kit::Instant then, kit::Instant now);

/// "today", "tomorrow", "in 19 days", "5 days ago".
std::string daysAwayText(int days);

/// Whole days from one moment to another.
int daysBetween(kit::Instant now, kit::Instant then);

/// "under a minute", "35 min", "2 h 5 min", "3 d 4 h".
std::string spanText(kit::Instant::duration span);

/// "2026-11-02 08:30 CET"
std::string momentText(kit::Instant instant);

/// "2026-11-02"
std::string dayText(kit::Instant instant);

/// The same for a day without a time, which is the same in every zone.
std::string namedDayText(kit::Instant day);

/// "08:30 CET"
std::string clockText(kit::Instant instant);

/// "1,234.50"
std::string priceText(double price);

/// "+0.38%"
std::string percentText(double percent);

/// "+1.20 (+0.38%)"
std::string changeText(const kit::PriceChange& change);

}  // namespace cli
