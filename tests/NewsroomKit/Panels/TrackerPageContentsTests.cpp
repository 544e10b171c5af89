#include <gtest/gtest.h>

#include "NewsroomKit/Panels/AppHistory.h"
#include "NewsroomKit/Panels/CatalogueContent.h"
#include "NewsroomKit/Panels/PercentSeries.h"
#include "NewsroomKit/Panels/SigningMatrix.h"
#include "NewsroomKit/Trackers/Updates/CatalogueDay.h"

namespace kit {
namespace {

using namespace std::chrono_literals;
using std::chrono::days;

const Instant kEvening = std::chrono::sys_days(std::chrono::year(2026) / 11 / 20) + 23h;

TEST(CatalogueContent, GroupsOffersByPlatformAndCountsNewYorksDays) {
    const auto offer = [](const char* platform, const char* build, const char* expires) {
        return UpdateOffer{.platform = platform,
                           .version = "27.1",
                           .build = build,
                           .expires = expires ? catalogueDay(expires) : std::nullopt};
    };
    const CachedValue<std::vector<UpdateOffer>> updates{
        .value = {{offer("macOS", "26B1", "2026-12-04"), offer("audioOS", "24K1", "2026-11-19"),
                   offer("iPadOS", "24B2", "2026-12-05"), offer("iOS", "24B1", "2026-11-20"),
                   offer("iOS", "24B0", nullptr)}}};
    const auto change = [&](std::size_t place, bool isOffered, Instant seenAt) {
        return OfferChange{updates.value->at(place), isOffered, seenAt};
    };
    const std::vector<OfferChange> changes{
        change(3, true, kEvening - 1h), change(0, false, kEvening - 2h),
        change(0, true, kEvening - 3h), change(2, true, kEvening - 48h - 1s),
        change(1, true, kEvening - days(31))};
    // After midnight in Europe it is still the 20th in New York.
    const auto content = catalogueContent(updates, changes, {}, kEvening + 2h);
    const auto text = [](const CatalogueContent& made) {
        std::string all;
        for (const auto& group : made.groups) {
            all += group.name + ":";
            for (const auto& row : group.rows) {
                all += " " + row.offer.build + (row.isNew ? "!" : "");
                if (row.daysLeft) all += "-" + std::to_string(*row.daysLeft);
            }
            all += "\n";
        }
        return all;
    };
    EXPECT_EQ(text(content), "iOS and iPadOS: 24B2 24B1!-0 24B0\nmacOS: 26B1-14\naudioOS: 24K1\n");
    EXPECT_EQ(content.lateChanges, 4u);
    EXPECT_EQ(text(catalogueContent(updates, {}, {.words = "ios 24b1"}, kEvening)),
              "iOS and iPadOS: 24B1-0\n");
    const auto filtered = catalogueContent(updates, {}, {"macOS", "nothing"}, kEvening);
    EXPECT_EQ(text(filtered), "");
    EXPECT_EQ(filtered.condition.state, PanelState::ready) << "the filter hides what there is";
    EXPECT_EQ(filtered.offerCount, 5u);
    EXPECT_EQ(filtered.platforms.size(), 3u);
}

std::string cellsOf(const SigningMatrix& matrix) {
    std::string all;
    for (const auto& device : matrix.devices) {
        all += device.name + " ";
        for (const auto& cell : device.cells) all += ".?-!+"[static_cast<std::size_t>(cell.mark)];
        all += "\n";
    }
    return all;
}

TEST(SigningMatrix, SetsDevicesAgainstTheBuildsOfTheirFamily) {
    const auto device = [](const char* id, const char* name, std::vector<SignedBuild> builds) {
        return DeviceSigning{id, {.value = SigningStatus{name, std::move(builds)}}};
    };
    const std::vector<DeviceSigning> devices{
        device("Mac17,2", "Book", {{"27.1", "26B1", true, {}}}),
        device("iPad17,1", "Slate", {{"27.10", "24C1", true, {}}, {"27.1", "24B2", false, {}}}),
        {"iPhone18,4", {.error = "No answer."}},
        device("iPhone18,3", "Phone",
               {{"27.9", "24B9", true, {}},
                {"27.1", "24B1", false, {}},
                {"27.10", "24C1", false, {}}}),
    };
    const std::vector<SigningChange> changes{
        {"iPhone18,3", "Phone", "27.10", "24C1", false, kEvening - days(7)},
        {"iPhone18,3", "Phone", "27.1", "24B1", false, kEvening - days(7) - 1s},
        {"iPhone18,3", "Phone", "27.9", "24B9", false, kEvening - 1h},
    };
    const auto matrix = signingMatrix(devices, changes, {}, kEvening);
    ASSERT_EQ(matrix.columns.size(), 4u);
    EXPECT_EQ(matrix.columns[0].version, "27.10") << "versions are numbers";
    EXPECT_EQ(matrix.columns[2].build, "24B2");
    EXPECT_EQ(cellsOf(matrix), "iPhone18,4 ????\nPhone !+.-\nSlate +.-.\n");
    EXPECT_EQ(matrix.devices[1].cells[1].stopped, std::nullopt)
        << "a change that the list contradicts tells nothing";
    EXPECT_EQ(matrix.families, (std::vector{DeviceFamily::mobile, DeviceFamily::mac}));

    const auto shown = [&](const SigningFilter& filter) {
        return cellsOf(signingMatrix(devices, changes, filter, kEvening));
    };
    EXPECT_EQ(shown({.family = DeviceFamily::mac}), "Book +\n");
    EXPECT_EQ(shown({.family = DeviceFamily::watch}), shown({})) << "there is none";
    EXPECT_EQ(shown({.words = "ipad"}), "Slate +.-.\n");
    EXPECT_EQ(shown({.words = "24b"}), "iPhone18,4 ???\nPhone +.-\nSlate .-.\n");
    EXPECT_EQ(shown({.words = "nothing"}), "");
}

TEST(AppHistory, TellsRanksMovesAndTheDevelopersOtherApps) {
    const auto day = [](int number, std::map<std::string, std::int64_t> ranks) {
        return ChartDay{std::chrono::sys_days(std::chrono::year(2026) / 11 / number),
                        std::move(ranks)};
    };
    const std::vector<ChartDay> past{day(14, {{"a", 12}}), day(15, {{"a", 2}}), day(16, {{"a", 5}}),
                                     day(17, {{"b", 1}}), day(20, {{"a", 2}, {"b", 1}})};
    const CachedValue<std::vector<ChartEntry>> free{
        .value = {{{.rank = 1, .developer = "Apple", .id = "b"},
                   {.rank = 2, .developer = "Apple", .id = "a"},
                   {.rank = 3, .developer = "Apple Grove", .id = "c"}}}};
    const CachedValue<std::vector<ChartEntry>> paid{
        .value = {{{.rank = 7, .developer = "Apple", .id = "d"}}}};
    using Kind = AppStoreCharts::Kind;
    const std::vector<ChartPast> charts{{Kind::topFree, free, past}, {Kind::topPaid, paid, past}};

    EXPECT_EQ(rankDays(past, "a", kEvening, 5), (RankDays{5, {}, {}, {}, 2}));
    const auto history = appHistory(charts, Kind::topFree, "a").value();
    EXPECT_EQ(history.bestRank, 2);
    EXPECT_EQ(history.bestDay, past.back().day) << "the last day with it";
    using Move = AppHistory::Move;
    EXPECT_EQ(history.moves, (std::vector{Move{past[4].day, {}, 2, true}, Move{past[3].day, 5, {}},
                                          Move{past[1].day, 12, 2, true}}))
        << "three places are nothing";
    ASSERT_EQ(history.others.size(), 2u);
    EXPECT_EQ(history.others[1].chart, Kind::topPaid);
    EXPECT_FALSE(appHistory(charts, Kind::topFree, "c")->isApples);
    EXPECT_FALSE(appHistory(charts, Kind::topPaid, "a").has_value());
}

TEST(PercentSeries, ComparesFromTheBeginningOfTheRange) {
    const auto quote = [](std::vector<std::pair<int, double>> points) {
        StockQuote made{.symbol = "TIDE", .range = "1m"};
        for (const auto& [hour, close] : points)
            made.points.push_back({kEvening + std::chrono::hours(hour), close});
        return made;
    };
    const auto axis = quote({{0, 10}, {10, 0}, {20, 12}, {30, 11}});
    using Point = PercentSeries::Point;
    struct Case {
        const char* what;
        std::vector<std::pair<int, double>> points;
        std::vector<Point> expected;
    };
    const Case cases[] = {
        {"between the times of the axis",
         {{0, 100}, {10, 150}, {30, 50}},
         {{0, 0}, {.25, 50}, {1, -50}}},
        {"the last price before it is the base", {{-9, 50}, {-1, 200}, {30, 300}}, {{1, 50}}},
        {"bad prices are dropped", {{0, -1}, {20, 100}, {25, 1e300}, {30, 100}}, {{.5, 0}, {1, 0}}},
        {"of late prices the last counts", {{0, 1}, {31, 3}, {32, 2}}, {{0, 0}, {1, 100}}},
        {"out of order", {{30, 2}, {0, 1}}, {{0, 0}, {1, 100}}},
        {"nothing but bad prices", {{0, 0}}, {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(percentSeries(quote(c.points), axis).points, c.expected) << c.what;
    EXPECT_TRUE(percentSeries(axis, quote({})).points.empty());
}

}  // namespace
}  // namespace kit
