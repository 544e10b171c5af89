#pragma once

#include "NewsroomKit/Newsrooms/PanelKind.h"

namespace kit {

/// What a panel with alerts tells the user of.
enum class PanelAlert {
    none,  ///< the option has no effect, and is not offered
    stories,
    serviceStatus,
    releases,
    signing,
    updates
};

/// What raises no alerts: a scoop, which shows only once other outlets follow, when its story is
/// old news; dates and prices, which are no new items; pages and clips, of which nothing comes in.
constexpr PanelAlert alertOf(PanelKind kind) {
    switch (kind) {
        case PanelKind::stream:
        case PanelKind::brief:
        case PanelKind::topStories:
        case PanelKind::claims:
        case PanelKind::coverage:
        case PanelKind::apple: return PanelAlert::stories;
        case PanelKind::status: return PanelAlert::serviceStatus;
        case PanelKind::software:
        case PanelKind::releases: return PanelAlert::releases;
        case PanelKind::records: return PanelAlert::signing;
        case PanelKind::backend: return PanelAlert::updates;
        case PanelKind::countdown:
        case PanelKind::stock:
        case PanelKind::suppliers:
        case PanelKind::scoops:
        case PanelKind::pageWatch:
        case PanelKind::clips: return PanelAlert::none;
    }
    return PanelAlert::none;
}

}  // namespace kit
