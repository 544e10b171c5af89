#pragma once

#include <string>
#include <string_view>

#include <boost/json.hpp>

#include "BrellSharedSync/FieldSet.h"
#include "BrellSharedSync/RecordKinds.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// How far a record's shadow is from the record store.
enum class SyncRowState {
    inStep = 0,
    toSend = 1,
    notWitnessed = 2,
    incomplete = 3,
    held = 4,
};

/// Notes each change of what the user's computers share in the table syncRecords, field by field
/// with its stamp, within the transaction that makes the change: what is to be sent can't get lost
/// between two tables. A record that is as its shadow says leaves it untouched.
///
/// Records are named as they are between computers: the kind's prefix and the id, "c:" + UUID.
class SyncRecorder {
public:
    explicit SyncRecorder(Database& database) : database_(database) {}

    /// The record was written. One that counted as removed is back.
    void changed(std::string_view name, const boost::json::object& record);
    /// One field of it was written that is not part of the record's JSON.
    void fieldChanged(std::string_view name, std::string_view field, std::string_view value);
    void removed(std::string_view name);
    /// Comes back as it was removed.
    void restored(std::string_view name);
    /// The content of a removed record was deleted here: the shadow keeps that it was removed.
    void forgotten(std::string_view name);

    /// Names this computer in stamps; made once for each library.
    std::string machineID();

private:
    struct Shadow;
    Shadow shadow(std::string_view name);
    void store(const Shadow& shadow);
    shared::Author author();

    Database& database_;
};

}  // namespace app
