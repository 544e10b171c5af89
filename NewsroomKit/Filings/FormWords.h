#pragma once

#include <string>
#include <string_view>

#include "NewsroomKit/Filings/Filing.h"
#include "NewsroomKit/Signals/Signal.h"

namespace kit {

/// Forms 3, 4, 5 and 144 with their amendments: what insiders report.
bool isOwnershipForm(std::string_view form);
bool isSaleNotice(std::string_view form);

/// "Submission of matters to a vote of shareholders"; empty for a code that the SEC does not use.
std::string_view itemWords(std::string_view code);

/// What a filing tells, in a reporter's words: "Results of the quarter" for item 2.02 of an 8-K,
/// "Annual report, amended".
std::string filingWords(const Filing& filing);

/// Quarterly and annual reports, results and changes of officers weigh most.
SignalWeight filingWeight(const Filing& filing);

}  // namespace kit
