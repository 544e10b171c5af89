#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "BrellSharedSync/RecordMerge.h"
#include "BrellSharedSync/RecordStore.h"

namespace shared {

/// How a record here stands to the one in the store.
enum class RecordState {
    inStep,       ///< the store has it, and a witness confirms that
    toSend,       ///< changed here
    unwitnessed,  ///< the store had it in this session
    incomplete,   ///< can't be sent, see its reason; never in the way of others
    held,         ///< one of many removals that arrived together and wait for the user's word
};

/// The sync record of a thing in the library.
struct LocalRecord {
    std::string id{};
    FieldSet fields{};
    std::string revision{};  ///< in the store; empty when not known
    RecordState state = RecordState::toSend;
    /// While it is to be sent: its texts as the store last had them. Otherwise its own are that.
    FieldSet base{};
    FieldSet held{};  ///< the version that waits
    std::string reason{};
    /// When this machine found that the store has the removal, by its clock; 0 for what is there.
    std::int64_t goneSince = 0;
};

/// Writes a change of the user's into a record.
void edit(LocalRecord& record, FieldSet fields);

/// The store has the record as it is here.
void agree(LocalRecord& record, std::int64_t now);

/// Where this machine and the store last stood together. Token and cursor belong together: a
/// cursor means nothing in a store that may be an earlier state of itself.
struct Checkpoint {
    std::string token{};
    std::string cursor{};
};

struct SyncPlace {
    std::string machine{};
    std::string epoch{};  ///< of the library; empty before the first session
    std::optional<Checkpoint> checkpoint{};
    std::optional<Checkpoint> pending{};  ///< written before its witness is
    std::int64_t lastComplete = 0;        ///< when a session last ended well; milliseconds
};

/// What a step of a session changes here, in one transaction.
struct LocalChanges {
    std::optional<SyncPlace> place{};
    /// Of all records in these states, before anything else.
    struct Move {
        RecordState from;
        RecordState to;
    };
    std::vector<Move> moves{};
    bool forgetRevisions = false;  ///< of all records, and since when they are gone
    std::vector<LocalRecord> records{};
    /// The sync record goes. What is still there of the thing goes where removed things are kept.
    std::vector<std::string> dropped{};
    std::vector<StoredRecord> foreign{};  ///< of kinds and forms unknown here, kept as they are
};

/// The sync records of this machine.
class LocalRecords {
public:
    virtual ~LocalRecords() = default;

    virtual SyncPlace place() const = 0;
    virtual std::optional<LocalRecord> find(const std::string& id) const = 0;
    virtual std::vector<std::string> idsIn(RecordState state) const = 0;
    /// Those of a kind that are not gone.
    virtual std::size_t countOf(std::string_view prefix) const = 0;
    /// Those in step that have been gone since before.
    virtual std::vector<std::string> goneBefore(std::int64_t milliseconds) const = 0;
    virtual void apply(const LocalChanges& changes) = 0;
};

}  // namespace shared
