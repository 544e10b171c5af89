#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "NewsroomKit/Newsrooms/PanelPlacement.h"

namespace kit {

/// Indices ordered by row, then column, then position in the list.
std::vector<std::size_t> readingOrder(const Placement& panels);

/// Moves the panels up in that order until gaps close.
void compact(Placement& panels, const std::vector<std::size_t>& order);

/// A tidy layout while one of its panels is dragged.
class DraggedPanel {
public:
    DraggedPanel(Placement tidy, std::size_t panel);

    const PlacedPanel& panel() const { return before_[hand_]; }
    const GridFrame& frame() const { return before_[hand_].frame; }

    /// Places the panel at `wanted`, which lies within the columns and may have any row. Panels
    /// that reach below `lowest` in the original layout do not stay above it.
    Placement drop(const GridFrame& wanted, std::int64_t lowest) const;

    Placement movedTo(std::int64_t column, std::int64_t row) const;

    /// The nearest row at which a panel below would change places with this one, or the
    /// present row when none would.
    std::int64_t nextRowDown() const;

    /// The layout without the dragged panel.
    Placement without() const;

private:
    Placement before_;
    std::size_t hand_;
    std::vector<std::size_t> others_;  ///< in reading order
    Placement closed_;  ///< compacted without the dragged panel, whose entry is unused
};

}  // namespace kit
