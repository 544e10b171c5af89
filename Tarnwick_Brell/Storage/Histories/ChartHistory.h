#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Panels/ChartContent.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

using kit::ChartDay;

/// An app's time in a chart.
struct ChartRun {
    std::string id{};
    std::string name{};
    std::string developer{};
    kit::Instant firstDay{};
    kit::Instant lastDay{};
    std::int64_t days = 0;  ///< number of days on which it was seen
    std::int64_t best = 0;
    std::int64_t last = 0;  ///< its rank on the last day

    bool operator==(const ChartRun&) const = default;
};

/// The charts of each UTC day, as last fetched on that day, kept for a year.
class ChartHistory {
public:
    using Kind = kit::AppStoreCharts::Kind;

    explicit ChartHistory(Database& database) : database_(database) {}

    void record(Kind kind, const std::vector<kit::ChartEntry>& entries, kit::Instant now);

    /// The last day before that of `now` on which the chart was fetched.
    std::optional<ChartDay> dayBefore(Kind kind, kit::Instant now);

    /// The days from that of `since` on which the chart was fetched, the earliest first.
    std::vector<ChartDay> days(Kind kind, kit::Instant since);

    /// Every app seen in the chart; those of the last day first, by rank.
    std::vector<ChartRun> runs(Kind kind);

private:
    Database& database_;
};

}  // namespace app

template <>
struct kit::JSONFields<app::ChartRun> {
    using Run = app::ChartRun;
    static constexpr auto fields = std::tuple{
        field("id", &Run::id),
        field("name", &Run::name),
        field("developer", &Run::developer),
        field("firstDay", &Run::firstDay),
        field("lastDay", &Run::lastDay),
        field("days", &Run::days),
        field("best", &Run::best),
        field("last", &Run::last),
    };
};
