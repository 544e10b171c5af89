#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "NewsroomKit/Newsrooms/GridLayout.h"
#include "NewsroomKit/Newsrooms/PanelSpec.h"

namespace kit {

/// The panels of a newsroom in the order of its list.
using Placement = std::vector<PlacedPanel>;

/// Placing panels by hand, on layouts as values: every operation takes a layout and returns
/// the whole new one, in the same order of panels. Undoing is putting the old one back.
///
/// A layout is tidy when panels lie within the columns and their kinds' sizes, none overlaps
/// another, and each stands at the top of the grid or touches one above it. Results are
/// always tidy; a layout that is not is made so first, and operations are spoken of in terms
/// of the tidy one, which is the one to show.
///
/// The rule of all operations:
///
/// - The panel in hand gets the wanted place, brought inside the grid, and rises from there
///   as far as nothing is in the way. It never ends lower than asked.
/// - A panel under the wanted place, and whatever rests on it, goes below the panel in hand.
///   Only what lies wholly above the wanted place stays above.
/// - A panel moved downwards lets those below it rise into the room it leaves, once they find
///   room above the wanted place and its lower edge has reached theirs: neighbours of a
///   column change places.
/// - Every other panel keeps its place, or rises until something stops it.
///
/// During a drag, ask with the layout at its start and the place under the pointer each
/// time: the outcome then depends on the pointer alone, whatever way it went, and back where
/// the drag began the layout is the one of the beginning.
///
/// A `panel` is an index into the layout; one outside it throws std::out_of_range.
namespace PanelPlacement {

/// Heights end here: a taller panel would only hide the others.
inline constexpr std::int64_t kGreatestHeight = 24;

enum class Direction { left, right, up, down };

Placement of(const std::vector<PanelSpec>& panels);

/// The tidy layout nearest to one from a file or an older version, whose frames may be
/// anything: sizes and columns are brought inside their bounds, then panels fall into place
/// from the top down, by row, column and list order. A tidy layout stays as it is.
Placement tidied(Placement panels);

/// Puts the upper left cell of the panel at `column` and `row`; its size stays.
Placement moved(const Placement& panels, std::size_t panel, std::int64_t column, std::int64_t row);

/// Drags the edges in which `wanted` differs from the panel's frame; the others stay. An
/// edge stops where the kind's least size, the greatest height or the grid ends.
Placement resized(const Placement& panels, std::size_t panel, const GridFrame& wanted);

/// One step of the arrow keys: a column, or the nearest row that changes the layout. At the
/// end of the grid nothing changes.
Placement nudged(const Placement& panels, std::size_t panel, Direction direction);

/// The new panel is the last of the result.
Placement inserted(const Placement& panels, const PlacedPanel& added);

/// Adds a panel of the kind's usual size at the highest, then leftmost place where it fits
/// below all others of its columns.
Placement appended(const Placement& panels, PanelKind kind);

Placement removed(const Placement& panels, std::size_t panel);

}  // namespace PanelPlacement

}  // namespace kit
