#pragma once

#include <filesystem>

#include "Tarnwick_Brell/Storage/BuildHistory.h"
#include "Tarnwick_Brell/Storage/ChartHistory.h"
#include "Tarnwick_Brell/Storage/Database.h"
#include "Tarnwick_Brell/Storage/DeskState.h"
#include "Tarnwick_Brell/Storage/DurableFiles.h"
#include "Tarnwick_Brell/Storage/HostPauses.h"
#include "Tarnwick_Brell/Storage/IncidentLog.h"
#include "Tarnwick_Brell/Storage/MarkTable.h"
#include "Tarnwick_Brell/Storage/OfferHistory.h"
#include "Tarnwick_Brell/Storage/RecordTable.h"
#include "Tarnwick_Brell/Storage/SearchIndex.h"
#include "Tarnwick_Brell/Storage/SigningHistory.h"
#include "Tarnwick_Brell/Storage/SourceTable.h"
#include "Tarnwick_Brell/Storage/StoryMerge.h"
#include "Tarnwick_Brell/Storage/StorySearch.h"
#include "Tarnwick_Brell/Storage/StoryTable.h"
#include "Tarnwick_Brell/Storage/TrackerCopies.h"
#include "Tarnwick_Brell/Storage/ValidatorStore.h"

namespace desk {

/// The library: one SQLite file with the stories, the user's sources, their status and the
/// validators of their last answers. Used by one thread. Throws StoreError.
class LocalStore {
public:
    /// For writing, the file is made when there is none. A library that is gone although there
    /// are backups of it is not begun anew: that would end with the last backup dropped.
    LocalStore(const std::filesystem::path& file, Database::Access access);

    /// Whether the file has a library in it: not one that was broken off before its first
    /// table. Throws StoreError when it can't be read, or is gone although it has backups.
    static bool exists(const std::filesystem::path& file);

    /// Begins an empty library, whatever backups there are.
    static void begin(const std::filesystem::path& file);

    StoryTable& stories() { return stories_; }
    /// Made when it is asked for: its statements need a library that may be written.
    [[nodiscard]] StoryMerge merging() { return StoryMerge(database_, searchIndex_); }
    StorySearch& search() { return search_; }
    MarkTable& marks() { return marks_; }
    SourceTable& sources() { return sources_; }
    ValidatorStore& validators() { return validators_; }
    DeskState& state() { return state_; }
    HostPauses& hostPauses() { return hostPauses_; }
    RecordTable& newsrooms() { return newsrooms_; }
    RecordTable& beats() { return beats_; }
    TrackerCopies& trackerCopies() { return trackerCopies_; }
    IncidentLog& incidents() { return incidents_; }
    BuildHistory& builds() { return builds_; }
    SigningHistory& signing() { return signing_; }
    OfferHistory& offers() { return offers_; }
    ChartHistory& charts() { return charts_; }

    std::int64_t version();

    /// See Database::hurryWhen.
    void hurryWhen(const std::atomic<bool>& flag) { database_.hurryWhen(flag); }

    /// Whether another connection has written since the last call. Cheap.
    bool hasForeignChanges();

    /// Its commit also brings the full-text index up to date.
    [[nodiscard]] Transaction transaction();

private:
    std::optional<FileLock> use_;
    Database database_;
    StoryTable stories_;
    StorySearch search_;
    SearchIndex searchIndex_;
    MarkTable marks_;
    SourceTable sources_;
    ValidatorStore validators_;
    DeskState state_;
    HostPauses hostPauses_;
    RecordTable newsrooms_;
    RecordTable beats_;
    TrackerCopies trackerCopies_;
    IncidentLog incidents_;
    BuildHistory builds_;
    SigningHistory signing_;
    OfferHistory offers_;
    ChartHistory charts_;
    std::int64_t dataVersion_ = 0;
};

}  // namespace desk
