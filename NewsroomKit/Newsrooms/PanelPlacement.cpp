#include "NewsroomKit/Newsrooms/PanelPlacement.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

#include "NewsroomKit/Newsrooms/DraggedPanel.h"
#include "NewsroomKit/Newsrooms/Skyline.h"

namespace kit {

namespace {

/// Brings size and columns within their bounds; the row stays.
void fit(PlacedPanel& panel) {
    const auto& least = kindRow(panel.kind).least;
    auto& frame = panel.frame;
    frame.width = std::clamp(frame.width, least.width, kGridColumns);
    frame.height = std::clamp(frame.height, least.height, PanelPlacement::kGreatestHeight);
    frame.column = std::clamp(frame.column, std::int64_t{0}, kGridColumns - frame.width);
}

DraggedPanel lifted(const Placement& panels, std::size_t panel) {
    if (panel >= panels.size()) throw std::out_of_range("a panel outside the layout");
    return {PanelPlacement::tidied(panels), panel};
}

struct Edges {
    std::int64_t from;
    std::int64_t to;
};

/// Moves each edge that differs as near to the wanted one as the opposite edge allows.
Edges dragged(Edges edges, Edges wanted, std::int64_t least, std::int64_t greatest,
              std::int64_t end) {
    if (wanted.from != edges.from) {
        const auto lowest = std::max(std::int64_t{0}, edges.to - greatest);
        edges.from = std::clamp(wanted.from, lowest, edges.to - least);
    }
    if (wanted.to != edges.to) {
        const auto highest = std::min(end, edges.from + greatest);
        edges.to = std::clamp(wanted.to, edges.from + least, highest);
    }
    return edges;
}

}  // namespace

Placement PanelPlacement::of(const std::vector<PanelSpec>& panels) {
    Placement placement;
    placement.reserve(panels.size());
    for (const auto& panel : panels)
        placement.push_back({.kind = panel.kind, .frame = panel.frame});
    return placement;
}

Placement PanelPlacement::tidied(Placement panels) {
    for (auto& panel : panels) fit(panel);
    compact(panels, readingOrder(panels));
    return panels;
}

Placement PanelPlacement::moved(const Placement& panels, std::size_t panel, std::int64_t column,
                                std::int64_t row) {
    return lifted(panels, panel).movedTo(column, row);
}

Placement PanelPlacement::resized(const Placement& panels, std::size_t panel,
                                  const GridFrame& wanted) {
    const auto hand = lifted(panels, panel);
    const auto& frame = hand.frame();
    const auto& least = kindRow(hand.panel().kind).least;
    const auto columns = dragged({frame.column, frame.right()}, {wanted.column, wanted.right()},
                                 least.width, kGridColumns, kGridColumns);
    const auto rows =
        dragged({frame.row, frame.bottom()}, {wanted.row, wanted.bottom()}, least.height,
                kGreatestHeight, std::numeric_limits<std::int64_t>::max());
    // A resized panel never changes places with one below it.
    return hand.drop({.column = columns.from,
                      .row = rows.from,
                      .width = columns.to - columns.from,
                      .height = rows.to - rows.from},
                     rows.from);
}

Placement PanelPlacement::nudged(const Placement& panels, std::size_t panel, Direction direction) {
    const auto hand = lifted(panels, panel);
    const auto column = hand.frame().column;
    const auto row = hand.frame().row;
    switch (direction) {
        case Direction::left: return hand.movedTo(column - 1, row);
        case Direction::right: return hand.movedTo(column + 1, row);
        case Direction::up: return hand.movedTo(column, row - 1);
        case Direction::down: return hand.movedTo(column, hand.nextRowDown());
    }
    throw std::invalid_argument("no direction of the grid");
}

Placement PanelPlacement::inserted(const Placement& panels, const PlacedPanel& added) {
    auto tidy = tidied(panels);
    auto wanted = added;
    fit(wanted);
    tidy.push_back(wanted);
    const auto hand = tidy.size() - 1;
    return DraggedPanel(std::move(tidy), hand).drop(wanted.frame, wanted.frame.row);
}

Placement PanelPlacement::appended(const Placement& panels, PanelKind kind) {
    auto tidy = tidied(panels);
    Skyline skyline;
    for (const auto index : readingOrder(tidy)) skyline.rest(tidy[index].frame);
    const auto& usual = kindRow(kind).usual;
    GridFrame best{.width = usual.width, .height = usual.height};
    best.row = skyline.floorUnder(best);
    for (auto place = best; place.right() < kGridColumns;) {
        ++place.column;
        place.row = skyline.floorUnder(place);
        if (place.row < best.row) best = place;
    }
    tidy.push_back({.kind = kind, .frame = best});
    return tidy;
}

Placement PanelPlacement::removed(const Placement& panels, std::size_t panel) {
    return lifted(panels, panel).without();
}

}  // namespace kit
