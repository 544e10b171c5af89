#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "NewsroomKit/Newsrooms/GridLayout.h"
#include "NewsroomKit/Newsrooms/PanelSpec.h"

namespace kit {

/// The panels of a newsroom in the order of its list.
using Placement = std::vector<PlacedPanel>;

/// Manual placement of panels. Layouts are values: every operation takes a layout and returns the
/// complete new one, with the panels in the same order. To undo, restore the old layout.
///
/// A layout is tidy when panels lie within the columns and their kinds' sizes, none overlaps
/// another, and each is at the top of the grid or touches one above it. Results are always tidy; an
/// untidy layout is tidied first, and the operations below refer to the tidied one, which is the
/// one to show.
///
/// The rule of all operations:
///
/// - The dragged panel gets the wanted place, moved inside the grid, and rises from there until
///   something is in the way. It never ends lower than requested.
/// - A panel under the wanted place, and whatever rests on it, goes below the dragged panel. Only
///   panels wholly above the wanted place stay above.
/// - When a panel moves down, those below it rise into the space it leaves, once they fit above the
///   wanted place and its lower edge has reached theirs: neighbours in a column change places.
/// - Every other panel keeps its place, or rises until something stops it.
///
/// During a drag, always pass the layout from its start and the place under the pointer: the result
/// then depends only on the pointer's position, not on its path, and returning to the start
/// restores the original layout.
///
/// A `panel` is an index into the layout; one outside it throws std::out_of_range.
namespace PanelPlacement {

/// The greatest height: a taller panel would only hide the others.
inline constexpr std::int64_t kGreatestHeight = 24;

enum class Direction { left, right, up, down };

Placement of(const std::vector<PanelSpec>& panels);

/// Tidies a layout from a file or an older version, whose frames may be anything: sizes and columns
/// are brought within their bounds, then panels are placed from the top down, by row, column and
/// list order. A tidy layout stays unchanged.
Placement tidied(Placement panels);

/// Moves the upper left cell of the panel to `column` and `row`; its size stays.
Placement moved(const Placement& panels, std::size_t panel, std::int64_t column, std::int64_t row);

/// Moves the edges in which `wanted` differs from the panel's frame; the others stay. An edge stops
/// at the kind's least size, the greatest height and the end of the grid.
Placement resized(const Placement& panels, std::size_t panel, const GridFrame& wanted);

/// One step of an arrow key: a column, or the nearest row that changes the layout. At the edge of
/// the grid nothing changes.
Placement nudged(const Placement& panels, std::size_t panel, Direction direction);

/// Inserts a panel, which is the last of the result.
Placement inserted(const Placement& panels, const PlacedPanel& added);

/// Adds a panel of the kind's usual size at the highest, then leftmost place below all others of
/// its columns.
Placement appended(const Placement& panels, PanelKind kind);

Placement removed(const Placement& panels, std::size_t panel);

}  // namespace PanelPlacement

}  // namespace kit
