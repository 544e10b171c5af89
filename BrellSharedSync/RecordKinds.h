#pragma once

#include <span>
#include <string_view>

namespace shared {

/// How the versions of a field from two computers become one.
enum class FieldRule {
    latest,   ///< the later write
    first,    ///< the earlier write: what was seen first, or never changes
    set,      ///< of texts, each member added and removed by itself
    map,      ///< from texts to values, each key by itself
    entries,  ///< a list of objects with an id, each part by itself; an edit beats a removal
    text,     ///< typed by the user: two edits are brought together by lines or both kept
};

struct FieldRow {
    std::string_view name;  ///< the key of the record's JSON
    FieldRule rule;
};

/// A kind of records that the user's computers share. Fields that are not listed follow
/// FieldRule::latest: all versions of the program must merge alike, or two of them would correct
/// each other for ever. So a later version may add a field with another rule only together with a
/// new major form of the library, on which earlier versions pause.
struct RecordKind {
    std::string_view name;
    std::string_view prefix;  ///< of ids, "o:"
    /// A removed one is there again when it was edited by somebody who did not know of the removal.
    bool comesBack;
    std::span<const FieldRow> fields;

    FieldRule ruleOf(std::string_view field) const;
    bool lists(std::string_view field) const;
};

std::span<const RecordKind> recordKinds();

/// The kind of the record with this id; none of one that a later version brought.
const RecordKind* kindOfRecord(std::string_view id);

inline constexpr std::string_view kNotePrefix = "o:";

}  // namespace shared
