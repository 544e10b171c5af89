#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "NewsroomKit/Filings/FollowedFiling.h"
#include "NewsroomKit/PressWires/PressRelease.h"

namespace kit {

/// A filing as lists show it.
struct FilingRow {
    Filing filing{};
    std::string company{};
    std::string symbol{};
    std::string words{};                                       ///< what it tells
    std::string headline{};                                    ///< of its exhibit 99; may be empty
    std::vector<std::pair<std::string, std::string>> items{};  ///< codes with their words
    SignalWeight weight = SignalWeight::routine;
    Instant seenAt{};
    std::optional<std::string> acceptedClock{};  ///< "16:31", in New York
    /// How many days after that of its acceptance it is dated, or before; 0 for the same day.
    int daysOff = 0;
    std::optional<PressRelease> release{};  ///< that carries the same text
    bool isAmended = false;                 ///< another filing amends it
};

struct FilingFilter {
    std::string company{};  ///< a part of its name, or its symbol; empty for all
    std::string form{};     ///< exactly, or without "/A"; empty for all
    std::optional<Instant> since{};
};

/// The last accepted first.
std::vector<FilingRow> filingRows(const std::vector<FollowedFiling>& filings,
                                  const FilingFilter& filter,
                                  const std::vector<PressRelease>& releases = {});

/// "sold"; the code where the SEC has no such.
std::string tradeVerb(std::string_view code, std::optional<bool> acquired);

/// Whether the words are a part of the company's name, or its symbol.
bool isCompanyNamed(std::int64_t cik, std::string_view words);

/// Another filing that this one amends, or that amends it.
struct RelatedFiling {
    std::string accession{};
    std::string form{};
    std::string filed{};  ///< empty when the desk has not seen it
    std::optional<std::string> link{};
};

/// A note as it stands in a form: "F1" and its text.
struct FormNote {
    std::string name{};
    std::string text{};
};

struct NotedTrade {
    Trade trade{};
    std::string verb{};  ///< "sold"; the code where the SEC has no such
    std::vector<FormNote> notes{};
};

struct NotedHolding {
    Holding holding{};
    std::vector<FormNote> notes{};
};

/// All that the desk knows of one filing.
struct FilingRecord {
    FilingRow row{};
    std::optional<RelatedFiling> amends{};
    std::vector<RelatedFiling> amendedBy{};
    std::vector<FilingDocument> documents{};  ///< exhibits 99 first; empty until they are read
    std::vector<FormOwner> owners{};
    std::optional<TradingPlan> plan{};  ///< only of forms of trades
    std::vector<NotedTrade> trades{};   ///< as filed, row by row
    std::vector<NotedHolding> holdings{};
    std::vector<TradeSum> sums{};  ///< the desk's
    std::optional<SaleNotice> notice{};
};

/// Nothing for a number that is not among the filings.
std::optional<FilingRecord> filingRecord(const std::vector<FollowedFiling>& filings,
                                         std::string_view accession,
                                         const std::vector<PressRelease>& releases = {});

/// Whether a press release carries the text of a filing's exhibit: by the same company, within a
/// day, under the same title.
bool isSameText(const FollowedFiling& filing, const PressRelease& release);

/// The filing with the text of a press release; null when there is none.
const FollowedFiling* filingOf(const std::vector<FollowedFiling>& filings,
                               const PressRelease& release);

}  // namespace kit
