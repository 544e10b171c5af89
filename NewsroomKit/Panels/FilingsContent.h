#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "NewsroomKit/Filings/FollowedFiling.h"

namespace kit {

/// A filing as lists show it.
struct FilingRow {
    Filing filing{};
    std::string company{};
    std::string words{};                                       ///< what it tells
    std::vector<std::pair<std::string, std::string>> items{};  ///< codes with their words
    SignalWeight weight = SignalWeight::routine;
    Instant seenAt{};
    /// The legal day is not the day in New York on which it was accepted.
    bool isDatedOtherwise = false;
};

struct FilingFilter {
    std::string company{};  ///< a part of its name, or its symbol; empty for all
    std::string form{};     ///< exactly, or without "/A"; empty for all
    std::optional<Instant> since{};
};

/// The last accepted first.
std::vector<FilingRow> filingRows(const std::vector<FollowedFiling>& filings,
                                  const FilingFilter& filter);

/// Whether the words are a part of the company's name, or its symbol.
bool isCompanyNamed(std::int64_t cik, std::string_view words);

}  // namespace kit
