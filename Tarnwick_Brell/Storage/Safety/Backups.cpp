#include "Tarnwick_Brell/Storage/Safety/Backups.h"

#include <algorithm>
#include <set>
#include <string>
#include <system_error>
#include <tuple>

#include <fmt/chrono.h>

#include "Tarnwick_Brell/Storage/SQLite/Database.h"
#include "Tarnwick_Brell/Storage/Files/DurableFiles.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryCopy.h"
#include "Tarnwick_Brell/Storage/Tables/Schema.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"
#include "Tarnwick_Brell/Storage/Tables/StoryTable.h"

namespace app {

namespace fs = std::filesystem;
using kit::Instant;

namespace {

constexpr std::size_t kBackupsKept = 3;
constexpr std::chrono::hours kBetweenBackups{24};

constexpr std::string_view kBeginning = "library-";
constexpr std::string_view kVersion = "library-version-";
constexpr std::string_view kEnding = ".sqlite";

std::string nameAt(Instant now) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(now);
    return fmt::format("{}{:%Y%m%dT%H%M%SZ}{}", kBeginning, seconds, kEnding);
}

/// "20261121T063933Z"
std::optional<Instant> instantIn(std::string_view text) {
    if (text.size() != 16) return std::nullopt;
    return kit::parseISO8601(fmt::format("{}-{}-{}:{}:{}", text.substr(0, 4), text.substr(4, 2),
                                         text.substr(6, 5), text.substr(11, 2), text.substr(13)));
}

Instant fileTime(const fs::path& file) {
    std::error_code gone;
    const auto time = fs::last_write_time(file, gone);
    if (gone) return {};
    return std::chrono::floor<std::chrono::microseconds>(fs::file_time_type::clock::to_sys(time));
}

/// Nothing for other files in the folder.
std::optional<Backup> backupIn(const fs::path& file) {
    const auto name = file.filename().string();
    if (!name.starts_with(kBeginning) || !name.ends_with(kEnding)) return std::nullopt;
    if (name.starts_with(kVersion)) return Backup{file, fileTime(file), true};
    const auto made = instantIn(std::string_view(name).substr(
        kBeginning.size(), name.size() - kBeginning.size() - kEnding.size()));
    return made ? std::optional(Backup{file, *made, false}) : std::nullopt;
}

std::chrono::sys_days dayOf(const Backup& backup) {
    return std::chrono::floor<std::chrono::days>(backup.made);
}

bool hasStories(const fs::path& library) {
    if (!fs::exists(library)) return false;
    Database database(library, Database::Access::readOnly);
    return !isUnmigrated(database) && StoryTable::countIn(database) > 0;
}

}  // namespace

Backups::Backups(fs::path library)
    : library_(std::move(library)), folder_(library_.parent_path() / "backups") {}

std::vector<Backup> Backups::all(Instant now) const {
    std::vector<Backup> backups;
    std::error_code none;
    for (const auto& entry : fs::directory_iterator(folder_, none)) {
        if (auto backup = backupIn(entry.path())) backups.push_back(*std::move(backup));
    }
    const auto key = [now](const Backup& backup) {
        return std::tuple(backup.made <= now, backup.made, backup.file);
    };
    std::ranges::sort(backups, std::greater(), key);
    return backups;
}

bool Backups::isDue(Instant now) const {
    return std::ranges::none_of(all(now), [now](const Backup& backup) {
        return !backup.beforeMigration && backup.made <= now && now - backup.made < kBetweenBackups;
    });
}

std::optional<Backup> Backups::makeIfDue(Instant now, const std::stop_token& stop,
                                         const std::function<void()>& onCopied) const {
    if (!isDue(now) || !hasStories(library_)) return std::nullopt;
    makeFolder(folder_);
    const auto lock = FileLock::acquire(lockFile(), FileLock::Wait::no);
    // Another program may have made the backup just before this one got the lock.
    if (!lock || !isDue(now)) return std::nullopt;
    try {
        auto backup = write(nameAt(now), CheckDepth::full, {.stop = stop}, onCopied);
        dropOldest(now);
        return backup;
    } catch (const StoreError&) {
        if (!stop.stop_requested()) throw;
        return std::nullopt;
    }
}

Backup Backups::make(Instant now, const WorkWatch& watch) const {
    makeFolder(folder_);
    const auto lock = FileLock::acquire(lockFile(), FileLock::Wait::untilFree);
    auto backup = write(nameAt(now), CheckDepth::full, watch);
    dropOldest(now);
    return backup;
}

void Backups::makeBeforeMigration() const {
    makeFolder(folder_);
    const auto lock = FileLock::acquire(lockFile(), FileLock::Wait::untilFree);
    Database database(library_, Database::Access::readOnly);
    const auto version = versionOf(database);
    // Another program may have migrated the library while this one waited for the lock.
    if (isOutdated(database)) {
        write(fmt::format("{}{}{}", kVersion, version, kEnding), CheckDepth::quick);
    }
}

Backup Backups::write(const std::string& name, CheckDepth depth, const WorkWatch& watch,
                      const std::function<void()>& onCopied) const {
    // Not the name of a backup, so an interrupted run leaves none behind.
    const auto unfinished = folder_ / "unfinished";
    copyLibrary(library_, unfinished, depth, watch, onCopied);
    const auto file = folder_ / name;
    moveIntoPlace(unfinished, file);
    return *backupIn(file);
}

void Backups::dropOldest(Instant now) const {
    std::size_t kept = 0;
    std::set<std::chrono::sys_days> days;
    for (const auto& backup : all(now)) {
        if (backup.beforeMigration || ++kept <= kBackupsKept) {
            if (!backup.beforeMigration) days.insert(dayOf(backup));
            continue;
        }
        // The user's own copies of today don't displace yesterday's.
        if (days.size() < kBackupsKept && days.insert(dayOf(backup)).second) continue;
        std::error_code ignored;
        fs::remove(backup.file, ignored);
    }
}

}  // namespace app
