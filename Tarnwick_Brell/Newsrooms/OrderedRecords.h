#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "NewsroomKit/Newsrooms/NewsroomLimits.h"
#include "NewsroomKit/Newsrooms/UUID.h"
#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Text/Unicode.h"
#include "Tarnwick_Brell/Storage/Tables/RecordRank.h"
#include "Tarnwick_Brell/Storage/Tables/RecordTable.h"

namespace app {

/// What a change of ordered records writes to their table.
struct RecordChange {
    enum class Kind { put, remove, restore, move };

    Kind kind{};
    std::string id{};        ///< of what is removed or restored
    RecordTable::Row row{};  ///< of what is put
    /// Ids and ranks of what is moved: one record, unless two programs have given others the
    /// same rank.
    std::vector<std::pair<std::string, std::string>> ranks{};

    /// Throws StoreError.
    void applyTo(RecordTable& table, kit::Instant now) const {
        switch (kind) {
            case Kind::put: return table.put(row);
            case Kind::remove: return table.remove(id, now);
            case Kind::restore: return table.restore(id);
            case Kind::move:
                for (const auto& [moved, rank] : ranks) table.setRank(moved, rank);
                return;
        }
    }
};

/// One of the user's ordered records. One that can't be read stays as it is stored.
template <class T>
struct RecordEntry {
    std::string id{};
    std::string name{};
    std::optional<T> value{};
    std::string fault{};   ///< why it can't be read, with the path of the fault
    std::string record{};  ///< of one that can't be read, as it is stored
    std::string rank{};    ///< see RecordRank.h

    bool isReadable() const { return value.has_value(); }
    bool operator==(const RecordEntry&) const = default;
};

inline std::string recordIDText(const kit::UUID& id) { return id.text(); }
inline const std::string& recordIDText(const std::string& id) { return id; }

/// The user's newsrooms, beats or rules, in the user's order. Each change returns what must be
/// written to their table. T is a record with `id` and `name`.
template <class T>
class OrderedRecords {
public:
    using Entry = RecordEntry<T>;

    static OrderedRecords read(RecordTable& table) {
        OrderedRecords records;
        for (auto& row : table.all()) records.entries_.push_back(entryOf(std::move(row)));
        for (auto& row : table.removed()) records.removed_.push_back(entryOf(std::move(row)));
        return records;
    }

    const std::vector<Entry>& entries() const { return entries_; }
    /// Entries that `restore` can bring back, the last removed first.
    const std::vector<Entry>& removed() const { return removed_; }

    /// Null when there is none.
    const Entry* find(std::string_view id) const {
        const auto found = placeIn(entries_, id);
        return found == entries_.end() ? nullptr : &*found;
    }

    /// Its place among the entries; nothing when there is none.
    std::optional<std::size_t> placeOf(std::string_view id) const {
        const auto found = placeIn(entries_, id);
        if (found == entries_.end()) return std::nullopt;
        return static_cast<std::size_t>(found - entries_.begin());
    }

    /// The entries that a person may mean by `words`: the one with that id, or all with that
    /// name, or else all whose folded name is the same.
    static std::vector<const Entry*> meant(const std::vector<Entry>& entries,
                                           std::string_view words) {
        const auto id = kit::UUID::parse(words);
        auto found = matching(entries, [&](const Entry& entry) {
            return entry.id == words || (id && entry.id == id->text());
        });
        if (found.empty())
            found = matching(entries, [&](const Entry& entry) { return entry.name == words; });
        if (!found.empty()) return found;
        const auto folded = kit::fold(words);
        return matching(entries,
                        [&](const Entry& entry) { return kit::fold(entry.name) == folded; });
    }

    /// `wanted`, with a number appended when an entry has that name already, and no longer than
    /// a name may be.
    std::string freeName(const std::string& wanted) const {
        auto name = wanted;
        for (int number = 2; !meant(entries_, name).empty(); ++number) {
            const auto ending = " " + std::to_string(number);
            const auto room = kit::NewsroomLimits::kLineCharacters - ending.size();
            name = std::string(kit::firstCharacters(wanted, room)) + ending;
        }
        return name;
    }

    /// Replaces the record with that id, or appends it when the id is new.
    RecordChange put(T value) {
        Entry entry{.id = recordIDText(value.id), .name = value.name, .value = std::move(value)};
        const auto place = placeIn(entries_, entry.id);
        entry.rank = place == entries_.end() ? rankBetween(lastRank(), "") : place->rank;
        RecordChange write{.kind = RecordChange::Kind::put,
                           .row = {.id = entry.id,
                                   .record = kit::json::serialize(kit::encode(*entry.value)),
                                   .rank = entry.rank}};
        if (place == entries_.end()) {
            entries_.push_back(std::move(entry));
        } else {
            *place = std::move(entry);
        }
        return write;
    }

    /// Nothing when no entry has the id.
    std::optional<RecordChange> remove(const std::string& id) {
        const auto place = placeIn(entries_, id);
        if (place == entries_.end()) return std::nullopt;
        removed_.insert(removed_.begin(), std::move(*place));
        entries_.erase(place);
        return RecordChange{.kind = RecordChange::Kind::remove, .id = id};
    }

    /// Brings a removed entry back to its place. Nothing when none was removed with the id.
    std::optional<RecordChange> restore(const std::string& id) {
        const auto removed = placeIn(removed_, id);
        if (removed == removed_.end()) return std::nullopt;
        const auto behind = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
            return std::tie(entry.rank, entry.id) > std::tie(removed->rank, removed->id);
        });
        entries_.insert(behind, std::move(*removed));
        removed_.erase(removed);
        return RecordChange{.kind = RecordChange::Kind::restore, .id = id};
    }

    /// `place` counts from 0 and stops at the end. Nothing when no entry has the id.
    std::optional<RecordChange> move(const std::string& id, std::size_t place) {
        const auto from = placeIn(entries_, id);
        if (from == entries_.end()) return std::nullopt;
        auto moved = std::move(*from);
        entries_.erase(from);
        place = std::min(place, entries_.size());
        const auto before = place == 0 ? std::string() : entries_[place - 1].rank;
        const auto at = entries_.begin() + static_cast<std::ptrdiff_t>(place);
        return rerank(entries_.insert(at, std::move(moved)), before);
    }

    bool operator==(const OrderedRecords&) const = default;

private:
    static Entry entryOf(RecordTable::Row row) {
        Entry entry{.id = std::move(row.id), .rank = std::move(row.rank)};
        try {
            const auto json = kit::parseJSON(row.record);
            // The name first: an unreadable record may still have one.
            if (json.is_object()) {
                const auto* name = json.get_object().if_contains("name");
                if (name && name->is_string()) entry.name = name->get_string().c_str();
            }
            entry.value = kit::decode<T>(json);
        } catch (const kit::RecordError& error) {
            entry.fault = error.what();
            entry.record = std::move(row.record);
        }
        if (entry.name.empty()) entry.name = entry.id;
        return entry;
    }

    template <class Entries>
    static auto placeIn(Entries& entries, std::string_view id) {
        return std::find_if(entries.begin(), entries.end(),
                            [&](const Entry& entry) { return entry.id == id; });
    }

    template <class Test>
    static std::vector<const Entry*> matching(const std::vector<Entry>& entries, Test test) {
        std::vector<const Entry*> found;
        for (const auto& entry : entries) {
            if (test(entry)) found.push_back(&entry);
        }
        return found;
    }

    /// Gives the entry a rank behind `before`, and those behind it that would then stand before
    /// it because their ranks equal `before`.
    RecordChange rerank(typename std::vector<Entry>::iterator entry, std::string before) {
        RecordChange write{.kind = RecordChange::Kind::move};
        const auto tied = before;
        do {
            entry->rank = rankBetween(before, nextRank(before, entry->id));
            before = entry->rank;
            write.ranks.emplace_back(entry->id, entry->rank);
        } while (++entry != entries_.end() && entry->rank <= tied);
        return write;
    }

    /// The lowest rank above `rank`, also of removed entries, whose places stay theirs. Empty when
    /// there is none. `except` is the id of an entry that is to lose its rank.
    std::string nextRank(const std::string& rank, const std::string& except) const {
        std::string next;
        for (const auto* list : {&entries_, &removed_}) {
            for (const auto& entry : *list) {
                if (entry.id == except || entry.rank <= rank) continue;
                if (next.empty() || entry.rank < next) next = entry.rank;
            }
        }
        return next;
    }

    std::string lastRank() const {
        std::string last;
        for (const auto* list : {&entries_, &removed_}) {
            for (const auto& entry : *list) last = std::max(last, entry.rank);
        }
        return last;
    }

    std::vector<Entry> entries_;
    std::vector<Entry> removed_;
};

}  // namespace app
