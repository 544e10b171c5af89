#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryCheck.h"
#include "Tarnwick_Brell/Storage/Safety/WorkWatch.h"

namespace app {

/// One copy of the library.
struct Backup {
    std::filesystem::path file{};
    kit::Instant made{};
    bool beforeMigration = false;
};

/// Copies of the library in the folder "backups" beside it: the last three, the newest of each of
/// the last three days that have one, and one from before each migration. A copy gets its name only
/// after a full check, and only then is an older one deleted. If the program ends during that
/// check, the quick check before it counts. Uses connections of its own, so any thread may request
/// a backup; a lock keeps two programs from making one at the same time. Throws StoreError.
class Backups {
public:
    explicit Backups(std::filesystem::path library);

    /// Newest first. Copies dated after `now` are from before the clock was set back and come last.
    std::vector<Backup> all(kit::Instant now) const;

    /// Makes the daily backup when it is due and no other program is making it. Nothing for a
    /// library without stories, or when stopped, which takes some tens of milliseconds. `onCopied`
    /// is called when the copy has passed the quick check and the full one begins.
    std::optional<Backup> makeIfDue(kit::Instant now, const std::stop_token& stop = {},
                                    const std::function<void()>& onCopied = {}) const;

    /// Makes a backup, after waiting for another program that is making one. Throws StoreError when
    /// it is stopped before the copy has passed the quick check; later the copy counts.
    Backup make(kit::Instant now, const WorkWatch& watch = {}) const;

    /// Backs up the library before its tables change. Only a quick check, because the user is
    /// waiting.
    void makeBeforeMigration() const;

    /// True when the last backup is at least a day old.
    bool isDue(kit::Instant now) const;

private:
    Backup write(const std::string& name, CheckDepth depth, const WorkWatch& watch = {},
                 const std::function<void()>& onCopied = {}) const;
    void dropOldest(kit::Instant now) const;
    std::filesystem::path lockFile() const { return folder_ / "lock"; }

    std::filesystem::path library_;
    std::filesystem::path folder_;
};

}  // namespace app
