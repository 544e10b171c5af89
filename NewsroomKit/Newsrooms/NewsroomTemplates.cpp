#include "NewsroomKit/Newsrooms/NewsroomTemplates.h"

#include <array>
#include <utility>

#include "NewsroomKit/Newsrooms/NewsroomLimits.h"

namespace kit {

namespace {

using Panel = NewsroomTemplate::Panel;
using enum PanelKind;

// Columns, rows, widths, heights.
constexpr std::array kLaunchDay{
    Panel{brief, "Since your last look", {0, 0, 5, 2}},
    Panel{countdown, "Next from Apple", {5, 0, 3, 2}},
    Panel{stock, "AAPL", {8, 0, 4, 2}},
    Panel{stream, "Latest", {0, 2, 4, 4}},
    Panel{claims, "Claims", {4, 2, 5, 4}},
    Panel{coverage, "Coverage", {9, 2, 3, 2}},
    Panel{status, "Apple status", {9, 4, 3, 2}},
};

constexpr std::array kEarnings{
    Panel{stock, "AAPL", {0, 0, 7, 3}},
    Panel{countdown, "Next from Apple", {7, 0, 5, 3}},
    Panel{suppliers, "Suppliers", {0, 3, 4, 4}},
    Panel{stream, "On the results", {4, 3, 4, 4}},
    Panel{records, "Filings and records", {8, 3, 4, 4}},
};

constexpr std::array kBetas{
    Panel{software, "Versions and betas", {0, 0, 4, 3}},
    Panel{backend, "Back end", {4, 0, 4, 6}},
    Panel{releases, "Releases", {8, 0, 4, 3}},
    Panel{records, "Signing and records", {0, 3, 4, 3}},
    Panel{stream, "On betas", {8, 3, 4, 3}},
};

constexpr std::array kLaw{
    Panel{stream, "Law and policy", {0, 0, 5, 6}},
    Panel{topStories, "Most covered", {5, 0, 7, 3}},
    Panel{records, "Court and filings", {5, 3, 4, 3}},
    Panel{pageWatch, "Legal pages", {9, 3, 3, 3}},
};

constexpr std::array kRumors{
    Panel{claims, "Claims", {0, 0, 6, 4}},     Panel{scoops, "Scoops", {6, 0, 3, 4}},
    Panel{coverage, "Coverage", {9, 0, 3, 4}}, Panel{countdown, "Next from Apple", {0, 4, 4, 4}},
    Panel{stream, "Rumors", {4, 4, 8, 4}},
};

constexpr std::array kServices{
    Panel{status, "Apple status", {0, 0, 4, 4}}, Panel{brief, "Since your last look", {4, 0, 8, 2}},
    Panel{stream, "On services", {4, 2, 8, 4}},  Panel{backend, "Update catalogue", {0, 4, 4, 4}},
    Panel{apple, "From Apple", {4, 6, 8, 2}},
};

constexpr std::array<std::string_view, 0> kEverything{};
constexpr auto kEarningsWords = std::to_array<std::string_view>(
    {"earnings", "revenue", "guidance", "quarter", "analyst", "shares"});
constexpr auto kBetasWords = std::to_array<std::string_view>(
    {"beta", "release candidate", "iOS", "iPadOS", "macOS", "watchOS", "tvOS", "visionOS"});
constexpr auto kLawWords =
    std::to_array<std::string_view>({"antitrust", "lawsuit", "court", "judge", "regulator",
                                     "European Commission", "patent", "settlement", "appeal"});
constexpr auto kRumorsWords = std::to_array<std::string_view>(
    {"rumor", "rumour", "reportedly", "leak", "leaked", "said to", "analyst"});
constexpr auto kServicesWords = std::to_array<std::string_view>(
    {"iCloud", "App Store", "Apple Music", "Apple TV", "Apple Pay", "outage", "subscription"});

constexpr std::array kTemplates{
    NewsroomTemplate{"launch-day", "Launch day", "bolt",
                     "Live wire, claims against what came, countdown, stock", kLaunchDay,
                     kEverything},
    NewsroomTemplate{"earnings", "Earnings", "chart.line.uptrend.xyaxis",
                     "Chart with marked dates, suppliers, filings, wire of the results", kEarnings,
                     kEarningsWords},
    NewsroomTemplate{"betas", "Betas", "hammer", "Versions, releases, back end, wire of the betas",
                     kBetas, kBetasWords},
    NewsroomTemplate{"law", "Law", "building.columns",
                     "Wire of law and policy, what is covered most, records", kLaw, kLawWords},
    NewsroomTemplate{"rumors", "Rumors", "sparkles", "Claims, scoops, coverage, wire of rumors",
                     kRumors, kRumorsWords},
    NewsroomTemplate{"services", "Services", "globe",
                     "Status, update catalogue, Apple's posts, wire of services", kServices,
                     kServicesWords},
};

}  // namespace

StoryQuery NewsroomTemplate::focusQuery() const {
    return {.anyTerms = {focus.begin(), focus.end()}};
}

std::span<const NewsroomTemplate> newsroomTemplates() { return kTemplates; }

NewsroomSpec madeNewsroom(const NewsroomTemplate& from, std::string name, std::string symbol,
                          StoryQuery focus) {
    NewsroomSpec parts{.id = UUID::random(),
                       .name = std::move(name),
                       .symbol = std::move(symbol),
                       .focus = std::move(focus)};
    for (const auto& panel : from.panels) {
        parts.panels.push_back({.id = UUID::random(),
                                .kind = panel.kind,
                                .title = std::string(panel.title),
                                .frame = panel.frame});
    }
    auto spec = NewsroomSpec::created(std::move(parts));
    NewsroomLimits::require(spec);
    return spec;
}

}  // namespace kit
