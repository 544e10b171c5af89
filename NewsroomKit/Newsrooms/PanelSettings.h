#pragma once

#include "NewsroomKit/Newsrooms/PanelKind.h"

namespace kit {

/// The settings that have an effect on panels of a kind, beside the title.
struct PanelSettings {
    bool query = false;  ///< stories of its own query or of the newsroom's focus
    bool eventTerms = false;
    bool stockRange = false;
    bool platforms = false;
    bool alerts = false;
};

constexpr PanelSettings settingsOf(PanelKind kind) {
    PanelSettings settings{.alerts = kindRow(kind).alert != PanelAlert::none};
    switch (kind) {
        case PanelKind::stream:
        case PanelKind::brief:
        case PanelKind::topStories:
        case PanelKind::claims:
        case PanelKind::coverage:
        case PanelKind::apple:
        case PanelKind::scoops: settings.query = true; break;
        case PanelKind::countdown: settings.eventTerms = true; break;
        case PanelKind::stock:
            settings.eventTerms = true;
            settings.stockRange = true;
            break;
        case PanelKind::software:
        case PanelKind::releases: settings.platforms = true; break;
        case PanelKind::status:
        case PanelKind::clips:
        case PanelKind::pageWatch:
        case PanelKind::suppliers:
        case PanelKind::backend:
        case PanelKind::records: break;
    }
    return settings;
}

/// Whether the desk has what a panel of the kind shows. Others are offered too: they fill once it
/// has.
constexpr bool isCollected(PanelKind kind) {
    return kind != PanelKind::clips && kind != PanelKind::pageWatch;
}

}  // namespace kit
