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

namespace app {

/// One copy of the library.
struct Backup {
    std::filesystem::path file{};
    kit::Instant made{};
    bool beforeMigration = false;
};

/// Copies of the library in the folder "backups" beside it: the last three, the newest of each
/// of the last three days that have one, and what the library was before each of its versions.
/// Each copy has passed a full check before it takes its name, and only then an older one goes.
/// Where the end of the program cuts that check short, the quick one before it counts.
/// Has connections of its own, so any thread may ask for a backup; two programs don't make one
/// at a time. Throws StoreError.
class Backups {
public:
    explicit Backups(std::filesystem::path library);

    /// Newest first. What claims to be made after `now` is from before the clock was set back,
    /// and comes last.
    std::vector<Backup> all(kit::Instant now) const;

    /// The daily backup, when it is due and another program is not just making it. There is
    /// none of a library without stories, and none when it is stopped, which it heeds within
    /// some tens of milliseconds. `onCopied` is called when the copy has passed the quick check
    /// and the full one begins.
    std::optional<Backup> makeIfDue(kit::Instant now, const std::stop_token& stop = {},
                                    const std::function<void()>& onCopied = {}) const;

    /// Waits for another program that is just making one.
    Backup make(kit::Instant now) const;

    /// What the library is before this program changes its tables. It is checked quickly, since
    /// the user waits for it.
    void makeBeforeMigration() const;

    /// Whether a day has gone by since the last one.
    bool isDue(kit::Instant now) const;

private:
    Backup write(const std::string& name, CheckDepth depth, const std::stop_token& stop = {},
                 const std::function<void()>& onCopied = {}) const;
    void dropOldest(kit::Instant now) const;
    std::filesystem::path lockFile() const { return folder_ / "lock"; }

    std::filesystem::path library_;
    std::filesystem::path folder_;
};

}  // namespace app
