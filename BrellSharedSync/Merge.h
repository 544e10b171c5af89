#pragma once

#include <string_view>

#include "BrellSharedSync/FieldSet.h"
#include "BrellSharedSync/RecordKinds.h"

namespace shared {

/// The name of the field that says that a record was removed.
inline constexpr std::string_view kGone = "gone";

/// Brings two versions of a record together, field by field. In whatever order and however often
/// versions are merged, the outcome is the same. Equal stamps with different values happen, on
/// computers that were cloned; the greater value wins then.
///
/// Of texts the later one stays; `mergeRecords` brings them together before.
FieldSet merge(const RecordKind& kind, const FieldSet& a, const FieldSet& b);

/// Whether the record counts as removed: it was, and no edit came that its remover had not seen.
/// Kinds that do not come back stay removed until they are brought back by a person.
bool isGone(const RecordKind& kind, const FieldSet& fields);

/// The same of one entry of a FieldRule::entries field, "panels/8B3D…".
bool isEntryGone(const FieldSet& fields, std::string_view entry);

/// Removes a record with knowledge of all that it holds.
void remove(FieldSet& fields, const Author& author);
void removeEntry(FieldSet& fields, std::string_view entry, const Stamp& stamp);

/// Beside a text that a machine wove or chose from what persons wrote: the stamps of their writes.
inline constexpr std::string_view kWriters = "/writers";

/// The stamps of the writes by persons that a field stands for: mostly its own.
std::vector<Stamp> writersOf(const FieldSet& fields, std::string_view name);

/// Undoes a removal.
void bringBack(FieldSet& fields, const Author& author);

}  // namespace shared
