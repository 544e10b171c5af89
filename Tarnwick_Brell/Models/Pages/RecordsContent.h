#pragma once

#include <optional>
#include <vector>

#include "NewsroomKit/Panels/FilingsContent.h"
#include "NewsroomKit/Panels/InsidersContent.h"
#include "NewsroomKit/Panels/PressContent.h"
#include "Tarnwick_Brell/Trackers/HeldRecords.h"

namespace app {

/// What the page of filings and courts shows, before its filters.
struct RecordsContent {
    HeldRecords held{};
    std::vector<kit::PressRelease> releases{};
    std::vector<kit::FilingRow> filings{};
    std::vector<kit::InsiderRow> insiders{};
    std::vector<kit::PressRow> press{};
};

/// Compares all filings with all releases: not for the main thread.
RecordsContent recordsContent(HeldRecords held);

/// A record in full; nothing for one that the library does not have.
std::optional<kit::FilingRecord> recordIn(const RecordsContent& content,
                                          const std::string& accession);

/// The names in the order of the alphabet, each once.
std::vector<std::string> namesIn(std::vector<std::string> names);

}  // namespace app
