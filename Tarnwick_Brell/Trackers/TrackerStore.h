#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <QObject>
#include <QString>

#include "NewsroomKit/Filings/FollowedFiling.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "Tarnwick_Brell/Trackers/PollScheduler.h"
#include "Tarnwick_Brell/Trackers/TrackedFiles.h"
#include "Tarnwick_Brell/Trackers/TrackerHistories.h"
#include "Tarnwick_Brell/Trackers/TrackerNews.h"
#include "Tarnwick_Brell/Trackers/TrackerValues.h"

namespace app {

struct AnyTrackedFile;
struct LoadedFile;
class TrackerJobs;

/// What the service says of a symbol.
struct SymbolAnswer {
    enum class Kind { known, unknown, noAnswer };
    Kind kind = Kind::noAnswer;
    std::string symbol{};  ///< as the service writes it
    std::string name{};    ///< of the company or the index
    std::string error{};   ///< a sentence, unless it is known
};

/// What the desk follows beside the news: Apple's services, releases and calendar, quotes,
/// firmware signing, updates and charts. Lives on the main thread; the worker fetches. The last
/// good values are shown with their age until newer ones come, over restarts too.
class TrackerStore : public QObject {
    Q_OBJECT
public:
    using Services = kit::AppleServiceStatus::Services;
    using Quote = kit::CachedValue<kit::StockQuote>;
    using Chart = kit::AppStoreCharts::Kind;

    static constexpr std::chrono::seconds kQuoteFreshFor{60};

    /// The worker must outlive it.
    TrackerStore(DeskWorker& worker, Defaults& defaults, kit::Clock clock);
    ~TrackerStore() override;

    /// Loads the values that the library holds and begins to refresh on the timer.
    void start();

    // Shown values. A reference holds until the next signal of its tracker.
    /// The library has been read. Nothing is fetched before.
    bool isLoaded() const { return scheduler_.hasStarted(); }
    const kit::CachedValue<Services>& consumerStatus() const {
        return values_.of(files().status(kit::StatusFeed::consumer));
    }
    const kit::CachedValue<Services>& developerStatus() const {
        return values_.of(files().status(kit::StatusFeed::developer));
    }
    const kit::CachedValue<std::vector<kit::PlatformRelease>>& releases() const {
        return values_.of(files().releases());
    }
    const kit::CachedValue<std::vector<kit::AppleCalendarEvent>>& events() const {
        return values_.of(files().events());
    }
    const kit::CachedValue<std::vector<kit::BoardQuote>>& board() const {
        return values_.of(files().board());
    }
    const kit::CachedValue<kit::SigningStatus>& signing(const std::string& device) const {
        return values_.of(files().signing(device));
    }
    const kit::CachedValue<std::vector<kit::UpdateOffer>>& updates() const {
        return values_.of(files().updates());
    }
    const kit::CachedValue<std::vector<kit::ChartEntry>>& chart(Chart kind) const {
        return values_.of(files().chart(kind));
    }
    /// Of any file that is followed, as those of courts and wires.
    template <class T>
    const kit::CachedValue<T>& valueOf(const TrackedFile<T>& file) const {
        return values_.of(file);
    }
    /// The last day before the chart's on which it was seen.
    std::optional<kit::ChartDay> chartDayBefore(Chart kind) const;

    /// Of the last three months the days on which the chart was seen, the earliest first.
    const std::vector<kit::ChartDay>& chartDays(Chart kind) const;

    // Histories, the last seen first. They change with the signals of their trackers.
    const std::vector<SeenBuild>& builds() const { return histories_.builds; }
    const std::vector<SigningChange>& signingChanges() const { return histories_.signingChanges; }
    const std::vector<OfferChange>& offerChanges() const { return histories_.offerChanges; }
    /// What was found in the watched files.
    const std::vector<StoredFinding>& backendFindings() const { return histories_.backendFindings; }

    /// The followed pages in the user's order, then those that only panels follow.
    const std::vector<kit::PageStatus>& pages() const { return histories_.pages; }

    /// The log of signals.
    const LogState& log() const { return log_; }

    /// The devices whose signing status is followed.
    std::vector<std::string> devices() const { return defaults_.signingDevices(); }
    kit::QuoteRange quoteRange() const { return defaults_.quoteRange(); }
    std::string focusSymbol() const { return defaults_.focusSymbol(); }
    const std::vector<std::string>& compared() const { return compared_; }
    /// The share, and the focus symbol, over quoteRange.
    const Quote& quote() const { return quote(quoteRange()); }
    const Quote& focusQuote() const {
        return values_.of(files().quote(focusSymbol(), quoteRange()));
    }
    /// The share over any range. See readQuote().
    const Quote& quote(kit::QuoteRange range) const {
        return values_.of(files().quote(TrackedFiles::kShare, range));
    }
    /// Of the compared symbols over quoteRange those that have been fetched.
    std::vector<kit::StockQuote> comparisonQuotes() const {
        return quotesOf(compared_, quoteRange());
    }
    /// Of the share, the focus and the compared symbols over a year those that have been
    /// fetched. See readYear().
    std::vector<kit::StockQuote> yearQuotes() const {
        return quotesOf(symbols(), kit::QuoteRange::year);
    }
    /// When the share's year was last fetched.
    std::optional<kit::Instant> yearRead() const { return quote(kit::QuoteRange::year).fetchedAt; }

    /// A file that is followed, by its title in sentences, and why it is no newer.
    struct FileState {
        Tracker tracker{};
        std::string title{};
        std::optional<std::string> error{};
    };
    std::vector<FileState> fileStates() const;

    bool isRefreshing(Tracker tracker) const { return scheduler_.isRunning(tracker); }
    /// The last success of anything.
    std::optional<kit::Instant> lastUpdated() const { return scheduler_.lastUpdated(); }
    /// Failed fetches of each tracker since its last refresh without failures.
    std::size_t failures() const { return scheduler_.failures(); }
    const std::optional<kit::ServiceProblems::Known>& knownProblems() const {
        return news_.knownProblems();
    }
    const kit::NewBuilds::Known& knownBuilds() const { return news_.knownBuilds(); }

    /// Whether the user has set the mail address that the SEC asks for.
    bool followsFilings() const { return !polledContact_.empty(); }

    // The user's actions.
    void refresh(Tracker tracker) { scheduler_.request(tracker); }
    void refreshAll();
    void setQuoteRange(kit::QuoteRange range);
    /// Throws std::invalid_argument with a sentence when it is no symbol.
    void setFocusSymbol(const std::string& symbol);
    /// Throws std::invalid_argument with a sentence when one is no identifier of a model. Without
    /// any, the setting's default holds.
    void setDevices(const std::vector<std::string>& devices);
    void setCompared(std::vector<std::string> symbols);
    /// Symbols whose every quote is wanted, as those of alerts on prices: see onQuote.
    void setWatchedSymbols(std::vector<std::string> symbols);
    /// Asks the service whether it knows a symbol; `answer` is called unless the store goes first.
    void checkSymbol(const std::string& symbol, std::function<void(const SymbolAnswer&)> answer);
    /// Fetches the share over a range when that is missing or older than `freshFor`.
    void readQuote(kit::QuoteRange range, std::chrono::seconds freshFor = kQuoteFreshFor);
    /// Fetches the quotes of a year that are missing or some hours old.
    void readYear();

    /// The text of a document that a filing consists of. See readFilingText().
    const kit::CachedValue<kit::FilingText>& filingText(const kit::FollowedFiling& filing,
                                                        const kit::FilingDocument& document) const;
    /// Fetches it unless the library has it: documents do not change.
    void readFilingText(const kit::FollowedFiling& filing, const kit::FilingDocument& document);

    /// The user looks at the log.
    void markLogLookedAt();

    /// The computer was offline and no longer is.
    void networkIsBack() { scheduler_.networkIsBack(); }
    /// Shows what another program has fetched into the library.
    void load();

signals:
    void statusChanged();
    void releasesChanged();
    void eventsChanged();
    void quotesChanged();
    void boardChanged();
    void signingChanged();
    void updatesChanged();
    void chartsChanged();
    void filingsChanged();
    void courtChanged();
    void pressChanged();
    void backendChanged();
    void pagesChanged();
    void logChanged();
    /// Which trackers are being refreshed, `failures` and `lastUpdated`.
    void refreshChanged();

    // News: each item is announced once, over restarts too.
    void onServiceProblem(const kit::AppleServiceStatus::Report& report);
    void onServiceRestored(const std::string& service);
    void onNewRelease(const kit::NewBuild& build);
    /// The first seen first; none is older than a day.
    void onSigningChanges(const std::vector<app::SigningChange>& changes);
    void onOfferChanges(const std::vector<app::OfferChange>& changes);
    /// Everything that was logged, these among it, in the order of the log.
    void onSignals(const std::vector<kit::Signal>& logged);
    /// A quote has been fetched, of whatever range; its symbol is the one that was asked for.
    void onQuote(const kit::StockQuote& quote, kit::Instant seenAt);
    /// A board has been fetched.
    void onBoard(const std::vector<kit::BoardQuote>& board);

    void failed(const QString& sentence);

private:
    friend class TrackerJobs;

    using Files = std::vector<AnyTrackedFile>;
    using HistoryUpdates = std::vector<std::pair<Tracker, HistoryUpdate>>;

    TrackedFiles files() const { return {defaults_.serviceAddress()}; }
    Files filesOf(Tracker tracker) const;
    TrackerJobs jobs();

    /// The share, the focus, the compared and the watched symbols, each once.
    std::vector<std::string> symbols() const;
    Files quoteFiles(kit::QuoteRange range) const;
    Files yearFiles() const;
    std::vector<kit::StockQuote> quotesOf(const std::vector<std::string>& symbols,
                                          kit::QuoteRange range) const;
    /// Fetches those that are missing or older than `freshFor`.
    void fetchStale(Files files, std::chrono::seconds freshFor);
    void followSettings();
    void limitQuotes(const std::string& latest);
    void announceQuote(const LoadedFile& fetched);
    void followMarket();
    void save(std::string_view setting, std::string_view value);

    void startPolling();
    void poll(Tracker tracker);
    void finish(Tracker tracker);
    void applyLoaded(const std::vector<LoadedFile>& loaded, const HistoryUpdates& histories);
    void applyFetched(const LoadedFile& fetched, const HistoryUpdate& history);
    void applyLogState(const LogState& log);
    void show(const LoadedFile& file);
    void emitChanged(Tracker tracker);
    void fail(const std::string& sentence);

    DeskWorker& worker_;
    Defaults& defaults_;
    kit::Clock clock_;
    TrackerNews news_;
    TrackerValues values_;
    TrackerHistories histories_;
    LogState log_;
    std::vector<std::string> compared_;
    std::vector<std::string> watched_;
    // At the last poll; the settings may change elsewhere.
    std::vector<std::string> polledQuotes_;
    std::vector<std::string> polledDevices_;
    std::string polledContact_;
    std::string lastFailure_;
    PollScheduler scheduler_;
    std::shared_ptr<MainThreadQueue> queue_;
};

}  // namespace app
