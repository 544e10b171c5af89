#include "NewsroomKit/Backend/RecordDiff.h"

#include <algorithm>

namespace kit {
namespace {

constexpr std::size_t rebuiltAddresses = 200;

std::optional<std::string> valueOf(const WatchedRecord& record, const std::string& field) {
    const auto found = record.fields.find(field);
    if (found == record.fields.end()) return std::nullopt;
    return found->second;
}

void addFieldChanges(const WatchedRecord& before, const WatchedRecord& after,
                     std::vector<FieldChange>& changes) {
    auto names = before.fields;
    names.insert(after.fields.begin(), after.fields.end());
    for (const auto& [name, value] : names) {
        auto old = valueOf(before, name);
        auto fresh = valueOf(after, name);
        if (old != fresh) changes.push_back({before.key, name, std::move(old), std::move(fresh)});
    }
}

}  // namespace

RecordDiff compareRecords(const std::vector<WatchedRecord>& before,
                          const std::vector<WatchedRecord>& after) {
    RecordDiff diff;
    auto old = before.begin();
    auto fresh = after.begin();
    while (old != before.end() || fresh != after.end()) {
        if (fresh == after.end() || (old != before.end() && old->key < fresh->key)) {
            diff.removed.push_back(*old++);
        } else if (old == before.end() || fresh->key < old->key) {
            diff.added.push_back(*fresh++);
        } else {
            addFieldChanges(*old++, *fresh++, diff.changed);
        }
    }
    return diff;
}

bool isRebuilt(WatchedSource source, const RecordDiff& diff) {
    return source == WatchedSource::sitemap &&
           diff.added.size() + diff.removed.size() > rebuiltAddresses;
}

}  // namespace kit
