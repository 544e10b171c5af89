#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "NewsroomKit/Newsrooms/PanelPlacement.h"

namespace kit {

/// Indices from the top down, in each row from the left; equals in the list's order.
std::vector<std::size_t> readingOrder(const Placement& panels);

/// Lets the panels down in that order, so that gaps close.
void compact(Placement& panels, const std::vector<std::size_t>& order);

/// A tidy layout with one of its panels lifted out.
class DraggedPanel {
public:
    DraggedPanel(Placement tidy, std::size_t panel);

    const PlacedPanel& panel() const { return before_[hand_]; }
    const GridFrame& frame() const { return before_[hand_].frame; }

    /// Panels that reach below `lowest` in the layout with the panel still at its place do
    /// not stay above it. `wanted` lies within the columns; its row may be any number.
    Placement drop(const GridFrame& wanted, std::int64_t lowest) const;

    Placement movedTo(std::int64_t column, std::int64_t row) const;

    /// The nearest row at which a panel below would change places with this one, or the
    /// present row when none would.
    std::int64_t nextRowDown() const;

    /// The layout without it.
    Placement without() const;

private:
    Placement before_;
    std::size_t hand_;
    std::vector<std::size_t> others_;  ///< in reading order
    Placement closed_;  ///< closed up without the panel in hand, whose entry means nothing
};

}  // namespace kit
