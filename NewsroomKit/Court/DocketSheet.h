#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Records/EnumTable.h"
#include "NewsroomKit/Records/Instant.h"

namespace kit {

/// Whether reporters want to hear of an entry.
enum class DocketWeight { matters, routine };

template <>
inline constexpr std::array<EnumRow<DocketWeight>, 2> enumTable<DocketWeight>{{
    {DocketWeight::matters, "matters", "Matters"},
    {DocketWeight::routine, "routine", "Routine"},
}};

/// One entry of a court's docket: a filing with all of its events.
struct DocketEntry {
    std::string key{};                   ///< the same in every answer
    std::optional<std::string> court{};  ///< its short name, as "cafc"
    std::optional<std::string> caseNumber{};
    std::optional<std::string> caseName{};
    std::optional<std::string> number{};  ///< absent for minute entries
    std::string kind{};                   ///< as "Judgment", the heading of longer texts
    std::string text{};                   ///< may still be a stub: no more than the kind
    std::optional<Instant> date{};
    bool dayOnly = false;  ///< the date has no time of day
    std::optional<std::string> link{};
    std::optional<std::string> documentLink{};
    std::optional<bool> paid{};  ///< whether the document costs money
    DocketWeight weight = DocketWeight::routine;

    bool operator==(const DocketEntry&) const = default;
};

template <>
struct JSONFields<DocketEntry> {
    static constexpr auto fields = std::tuple{
        field("key", &DocketEntry::key),
        field("court", &DocketEntry::court),
        field("case", &DocketEntry::caseNumber),
        field("caseName", &DocketEntry::caseName),
        field("number", &DocketEntry::number),
        field("kind", &DocketEntry::kind),
        field("text", &DocketEntry::text),
        field("date", &DocketEntry::date),
        field("dayOnly", &DocketEntry::dayOnly),
        field("link", &DocketEntry::link),
        field("documentLink", &DocketEntry::documentLink),
        field("paid", &DocketEntry::paid),
        field("weight", &DocketEntry::weight),
    };
};

/// A case as CourtListener describes it. Its answers name the parties without their sides.
struct CourtCase {
    std::int64_t docket = 0;  ///< CourtListener's number of the docket
    std::string court{};      ///< its short name
    std::string courtName{};
    std::string number{};
    std::string name{};
    std::optional<Instant> filed{};       ///< a day
    std::optional<Instant> terminated{};  ///< a day
    std::string cause{};
    std::string nature{};
    std::string judge{};
    std::vector<std::string> parties{};
    std::string link{};

    bool operator==(const CourtCase&) const = default;
};

template <>
struct JSONFields<CourtCase> {
    static constexpr auto fields = std::tuple{
        field("docket", &CourtCase::docket),
        field("court", &CourtCase::court),
        field("courtName", &CourtCase::courtName),
        field("number", &CourtCase::number),
        field("name", &CourtCase::name),
        field("filed", &CourtCase::filed),
        field("terminated", &CourtCase::terminated),
        field("cause", &CourtCase::cause),
        field("nature", &CourtCase::nature),
        field("judge", &CourtCase::judge),
        field("parties", &CourtCase::parties),
        field("link", &CourtCase::link),
    };
};

/// What a court's feed, CourtListener or an archived docket lists.
struct DocketSheet {
    std::optional<std::string> scope{};  ///< what a court's feed carries, in its own words
    bool partial = false;                ///< entries of some kinds are missing
    std::optional<Instant> built{};      ///< when the list was made
    std::vector<DocketEntry> entries{};  ///< in document order
    std::vector<CourtCase> cases{};      ///< of a search

    bool operator==(const DocketSheet&) const = default;
};

}  // namespace kit
