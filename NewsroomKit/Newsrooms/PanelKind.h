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

/// The events that a panel with alerts notifies the user of.
enum class PanelAlert {
    none,  ///< the option has no effect, and is not offered
    stories,
    serviceStatus,
    releases,
    records,
    backend,
    pages
};

struct PanelSize {
    std::int64_t width;
    std::int64_t height;
};

/// The fixed properties of a kind; its row has more columns than those of other enumerations.
struct PanelKindRow {
    PanelKind value;
    std::string_view raw;
    std::string_view label;  ///< the heading of a new panel
    std::string_view symbol;
    std::string_view description;
    PanelSize least;  ///< at which the content can be read; GridLayout gives no kind less
    PanelSize usual;  ///< of a panel just added
    PanelAlert alert;
    bool isList;  ///< rows run to the panel's lower edge, where they are clipped
    /// Whether the kind is offered when a panel is added. Existing panels of other kinds still
    /// show.
    bool isOffered = true;
};

// Some kinds raise no alerts: a scoop appears only after other outlets follow, when its story is
// old news; dates and prices are not new items; nothing arrives for clips.
template <>
// clang-format off
inline constexpr std::array<PanelKindRow, 17> enumTable<PanelKind>{{
    {PanelKind::stream, "stream", "Latest", "dot.radiowaves.left.and.right",
     "Live stories that match words and sources", {3, 3}, {4, 4}, PanelAlert::stories, true},
    {PanelKind::brief, "brief", "Brief", "sparkles",
     "What changed since your last look, with sources", {3, 2}, {5, 2}, PanelAlert::stories, true},
    {PanelKind::topStories, "topStories", "Top stories", "flame",
     "The stories most outlets are covering", {3, 3}, {5, 4}, PanelAlert::stories, true},
    {PanelKind::countdown, "countdown", "Next from Apple", "calendar",
     "Days until the next Apple date", {2, 2}, {3, 2}, PanelAlert::none, false},
    {PanelKind::claims, "claims", "Claims", "checklist",
     "Reported and rumored claims against what Apple confirmed", {3, 3}, {5, 4}, PanelAlert::stories, true},
    {PanelKind::stock, "stock", "AAPL", "chart.line.uptrend.xyaxis",
     "Apple's share price with launch dates marked", {3, 2}, {4, 2}, PanelAlert::none, false},
    {PanelKind::software, "software", "Software", "iphone.gen3",
     "Current iOS, macOS and other versions and betas", {3, 2}, {3, 3}, PanelAlert::releases, false},
    {PanelKind::status, "status", "Apple status", "waveform.path.ecg",
     "Whether Apple's services are up", {2, 2}, {3, 2}, PanelAlert::serviceStatus, false},
    {PanelKind::coverage, "coverage", "Coverage", "chart.bar.xaxis",
     "Which outlets cover this, and who was first", {3, 2}, {4, 3}, PanelAlert::stories, true},
    {PanelKind::clips, "clips", "Clips", "scissors",
     "Quotes you saved, ready to cite", {3, 2}, {4, 3}, PanelAlert::none, true, false},
    {PanelKind::apple, "apple", "From Apple", "checkmark.seal",
     "Newsroom, Developer and Support posts", {3, 2}, {4, 3}, PanelAlert::stories, true},
    {PanelKind::pageWatch, "pageWatch", "Page watch", "doc.text.magnifyingglass",
     "Tells you when an Apple web page changes, and what changed", {3, 2}, {4, 3}, PanelAlert::pages, true},
    {PanelKind::scoops, "scoops", "Scoops", "flag.pattern.checkered",
     "Who broke the latest stories first, and by how much", {3, 3}, {5, 4}, PanelAlert::none, true},
    {PanelKind::suppliers, "suppliers", "Suppliers", "building.2",
     "Apple's share price beside its suppliers' and partners'", {3, 2}, {4, 3}, PanelAlert::none, true},
    {PanelKind::backend, "backend", "Back end", "server.rack",
     "The latest changes found on Apple's servers and websites", {3, 3}, {5, 4}, PanelAlert::backend, true},
    {PanelKind::records, "records", "Records", "doc.text",
     "New SEC filings, court entries and signing changes", {3, 2}, {4, 3}, PanelAlert::records, true},
    {PanelKind::releases, "releases", "Releases", "shippingbox",
     "Every release and beta Apple announced lately", {3, 2}, {4, 3}, PanelAlert::releases, true},
}};
// clang-format on

constexpr const PanelKindRow& kindRow(PanelKind kind) {
    return enumTable<PanelKind>[static_cast<std::size_t>(kind)];
}

static_assert(
    [] {
        for (std::size_t i = 0; i < enumTable<PanelKind>.size(); ++i) {
            if (enumTable<PanelKind>[i].value != static_cast<PanelKind>(i)) return false;
        }
        return true;
    }(),
    "the rows stand in the order of the kinds");

/// The kinds offered when a panel is added, in order.
inline std::vector<PanelKind> offeredPanelKinds() {
    std::vector<PanelKind> kinds;
    for (const auto& row : enumTable<PanelKind>) {
        if (row.isOffered) kinds.push_back(row.value);
    }
    return kinds;
}

}  // namespace kit
