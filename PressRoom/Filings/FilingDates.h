#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "PressRoom/Filings/FilingsWorld.h"

/// The days and numbers of filings as the SEC writes them. All days are New York's.
namespace pressroom {

std::chrono::sys_seconds acceptanceOf(const WorldFiling& filing, std::chrono::sys_seconds anchor);

/// Whether the SEC shows it at that moment.
bool isShown(const WorldFiling& filing, std::chrono::sys_seconds anchor,
             std::chrono::sys_seconds now);

/// "0000320193-26-000012"
std::string accessionOf(const WorldFiler& filer, const WorldFiling& filing,
                        std::chrono::sys_seconds anchor);

/// The legal day: that of the acceptance, after 17:30 the next business day; of insiders' forms
/// that of the acceptance until 22:00.
std::string filingDay(const WorldFiling& filing, std::chrono::sys_seconds anchor);

/// The day so long before the acceptance.
std::string dayBefore(const WorldFiling& filing, std::chrono::sys_seconds anchor, double days);

std::optional<std::string> periodOf(const WorldFiling& filing, std::chrono::sys_seconds anchor);

/// "2026-11-19T18:31:05-05:00"
std::string newYorkTime(std::chrono::sys_seconds instant);

/// "20261119183105" from that, "20261119" from a day.
std::string digitsOf(const std::string& text);

/// "11/19/2026" from "2026-11-19"
std::string slashedDay(const std::string& day);

}  // namespace pressroom
