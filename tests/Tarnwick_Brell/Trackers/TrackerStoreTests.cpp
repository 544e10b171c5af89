#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Backend/WatchedFile.h"
#include "NewsroomKit/PressWires/WireFeeds.h"
#include "NewsroomKit/Trackers/Signing/SigningSignals.h"
#include "Tarnwick_Brell/Trackers/TrackerStore.h"
#include "tests/support/app/TestDesk.h"
#include "tests/support/app/TestTrackers.h"
#include "tests/support/EventLoop.h"

namespace app {
namespace {

using namespace std::chrono_literals;
using namespace test;
using kit::QuoteRange;
using Chart = TrackerStore::Chart;
using pressroom::Response;
using ::test::until;

constexpr const char* kApple = "www.apple.com";
constexpr const char* kService = "desk.example";
constexpr const char* kConsumer = "/support/systemstatus/data/system_status_en_US.js";
constexpr const char* kDeveloper = "/support/systemstatus/data/developer/system_status_en_US.js";

std::string wire(const std::string& rest) { return "/wp-json/tb-wire/v1/" + rest; }

class TrackerStoreTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { ::test::beApplication(); }

    TrackerStoreTest() {
        defaults_.set("serviceAddress", std::string("https://") + kService + "/");
        status({"Mail", "Maps"}, {"Kiosk"});
        serve("releases", {releasesAnswer("A", "B")});
        serve("events", {eventsAnswer({"Autumn fair"})});
        serve("quotes", {boardAnswer({"TIDE"})});
        quote("AAPL", "1m", 10);
        quote("AAPL", "1y", 10);
        defaults_.set("signingDevices", "iPhone17,3");
        signing("2+ 1");
        updates("2 1");
        charts("a b c");
        for (const auto& wire : kit::kWireFeeds) {
            const auto address = kit::WebAddress::parse(wire.address).value();
            harness_.http.script.on(
                address.host, address.path,
                {{.body = "<rss><channel><title>Wire</title></channel></rss>"}});
        }
        for (const auto& file : kit::watchedFiles()) {
            const auto address = kit::WebAddress::parse(file.address).value();
            if (file.source != kit::WatchedSource::gdmf)
                harness_.http.script.on(address.host, address.path, {{.body = watchedBody(file)}});
        }
    }

    static std::string watchedBody(const kit::WatchedFile& file) {
        switch (file.source) {
            case kit::WatchedSource::robots: return "User-agent: *";
            case kit::WatchedSource::sitemap: return "<urlset/>";
            case kit::WatchedSource::assets: return R"({"Assets":[]})";
            case kit::WatchedSource::catalogue: return R"({"Products":{}})";
            default: return "{}";
        }
    }

    void serve(const std::string& tracker, std::vector<Response> answers) {
        harness_.http.script.on(kService, wire(tracker), std::move(answers));
    }

    void quote(const std::string& symbol, const std::string& range, double price,
               std::chrono::milliseconds delay = 0ms) {
        auto answer = quoteAnswer(symbol, range, price);
        answer.delivery.delay = delay;
        serve("quote?range=" + range + "&symbol=" + symbol, {answer});
    }

    void status(const std::vector<std::string>& consumer,
                const std::vector<std::string>& developer) {
        harness_.http.script.on(kApple, kConsumer, {statusAnswer(consumer)});
        harness_.http.script.on(kApple, kDeveloper, {statusAnswer(developer)});
    }

    void signing(const std::string& list, const std::string& device = "iPhone17,3") {
        harness_.http.script.on("api.ipsw.me", "/v4/device/" + device + "?type=ipsw",
                                {{.body = signingBody(list)}});
    }

    void updates(const std::string& list) {
        harness_.http.script.on("gdmf.apple.com", "/v2/pmv", {{.body = updatesBody(list)}});
    }

    void charts(const std::string& list) {
        for (const auto& row : kit::enumTable<Chart>) {
            harness_.http.script.on("rss.marketingtools.apple.com",
                                    "/api/v2/us/apps/" + std::string(row.raw) + "/25/apps.json",
                                    {{.body = chartBody(list)}});
        }
    }

    void open() {
        close();
        worker_ =
            std::make_unique<DeskWorker>(harness_.library(), harness_.network(), harness_.clock());
        store_ = std::make_unique<TrackerStore>(*worker_, defaults_, harness_.clock());
        QObject::connect(store_.get(), &TrackerStore::onServiceProblem, [this](const auto& report) {
            announced_.push_back("- " + report.service);
        });
        QObject::connect(store_.get(), &TrackerStore::onServiceRestored,
                         [this](const auto& service) { announced_.push_back("+ " + service); });
        QObject::connect(store_.get(), &TrackerStore::onNewRelease,
                         [this](const auto& build) { announced_.push_back(build.release.build); });
        QObject::connect(store_.get(), &TrackerStore::onSigningChanges,
                         [this](const auto& changes) {
                             for (const auto& it : changes)
                                 announced_.push_back((it.isSigned ? "+" : "-") + it.version);
                         });
        QObject::connect(store_.get(), &TrackerStore::onOfferChanges, [this](const auto& changes) {
            for (const auto& it : changes)
                announced_.push_back((it.isOffered ? "offer +" : "offer -") + it.offer.version);
        });
        QObject::connect(store_.get(), &TrackerStore::onBoard,
                         [this](const auto& board) { boards_.push_back(board.at(0).symbol); });
        store_->start();
    }

    void close() {
        store_.reset();
        worker_.reset();
    }

    void openAndRefresh() {
        open();
        ASSERT_TRUE(until([&] { return store_->isLoaded(); }));
        refresh();
    }

    bool isCalm() const {
        return std::ranges::none_of(kTrackers,
                                    [&](auto tracker) { return store_->isRefreshing(tracker); });
    }

    void refresh() {
        store_->refreshAll();
        ASSERT_TRUE(until([&] { return isCalm(); }));
        std::ranges::sort(announced_);
    }

    double price() const {
        const auto& quote = store_->quote().value;
        return quote ? quote->price : 0;
    }

    std::size_t requests(const std::string& tracker) const {
        return harness_.http.script.requests(kService, wire(tracker)).size();
    }

    using Announced = std::vector<std::string>;

    TestDesk harness_{{}};
    Defaults defaults_{harness_.folder.path() / "settings.ini"};
    std::unique_ptr<DeskWorker> worker_;
    std::unique_ptr<TrackerStore> store_;
    Announced announced_;
    std::vector<std::string> boards_;
};

TEST_F(TrackerStoreTest, TheFirstRunIsSilentAndNewsIsAnnouncedOnceOverRestarts) {
    status({"Mail!", "Maps"}, {"Kiosk!"});
    openAndRefresh();
    EXPECT_EQ(announced_, Announced());
    EXPECT_EQ(store_->knownProblems()->size(), 2u);
    EXPECT_EQ(store_->lastUpdated(), harness_.now());
    EXPECT_EQ(boards_, std::vector<std::string>{"TIDE"});

    status({"Mail!!", "Maps!"}, {"Kiosk!"});
    serve("releases", {releasesAnswer("A", "B2")});
    refresh();
    EXPECT_EQ(announced_, (Announced{"- Mail", "- Maps", "B2"}));

    announced_.clear();
    openAndRefresh();
    EXPECT_EQ(announced_, Announced());
    status({"Mail", "Maps!"}, {"Kiosk"});
    refresh();
    EXPECT_EQ(announced_, (Announced{"+ Kiosk", "+ Mail"}))
        << "once for two incidents of one service";
}

TEST_F(TrackerStoreTest, WhatWasLastGoodIsShownWithItsAgeWhileNothingCanBeFetched) {
    openAndRefresh();
    const auto fetched = harness_.now();
    harness_.pass(20h);
    for (const auto* tracker : {"releases", "events", "quotes", "quote?range=1m&symbol=AAPL"}) {
        serve(tracker, {{.status = 404}});
    }
    harness_.http.script.on(kApple, kConsumer, {{.body = "<html>"}});
    open();
    ASSERT_TRUE(until([&] { return store_->isLoaded(); }));
    EXPECT_EQ(store_->releases().fetchedAt, fetched);
    EXPECT_EQ(store_->releases().error, std::nullopt) << "nothing has been tried";
    refresh();
    EXPECT_EQ(store_->failures(), 5u);
    EXPECT_EQ(store_->developerStatus().fetchedAt, harness_.now()) << "one failing file is one";
    EXPECT_EQ(store_->lastUpdated(), harness_.now());
    EXPECT_EQ(store_->consumerStatus().fetchedAt, fetched);
    EXPECT_EQ(store_->consumerStatus().value->size(), 2u);
    EXPECT_TRUE(store_->consumerStatus().error.has_value());
    EXPECT_EQ(store_->board().fetchedAt, fetched);
    EXPECT_EQ(price(), 10);

    status({"Mail", "Maps"}, {"Kiosk"});
    store_->refresh(Tracker::status);
    ASSERT_TRUE(until([&] { return isCalm(); }));
    EXPECT_EQ(store_->failures(), 4u) << "those of the other trackers";
    EXPECT_EQ(store_->consumerStatus().error, std::nullopt);
}

TEST_F(TrackerStoreTest, TheDeveloperStatusWaitsForTheConsumers) {
    harness_.http.script.on(kApple, kConsumer, {{.status = 404}});
    harness_.http.script.on(kApple, kDeveloper, {statusAnswer({"Kiosk!"})});
    openAndRefresh();
    EXPECT_TRUE(harness_.http.script.requests(kApple, kDeveloper).empty());
    EXPECT_EQ(store_->knownProblems(), std::nullopt);
    status({"Mail"}, {"Kiosk!"});
    refresh();
    EXPECT_EQ(announced_, Announced()) << "the developer's problems belong to the first look";
    EXPECT_EQ(store_->knownProblems()->size(), 1u);
}

TEST_F(TrackerStoreTest, AnAnswerForARangeThatIsNoLongerWantedDoesNotTakeThePlaceOfAnother) {
    openAndRefresh();
    quote("AAPL", "1m", 11, 300ms);
    quote("AAPL", "1w", 20);
    store_->refresh(Tracker::quotes);
    store_->setQuoteRange(QuoteRange::week);
    EXPECT_EQ(price(), 0) << "nothing yet";
    ASSERT_TRUE(until([&] { return price() == 20; }));
    ASSERT_TRUE(until([&] { return isCalm(); }));
    EXPECT_EQ(price(), 20);
    const auto asked = requests("quote?range=1m&symbol=AAPL");
    store_->setQuoteRange(QuoteRange::month);
    EXPECT_EQ(price(), 11) << "it was not thrown away";
    ::test::runFor(100ms);
    EXPECT_EQ(requests("quote?range=1m&symbol=AAPL"), asked) << "it is fresh";
    EXPECT_EQ(Defaults(harness_.folder.path() / "settings.ini").quoteRange(), QuoteRange::month);
}

TEST_F(TrackerStoreTest, SymbolsAreFetchedWhenTheyAreWantedAndABadOneHoldsNobodyBack) {
    openAndRefresh();
    quote("BRK.B", "1m", 30);
    quote("TIDE", "1m", 40);
    store_->setFocusSymbol("BRK.B");
    store_->setCompared({"GONE", "TIDE"});
    EXPECT_THROW(store_->setFocusSymbol("no symbol"), std::invalid_argument);
    ASSERT_TRUE(
        until([&] { return store_->focusQuote().value && !store_->comparisonQuotes().empty(); }));
    EXPECT_EQ(store_->focusQuote().value->price, 30);
    EXPECT_EQ(store_->comparisonQuotes().size(), 1u);
    quote("AAPL", "1m", 12);
    refresh();
    EXPECT_EQ(price(), 12);
    EXPECT_GE(store_->failures(), 1u);

    quote("AAPL", "1y", 50);
    quote("TIDE", "1y", 60);
    store_->readYear();
    ASSERT_TRUE(until([&] { return store_->yearQuotes().size() == 2; }));
    // Another program changes a setting.
    quote("AAPL", "1w", 70);
    Defaults(harness_.folder.path() / "settings.ini").set("quoteRange", "1w");
    defaults_.reload();
    store_->refresh(Tracker::events);
    EXPECT_TRUE(until([&] { return price() == 70; }));
}

TEST_F(TrackerStoreTest, EveryQuoteOfAWatchedSymbolIsHandedOnUnderTheNameItWasAskedFor) {
    openAndRefresh();
    std::vector<std::pair<std::string, double>> seen;
    QObject::connect(store_.get(), &TrackerStore::onQuote,
                     [&](const kit::StockQuote& quote, kit::Instant at) {
                         EXPECT_EQ(at, harness_.now());
                         if (quote.symbol != "AAPL") seen.emplace_back(quote.symbol, quote.price);
                     });
    const auto sees = [&](double price) {
        return until(
            [&] { return !seen.empty() && seen.back() == std::pair{std::string("BRK.B"), price}; });
    };
    auto written = quoteAnswer("BRK-B", "1m", 30);
    serve("quote?range=1m&symbol=BRK.B", {written});
    store_->setWatchedSymbols({"BRK.B"});
    EXPECT_TRUE(sees(30)) << "at once";
    quote("BRK.B", "1m", 31);
    refresh();
    EXPECT_TRUE(sees(31)) << "and at the trackers' cadence";
    store_->setWatchedSymbols({});
    quote("BRK.B", "1m", 32);
    refresh();
    EXPECT_EQ(seen.back().second, 31);
}

TEST_F(TrackerStoreTest, ASymbolIsCheckedWithTheService) {
    openAndRefresh();
    quote("TIDE", "1d", 40);
    auto busy = quoteAnswer("BUSY", "1d", 1);
    busy.status = 500;
    serve("quote?range=1d&symbol=BUSY", {busy});
    const auto answer = [&](const std::string& symbol) {
        std::optional<SymbolAnswer> found;
        store_->checkSymbol(symbol, [&](const SymbolAnswer& given) { found = given; });
        EXPECT_TRUE(until([&] { return found.has_value(); })) << symbol;
        return found.value_or(SymbolAnswer());
    };
    EXPECT_EQ(answer("TIDE").kind, SymbolAnswer::Kind::known);
    EXPECT_EQ(answer("TIDE").symbol, "TIDE");
    EXPECT_EQ(answer("GONE").kind, SymbolAnswer::Kind::unknown);
    EXPECT_EQ(answer("BUSY").kind, SymbolAnswer::Kind::noAnswer);
    EXPECT_FALSE(answer("BUSY").error.empty());
}

TEST_F(TrackerStoreTest, TheYearIsFetchedOnceADayAndItsUnusualMovesAreLogged) {
    const auto year = [&](const std::vector<double>& closes) {
        kit::StockQuote quote{
            .symbol = "AAPL", .name = "Apple", .price = closes.back(), .range = "1y"};
        const auto today = std::chrono::floor<std::chrono::days>(harness_.now());
        for (std::size_t i = 0; i < closes.size(); ++i) {
            quote.points.push_back({today - std::chrono::days(closes.size() - i), closes[i]});
        }
        auto answer = quoteAnswer("AAPL", "1y", closes.back());
        answer.body = boost::json::serialize(kit::encode(quote));
        serve("quote?range=1y&symbol=AAPL", {answer});
    };
    std::vector<std::string> told;
    year({100, 104, 104, 104, 104});
    openAndRefresh();
    QObject::connect(store_.get(), &TrackerStore::onSignals, [&](const auto& logged) {
        for (const auto& each : logged) told.push_back(each.subject);
    });
    const auto asked = requests("quote?range=1y&symbol=AAPL");
    EXPECT_EQ(asked, 1u);
    year({100, 104, 104, 104, 104, 99});
    refresh();
    EXPECT_EQ(requests("quote?range=1y&symbol=AAPL"), asked) << "nothing has closed since";
    harness_.pass(25h);
    refresh();
    EXPECT_EQ(requests("quote?range=1y&symbol=AAPL"), asked + 1);
    EXPECT_EQ(store_->yearRead(), harness_.now());
    EXPECT_TRUE(until([&] { return told == std::vector<std::string>{"AAPL"}; }));
}

TEST_F(TrackerStoreTest, WhatAnotherProgramFetchesIsTakenOver) {
    openAndRefresh();
    harness_.pass(10s);
    {
        LocalStore other(harness_.library(), Database::Access::readWrite);
        auto transaction = other.transaction();
        other.trackerCopies().store("quotes", {boardAnswer({"REEF"}).body, harness_.now()});
        other.trackerCopies().setHealth("quotes", {.lastSuccess = harness_.now()});
        transaction.commit();
    }
    store_->load();
    ASSERT_TRUE(until([&] { return store_->board().value->at(0).symbol == "REEF"; }));
    EXPECT_EQ(store_->board().fetchedAt, harness_.now());
}

TEST_F(TrackerStoreTest, AStoreThatGoesInTheMiddleOfARoundEndsAtOnce) {
    auto silent = statusAnswer({});
    silent.delivery.neverAnswers = true;
    harness_.http.script.on(kApple, kConsumer, {silent});
    auto late = releasesAnswer("A", "B");
    late.delivery.delay = 60ms;
    serve("releases", {late});
    for (int attempt = 0; attempt < 3; ++attempt) {
        open();
        ASSERT_TRUE(until([&] { return store_->isLoaded(); }));
        store_->refreshAll();
        ::test::runFor(attempt * 50ms);
        const auto begin = std::chrono::steady_clock::now();
        store_.reset();
        ::test::runFor(100ms);  // the late answer finds nobody
        worker_.reset();
        EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
    }
}

TEST_F(TrackerStoreTest, ChangesAreAnnouncedOnceWhoeverFetchedThemAndOldOnesNotAtAll) {
    openAndRefresh();
    EXPECT_EQ(announced_, Announced()) << "the first look only remembers";
    signing("3+ 2 1");
    updates("3 2 1");
    refresh();
    EXPECT_EQ(announced_, (Announced{"+3", "offer +3"}));
    openAndRefresh();
    EXPECT_EQ(announced_, (Announced{"+3", "-2", "offer +3"})) << "the second answer that says so";

    // Another program looks, and then this desk takes over what it found.
    announced_.clear();
    const auto change = [&](const char* version) {
        LocalStore other(harness_.library(), Database::Access::readWrite);
        const auto before = kit::SigningStatus::parse(signingBody(""));
        const auto now = kit::SigningStatus::parse(signingBody(version));
        other.signing().add(kit::signingChanges("iPhone17,3", before, now, harness_.now()));
    };
    change("8+");
    store_->load();
    EXPECT_TRUE(until([&] { return announced_ == Announced{"+8"}; }));
    store_.reset();
    worker_.reset();
    change("9+");
    harness_.pass(25h);
    openAndRefresh();
    EXPECT_EQ(announced_, Announced{"+8"});
}

TEST_F(TrackerStoreTest, AChartMovesAgainstTheDayBefore) {
    openAndRefresh();
    harness_.pass(24h);
    charts("c a b");
    refresh();
    const auto before = store_->chartDayBefore(Chart::topFree).value();
    EXPECT_EQ(before.ranks.at("c") - store_->chart(Chart::topFree).value->at(0).rank, 2);
}

TEST_F(TrackerStoreTest, AModelThatIsAddedToTheSettingIsAskedForAtOnce) {
    openAndRefresh();
    signing("5+", "iPad16,1");
    Defaults(harness_.folder.path() / "settings.ini").set("signingDevices", "iPad16,1, iPhone17,3");
    defaults_.reload();
    store_->refresh(Tracker::updates);
    EXPECT_TRUE(until([&] { return store_->signing("iPad16,1").value.has_value(); }));
    EXPECT_EQ(store_->devices(), (std::vector<std::string>{"iPad16,1", "iPhone17,3"}));
    EXPECT_EQ(announced_, Announced()) << "a first look at a device is no news";
}

}  // namespace
}  // namespace app
