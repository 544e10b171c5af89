#include "Tarnwick_Brell/Newsrooms/BeatAlerts.h"

namespace app {

using kit::PanelAlert;
using kit::PanelKind;
using kit::Story;

BeatAlerts::BeatAlerts(const BeatShelf& beats, const NewsroomShelf& newsrooms) {
    for (const auto& entry : beats.entries()) {
        if (!entry.value || !entry.value->alerts) continue;
        watches_.push_back(
            {entry.id, entry.name, entry.value->query.compiled(), PanelKind::stream});
    }
    for (const auto& entry : newsrooms.entries()) {
        if (entry.value) watchPanels(*entry.value);
    }
}

void BeatAlerts::watchPanels(const kit::NewsroomSpec& spec) {
    for (const auto& panel : spec.panels) {
        if (!panel.options.alerts || kindRow(panel.kind).alert != PanelAlert::stories) continue;
        watches_.push_back({panel.id.text(), spec.name + " – " + panel.title,
                            spec.effectiveQuery(panel).compiled(), panel.kind, spec.id.text()});
    }
}

bool BeatAlerts::Watch::wants(const Story& story) const {
    return (kind != PanelKind::apple || story.isAppleSource) && query.matches(story);
}

BeatAlerts::Sorted BeatAlerts::sort(const std::vector<Story>& news) const {
    Sorted sorted;
    std::vector<std::vector<Story>> found(watches_.size());
    for (const auto& story : news) {
        const auto watch = std::find_if(watches_.begin(), watches_.end(),
                                        [&](const Watch& each) { return each.wants(story); });
        auto& list = watch == watches_.end()
                         ? sorted.others
                         : found[static_cast<std::size_t>(watch - watches_.begin())];
        list.push_back(story);
    }
    for (std::size_t i = 0; i < watches_.size(); ++i) {
        if (found[i].empty()) continue;
        sorted.matches.push_back({.id = watches_[i].id,
                                  .name = watches_[i].name,
                                  .newsroomID = watches_[i].newsroomID,
                                  .announcement = Announcement::of(found[i])});
    }
    return sorted;
}

}  // namespace app
