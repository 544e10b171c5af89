#pragma once

#include <map>
#include <set>
#include <string>

#include "BrellSharedSync/LocalRecords.h"

namespace shared {

/// Brings what comes from the store together with what is here, in one transaction.
class Arrivals {
public:
    Arrivals(const LocalRecords& here, const Author& author) : here_(here), author_(author) {}

    /// A removal of something that is here is held until `judge`.
    void take(const StoredRecord& arrived);
    /// The same without holding removals: of what was to be sent and met a newer version.
    void settle(const StoredRecord& arrived);

    /// Removals that arrived in this session from one machine are applied when they are few of
    /// their kind, and stay held otherwise.
    void judge(const std::set<std::string>& arrivedHeld);

    const std::set<std::string>& held() const { return held_; }
    LocalChanges changes() const;

private:
    std::optional<LocalRecord> find(const std::string& id) const;
    void mergeIn(const StoredRecord& arrived, bool holds);
    void mergeFields(LocalRecord record, const FieldSet& theirs, const RecordKind& kind);
    void takeDeleted(const StoredRecord& arrived);
    void takeCopy(const SharedRecord& copy);

    const LocalRecords& here_;
    Author author_;
    std::map<std::string, LocalRecord> records_;
    std::set<std::string> dropped_;
    std::vector<StoredRecord> foreign_;
    std::set<std::string> held_;
};

/// More removals than this at once are held when they are more than a tenth of their kind.
inline constexpr std::size_t kFewRemovals = 5;
/// More than these always are.
inline constexpr std::size_t kMostRemovals = 20;

/// What becomes of a held removal on the user's word.
void applyHeld(LocalRecord& record, const Author& author);
void refuseHeld(LocalRecord& record, const Author& author);

}  // namespace shared
