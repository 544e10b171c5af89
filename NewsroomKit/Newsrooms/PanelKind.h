#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "NewsroomKit/Records/EnumTable.h"

namespace kit {

/// What a panel shows.
// clang-format off
enum class PanelKind {
    stream, brief, topStories, countdown, claims, stock, software, status, coverage,
    clips, apple, pageWatch, scoops, suppliers, backend, records, releases
};
// clang-format on

struct PanelSize {
    std::int64_t width;
    std::int64_t height;
};

/// A kind's row has more columns than other enumerations' rows. `label` is the heading of a
/// new panel; no `least` may be larger than what GridLayout gives the kind.
struct PanelKindRow {
    PanelKind value;
    std::string_view raw;
    std::string_view label;
    std::string_view symbol;
    std::string_view description;
    PanelSize least;  ///< the smallest size at which the content can be read
    PanelSize usual;  ///< the size of a panel just added
};

template <>
// clang-format off
inline constexpr std::array<PanelKindRow, 17> enumTable<PanelKind>{{
    {PanelKind::stream, "stream", "Latest", "dot.radiowaves.left.and.right",
     "Live stories that match words and sources", {3, 3}, {4, 4}},
    {PanelKind::brief, "brief", "Brief", "sparkles",
     "What changed since your last look, with sources", {3, 2}, {5, 2}},
    {PanelKind::topStories, "topStories", "Top stories", "flame",
     "The stories most outlets are covering", {3, 3}, {5, 4}},
    {PanelKind::countdown, "countdown", "Next from Apple", "calendar",
     "Days until the next Apple date", {2, 2}, {3, 2}},
    {PanelKind::claims, "claims", "Claims", "checklist",
     "Reported and rumored claims against what Apple confirmed", {3, 3}, {5, 4}},
    {PanelKind::stock, "stock", "AAPL", "chart.line.uptrend.xyaxis",
     "Apple's share price with launch dates marked", {3, 2}, {4, 2}},
    {PanelKind::software, "software", "Software", "iphone.gen3",
     "Current iOS, macOS and other versions and betas", {3, 2}, {3, 3}},
    {PanelKind::status, "status", "Apple status", "waveform.path.ecg",
     "Whether Apple's services are up", {2, 2}, {3, 2}},
    {PanelKind::coverage, "coverage", "Coverage", "chart.bar.xaxis",
     "Which outlets cover this, and who was first", {3, 2}, {4, 3}},
    {PanelKind::clips, "clips", "Clips", "scissors",
     "Quotes you saved, ready to cite", {3, 2}, {4, 3}},
    {PanelKind::apple, "apple", "From Apple", "checkmark.seal",
     "Newsroom, Developer and Support posts", {3, 2}, {4, 3}},
    {PanelKind::pageWatch, "pageWatch", "Page watch", "doc.text.magnifyingglass",
     "Tells you when an Apple web page changes, and what changed", {3, 2}, {4, 3}},
    {PanelKind::scoops, "scoops", "Scoops", "flag.pattern.checkered",
     "Who broke the latest stories first, and by how much", {3, 3}, {5, 4}},
    {PanelKind::suppliers, "suppliers", "Suppliers", "building.2",
     "Apple's share price beside its suppliers' and partners'", {3, 2}, {4, 3}},
    {PanelKind::backend, "backend", "Back end", "server.rack",
     "The latest changes found on Apple's servers and websites", {3, 3}, {5, 4}},
    {PanelKind::records, "records", "Records", "doc.text",
     "New SEC filings, court entries and signing changes", {3, 2}, {4, 3}},
    {PanelKind::releases, "releases", "Releases", "shippingbox",
     "Every release and beta Apple announced lately", {3, 2}, {4, 3}},
}};
// clang-format on

constexpr const PanelKindRow& kindRow(PanelKind kind) {
    return enumTable<PanelKind>[static_cast<std::size_t>(kind)];
}

/// The kinds offered when a panel is added, in order. A clips panel is not among them: it
/// exists only where a newsroom already holds one.
inline std::vector<PanelKind> offeredPanelKinds() {
    std::vector<PanelKind> kinds;
    for (const auto& row : enumTable<PanelKind>) {
        if (row.value != PanelKind::clips) kinds.push_back(row.value);
    }
    return kinds;
}

}  // namespace kit
