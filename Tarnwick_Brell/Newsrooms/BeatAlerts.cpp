#include "Tarnwick_Brell/Newsrooms/BeatAlerts.h"

#include <algorithm>

namespace app {

using kit::PanelAlert;
using kit::PanelKind;
using kit::PanelSpec;
using kit::Story;

namespace {

template <class Predicate>
bool anyPanel(const NewsroomRecords& newsrooms, const Predicate& asks) {
    return std::ranges::any_of(newsrooms.entries(), [&](const auto& entry) {
        return entry.value && std::ranges::any_of(entry.value->panels, asks);
    });
}

bool asksFor(const PanelSpec& panel, PanelAlert alert) {
    return panel.options.alerts && kindRow(panel.kind).alert == alert;
}

}  // namespace

bool panelsAskFor(PanelAlert alert, const NewsroomRecords& newsrooms) {
    return anyPanel(newsrooms, [&](const PanelSpec& panel) { return asksFor(panel, alert); });
}

bool panelsAskForRelease(std::string_view platform, const NewsroomRecords& newsrooms) {
    return anyPanel(newsrooms, [&](const PanelSpec& panel) {
        return asksFor(panel, PanelAlert::releases) &&
               std::ranges::find(panel.options.platforms, platform) !=
                   panel.options.platforms.end();
    });
}

BeatAlerts::BeatAlerts(const BeatRecords& beats, const NewsroomRecords& newsrooms) {
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
