#pragma once

#include <filesystem>

#include "Tarnwick_Brell/Storage/Histories/AlertHistory.h"
#include "Tarnwick_Brell/Storage/Histories/BuildHistory.h"
#include "Tarnwick_Brell/Storage/Histories/ChartHistory.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"
#include "Tarnwick_Brell/Storage/Tables/ArticleTable.h"
#include "Tarnwick_Brell/Storage/Tables/ClaimAnswerTable.h"
#include "Tarnwick_Brell/Storage/Tables/CorrectionTable.h"
#include "Tarnwick_Brell/Storage/Tables/DeskState.h"
#include "Tarnwick_Brell/Storage/Files/DurableFiles.h"
#include "Tarnwick_Brell/Storage/Tables/HostBackoff.h"
#include "Tarnwick_Brell/Storage/Histories/FindingHistory.h"
#include "Tarnwick_Brell/Storage/Histories/IncidentLog.h"
#include "Tarnwick_Brell/Storage/Tables/KeptSearch.h"
#include "Tarnwick_Brell/Storage/Tables/KeptTable.h"
#include "Tarnwick_Brell/Storage/Tables/MarkTable.h"
#include "Tarnwick_Brell/Storage/Tables/NoteVersions.h"
#include "Tarnwick_Brell/Storage/Histories/OfferHistory.h"
#include "Tarnwick_Brell/Storage/Histories/PageHistory.h"
#include "Tarnwick_Brell/Storage/Histories/RecordHistory.h"
#include "Tarnwick_Brell/Storage/Tables/RecordTable.h"
#include "Tarnwick_Brell/Storage/Tables/SearchIndex.h"
#include "Tarnwick_Brell/Storage/Tables/SavedStories.h"
#include "Tarnwick_Brell/Storage/Histories/SignalLog.h"
#include "Tarnwick_Brell/Storage/Histories/SigningHistory.h"
#include "Tarnwick_Brell/Storage/Tables/SourceTable.h"
#include "Tarnwick_Brell/Storage/Tables/StoryMerge.h"
#include "Tarnwick_Brell/Storage/Tables/StorySearch.h"
#include "Tarnwick_Brell/Storage/Tables/StoryTable.h"
#include "Tarnwick_Brell/Storage/Histories/TrackerCopies.h"
#include "Tarnwick_Brell/Storage/Tables/ValidatorStore.h"

namespace app {

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

    CorrectionTable& corrections() { return corrections_; }
    ClaimAnswerTable& claimAnswers() { return claimAnswers_; }
    ArticleTable& articles() { return articles_; }
    StoryTable& stories() { return stories_; }
    /// Made when it is asked for: its statements need a library that may be written.
    [[nodiscard]] StoryMerge merging() { return StoryMerge(database_, searchIndex_); }
    StorySearch& search() { return search_; }
    MarkTable& marks() { return marks_; }
    SourceTable& sources() { return sources_; }
    ValidatorStore& validators() { return validators_; }
    DeskState& state() { return state_; }
    HostBackoff& hostPauses() { return hostPauses_; }
    RecordTable& newsrooms() { return newsrooms_; }
    RecordTable& beats() { return beats_; }
    TrackerCopies& trackerCopies() { return trackerCopies_; }
    IncidentLog& incidents() { return incidents_; }
    BuildHistory& builds() { return builds_; }
    SigningHistory& signing() { return signing_; }
    OfferHistory& offers() { return offers_; }
    ChartHistory& charts() { return charts_; }
    SignalLog& signalLog() { return signalLog_; }
    RecordHistory& filings() { return filings_; }
    RecordHistory& docketEntries() { return docketEntries_; }
    RecordHistory& courtCases() { return courtCases_; }
    RecordHistory& pressReleases() { return pressReleases_; }
    FindingHistory& findings() { return findings_; }
    RecordTable& followedPages() { return followedPages_; }
    PageHistory& pages() { return pages_; }
    RecordTable& alertRules() { return alertRules_; }
    AlertHistory& alerts() { return alerts_; }
    KeptTable& kept() { return kept_; }
    SavedStories& savedStories() { return savedStories_; }
    NoteVersions& noteVersions() { return noteVersions_; }
    KeptSearch& keptSearch() { return keptSearch_; }
    SyncRecorder& sync() { return sync_; }

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
    CorrectionTable corrections_;
    ClaimAnswerTable claimAnswers_;
    ArticleTable articles_;
    StoryTable stories_;
    StorySearch search_;
    SearchIndex searchIndex_;
    MarkTable marks_;
    SourceTable sources_;
    ValidatorStore validators_;
    DeskState state_;
    HostBackoff hostPauses_;
    RecordTable newsrooms_;
    RecordTable beats_;
    TrackerCopies trackerCopies_;
    IncidentLog incidents_;
    BuildHistory builds_;
    SigningHistory signing_;
    OfferHistory offers_;
    ChartHistory charts_;
    SignalLog signalLog_;
    RecordHistory filings_;
    RecordHistory docketEntries_;
    RecordHistory courtCases_;
    RecordHistory pressReleases_;
    FindingHistory findings_;
    RecordTable followedPages_;
    PageHistory pages_;
    RecordTable alertRules_;
    AlertHistory alerts_;
    KeptTable kept_;
    SavedStories savedStories_;
    NoteVersions noteVersions_;
    KeptSearch keptSearch_;
    SyncRecorder sync_;
    std::int64_t dataVersion_ = 0;
};

}  // namespace app
