#pragma once

#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Backend/WatchedRecord.h"

namespace kit {

/// One field of a record that stayed. A side is absent where the record does not have the field.
struct FieldChange {
    std::string key;
    std::string field;
    std::optional<std::string> before;
    std::optional<std::string> after;

    bool operator==(const FieldChange&) const = default;
};

/// What two states of a watched file differ in: sorted by key, changes by field too.
struct RecordDiff {
    std::vector<WatchedRecord> added;
    std::vector<WatchedRecord> removed;
    std::vector<FieldChange> changed;
};

template <>
struct JSONFields<FieldChange> {
    static constexpr auto fields =
        std::tuple{field("key", &FieldChange::key), field("field", &FieldChange::field),
                   field("before", &FieldChange::before), field("after", &FieldChange::after)};
};

/// Both sides as readWatchedRecords returns them.
RecordDiff compareRecords(const std::vector<WatchedRecord>& before,
                          const std::vector<WatchedRecord>& after);

/// Whether it is a site map with so many other addresses that it was made anew.
bool isRebuilt(WatchedSource source, const RecordDiff& diff);

/// What was found and where, as facts: a sentence for each record or, where there are many of a
/// kind, one for all.
std::vector<std::string> findingSentences(WatchedSource source, const RecordDiff& diff);

}  // namespace kit
