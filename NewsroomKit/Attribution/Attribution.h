#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "NewsroomKit/Archive/ArchivePage.h"
#include "NewsroomKit/Archive/TraceResult.h"
#include "NewsroomKit/Attribution/CorrectionOverlay.h"
#include "NewsroomKit/Stories/Story.h"

namespace kit {

/// Which outlet had the news of a cluster first, and how that is known.
struct Attribution {
    enum class Confidence {
        stated,  ///< somebody says so
        timed,   ///< the times, known to the minute, say so
        unclear,
    };
    enum class Basis { correction, credit, archive, trace, time };

    std::optional<std::string> first{};  ///< the outlet; absent when nobody can be named
    std::optional<std::string> story{};  ///< its story's id, when that is on the wire
    std::optional<Instant> at{};
    std::optional<std::string> second{};  ///< the next outlet
    std::optional<std::int64_t> lead{};   ///< seconds before the second outlet, more than 0
    Confidence confidence = Confidence::unclear;
    Basis basis = Basis::time;
    std::int64_t creditedBy = 0;  ///< outlets that credit the first one
    bool scoop = false;           ///< it told before the others what Apple had not told
    std::string sentence{};       ///< all this in one sentence

    bool operator==(const Attribution&) const = default;
};

struct AttributionEvidence {
    /// Those of one cluster, with their corrections applied.
    std::span<const Story* const> stories{};
    /// Only items on the same articles or headlines count.
    std::span<const ArchivedStory> archive{};
    std::span<const TraceResult> traces{};
    const CorrectionOverlay* corrections = nullptr;
};

/// The strongest evidence decides: a correction, then an outlet that others credit with a link,
/// then the times in the archive, in the traces and on the wire. Times that are equal or give only
/// a day make nobody first.
Attribution attributionOf(const AttributionEvidence& evidence);

/// Whether the time stands for a day alone: midnight sharp in UTC, in New York or in California, as
/// feeds write a date without a time.
bool isDayStamp(Instant instant);

template <>
inline constexpr std::array<EnumRow<Attribution::Confidence>, 3> enumTable<Attribution::Confidence>{
    {
        {Attribution::Confidence::stated, "stated", "Stated"},
        {Attribution::Confidence::timed, "timed", "By the times"},
        {Attribution::Confidence::unclear, "unclear", "Unclear"},
    }};

template <>
inline constexpr std::array<EnumRow<Attribution::Basis>, 5> enumTable<Attribution::Basis>{{
    {Attribution::Basis::correction, "correction", "Your correction"},
    {Attribution::Basis::credit, "credit", "Credits"},
    {Attribution::Basis::archive, "archive", "The archive"},
    {Attribution::Basis::trace, "trace", "The trace"},
    {Attribution::Basis::time, "time", "Times of publication"},
}};

template <>
struct JSONFields<Attribution> {
    static constexpr auto fields = std::tuple{
        field("first", &Attribution::first), field("story", &Attribution::story),
        field("at", &Attribution::at),       field("second", &Attribution::second),
        field("lead", &Attribution::lead),   field("confidence", &Attribution::confidence),
        field("basis", &Attribution::basis), field("creditedBy", &Attribution::creditedBy),
        field("scoop", &Attribution::scoop), field("sentence", &Attribution::sentence),
    };
};

}  // namespace kit
