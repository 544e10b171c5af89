#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "BrellSharedSync/Merge.h"

namespace shared {

struct SharedRecord {
    std::string id{};  ///< with the prefix of its kind
    FieldSet fields{};

    bool operator==(const SharedRecord&) const = default;
};

struct MergedRecord {
    FieldSet fields{};
    /// Notes that keep texts which could not be brought together. Every computer makes the same
    /// ones, with the same ids. Their field "copyOf" tells of which record, machine and time.
    std::vector<SharedRecord> copies{};
    bool cameBack = false;  ///< was removed by one side and edited by the other
};

/// What `merge` does, and texts that both sides edited brought together by lines: from the version
/// in `base`, where both grew from it. `author` stamps such a text. A text that was removed with
/// knowledge of it gives way to one that was not.
MergedRecord mergeRecords(std::string_view id, const RecordKind& kind, const FieldSet& mine,
                          const FieldSet& theirs, const FieldSet& base, const Author& author);

/// The texts of a record, which are the base of later merges.
FieldSet textsOf(const RecordKind& kind, const FieldSet& fields);

}  // namespace shared
