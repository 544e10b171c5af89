#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace shared {

/// A record as the store holds it. Its revision changes with every write.
struct StoredRecord {
    std::string id{};
    std::string revision{};
    /// A FieldSet as text, or what another version of the program wrote. Absent: deleted for good.
    std::optional<std::string> body{};
};

/// What a machine leaves in the store to know it by: whether it is still the store that the machine
/// last spoke to, and no earlier state of it.
struct Witness {
    std::string token{};
    std::string cursor{};
    std::string revision{};
};

/// What a session asks a record store for, one question at a time. Every question may be lost, and
/// every answer, after the store has done what was asked.
namespace ask {

struct Library {};  ///< which library this store holds
/// Makes it the store of a library, unless it already is one's.
struct NewLibrary {
    std::string epoch;
};
struct FindWitness {
    std::string machine;
};
/// Refused unless the revision is the present one; empty for the first.
struct PutWitness {
    std::string machine;
    Witness witness;
};
/// What was written since a cursor, in any order, possibly repeated; of each record the present
/// state is enough. An empty cursor is the beginning. Deleted records may be missing.
struct Changes {
    std::string cursor;
};
/// Each record is refused unless its revision is the present one. An empty revision writes a new
/// record or over a deleted one.
struct Write {
    std::vector<StoredRecord> records;
};
struct Read {
    std::vector<std::string> ids;
};

}  // namespace ask

using Question = std::variant<ask::Library, ask::NewLibrary, ask::FindWitness, ask::PutWitness,
                              ask::Changes, ask::Write, ask::Read>;

/// One for each question, in their order.
namespace answer {

struct Library {  ///< also to ask::NewLibrary: whichever came first
    std::optional<std::string> epoch;
};
struct FoundWitness {
    std::optional<Witness> witness;
};
struct PutWitness {
    std::optional<std::string> revision;  ///< none when it was refused
};
struct Changes {
    std::vector<StoredRecord> records;
    std::string cursor;  ///< behind them
    bool isLast;
};
/// The new revision of each record, or none where it was refused.
struct Written {
    std::vector<std::optional<std::string>> revisions;
};
struct Found {  ///< those that there are, also deleted ones
    std::vector<StoredRecord> records;
};

}  // namespace answer

using Answer = std::variant<answer::Library, answer::FoundWitness, answer::PutWitness,
                            answer::Changes, answer::Written, answer::Found>;

}  // namespace shared
