#include "Tarnwick_Brell/Storage/Safety/LibraryCheck.h"

#include "Tarnwick_Brell/Storage/Tables/DeskState.h"
#include "Tarnwick_Brell/Storage/Tables/Schema.h"

namespace app {

namespace fs = std::filesystem;

namespace {

constexpr std::chrono::hours kBetweenChecks{24};

constexpr const char* kUnreadable = "SQLite can't read it";

/// False for a sound database of another program.
bool isDesk(Database& database) {
    Statement tables(database,
                     "SELECT count(*) FROM sqlite_schema WHERE type = 'table' AND name IN "
                     "('stories', 'customSources', 'sourceStatus', 'validators')");
    tables.step();
    return tables.number(0) == 4;
}

/// Checks the search index in a private copy, whose file is deleted afterwards.
void checkSearchIndex(Database& database, LibraryFindings& found, const std::stop_token& stop) {
    Database copy(Database::kScratch, Database::Access::unshared);
    try {
        database.copyInto(copy, stop);
    } catch (const StoreError& error) {
        if (stop.stop_requested() || error.reason() == StoreError::Reason::damaged) throw;
        found.unchecked =
            "The search index was not checked, because there is no room for a temporary copy.";
        return;
    }
    copy.breakOffWhen(stop);
    if (auto fault = searchIndexFault(copy)) {
        found.state = LibraryState::damaged;
        found.fault = *std::move(fault);
    }
}

LibraryFindings findings(const fs::path& library, CheckDepth depth, const std::stop_token& stop) {
    Database database(library, Database::Access::readOnly);
    database.breakOffWhen(stop);
    if (isUnmigrated(database)) return {LibraryState::absent};
    if (isOfNewerVersion(database)) return {LibraryState::newerVersion};
    if (!isDesk(database)) return {LibraryState::damaged, "it lacks the desk's tables"};
    if (auto fault = firstFault(database, depth)) return {LibraryState::damaged, *std::move(fault)};
    LibraryFindings found{LibraryState::sound};
    if (depth == CheckDepth::full) checkSearchIndex(database, found, stop);
    return found;
}

/// A check is also due when the clock was set back.
bool isCheckDue(const fs::path& library, kit::Instant now) {
    Database database(library, Database::Access::readOnly);
    if (isUnmigrated(database) || isOutdated(database)) return false;
    const auto last = DeskState(database).instant(kLastCheck);
    return !last || abs(now - *last) > kBetweenChecks;
}

/// Earlier versions of the library lack search indexes.
bool hasSearchIndex(Database& database, std::string_view name) {
    Statement table(database, "SELECT 1 FROM sqlite_schema WHERE name = ?");
    table.bind(0, name);
    return table.step();
}

struct SearchIndexRow {
    const char* name;
    const char* check;  ///< with rank 1 the index is compared with its table as well
    const char* fault;
};

constexpr SearchIndexRow kSearchIndexes[]{
    {"storySearch", "INSERT INTO storySearch (storySearch, rank) VALUES ('integrity-check', 1)",
     "the search index does not fit the stories"},
    {"signalSearch", "INSERT INTO signalSearch (signalSearch, rank) VALUES ('integrity-check', 1)",
     "the search index does not fit the log"},
};

}  // namespace

LibraryFindings checkLibrary(const fs::path& library, CheckDepth depth,
                             const std::stop_token& stop) {
    if (!fs::exists(library)) return {LibraryState::absent};
    try {
        return findings(library, depth, stop);
    } catch (const StoreError& error) {
        if (error.reason() != StoreError::Reason::damaged) throw;
        return {LibraryState::damaged, kUnreadable};
    }
}

void checkIfDue(const fs::path& library, bool lastDeskDied, kit::Instant now,
                const std::stop_token& stop) {
    if (!fs::exists(library) || !(lastDeskDied || isCheckDue(library, now))) return;
    LibraryFindings found;
    try {
        found = checkLibrary(library, CheckDepth::quick, stop);
    } catch (const StoreError&) {
        if (!stop.stop_requested()) throw;
        return;
    }
    if (found.state == LibraryState::damaged) throw damagedLibrary(library, found.fault);
    if (found.state != LibraryState::sound) return;
    Database database(library, Database::Access::readWrite);
    if (!isOutdated(database)) DeskState(database).set(kLastCheck, now);
}

std::optional<std::string> firstFault(Database& database, CheckDepth depth) {
    try {
        Statement check(database, depth == CheckDepth::quick ? "PRAGMA quick_check(1)"
                                                             : "PRAGMA integrity_check(1)");
        const auto answer = check.step() ? check.text(0) : std::string("no answer");
        return answer == "ok" ? std::nullopt : std::optional(answer);
    } catch (const StoreError& error) {
        if (error.reason() != StoreError::Reason::damaged) throw;
        return kUnreadable;
    }
}

std::optional<std::string> searchIndexFault(Database& unsharedCopy) {
    for (const auto& index : kSearchIndexes) {
        if (!hasSearchIndex(unsharedCopy, index.name)) continue;
        try {
            unsharedCopy.execute(index.check);
        } catch (const StoreError& error) {
            if (error.reason() != StoreError::Reason::damaged) throw;
            return index.fault;
        }
    }
    return std::nullopt;
}

StoreError damagedLibrary(const fs::path& library, const std::string& fault) {
    return {StoreError::Reason::damaged,
            "The library " + library.string() + " is damaged (" + fault +
                "). \"brell library repair\" rebuilds it where its tables are whole, \"brell "
                "library restore\" puts its last good backup in its place."};
}

}  // namespace app
