#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <QObject>
#include <QString>

#include "NewsroomKit/Ingestion/FeedClient.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Storage/Histories/BuildHistory.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "Tarnwick_Brell/Trackers/Rounds.h"
#include "Tarnwick_Brell/Trackers/TrackerNews.h"
#include "Tarnwick_Brell/Trackers/TrackerReading.h"
#include "Tarnwick_Brell/Trackers/TrackerRefresh.h"
#include "Tarnwick_Brell/Trackers/TrackerSchedule.h"

namespace app {

/// What the desk tracks beside the news: Apple's services, releases and calendar, quotes. Lives
/// on the main thread; the worker fetches. What was last good is shown with its age until
/// something newer comes, over restarts too.
class TrackerStore : public QObject {
    Q_OBJECT
public:
    using Services = kit::AppleServiceStatus::Services;
    using Quote = TrackerReading<kit::StockQuote>;

    /// Apple's own share.
    static constexpr std::string_view kShare = "AAPL";
    static constexpr std::chrono::seconds kQuoteFreshFor{60};

    /// The worker must outlive it.
    TrackerStore(DeskWorker& worker, Defaults& defaults, kit::Clock clock);
    ~TrackerStore() override;

    /// Reads what the library holds and begins to refresh on the timer.
    void start();

    // What is observed.
    /// The library has been read; before that nothing is refreshed, at wish either.
    bool isLoaded() const { return rounds_.haveStarted(); }
    const TrackerReading<Services>& consumerStatus() const { return held_.consumer; }
    const TrackerReading<Services>& developerStatus() const { return held_.developer; }
    const TrackerReading<std::vector<kit::PlatformRelease>>& releases() const {
        return held_.releases;
    }
    const TrackerReading<std::vector<kit::AppleCalendarEvent>>& events() const {
        return held_.events;
    }
    const TrackerReading<std::vector<kit::BoardQuote>>& board() const { return held_.board; }
    /// The builds that the desk has seen, the last seen first; releasesChanged tells of new ones.
    const std::vector<SeenBuild>& builds() const { return held_.builds; }

    kit::QuoteRange quoteRange() const { return defaults_.quoteRange(); }
    std::string focusSymbol() const { return defaults_.focusSymbol(); }
    const std::vector<std::string>& compared() const { return compared_; }
    /// The share, and the focus symbol, over quoteRange.
    const Quote& quote() const;
    const Quote& focusQuote() const;
    /// The share over any range. See readQuote().
    const Quote& quote(kit::QuoteRange range) const;
    /// Of the compared symbols over quoteRange: those that are there.
    std::vector<kit::StockQuote> comparisonQuotes() const;
    /// The share, the focus and the compared symbols over a year: those that are there. See
    /// readYear().
    std::vector<kit::StockQuote> yearQuotes() const;
    /// When the share's year was last read.
    std::optional<kit::Instant> yearRead() const;

    bool isRefreshing(TrackerRound round) const { return rounds_.isUnderWay(round); }
    /// The last success of anything.
    std::optional<kit::Instant> lastUpdated() const { return rounds_.lastUpdated(); }
    /// Failed fetches of each round since that round last went wholly well.
    std::size_t failures() const { return rounds_.failures(); }
    const std::optional<kit::ServiceProblems::Known>& knownProblems() const {
        return news_.knownProblems();
    }
    const kit::NewBuilds::Known& knownBuilds() const { return news_.knownBuilds(); }

    // What the user does.
    void refresh(TrackerRound round);
    void refreshAll();
    void setQuoteRange(kit::QuoteRange range);
    /// Throws std::invalid_argument with a sentence when it is no symbol.
    void setFocusSymbol(const std::string& symbol);
    void setCompared(std::vector<std::string> symbols);
    /// Fetches the share over a range when that is missing or older than `freshFor`.
    void readQuote(kit::QuoteRange range, std::chrono::seconds freshFor = kQuoteFreshFor);
    /// Fetches the quotes of a year that are missing or of another day.
    void readYear();

    /// The computer was offline and no longer is.
    void networkIsBack();
    /// Takes over what another program has fetched into the library.
    void load();

signals:
    void statusChanged();
    void releasesChanged();
    void eventsChanged();
    void quotesChanged();
    void boardChanged();
    /// Which rounds are under way, `failures` and `lastUpdated`.
    void refreshChanged();

    /// News: each is told once, over restarts too. On the main thread only.
    void onServiceProblem(const kit::AppleServiceStatus::Report& report);
    void onServiceRestored(const std::string& service);
    void onNewRelease(const kit::NewBuild& build);
    /// A board has been fetched: for those who watch its prices.
    void onBoard(const std::vector<kit::BoardQuote>& board);

    void failed(const QString& sentence);

private:
    struct QuoteKey {
        std::string symbol{};
        kit::QuoteRange range{};

        auto operator<=>(const QuoteKey&) const = default;
    };
    using QuoteKeys = std::vector<QuoteKey>;

    /// Everything that is shown. Quotes of other ranges and symbols stay: people come back.
    struct Held {
        TrackerReading<Services> consumer{};
        TrackerReading<Services> developer{};
        TrackerReading<std::vector<kit::PlatformRelease>> releases{};
        TrackerReading<std::vector<kit::AppleCalendarEvent>> events{};
        TrackerReading<std::vector<kit::BoardQuote>> board{};
        std::vector<SeenBuild> builds{};
        std::map<QuoteKey, Quote> quotes{};
    };

    class Errand;  ///< the worker's half

    Errand errand();
    const Quote& held(const QuoteKey& key) const;
    std::vector<kit::StockQuote> present(const QuoteKeys& keys) const;
    /// The share, the focus and the compared symbols.
    QuoteKeys wantedQuotes(kit::QuoteRange range) const;
    void followWishes();
    void fetchQuotes(QuoteKeys keys, std::chrono::seconds freshFor);

    void beginSchedule();
    void begin(TrackerRound round);
    void end(TrackerRound round);
    void takeStored(Held stored);
    void takeQuote(const QuoteKey& key, Quote quote);
    bool takeBuilds(std::vector<SeenBuild> builds);
    void noteMarket();
    void fail(const std::string& sentence);

    DeskWorker& worker_;
    Defaults& defaults_;
    kit::Clock clock_;
    TrackerNews news_;
    Held held_;
    std::vector<std::string> compared_;
    QuoteKeys wanted_;  ///< at the last look; the settings may change elsewhere
    std::string lastFailure_;
    Rounds<TrackerSchedule> rounds_;
    std::shared_ptr<MainThreadQueue> mailbox_;
};

}  // namespace app
