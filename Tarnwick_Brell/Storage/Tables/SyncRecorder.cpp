#include "Tarnwick_Brell/Storage/Tables/SyncRecorder.h"

#include <cstddef>
#include <random>
#include <stdexcept>

#include "BrellSharedSync/Merge.h"
#include "BrellSharedSync/RecordFields.h"
#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

namespace {

constexpr std::string_view kMachine = "machine";
constexpr std::size_t kMachineCharacters = 8;

/// What one record may have at most when it travels.
constexpr std::size_t kMostRecordBytes = 512 * 1024;

/// 41 bits of chance: a user has a few computers.
std::string freshMachineID() {
    constexpr std::string_view signs = "abcdefghijklmnopqrstuvwxyz0123456789";
    std::random_device entropy;
    std::uniform_int_distribution<std::size_t> pick(0, signs.size() - 1);
    std::string id;
    while (id.size() < kMachineCharacters) id += signs[pick(entropy)];
    return id;
}

}  // namespace

/// A row of syncRecords.
struct SyncRecorder::Shadow {
    const shared::RecordKind* kind = nullptr;
    std::string_view prefix{};
    std::string_view key{};
    shared::FieldSet fields{};
};

std::string SyncRecorder::machineID() {
    Statement found(database_, "SELECT value FROM syncState WHERE key = ?");
    if (found.bind(0, kMachine).step()) return found.text(0);
    found.reset();
    auto id = freshMachineID();
    Statement(database_, "INSERT INTO syncState (key, value) VALUES (?, ?)")
        .bind(0, kMachine)
        .bind(1, id)
        .run();
    return id;
}

shared::Author SyncRecorder::author() {
    const auto now = systemInstant().time_since_epoch();
    return {.machine = machineID(),
            .milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(now).count()};
}

SyncRecorder::Shadow SyncRecorder::shadow(std::string_view name) {
    const auto* kind = shared::kindOfRecord(name);
    if (!kind) throw std::logic_error("a record of no kind: " + std::string(name));
    const auto size = kind->prefix.size();
    Shadow shadow{.kind = kind, .prefix = name.substr(0, size - 1), .key = name.substr(size)};
    Statement found(database_, "SELECT fields FROM syncRecords WHERE kind = ? AND key = ?");
    found.bind(0, shadow.prefix).bind(1, shadow.key);
    if (!found.step()) return shadow;
    try {
        shadow.fields = shared::FieldSet::parse(found.view(0));
    } catch (const kit::RecordError&) {
        // One that nobody can read is made anew from the record itself.
    }
    return shadow;
}

void SyncRecorder::store(const Shadow& shadow) {
    const auto text = shadow.fields.text();
    const bool fits = text.size() <= kMostRecordBytes;
    const auto state = fits ? SyncRowState::toSend : SyncRowState::incomplete;
    Statement(database_,
              "INSERT INTO syncRecords (kind, key, fields, state, bytes, reason) "
              "VALUES (?1, ?2, ?3, ?4, ?5, ?6) ON CONFLICT (kind, key) DO UPDATE SET "
              "fields = ?3, state = ?4, bytes = ?5, reason = ?6")
        .bind(0, shadow.prefix)
        .bind(1, shadow.key)
        .bind(2, text)
        .bind(3, static_cast<std::int64_t>(state))
        .bind(4, static_cast<std::int64_t>(text.size()))
        .bind(5, std::string_view(fits ? "" : "too large"))
        .run();
}

void SyncRecorder::changed(std::string_view name, const boost::json::object& record) {
    auto row = shadow(name);
    const auto by = author();
    bool isChanged = false;
    if (shared::isGone(*row.kind, row.fields)) {
        shared::bringBack(row.fields, by);
        isChanged = true;
    }
    isChanged |= shared::writeRecord(*row.kind, row.fields, record, by);
    if (isChanged) store(row);
}

void SyncRecorder::fieldChanged(std::string_view name, std::string_view field,
                                std::string_view value) {
    auto row = shadow(name);
    if (row.fields.set(field, boost::json::string(value), author())) store(row);
}

void SyncRecorder::removed(std::string_view name) {
    auto row = shadow(name);
    if (shared::isGone(*row.kind, row.fields)) return;
    shared::remove(row.fields, author());
    store(row);
}

void SyncRecorder::restored(std::string_view name) {
    auto row = shadow(name);
    if (!shared::isGone(*row.kind, row.fields)) return;
    shared::bringBack(row.fields, author());
    store(row);
}

void SyncRecorder::forgotten(std::string_view name) {
    auto row = shadow(name);
    const auto cells = row.fields.cells();
    for (const auto& [field, cell] : cells) {
        if (field != shared::kGone) row.fields.erase(field);
    }
    const auto text = row.fields.text();
    Statement(database_,
              "UPDATE syncRecords SET fields = ?3, bytes = ?4 WHERE kind = ?1 AND key = ?2")
        .bind(0, row.prefix)
        .bind(1, row.key)
        .bind(2, text)
        .bind(3, static_cast<std::int64_t>(text.size()))
        .run();
}

}  // namespace app
