#include "Tarnwick_Brell/Storage/Safety/LibraryRepair.h"

#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "Tarnwick_Brell/Storage/SQLite/Database.h"
#include "Tarnwick_Brell/Storage/Files/DurableFiles.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryCheck.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryRestore.h"
#include "Tarnwick_Brell/Storage/Tables/Schema.h"
#include "Tarnwick_Brell/Storage/Tables/SourceTable.h"
#include "Tarnwick_Brell/Storage/Tables/StoryTable.h"

namespace app {

namespace fs = std::filesystem;

namespace {

/// The tables without those of the search indexes, which are rebuilt from the others.
std::vector<std::string> tablesOf(Database& database) {
    Statement rows(database,
                   "SELECT name FROM sqlite_schema WHERE type = 'table' "
                   "AND name NOT LIKE 'storySearch%' AND name NOT LIKE 'signalSearch%' "
                   "AND name NOT LIKE 'sqlite_%'");
    std::vector<std::string> tables;
    while (rows.step()) tables.push_back(rows.text(0));
    return tables;
}

/// A file that is deleted with its owner.
struct TemporaryCopy {
    fs::path file;
    explicit TemporaryCopy(fs::path name) : file(std::move(name)) { remove(); }
    ~TemporaryCopy() { remove(); }
    TemporaryCopy(const TemporaryCopy&) = delete;
    TemporaryCopy& operator=(const TemporaryCopy&) = delete;
    void remove() const {
        std::error_code ignored;
        fs::remove(file, ignored);
    }
};

/// Copies every page unchanged, including those in the log, because attaching opens the file for
/// writing.
void copyPages(const fs::path& library, const fs::path& copy, const WorkWatch& watch) {
    Database source(library, Database::Access::readOnly);
    if (isOutdated(source)) {
        throw StoreError(StoreError::Reason::olderVersion,
                         "The library " + library.string() +
                             " is of an older version, which can't be repaired. \"brell library "
                             "restore\" puts its last good backup in its place.");
    }
    Database target(copy, Database::Access::unshared);
    source.copyInto(target, watch.stop, watch.progress);
}

void copyRows(Database& target, const fs::path& damaged) {
    const auto name = damaged.string();
    Statement(target, "ATTACH ? AS damaged").bind(0, name).run();
    Transaction transaction(target);
    for (const auto& table : tablesOf(target)) {
        target.execute(("DELETE FROM " + table).c_str());
        // The condition keeps SQLite from copying the indexes of identical tables unchanged. Of two
        // rows that a damaged index admitted for one key, the first stays.
        target.execute(("INSERT OR IGNORE INTO main." + table + " SELECT * FROM damaged." + table +
                        " NOT INDEXED WHERE TRUE")
                           .c_str());
    }
    target.execute(
        "INSERT INTO storySearch (storySearch) VALUES ('rebuild');"
        "INSERT INTO signalSearch (signalSearch) VALUES ('rebuild')");
    transaction.commit();
    target.execute("DETACH damaged");
}

void requireSoundCopy(Database& target, const fs::path& library) {
    auto fault = firstFault(target, CheckDepth::full);
    if (!fault) fault = searchIndexFault(target);
    if (fault) throw damagedLibrary(library, *fault);
}

}  // namespace

void copyTables(const fs::path& library, const fs::path& copy, const WorkWatch& watch) {
    std::error_code ignored;
    fs::remove(copy, ignored);
    try {
        const TemporaryCopy pages(copy.string() + "-pages");
        copyPages(library, pages.file, watch);
        Database target(copy, Database::Access::unshared);
        target.breakOffWhen(watch.stop);
        migrate(target);
        copyRows(target, pages.file);
        requireSoundCopy(target, library);
    } catch (const StoreError&) {
        fs::remove(copy, ignored);
        throw;
    }
    makeDurable(copy);
}

RepairPreview previewRepair(const fs::path& library, const WorkWatch& watch) {
    const TemporaryCopy copy(library.string() + ".preview");
    copyTables(library, copy.file, watch);
    Database database(copy.file, Database::Access::readOnly);
    const auto count = [&](const char* rows) {
        Statement statement(database, std::string("SELECT count(*) FROM ") + rows);
        statement.step();
        return static_cast<std::size_t>(statement.number(0));
    };
    return {.stories = StoryTable::countIn(database),
            .saved = count("marks WHERE savedAt IS NOT NULL"),
            .newsrooms = count("newsrooms WHERE removedAt IS NULL"),
            .beats = count("beats WHERE removedAt IS NULL"),
            .ownSources = SourceTable(database).customSources().size()};
}

Repair repairLibrary(const fs::path& library, kit::Instant now, const WorkWatch& watch) {
    const fs::path copy = library.string() + ".repairing";
    copyTables(library, copy, watch);
    Repair repair;
    repair.stories = [&copy] {
        Database database(copy, Database::Access::readOnly);
        return StoryTable::countIn(database);
    }();
    repair.setAside = *putInPlace(copy, library, now, watch.stop);
    return repair;
}

}  // namespace app
