#include "Tarnwick_Brell/Newsrooms/PanelAlerts.h"

#include <algorithm>

namespace app {

using kit::PanelAlert;
using kit::PanelSpec;

namespace {

template <class Predicate>
bool anyPanel(const NewsroomShelf& newsrooms, const Predicate& asks) {
    return std::ranges::any_of(newsrooms.entries(), [&](const auto& entry) {
        return entry.value && std::ranges::any_of(entry.value->panels, asks);
    });
}

bool asksFor(const PanelSpec& panel, PanelAlert alert) {
    return panel.options.alerts && kindRow(panel.kind).alert == alert;
}

}  // namespace

bool panelsAskFor(PanelAlert alert, const NewsroomShelf& newsrooms) {
    return anyPanel(newsrooms, [&](const PanelSpec& panel) { return asksFor(panel, alert); });
}

bool panelsAskForRelease(std::string_view platform, const NewsroomShelf& newsrooms) {
    return anyPanel(newsrooms, [&](const PanelSpec& panel) {
        return asksFor(panel, PanelAlert::releases) &&
               std::ranges::find(panel.options.platforms, platform) !=
                   panel.options.platforms.end();
    });
}

}  // namespace app
