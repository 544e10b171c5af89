#pragma once

#include <cstddef>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"
#include "NewsroomKit/Newsrooms/PanelPlacement.h"

/// Changes of a newsroom's panels. Each function returns the complete changed newsroom, whose
/// layout is tidy, and throws RecordError where the result would exceed NewsroomLimits. A `panel`
/// is an index into the newsroom's panels; one outside them throws std::out_of_range.
namespace kit::PanelEditing {

/// The newsroom with the frames of a layout of its panels.
NewsroomSpec placed(NewsroomSpec spec, const Placement& layout);

/// Adds a panel of the kind, with its usual title and size, below those in its columns.
NewsroomSpec added(NewsroomSpec spec, PanelKind kind);

/// Adds a panel of the kind, with its usual title, at the wanted place.
NewsroomSpec inserted(NewsroomSpec spec, const PlacedPanel& wanted);

/// Copies a panel; the copy stands right below it.
NewsroomSpec duplicated(NewsroomSpec spec, std::size_t panel);

NewsroomSpec removed(NewsroomSpec spec, std::size_t panel);

/// Adds a panel of another newsroom below all others. One that follows the focus of the other
/// newsroom follows that of this one from now on.
NewsroomSpec received(NewsroomSpec spec, PanelSpec panel);

}  // namespace kit::PanelEditing
