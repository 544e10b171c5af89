#include "Tarnwick_Brell/Storage/LocalStore.h"

#include <system_error>
#include <utility>

#include "NewsroomKit/Log/Log.h"
#include "Tarnwick_Brell/Storage/Safety/Backups.h"
#include "Tarnwick_Brell/Storage/Safety/LibraryAccessLock.h"
#include "Tarnwick_Brell/Storage/Tables/Schema.h"
#include "Tarnwick_Brell/Storage/Tables/UntouchedNewsroom.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

using kit::LogCategory;
using kit::LogLevel;

namespace {

namespace fs = std::filesystem;

/// Throws when the library has been lost.
void requireNotLost(const fs::path& file) {
    std::error_code none;
    const bool isGone = !fs::exists(file, none) || fs::file_size(file, none) == 0;
    if (!isGone || Backups(file).all({}).empty()) return;
    throw StoreError(StoreError::Reason::damaged,
                     "The library " + file.string() +
                         " is gone or empty, although there are backups of it. \"brell library "
                         "restore\" brings back the last one; with --empty the desk begins anew.");
}

/// Before the library is opened for writing.
std::optional<FileLock> use(const fs::path& file, Database::Access access) {
    if (access != Database::Access::readWrite || file == Database::kInMemory) return std::nullopt;
    requireNotLost(file);
    return shareLibrary(file);
}

}  // namespace

void LocalStore::begin(const fs::path& file) {
    Database database(file, Database::Access::readWrite);
    migrate(database);
}

bool LocalStore::exists(const fs::path& file) {
    requireNotLost(file);
    if (!fs::exists(file)) return false;
    Database database(file, Database::Access::readOnly);
    return !isUnmigrated(database);
}

std::int64_t LocalStore::version() { return versionOf(database_); }

LocalStore::LocalStore(const fs::path& file, Database::Access access)
    : use_(use(file, access)),
      database_(file, access),
      corrections_(database_),
      claimAnswers_(database_),
      articles_(database_),
      stories_(database_, corrections_),
      search_(database_, stories_),
      searchIndex_(database_),
      marks_(database_),
      sources_(database_),
      validators_(database_),
      state_(database_),
      hostPauses_(database_),
      newsrooms_(database_, "newsrooms", &untouchedNewsroom),
      beats_(database_, "beats"),
      trackerCopies_(database_),
      incidents_(database_),
      builds_(database_),
      signing_(database_),
      offers_(database_),
      charts_(database_),
      signalLog_(database_),
      filings_(database_, "filings"),
      docketEntries_(database_, "docketEntries"),
      courtCases_(database_, "courtCases"),
      pressReleases_(database_, "pressReleases"),
      findings_(database_),
      followedPages_(database_, "followedPages"),
      pages_(database_),
      alertRules_(database_, "alertRules"),
      alerts_(database_),
      kept_(database_),
      savedStories_(database_),
      noteVersions_(database_),
      keptSearch_(database_),
      sync_(database_) {
    if (access == Database::Access::readWrite) {
        if (isOutdated(database_)) {
            const auto earlier = version();
            Backups(file).makeBeforeMigration();
            migrate(database_);
            kit::log(LogCategory::storage, LogLevel::info,
                     "the library's tables went from version {} to {}", earlier, version());
        } else {
            migrate(database_);
        }
    } else {
        requireCurrentSchema(database_);
    }
}

Transaction LocalStore::transaction() {
    // What a transaction collected that was rolled back.
    searchIndex_.forget();
    return Transaction(database_, [this] { searchIndex_.update(); });
}

bool LocalStore::hasForeignChanges() {
    Statement row(database_, "PRAGMA data_version");
    row.step();
    const auto known = std::exchange(dataVersion_, row.number(0));
    return known != dataVersion_;
}

}  // namespace app
