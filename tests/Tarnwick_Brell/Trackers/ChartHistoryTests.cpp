#include <gtest/gtest.h>

#include "NewsroomKit/Panels/ChartContent.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {
namespace {

using namespace std::chrono_literals;
using kit::ChartEntry;
using kit::Instant;
using Kind = kit::AppStoreCharts::Kind;

std::vector<ChartEntry> chart(const std::string& ids) {
    std::vector<ChartEntry> entries;
    for (const char id : ids) {
        entries.push_back({.rank = static_cast<std::int64_t>(entries.size()) + 1,
                           .name = std::string(1, id) + std::to_string(entries.size()),
                           .id = std::string(1, id)});
    }
    return entries;
}

Instant at(int day, std::chrono::hours hour) {
    return std::chrono::sys_days(std::chrono::year(2026) / 11 / day) + hour;
}

class ChartHistoryTest : public ::testing::Test {
protected:
    /// "b+1 a-1 x!": each with its rise, "!" when it is new.
    std::string moves(const std::string& ids, Instant now) {
        std::string text;
        const auto content =
            kit::chartContent({.value = chart(ids)}, charts_.dayBefore(Kind::topFree, now));
        for (const auto& place : content.rows) {
            const auto rise = place.rise().value_or(0);
            text += (text.empty() ? "" : " ") + place.entry.id +
                    (rise > 0   ? "+" + std::to_string(rise)
                     : rise < 0 ? std::to_string(rise)
                                : "") +
                    (place.isNew ? "!" : "");
        }
        return text;
    }

    LocalStore store_{Database::kInMemory, Database::Access::readWrite};
    ChartHistory& charts_ = store_.charts();
};

TEST_F(ChartHistoryTest, MovesAreThoseSinceTheLastLookOfTheLastDayBefore) {
    charts_.record(Kind::topFree, chart("abcd"), at(2, 9h));
    EXPECT_EQ(moves("bacd", at(2, 23h)), "b a c d") << "nothing is known of a day before";
    charts_.record(Kind::topFree, chart("bacd"), at(2, 23h));
    charts_.record(Kind::topPaid, chart("zzzz"), at(4, 1h));
    EXPECT_EQ(moves("xbda", at(5, 1h)), "x! b-1 d+1 a-2") << "days without a look do not count";
    charts_.record(Kind::topFree, chart("xbda"), at(5, 1h));
    EXPECT_EQ(moves("xbda", at(5, 2h)), "x! b-1 d+1 a-2");
}

TEST_F(ChartHistoryTest, AnAppsRunKeepsItsBestAndLastRankAndOldDaysGo) {
    charts_.record(Kind::topFree, chart("z"), at(1, 0h) - std::chrono::days(400));
    charts_.record(Kind::topFree, chart("ab"), at(2, 9h));
    charts_.record(Kind::topFree, chart("cba"), at(3, 9h));
    charts_.record(Kind::topFree, chart("bc"), at(4, 9h));
    const auto days = charts_.days(Kind::topFree, at(3, 23h));
    ASSERT_EQ(days.size(), 2u) << "the whole day counts";
    EXPECT_EQ(days[0].ranks, (std::map<std::string, std::int64_t>{{"c", 1}, {"b", 2}, {"a", 3}}));
    EXPECT_EQ(days[1].day, at(4, 0h));
    std::string text;
    for (const auto& run : charts_.runs(Kind::topFree)) {
        text += run.id + ":" + std::to_string(run.days) + "/" + std::to_string(run.best) + "/" +
                std::to_string(run.last) + "/" + run.name + " ";
    }
    EXPECT_EQ(text, "b:3/1/1/b0 c:2/1/2/c1 a:2/1/3/a2 ");
    EXPECT_EQ(charts_.runs(Kind::topFree).at(2).lastDay, at(3, 0h));
    EXPECT_EQ(charts_.runs(Kind::topFree).at(0).firstDay, at(2, 0h));
}

}  // namespace
}  // namespace app
