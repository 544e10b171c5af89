#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Backend/RecordDiff.h"
#include "NewsroomKit/Backend/WatchedFile.h"

namespace kit {

enum class FindingKind {
    added,
    removed,
    changed,
    identifier,  ///< of a device, in no earlier state of the file
    wentBack,    ///< the file is as it was in an earlier state
    rebuilt      ///< so many entries are others that none of them is news
};

template <>
inline constexpr std::array<EnumRow<FindingKind>, 6> enumTable<FindingKind>{{
    {FindingKind::added, "added", "New"},
    {FindingKind::removed, "removed", "Gone"},
    {FindingKind::changed, "changed", "Changed"},
    {FindingKind::identifier, "identifier", "Unknown identifier"},
    {FindingKind::wentBack, "wentBack", "Went back"},
    {FindingKind::rebuilt, "rebuilt", "Rebuilt"},
}};

/// What two polls in a row have shown of a watched file.
struct BackendFinding {
    std::string file{};  ///< the id of the watched file
    FindingKind kind{};
    std::string title{};   ///< a fact, in a few words
    std::string extent{};  ///< "+4 builds"
    /// The first of the entries that it is about.
    std::vector<WatchedRecord> added{};
    std::vector<WatchedRecord> removed{};
    std::vector<FieldChange> changed{};
    Instant notSeenAt{};    ///< the last poll without it
    Instant seenAt{};       ///< the first poll with it
    Instant confirmedAt{};  ///< the second one
    /// How long what is gone was there, when this desk saw it come.
    std::optional<std::int64_t> minutesThere{};
    bool isTold = true;  ///< whether it is news, and not noise of a file that goes back and forth

    bool operator==(const BackendFinding&) const = default;
};

template <>
struct JSONFields<BackendFinding> {
    static constexpr auto fields = std::tuple{
        field("file", &BackendFinding::file),
        field("kind", &BackendFinding::kind),
        field("title", &BackendFinding::title),
        field("extent", &BackendFinding::extent),
        field("added", &BackendFinding::added),
        field("removed", &BackendFinding::removed),
        field("changed", &BackendFinding::changed),
        field("notSeenAt", &BackendFinding::notSeenAt),
        field("seenAt", &BackendFinding::seenAt),
        field("confirmedAt", &BackendFinding::confirmedAt),
        field("minutesThere", &BackendFinding::minutesThere),
        field("isTold", &BackendFinding::isTold),
    };
};

/// What a change of this kind can mean, and what it can't.
struct FindingMeaning {
    std::string_view can;
    std::string_view cannot;
};

FindingMeaning meaningOf(WatchedSource source, FindingKind kind);

/// What a diff of two states says, without the times. `identifiers` are those of devices that no
/// earlier state has named, sorted. Builds of managed versions that are public are left out: the
/// update catalogue tells of them.
std::vector<BackendFinding> findingsOf(const WatchedFile& file, const RecordDiff& diff,
                                       const std::vector<WatchedRecord>& before,
                                       const std::vector<WatchedRecord>& after,
                                       const std::vector<std::string>& identifiers);

/// "40 minutes", "3 hours", "2 days".
std::string durationText(std::int64_t minutes);

}  // namespace kit
