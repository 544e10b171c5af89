#include <array>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"

namespace kit {

namespace {

struct BuiltInPanel {
    PanelKind kind;
    std::string_view title;
    GridFrame frame;
};

constexpr std::array<BuiltInPanel, 7> kPanels{{
    {PanelKind::brief, "Today", {.column = 0, .row = 0, .width = 5, .height = 2}},
    {PanelKind::countdown, "Next from Apple", {.column = 5, .row = 0, .width = 3, .height = 2}},
    {PanelKind::stock, "AAPL", {.column = 8, .row = 0, .width = 4, .height = 2}},
    {PanelKind::topStories, "Top stories", {.column = 0, .row = 2, .width = 5, .height = 4}},
    {PanelKind::stream, "Latest", {.column = 5, .row = 2, .width = 4, .height = 4}},
    {PanelKind::software, "Software", {.column = 9, .row = 2, .width = 3, .height = 2}},
    {PanelKind::status, "Apple status", {.column = 9, .row = 4, .width = 3, .height = 2}},
}};

}  // namespace

NewsroomSpec NewsroomSpec::builtIn() {
    std::vector<PanelSpec> panels;
    for (const auto& panel : kPanels) {
        panels.push_back({.id = UUID::random(),
                          .kind = panel.kind,
                          .title = std::string(panel.title),
                          .frame = panel.frame});
    }
    return created({.id = UUID::parse(kBuiltInID).value(),
                    .name = "Today",
                    .symbol = "newspaper",
                    .origin = Origin::builtIn,
                    .panels = std::move(panels)});
}

}  // namespace kit
