#pragma once

#include <span>
#include <vector>

#include "NewsroomKit/Newsrooms/GridFrame.h"
#include "NewsroomKit/Newsrooms/PanelKind.h"

namespace kit {

/// A panel as far as the grid is concerned.
struct PlacedPanel {
    PanelKind kind{};
    GridFrame frame{};

    bool operator==(const PlacedPanel&) const = default;
};

/// Packs a newsroom's first layout from the kinds that are wanted.
namespace GridLayout {

/// A frame for every wanted kind except clips, repeated kinds once. The list is in the order
/// of placing: the top band, the main band and its stacked column, then the rows below.
std::vector<PlacedPanel> packed(std::span<const PanelKind> wanted);

}  // namespace GridLayout

}  // namespace kit
