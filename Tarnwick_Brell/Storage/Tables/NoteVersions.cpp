#include "Tarnwick_Brell/Storage/Tables/NoteVersions.h"

#include "Tarnwick_Brell/Storage/SQLite/Instants.h"

namespace app {

void NoteVersions::add(const kit::NoteVersion& version, std::string_view machine) {
    Statement(database_, "INSERT INTO noteVersions (note, at, machine, text) VALUES (?, ?, ?, ?)")
        .bind(0, version.noteID)
        .bind(1, microseconds(version.replacedAt))
        .bind(2, machine)
        .bind(3, version.text)
        .run();
    Statement(database_,
              "DELETE FROM noteVersions WHERE note = ?1 AND number NOT IN (SELECT number FROM "
              "noteVersions WHERE note = ?1 ORDER BY number DESC LIMIT ?2)")
        .bind(0, version.noteID)
        .bind(1, static_cast<std::int64_t>(kMost))
        .run();
    dropBefore(version.replacedAt - kKept);
}

std::vector<kit::NoteVersion> NoteVersions::of(std::string_view note) {
    Statement found(database_,
                    "SELECT at, text FROM noteVersions WHERE note = ? ORDER BY number DESC");
    found.bind(0, note);
    std::vector<kit::NoteVersion> versions;
    while (found.step()) {
        versions.push_back({.noteID = std::string(note),
                            .replacedAt = instantOf(found.number(0)),
                            .text = found.text(1)});
    }
    return versions;
}

std::optional<kit::Instant> NoteVersions::lastOf(std::string_view note) {
    Statement found(database_, "SELECT max(at) FROM noteVersions WHERE note = ?");
    found.bind(0, note).step();
    return instantOf(found.optionalNumber(0));
}

void NoteVersions::dropBefore(kit::Instant limit) {
    Statement(database_, "DELETE FROM noteVersions WHERE at < ?")
        .bind(0, microseconds(limit))
        .run();
}

}  // namespace app
