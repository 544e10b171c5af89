#pragma once

#include <map>
#include <string>

#include "BrellSharedSync/LocalRecords.h"

namespace shared::memory {

/// The sync records of one machine, in memory. Copied, they are a backup or a clone.
class MemoryRecords final : public LocalRecords {
public:
    SyncPlace place() const override { return place_; }

    std::optional<LocalRecord> find(const std::string& id) const override {
        const auto found = records.find(id);
        if (found == records.end()) return std::nullopt;
        return found->second;
    }

    std::vector<std::string> idsIn(RecordState state) const override {
        std::vector<std::string> ids;
        for (const auto& [id, record] : records) {
            if (record.state == state) ids.push_back(id);
        }
        return ids;
    }

    std::size_t countOf(std::string_view prefix) const override {
        std::size_t count = 0;
        for (const auto& [id, record] : records) {
            count += id.starts_with(prefix) && !isGone(*kindOfRecord(id), record.fields);
        }
        return count;
    }

    std::vector<std::string> goneBefore(std::int64_t milliseconds) const override {
        std::vector<std::string> ids;
        for (const auto& id : idsIn(RecordState::inStep)) {
            const auto since = records.at(id).goneSince;
            if (since > 0 && since < milliseconds) ids.push_back(id);
        }
        return ids;
    }

    void apply(const LocalChanges& changes) override {
        if (changes.place) place_ = *changes.place;
        for (auto& [id, record] : records) {
            for (const auto& move : changes.moves) {
                if (record.state == move.from) {
                    record.state = move.to;
                    break;
                }
            }
            if (!changes.forgetRevisions) continue;
            record.revision.clear();
            record.goneSince = 0;
        }
        for (const auto& record : changes.records) records.insert_or_assign(record.id, record);
        for (const auto& id : changes.dropped) records.erase(id);
        for (const auto& record : changes.foreign) foreign.insert_or_assign(record.id, record);
    }

    std::map<std::string, LocalRecord> records{};
    std::map<std::string, StoredRecord> foreign{};

    void setMachine(const std::string& machine) { place_.machine = machine; }

private:
    SyncPlace place_{};
};

}  // namespace shared::memory
