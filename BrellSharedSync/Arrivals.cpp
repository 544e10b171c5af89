#include "BrellSharedSync/Arrivals.h"

namespace shared {
namespace {

bool isAgreed(const LocalRecord& record) {
    return record.state == RecordState::inStep || record.state == RecordState::unwitnessed;
}

const RecordKind& kindOf(const LocalRecord& record) { return *kindOfRecord(record.id); }

/// The version that both have grown from, as far as texts are concerned.
FieldSet baseOf(const LocalRecord& record) {
    return isAgreed(record) ? textsOf(kindOf(record), record.fields) : record.base;
}

std::optional<Stamp> stampOfRemoval(const FieldSet& fields) {
    const auto* gone = fields.find(kGone);
    return gone ? std::optional(gone->stamp) : std::nullopt;
}

/// Sets the state of a record whose store version is `theirs`.
void compare(LocalRecord& record, FieldSet merged, const FieldSet& theirs, std::int64_t now) {
    const bool isChanged = merged != record.fields;
    // The store will forget another removal later than the one that was known here.
    if (stampOfRemoval(merged) != stampOfRemoval(record.fields)) record.goneSince = 0;
    record.fields = std::move(merged);
    record.held = {};
    if (record.fields != theirs) {
        record.base = textsOf(kindOf(record), theirs);
        record.goneSince = 0;
        // What can't be sent can't be sent because of what was merged into it, either.
        if (record.state != RecordState::incomplete) record.state = RecordState::toSend;
    } else if (record.state != RecordState::inStep || isChanged) {
        // Found equal is not yet confirmed: the store may lose it before the next witness.
        agree(record, now);
    }
}

std::string removerOf(const FieldSet& fields) {
    const auto* gone = fields.find(kGone);
    return gone ? gone->stamp.machine : std::string();
}

std::optional<FieldSet> readFields(const std::string& body) {
    try {
        return FieldSet::parse(body);
    } catch (const kit::RecordError&) {
        return std::nullopt;
    }
}

}  // namespace

void edit(LocalRecord& record, FieldSet fields) {
    if (isAgreed(record)) {
        record.base = textsOf(kindOf(record), record.fields);
        record.state = RecordState::toSend;
    }
    record.fields = std::move(fields);
    record.goneSince = 0;
}

void agree(LocalRecord& record, std::int64_t now) {
    record.state = RecordState::unwitnessed;
    record.base = {};
    record.reason.clear();
    // Counted from here and not from the removal: that may have been on its way for long.
    const bool gone = isGone(kindOf(record), record.fields);
    record.goneSince = !gone ? 0 : record.goneSince > 0 ? record.goneSince : now;
}

std::optional<LocalRecord> Arrivals::find(const std::string& id) const {
    if (const auto staged = records_.find(id); staged != records_.end()) return staged->second;
    return dropped_.contains(id) ? std::nullopt : here_.find(id);
}

void Arrivals::take(const StoredRecord& arrived) { mergeIn(arrived, true); }

void Arrivals::settle(const StoredRecord& arrived) { mergeIn(arrived, false); }

void Arrivals::mergeIn(const StoredRecord& arrived, bool holds) {
    if (!arrived.body) return takeDeleted(arrived);
    const auto* kind = kindOfRecord(arrived.id);
    const auto theirs = kind ? readFields(*arrived.body) : std::nullopt;
    auto record = kind ? find(arrived.id) : std::nullopt;
    if (!theirs) {
        foreign_.push_back(arrived);
        if (!record) return;
        record->state = RecordState::incomplete;
        record->reason = "another version of the program wrote it";
        records_.insert_or_assign(arrived.id, *record);
        return;
    }
    if (!record) {
        LocalRecord fresh{arrived.id, *theirs, arrived.revision};
        agree(fresh, author_.milliseconds);
        records_.insert_or_assign(arrived.id, std::move(fresh));
        dropped_.erase(arrived.id);
        return;
    }
    record->revision = arrived.revision;
    if (holds && isGone(*kind, *theirs) && !isGone(*kind, record->fields) &&
        isGone(*kind, merge(*kind, record->fields, *theirs))) {
        record->base = baseOf(*record);
        record->state = RecordState::held;
        record->held = *theirs;
        held_.insert(arrived.id);
        records_.insert_or_assign(arrived.id, *record);
        return;
    }
    mergeFields(std::move(*record), *theirs, *kind);
}

void Arrivals::mergeFields(LocalRecord record, const FieldSet& theirs, const RecordKind& kind) {
    auto merged = mergeRecords(record.id, kind, record.fields, theirs, baseOf(record), author_);
    compare(record, std::move(merged.fields), theirs, author_.milliseconds);
    held_.erase(record.id);
    records_.insert_or_assign(record.id, std::move(record));
    for (const auto& copy : merged.copies) takeCopy(copy);
}

void Arrivals::takeDeleted(const StoredRecord& arrived) {
    auto record = find(arrived.id);
    if (!record) return;
    if (isGone(kindOf(*record), record->fields)) {
        records_.erase(arrived.id);
        dropped_.insert(arrived.id);
        return;
    }
    // Only a removal removes, and this is none: the record is sent anew.
    record->revision.clear();
    if (isAgreed(*record)) record->state = RecordState::toSend;
    records_.insert_or_assign(arrived.id, std::move(*record));
}

void Arrivals::takeCopy(const SharedRecord& copy) {
    auto record = find(copy.id);
    if (!record) {
        records_[copy.id] = {copy.id, copy.fields};
        dropped_.erase(copy.id);
        return;
    }
    auto merged = merge(kindOf(*record), record->fields, copy.fields);
    if (merged == record->fields) return;
    edit(*record, std::move(merged));
    records_.insert_or_assign(copy.id, std::move(*record));
}

void Arrivals::judge(const std::set<std::string>& arrivedHeld) {
    std::map<std::pair<std::string, std::string_view>, std::vector<LocalRecord>> removals;
    for (const auto& id : arrivedHeld) {
        auto record = find(id);
        if (!record || record->state != RecordState::held) continue;
        const auto prefix = kindOf(*record).prefix;
        removals[{removerOf(record->held), prefix}].push_back(std::move(*record));
    }
    for (auto& [source, records] : removals) {
        const auto all = here_.countOf(source.second);
        const bool isMany = records.size() > kMostRemovals ||
                            (records.size() > kFewRemovals && records.size() * 10 > all);
        if (isMany) continue;
        for (auto& record : records) {
            const auto theirs = record.held;
            mergeFields(record, theirs, kindOf(record));
        }
    }
}

LocalChanges Arrivals::changes() const {
    LocalChanges changes;
    for (const auto& [id, record] : records_) changes.records.push_back(record);
    changes.dropped.assign(dropped_.begin(), dropped_.end());
    changes.foreign = foreign_;
    return changes;
}

void applyHeld(LocalRecord& record, const Author& author) {
    const auto theirs = record.held;
    auto merged =
        mergeRecords(record.id, kindOf(record), record.fields, theirs, record.base, author);
    compare(record, std::move(merged.fields), theirs, author.milliseconds);
}

void refuseHeld(LocalRecord& record, const Author& author) {
    const auto theirs = record.held;
    auto kept = merge(kindOf(record), record.fields, theirs);
    bringBack(kept, author);
    compare(record, std::move(kept), theirs, author.milliseconds);
}

}  // namespace shared
