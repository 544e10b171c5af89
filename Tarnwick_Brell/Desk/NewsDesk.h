#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include <QObject>
#include <QString>
#include <QTimer>

#include "NewsroomKit/Clusters/StoryCluster.h"
#include "NewsroomKit/HTTP/CurlTransport.h"
#include "NewsroomKit/Outlines/Outlines.h"
#include "NewsroomKit/Sources/NewsSource.h"
#include "Tarnwick_Brell/Desk/AddSourceError.h"
#include "Tarnwick_Brell/Desk/DeskUpdateBuilder.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Desk/RefreshCadence.h"
#include "Tarnwick_Brell/Desk/RefreshPass.h"
#include "Tarnwick_Brell/Desk/SourceAdder.h"
#include "Tarnwick_Brell/Desk/SourceImport.h"
#include "Tarnwick_Brell/Desk/Wire.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

/// The main store: the sources, the wire with the user's marks, and the passes that refresh
/// them, on a timer and on demand. Lives on the main thread and never waits there; the
/// library is written, and the network waited for, by a worker. What the user changes holds
/// at once and is written in the background; `failed` tells when that did not work, and the
/// change is taken back. What other programs change in the library is followed.
class NewsDesk : public QObject {
    Q_OBJECT
public:
    using AddSourceError = app::AddSourceError;
    using SourceAdded = std::function<void(const SourceAdder::Added&)>;
    using AddressChecked = std::function<void(const SourceAdder::Checked&)>;
    using Imported = std::function<void(const std::vector<kit::NewsSource>&)>;
    /// Numbers of stories of the wire, newest first.
    using Found = std::function<void(const std::vector<std::int64_t>&)>;

    struct Progress {
        std::size_t done = 0;
        std::size_t total = 0;
    };

    /// Opens the library; throws StoreError, or std::runtime_error for an unreadable authority.
    NewsDesk(const std::filesystem::path& library, kit::CurlTransport::Options network,
             Defaults& defaults, kit::Clock clock);
    ~NewsDesk() override;

    /// Loads the wire and begins to refresh on the timer.
    void start();

    /// For the stores beside this one, which share its library and its way to the network.
    DeskWorker& worker() { return worker_; }

    // What is observed.
    const std::vector<kit::NewsSource>& sources() const { return roster_.sources; }
    const std::set<std::string, std::less<>>& enabledSourceIDs() const { return roster_.enabled; }
    const Wire& stories() const { return wire_; }
    /// False until the whole wire has been read.
    bool isLoaded() const { return isLoaded_; }
    const std::vector<kit::StoryCluster>& clusters() const { return clusters_; }
    bool isRead(std::string_view storyID) const;
    bool isSaved(std::string_view storyID) const;
    std::optional<kit::Instant> firstSeen(std::string_view storyID) const;
    const SourceStatus& sourceStatus(const std::string& sourceID) const;
    const SourceHealth& sourceHealth(const std::string& sourceID) const;
    std::optional<kit::Instant> lastRefresh() const { return lastRefresh_; }
    std::optional<kit::Instant> lastArrival() const { return lastArrival_; }
    bool isRefreshing() const { return pass_.has_value(); }
    Progress progress() const { return pass_.value_or(Progress()); }
    /// Stories first seen since then are new to the user.
    std::optional<kit::Instant> newSince() const;
    std::optional<kit::Instant> liveUntil() const;
    /// Not one source answered in the last pass.
    bool lastPassFailed() const { return lastPassFailed_; }
    /// The servers of the last pass say that this computer's clock is more than a day wrong.
    bool clockSeemsWrong() const { return clockSeemsWrong_; }

    /// Called with newly arrived stories that are news, newest first: neither those of a
    /// source's first fetch nor those that came in bulk or late.
    void onNewStories(std::function<void(const std::vector<kit::Story>&)> callback);

    // What the user does.
    void refreshAll();
    /// Whatever the source's shortest interval, and even when it is off. Both wait for the
    /// pass under way, and for the wire to be loaded.
    void refreshSource(const std::string& id);
    void cancelRefresh();
    void goLive(kit::Instant until);
    void endLive();
    /// The user left the window at that moment: what has come since is new.
    void markLeft(kit::Instant at);

    /// `undoable`: the user asked for it, and may want to take it back.
    void setRead(const std::vector<std::string>& storyIDs, bool read,
                 Undoable undoable = Undoable::no);
    void setSaved(const std::vector<std::string>& storyIDs, bool saved);
    /// Returns how many of these stories were unread.
    std::size_t markAllRead(const std::vector<std::int64_t>& numbers);
    /// Takes the user's last change of marks back, also one of an earlier run or of another
    /// program. False when there is none.
    bool undoMarks();
    bool canUndo() const { return canUndo_; }

    void setEnabled(const std::string& sourceID, bool enabled);
    void checkAddress(std::string typed, AddressChecked done);
    void addSource(std::string typed, SourceAdded done);
    void renameSource(const std::string& id, const std::string& name);
    void removeSource(const std::string& id);
    void importOutlines(kit::Outlines outlines, Imported done);

    /// Stories that the text finds, at most `limit`. Of searches that follow each other before
    /// an answer only the last one is answered.
    void search(const std::string& typed, std::size_t limit, Found done);

signals:
    /// The whole wire has been read.
    void loaded();
    /// It can't be: the desk has no stories and will not refresh.
    void loadFailed(const QString& sentence);
    void wireChanged(const app::WireChange& change);
    void marksChanged(const std::vector<std::int64_t>& numbers);
    /// Whether there is a change of marks to take back.
    void undoChanged();
    /// Sources, which of them are on, or their status.
    void sourcesChanged();
    void refreshChanged();
    void clustersChanged();
    void newSinceChanged();
    /// Each source's end in a pass, and what other programs brought: for those who tell
    /// arrivals as they come. Numbers of stories that are news.
    void storiesArrived(const std::vector<std::int64_t>& numbers);
    void passEnded(const app::PassReport& report);
    /// Another program has written the library: whatever is read from it may have changed.
    void libraryChangedElsewhere();
    void failed(const QString& sentence);
    /// Instead of `failed`: nothing more can be kept until the library has been restored.
    void libraryDamaged(const QString& sentence);

private:
    struct Asked {
        std::vector<std::string> ids{};  ///< empty: all that are enabled

        bool operator==(const Asked&) const = default;
    };

    void tick();
    void armTimer();
    void ask(Asked asked);
    void beginPass(Asked asked);
    void beginWaitingPass();
    void take(DeskUpdate step);
    void takeStories(DeskUpdate& step);
    void endPass(const PassReport& report);
    void announce(std::vector<std::int64_t> numbers);
    void dropOldAtStart();
    void dropOld(std::optional<kit::Instant> publishedBefore);
    PassSettings passSettings(PassScope scope) const;
    Clocks now() const;
    void post(DeskWorker::Job job, std::function<void()> undo = {});
    DeskWorker::Failed failure(std::function<void()> undo = {});
    struct MarkChange {
        Mark mark = Mark::read;
        bool on = false;
        std::vector<std::int64_t> numbers{};
    };
    std::vector<std::int64_t> change(MarkChange asked, Undoable undoable);
    void takeBack(std::uint64_t ticket);
    void setCanUndo(bool canUndo);
    std::vector<std::int64_t> apply(const MarkChange& change);
    std::vector<std::int64_t> numbersOf(const std::vector<std::string>& storyIDs) const;
    void changeRoster(std::function<void(DeskWorker::WorkerContext&, SourceRegistry&)> change,
                      DeskWorker::Failed failed);
    template <class Done>
    DeskWorker::Failed answering(Done done);
    void followOtherPrograms();
    DeskUpdateBuilder& backroom();
    void deliverStep(DeskUpdate step);
    void deliver(std::function<void()> message);

    Defaults& defaults_;
    kit::Clock clock_;
    Wire wire_;
    bool isLoaded_ = false;
    std::vector<kit::StoryCluster> clusters_;
    SourceListState roster_;
    SourceStates sourceStates_;
    std::optional<kit::Instant> lastRefresh_;
    std::optional<kit::Instant> lastArrival_;
    std::optional<kit::Instant> newSince_;
    std::optional<kit::Instant> clockConfirmed_;
    bool lastPassFailed_ = false;
    bool clockSeemsWrong_ = false;
    std::optional<Progress> pass_;
    DeskWorker::Ticket passTicket_ = 0;
    bool passIsWhole_ = false;  ///< all that are enabled, not some that were named
    std::vector<Asked> waitingPasses_;
    std::vector<std::int64_t> arrivedInPass_;
    std::optional<MarkChange> lastChange_;  ///< of marks, when this desk made it
    bool canUndo_ = false;
    std::map<std::uint64_t, MarkChange> pendingMarks_;  ///< not yet in the library
    std::uint64_t lastMark_ = 0;
    std::function<void(const std::vector<kit::Story>&)> onNewStories_;
    std::optional<RefreshCadence> autoRefresh_;
    QTimer timer_;
    std::uint64_t lastSearch_ = 0;
    std::atomic<std::uint64_t> newestSearch_ = 0;  ///< the same, for the worker
    MainThreadQueue mailbox_;
    std::unique_ptr<DeskUpdateBuilder> backroom_;  ///< the worker's; made and used on its thread
    /// Last, so that it ends first: its jobs refer to the others.
    DeskWorker worker_;
};

}  // namespace app
