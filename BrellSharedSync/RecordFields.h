#pragma once

#include "BrellSharedSync/FieldSet.h"
#include "BrellSharedSync/RecordKinds.h"

namespace shared {

/// Writes what differs between a record's JSON and its fields, stamped; tells whether anything did.
/// A single value that the kind lists and the record lacks is emptied. Fields that the kind does
/// not list stay, unless the record has them: so does the "rank" by which newsrooms, beats and
/// projects are ordered. The key "id" is the record's own id and no field, except where the kind
/// lists it.
bool writeRecord(const RecordKind& kind, FieldSet& fields, const json::object& record,
                 const Author& author);

/// The record's JSON, of the listed fields and without its id: sets sorted, entries in the order of
/// their ranks.
json::object recordJSON(const RecordKind& kind, const FieldSet& fields);

}  // namespace shared
