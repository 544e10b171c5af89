#pragma once

#include <span>
#include <vector>

#include "NewsroomKit/Newsrooms/GridFrame.h"
#include "NewsroomKit/Newsrooms/PanelKind.h"

namespace kit {

/// The kind and frame of a panel.
struct PlacedPanel {
    PanelKind kind{};
    GridFrame frame{};

    bool operator==(const PlacedPanel&) const = default;
};

/// Packs the first layout of a newsroom from the wanted kinds.
namespace GridLayout {

/// A frame for every wanted kind except clips; repeated kinds count once. The list is in the order
/// of placement: the top band, the main band and its stacked column, then the rows below.
std::vector<PlacedPanel> packed(std::span<const PanelKind> wanted);

}  // namespace GridLayout

}  // namespace kit
