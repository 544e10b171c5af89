#include <gtest/gtest.h>

#include <ctime>

#include <QLocale>

#include "Tarnwick_Brell/Library/LibraryStore.h"
#include "Tarnwick_Brell/Models/Panels/CountdownPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/PanelFactory.h"
#include "Tarnwick_Brell/Models/Panels/ReleasesPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/SoftwarePanelModel.h"
#include "Tarnwick_Brell/Models/Panels/StatusPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/StockPanelModel.h"
#include "Tarnwick_Brell/Models/Panels/SuppliersPanelModel.h"
#include "tests/support/app/TestDesk.h"
#include "tests/support/app/TestTrackers.h"
#include "tests/support/EventLoop.h"

namespace app {
namespace {

using namespace std::chrono_literals;
using namespace test;
using kit::AppleCalendarEvent;
using kit::BoardQuote;
using kit::PanelKind;
using kit::PanelSpec;
using kit::SoftwareRelease;
using kit::StockQuote;
using pressroom::Response;
using ::test::until;

constexpr const char* kApple = "www.apple.com";
constexpr const char* kService = "desk.example";
constexpr const char* kConsumer = "/support/systemstatus/data/system_status_en_US.js";
constexpr const char* kDeveloper = "/support/systemstatus/data/developer/system_status_en_US.js";

/// The clock is at 12:00 UTC on Friday, 20 November 2026.
class TrackerPanelsTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    }

    TrackerPanelsTest() {
        defaults_.set("serviceAddress", std::string("https://") + kService + "/");
        zone("UTC");
        serve("releases", {{"systems", boost::json::object()}});
        serve("events", {{"events", boost::json::array()}});
        serve("quotes", {{"quotes", boost::json::array()}});
        status(kConsumer, {"Mail", "Maps"});
        status(kDeveloper, {"Kiosk"});
    }

    static void zone(const char* name) {
        setenv("TZ", name, 1);
        tzset();
    }

    void serve(const std::string& tracker, const boost::json::value& answer) {
        harness_.http.script.on(kService, "/wp-json/tb-wire/v1/" + tracker,
                                {{.body = boost::json::serialize(answer)}});
    }
    void status(const char* file, const std::vector<std::string>& services) {
        harness_.http.script.on(kApple, file, {statusAnswer(services)});
    }
    void events(const std::vector<AppleCalendarEvent>& events) {
        serve("events", {{"events", kit::encode(events)}});
    }
    void quote(StockQuote quote) {
        quote.symbol = TrackedFiles::kShare;
        serve("quote?range=" + quote.range + "&symbol=AAPL", kit::encode(quote));
    }

    void refresh() {
        if (!trackers_.isLoaded()) trackers_.start();
        ASSERT_TRUE(until([&] { return trackers_.isLoaded(); }));
        trackers_.refreshAll();
        ASSERT_TRUE(until([&] {
            return std::ranges::none_of(kTrackers,
                                        [&](auto round) { return trackers_.isRefreshing(round); });
        }));
    }

    template <class Panel>
    std::unique_ptr<Panel> panel(PanelKind kind, kit::PanelOptions options = {}) {
        auto content = makePanelModel(stores_, {.kind = kind, .options = std::move(options)}, {});
        return std::unique_ptr<Panel>(&dynamic_cast<Panel&>(*content.release()));
    }

    TestDesk harness_{{}};
    Defaults defaults_{harness_.folder.path() / "settings.ini"};
    NewsDesk news_{harness_.library(), harness_.network(), defaults_, harness_.clock()};
    TrackerStore trackers_{news_.worker(), defaults_, harness_.clock()};
    LibraryStore kept_{news_.worker(), harness_.clock()};
    PanelStores stores_{news_, trackers_, kept_, harness_.clock()};
};

std::string joined(const std::vector<CountdownEventRow>& rows) {
    std::string text;
    for (const auto& row : rows) {
        text += (row.title + u'|' + row.badge + u'|' + row.date + u'|' + row.days +
                 (row.isReleased ? QStringLiteral("|released\n") : QStringLiteral("\n")))
                    .toStdString();
    }
    return text;
}

TEST_F(TrackerPanelsTest, TheNextFirmDateLeadsAndTheRestFollowsInOrder) {
    const auto now = harness_.now();
    events({{.title = "Far fair", .starts = now + std::chrono::days(52)},
            {.title = "Harbour fair",
             .starts = now + std::chrono::days(20) + 8h,
             .status = "announced"},
            {.title = "Pier, 18th anniversary", .starts = now + 24h},
            {.title = "Lamp in stores", .starts = now - 24h, .status = "released"},
            {.title = "Long over", .starts = now - std::chrono::days(4)},
            {.title = "Spring do", .starts = now + 48h, .window = "March", .status = "rumored"}});
    auto panel = this->panel<CountdownPanelModel>(PanelKind::countdown);
    EXPECT_EQ(panel->state(), PanelModel::Loading);
    refresh();
    EXPECT_EQ(panel->state(), PanelModel::Ready);
    EXPECT_EQ(panel->title(), "Harbour fair");
    EXPECT_EQ(panel->days(), "20 days");
    EXPECT_EQ(panel->time(), "Thu 10 December, 20:00 your time");
    EXPECT_EQ(joined(panel->rows()->rows()),
              "Lamp in stores||Yesterday|-1|released\n"
              "Pier, 18th anniversary|18 years|Tomorrow|1\n"
              "Spring do||March|?\n"
              "Far fair||11 Jan 2027|52\n");

    zone("Asia/Tokyo");
    panel->tick();
    EXPECT_EQ(panel->days(), "21 days") << "five in the morning of the next day";
    EXPECT_EQ(panel->time(), "Fri 11 December, 05:00 your time");

    harness_.pass(std::chrono::days(20) + 9h);
    panel->tick();
    EXPECT_EQ(panel->days(), "Today") << "begun, but not over";

    auto narrow = this->panel<CountdownPanelModel>(PanelKind::countdown, {.eventTerms = {"far"}});
    EXPECT_EQ(narrow->title(), "Far fair");
    EXPECT_EQ(narrow->rows()->rowCount(), 0);
    auto none = this->panel<CountdownPanelModel>(PanelKind::countdown, {.eventTerms = {"circus"}});
    EXPECT_EQ(none->state(), PanelModel::Empty);
}

TEST_F(TrackerPanelsTest, BuildsAreShownByTheirVersionsAndStages) {
    const auto release = [&](const char* version, const char* stage, const char* build) {
        return kit::encode(SoftwareRelease{.version = version,
                                           .stage = stage,
                                           .build = build,
                                           .title = std::string(version) + " " + stage,
                                           .published = harness_.now() - 71h});
    };
    serve("releases", {{"systems",
                        {{"iOS", {{"beta", release("26.6", "Release Candidate 2", "B2")}}},
                         {"tvOS", {{"public", release("26.5", "Release", "T1")}}}}}});
    auto software = panel<SoftwarePanelModel>(PanelKind::software);
    auto releases = panel<ReleasesPanelModel>(PanelKind::releases, {.platforms = {"tvOS"}});
    refresh();
    const auto& rows = software->rows()->rows();
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0].spokenText, "iOS None yet, beta: 26.6 RC 2, new, 17 Nov");
    EXPECT_EQ(rows[1].spokenText, "tvOS 26.5, beta: No beta, new, 17 Nov");
    EXPECT_EQ(releases->rows()->row(0)->build, "T1");
    harness_.pass(2h);
    software->tick();
    EXPECT_FALSE(software->rows()->row(0)->isNew);
}

TEST_F(TrackerPanelsTest, FiguresOfDeveloperServicesThatAreOldCarryTheirTime) {
    auto panel = this->panel<StatusPanelModel>(PanelKind::status);
    refresh();
    EXPECT_EQ(panel->allUp(), "All services are up");
    EXPECT_EQ(panel->developer(), "1 of 1 developer up");

    harness_.pass(3h);
    status(kConsumer, {"Mail!", "Maps"});
    harness_.http.script.on(kApple, kDeveloper, {{.status = 404}});
    refresh();
    EXPECT_EQ(panel->state(), PanelModel::Ready);
    EXPECT_EQ(panel->allUp(), "");
    EXPECT_EQ(panel->consumer(), "1 of 2 consumer up");
    EXPECT_EQ(panel->developer(), "1 of 1 developer up at 12:00");
    EXPECT_EQ(panel->checked(), "Checked 15:00");
    ASSERT_EQ(panel->problemCount(), 1);
    EXPECT_EQ(panel->problems()->row(0)->level, ProblemLevel::Outage);
}

TEST_F(TrackerPanelsTest, ThePriceStaysWhileTheChartOfAnotherRangeComes) {
    const auto points = [&](double last) {
        return std::vector<StockQuote::Point>{{harness_.now() - 48h, 90},
                                              {harness_.now() - 24h, last}};
    };
    quote({.price = 99,
           .marketState = "OPEN",
           .asOf = harness_.now(),
           .points = points(99),
           .range = "1m"});
    auto panel = this->panel<StockPanelModel>(PanelKind::stock);
    refresh();
    EXPECT_EQ(panel->price(), "99.00");
    EXPECT_EQ(panel->change(), "+9.00 (+10.00%)");
    EXPECT_EQ(panel->fact(), "Open, 12:00");
    EXPECT_EQ(panel->chart()->points().size(), 2);

    harness_.http.script.on(kService, "/wp-json/tb-wire/v1/quote?range=1w&symbol=AAPL",
                            {{.status = 404}});
    panel->choose(1);
    EXPECT_EQ(panel->state(), PanelModel::Ready);
    EXPECT_EQ(panel->price(), "99.00");
    EXPECT_EQ(panel->chart()->points().size(), 0) << "a month is not shown as a week";
    EXPECT_EQ(panel->chart()->message(), "Loading…");
    ASSERT_TRUE(until([&] { return panel->chart()->message() != "Loading…"; }));
    EXPECT_EQ(panel->state(), PanelModel::Ready) << "the price is good";

    quote({.price = 98, .points = {{harness_.now(), 98}}, .range = "1d"});
    auto other = this->panel<StockPanelModel>(PanelKind::stock, {.stockRange = "1d"});
    ASSERT_TRUE(until([&] { return other->chart()->points().size() == 1; }));
    EXPECT_EQ(other->change(), "") << "there is no previous close";
    EXPECT_EQ(other->move(), PriceMove::Unknown);
    EXPECT_EQ(trackers_.quoteRange(), kit::QuoteRange::week) << "a panel that opens sets nothing";
}

TEST_F(TrackerPanelsTest, TheBoardStandsGroupByGroup) {
    const auto row = [](const char* symbol, const char* group, std::optional<double> previous) {
        return kit::encode(
            BoardQuote{.symbol = symbol, .group = group, .price = 10, .previousClose = previous});
    };
    serve("quotes", {{"quotes",
                      {row("TIDE", "Glass", 20), row("REEF", "Chips", std::nullopt),
                       row("SAND", "Glass", 10)}}});
    auto panel = this->panel<SuppliersPanelModel>(PanelKind::suppliers);
    refresh();
    const auto& rows = panel->rows()->rows();
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].symbol, "TIDE");
    EXPECT_EQ(rows[0].change, "\u221250.00%");
    EXPECT_EQ(rows[0].move, PriceMove::Down);
    EXPECT_EQ(rows[1].symbol, "SAND");
    EXPECT_EQ(rows[1].move, PriceMove::Flat);
    EXPECT_EQ(rows[2].change, "");
    EXPECT_EQ(rows[2].move, PriceMove::Unknown);
}

}  // namespace
}  // namespace app
