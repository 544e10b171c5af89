#include "NewsroomKit/Newsrooms/PanelEditing.h"

#include <stdexcept>
#include <string>
#include <utility>

#include "NewsroomKit/Newsrooms/NewsroomLimits.h"

namespace kit {

namespace {

void applyFrames(NewsroomSpec& spec, const Placement& layout) {
    for (std::size_t i = 0; i < spec.panels.size(); ++i) spec.panels[i].frame = layout[i].frame;
}

/// `layout` has a frame for the new panel at its end.
NewsroomSpec withPanel(NewsroomSpec spec, PanelSpec panel, const Placement& layout) {
    panel.id = UUID::random();
    spec.panels.push_back(std::move(panel));
    NewsroomLimits::require(spec);
    applyFrames(spec, layout);
    return spec;
}

PanelSpec panelOf(PanelKind kind) { return {.kind = kind, .title = std::string(label(kind))}; }

}  // namespace

NewsroomSpec PanelEditing::placed(NewsroomSpec spec, const Placement& layout) {
    if (layout.size() != spec.panels.size())
        throw std::invalid_argument("a layout of other panels");
    applyFrames(spec, PanelPlacement::tidied(layout));
    return spec;
}

NewsroomSpec PanelEditing::added(NewsroomSpec spec, PanelKind kind) {
    const auto layout = PanelPlacement::appended(PanelPlacement::of(spec.panels), kind);
    return withPanel(std::move(spec), panelOf(kind), layout);
}

NewsroomSpec PanelEditing::inserted(NewsroomSpec spec, const PlacedPanel& wanted) {
    const auto layout = PanelPlacement::inserted(PanelPlacement::of(spec.panels), wanted);
    return withPanel(std::move(spec), panelOf(wanted.kind), layout);
}

NewsroomSpec PanelEditing::duplicated(NewsroomSpec spec, std::size_t panel) {
    auto copy = spec.panels.at(panel);
    const auto layout = PanelPlacement::tidied(PanelPlacement::of(spec.panels));
    auto below = layout[panel];
    below.frame.row = below.frame.bottom();
    return withPanel(std::move(spec), std::move(copy), PanelPlacement::inserted(layout, below));
}

NewsroomSpec PanelEditing::removed(NewsroomSpec spec, std::size_t panel) {
    const auto layout = PanelPlacement::removed(PanelPlacement::of(spec.panels), panel);
    spec.panels.erase(spec.panels.begin() + static_cast<std::ptrdiff_t>(panel));
    applyFrames(spec, layout);
    return spec;
}

NewsroomSpec PanelEditing::received(NewsroomSpec spec, PanelSpec panel) {
    auto layout = PanelPlacement::appended(PanelPlacement::of(spec.panels), panel.kind);
    // It keeps its size; appended() gives the usual one.
    auto wanted = layout.back();
    layout.pop_back();
    wanted.frame.width = panel.frame.width;
    wanted.frame.height = panel.frame.height;
    return withPanel(std::move(spec), std::move(panel), PanelPlacement::inserted(layout, wanted));
}

}  // namespace kit
