#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/Codec.h"

namespace kit {

/// One place of a chart.
struct ChartEntry {
    std::int64_t rank = 0;  ///< from 1
    std::string name{};
    std::string developer{};
    std::optional<std::string> url{};
    std::optional<std::string> artwork{};
    std::string id{};

    bool operator==(const ChartEntry&) const = default;
};

/// The App Store's charts.
struct AppStoreCharts {
    enum class Kind { topFree, topPaid };

    /// The file as Apple writes it.
    struct Feed {
        struct App {
            std::string id{};
            std::string name{};
            std::string artistName{};
            std::string url{};
            std::string artworkUrl100{};
        };
        struct List {
            std::vector<App> results{};
        };
        List feed{};
    };

    /// Throws RecordError. Addresses that do not read as such are absent.
    static std::vector<ChartEntry> parse(std::string_view body);
};

template <>
inline constexpr std::array<EnumRow<AppStoreCharts::Kind>, 2> enumTable<AppStoreCharts::Kind>{{
    {AppStoreCharts::Kind::topFree, "top-free", "Top free"},
    {AppStoreCharts::Kind::topPaid, "top-paid", "Top paid"},
}};

template <>
struct JSONFields<ChartEntry> {
    static constexpr auto fields = std::tuple{
        field("rank", &ChartEntry::rank),           field("name", &ChartEntry::name),
        field("developer", &ChartEntry::developer), field("url", &ChartEntry::url),
        field("artwork", &ChartEntry::artwork),     field("id", &ChartEntry::id),
    };
};

template <>
struct JSONFields<AppStoreCharts::Feed::App> {
    using App = AppStoreCharts::Feed::App;
    static constexpr auto fields = std::tuple{
        field("id", &App::id),
        field("name", &App::name),
        field("artistName", &App::artistName),
        field("url", &App::url),
        field("artworkUrl100", &App::artworkUrl100),
    };
};

template <>
struct JSONFields<AppStoreCharts::Feed::List> {
    static constexpr auto fields =
        std::tuple{field("results", &AppStoreCharts::Feed::List::results)};
};

template <>
struct JSONFields<AppStoreCharts::Feed> {
    static constexpr auto fields = std::tuple{field("feed", &AppStoreCharts::Feed::feed)};
};

}  // namespace kit
