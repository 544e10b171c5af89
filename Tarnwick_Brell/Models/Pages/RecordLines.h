#pragma once

#include <optional>
#include <vector>

#include "NewsroomKit/Panels/FilingsContent.h"
#include "NewsroomKit/Panels/InsidersContent.h"
#include "NewsroomKit/Panels/PressContent.h"
#include "Tarnwick_Brell/Models/Pages/RecordRows.h"

/// Filings, trades of insiders and press releases as lines. `lookedAt` is the last look at the
/// page: what was first seen later is new.
namespace app {

std::vector<RecordLine> filingLines(const std::vector<kit::FilingRow>& rows,
                                    std::optional<kit::Instant> lookedAt, kit::Instant now);

std::vector<RecordLine> pressLines(const std::vector<kit::PressRow>& rows,
                                   std::optional<kit::Instant> lookedAt, kit::Instant now);

/// A line for each kind of trade of a row; without `showsRoutine` only for decisions. `places` gets
/// the row of each line.
std::vector<InsiderLine> insiderLines(const std::vector<kit::InsiderRow>& rows, bool showsRoutine,
                                      kit::Instant now, std::vector<std::size_t>& places);

/// "under a plan of 12 May 2026", "No plan" or "Not said".
QString tradingPlanText(kit::TradingPlan plan, const std::optional<std::string>& day,
                        kit::Instant now);

/// "65,000", without the decimals of whole shares.
QString sharesText(double shares);

/// "20.5 M"; as a price below ten thousand.
QString valueText(double dollars);

/// "16 May" for "2026-05-16"; as it stands when it is no day.
QString recordDayText(const std::string& day, kit::Instant now);

}  // namespace app
