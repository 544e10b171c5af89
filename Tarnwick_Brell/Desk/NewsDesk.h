#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <QObject>
#include <QString>

#include "NewsroomKit/Clusters/StoryCluster.h"
#include "NewsroomKit/HTTP/CurlTransport.h"
#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Desk/PassReport.h"
#include "Tarnwick_Brell/Desk/RefreshController.h"
#include "Tarnwick_Brell/Desk/SourceController.h"
#include "Tarnwick_Brell/Desk/Wire.h"
#include "Tarnwick_Brell/Storage/Tables/MarkTable.h"

namespace app {

class Corrections;
class DeskJobs;
struct DeskUpdate;
class LinkResolver;
class MarksController;

/// The main store: the wire with the user's marks, and the façade of the controllers that
/// refresh it, change marks and manage sources. It lives on the main thread and never waits
/// there: a worker writes the library and waits for the network. The user's changes apply at
/// once and are written in the background. When that fails, `failed` is emitted and the change
/// is rolled back. Changes of other programs in the library are followed.
class NewsDesk : public QObject {
    Q_OBJECT
public:
    using AddressChecked = SourceController::Checked;
    using ImportWatch = SourceController::ImportWatch;
    using Imported = SourceController::Imported;
    using ListRead = SourceController::ListRead;
    using TriesRead = SourceController::TriesRead;
    using TriesCounted = SourceController::TriesCounted;
    using PausesRead = SourceController::PausesRead;
    using Progress = RefreshController::Progress;
    using NewStories = std::function<void(const std::vector<kit::Story>&)>;
    /// Numbers of stories of the wire, newest first.
    using Found = std::function<void(const std::vector<std::int64_t>&)>;

    /// Opens the library; throws StoreError, or std::runtime_error for an unreadable authority.
    NewsDesk(const std::filesystem::path& library, kit::CurlTransport::Options network,
             Defaults& defaults, kit::Clock clock);
    ~NewsDesk() override;

    /// Loads the wire and begins to refresh on the timer.
    void start();

    /// What the user says the rules got wrong. The stories and clusters of the desk have it
    /// already.
    Corrections& corrections() { return *corrections_; }
    const Corrections& corrections() const { return *corrections_; }

    /// For the other stores, which share its library and its network.
    DeskWorker& worker();
    /// On the worker's thread: follows what another store has changed in stories.
    void deliver(CommittedBatch batch);

    // What is observed.
    const std::vector<kit::NewsSource>& sources() const { return sources_->sources(); }
    const std::set<std::string, std::less<>>& enabledSourceIDs() const {
        return sources_->enabledIDs();
    }
    const Wire& stories() const { return wire_; }
    /// False until the whole wire has been read.
    bool isLoaded() const { return isLoaded_; }
    /// The clusters of the last month, for readers on any thread. Null until they are first made.
    const kit::SharedClusters& clusters() const { return clusters_; }
    bool isRead(std::string_view storyID) const;
    bool isSaved(std::string_view storyID) const;
    std::optional<kit::Instant> firstSeen(std::string_view storyID) const;
    const SourceStatus& sourceStatus(const std::string& id) const { return sources_->status(id); }
    const SourceHealth& sourceHealth(const std::string& id) const { return sources_->health(id); }
    /// What the user has set for sources; those for which nothing is set are not in it.
    const SourceTable::Options& sourceOptions() const { return sources_->options(); }
    std::optional<kit::Instant> lastRefresh() const { return lastRefresh_; }
    std::optional<kit::Instant> lastArrival() const { return lastArrival_; }
    bool isRefreshing() const { return refresh_->isRefreshing(); }
    Progress progress() const { return refresh_->progress(); }
    /// Stories first seen after this moment are new to the user.
    std::optional<kit::Instant> newSince() const;
    std::optional<kit::Instant> liveUntil() const { return refresh_->liveUntil(); }
    /// No source answered in the last pass.
    bool lastPassFailed() const { return refresh_->lastPassFailed(); }
    /// According to the servers of the last pass, this computer's clock is more than a day wrong.
    bool clockSeemsWrong() const { return refresh_->clockSeemsWrong(); }

    /// Called once after each pass with all of its new stories that are news, newest first. A
    /// source's first fetch, archives and late stories are not news.
    void onNewStories(NewStories callback);

    // What the user does.
    void refreshAll();
    /// Refreshes even a disabled source, whatever its shortest interval. Both wait for the pass
    /// under way, and until the wire is loaded.
    void refreshSource(const std::string& id);
    void cancelRefresh();
    void goLive(kit::Instant until);
    void endLive();
    /// Goes live for each of these events that is on, once: the user may end that.
    void goLiveDuring(const std::vector<kit::AppleCalendarEvent>& events);
    /// The user left the window at that moment: stories that arrive after it are new.
    void markLeft(kit::Instant at);

    /// `undoable`: the user asked for this change and can undo it.
    void setRead(const std::vector<std::string>& storyIDs, bool read,
                 Undoable undoable = Undoable::no);
    void setSaved(const std::vector<std::string>& storyIDs, bool saved);
    /// Returns how many of these stories were unread.
    std::size_t markAllRead(const std::vector<std::int64_t>& numbers);
    /// Undoes the user's last change of marks, also one of an earlier run or of another program.
    /// False when there is none.
    bool undoMarks();
    bool canUndo() const;

    void setEnabled(const std::string& sourceID, bool enabled);
    void setSourceOptions(const std::string& sourceID, const SourceOptions& options);
    /// How the fetches of the source went in the last days, the oldest first.
    void readTries(const std::string& sourceID, TriesRead done);
    /// How often each source was fetched in these days, by its id.
    void countTries(TriesCounted done);
    /// Which hosts want to be left alone, and until when.
    void readPauses(PausesRead done);
    /// Finds the feed of a typed address and changes nothing. `watch` follows the addresses that
    /// are asked. `cancelCheck` with what it returns ends it.
    std::uint64_t checkAddress(std::string typed, kit::FetchWatch watch, AddressChecked done);
    void cancelCheck(std::uint64_t check);
    void renameSource(const std::string& id, const std::string& name);
    void removeSources(std::vector<std::string> ids);
    /// Reads a list of feeds from a file and compares it with the sources.
    void readOutlines(std::filesystem::path file, ListRead done);
    /// Adds the feeds that no source has, all of them or none.
    void importOutlines(kit::Outlines outlines, ImportWatch watch, Imported done);

    /// Finds at most `limit` stories. When searches follow each other before an answer, only
    /// the last one is answered.
    void search(const std::string& typed, std::size_t limit, Found done);

signals:
    /// The whole wire has been read.
    void loaded();
    /// The wire cannot be read: the desk has no stories and will not refresh.
    void loadFailed(const QString& sentence);
    void wireChanged(const app::WireChange& change);
    void marksChanged(const std::vector<std::int64_t>& numbers);
    void undoChanged();
    /// The sources, which of them are enabled, or their status.
    void sourcesChanged();
    void refreshChanged();
    void clustersChanged();
    void newSinceChanged();
    /// News was stored: emitted for each transaction of a pass, and for what other programs
    /// stored. onNewStories follows once, at the end of the pass. Numbers of stories, falling.
    void newsStored(const std::vector<std::int64_t>& numbers);
    void passEnded(const app::PassReport& report);
    /// A source answered, after a pass in which none did.
    void networkReturned();
    /// Another program has written the library: whatever is read from it may have changed.
    void libraryChangedElsewhere();
    void failed(const QString& sentence);
    /// Instead of `failed`: nothing can be stored until the library has been restored.
    void libraryDamaged(const QString& sentence);

private:
    void apply(DeskUpdate update);
    void applyStories(DeskUpdate& update);
    void applyNews(std::vector<std::int64_t> news);
    void finishLoading();
    void finishPass(const PassReport& report);
    void announce(std::vector<std::int64_t> numbers);
    void dropOldAtStart();
    void dropOld(std::optional<kit::Instant> publishedBefore);
    void followOtherPrograms();
    std::vector<std::string> redirected(const std::vector<std::string>& storyIDs) const;
    void resolveClustered();

    const Defaults& defaults_;
    kit::Clock clock_;
    Wire wire_;
    bool isLoaded_ = false;
    kit::SharedClusters clusters_;
    std::optional<kit::Instant> lastRefresh_;
    std::optional<kit::Instant> lastArrival_;
    std::optional<kit::Instant> newSince_;
    std::optional<kit::Instant> clockConfirmed_;
    std::vector<std::int64_t> newsOfPass_;
    NewStories onNewStories_;
    std::uint64_t lastSearch_ = 0;
    std::atomic<std::uint64_t> newestSearch_ = 0;  ///< the same, for the worker
    std::unique_ptr<SourceController> sources_;
    std::unique_ptr<MarksController> marks_;
    std::unique_ptr<RefreshController> refresh_;
    std::unique_ptr<LinkResolver> links_;
    std::unique_ptr<Corrections> corrections_;
    /// Last, so that it ends first: its jobs refer to the others.
    std::unique_ptr<DeskJobs> jobs_;
};

}  // namespace app
