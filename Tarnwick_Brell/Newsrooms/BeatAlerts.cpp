#include "Tarnwick_Brell/Newsrooms/BeatAlerts.h"

#include "NewsroomKit/Newsrooms/PanelAlert.h"

namespace desk {

using newsroom::PanelAlert;
using newsroom::PanelKind;
using newsroom::Story;

BeatAlerts::BeatAlerts(const BeatShelf& beats, const NewsroomShelf& newsrooms) {
    for (const auto& entry : beats.entries()) {
        if (!entry.value || !entry.value->alerts) continue;
        watches_.push_back({entry.id, entry.name, entry.value->query.compiled(),
                            PanelKind::stream});
    }
    for (const auto& entry : newsrooms.entries()) {
        if (entry.value) watchPanels(*entry.value);
    }
}

void BeatAlerts::watchPanels(const newsroom::NewsroomSpec& spec) {
    for (const auto& panel : spec.panels) {
        if (!panel.options.alerts || alertOf(panel.kind) != PanelAlert::stories) continue;
        watches_.push_back({panel.id.text(), spec.name + " – " + panel.title,
                            spec.effectiveQuery(panel).compiled(), panel.kind, spec.id.text()});
    }
}

std::vector<BeatMatch> BeatAlerts::matches(const std::vector<Story>& news) const {
    std::vector<BeatMatch> found;
    for (const auto& watch : watches_) {
        found.push_back({.id = watch.id, .name = watch.name, .newsroomID = watch.newsroomID});
    }
    for (const auto& story : news) {
        for (std::size_t i = 0; i < watches_.size(); ++i) {
            if (watches_[i].kind == PanelKind::apple && !story.isAppleSource) continue;
            if (!watches_[i].query.matches(story)) continue;
            auto& announcement = found[i].announcement;
            ++announcement.total;
            if (announcement.stories.size() < Announcement::kMostOneByOne)
                announcement.stories.push_back(story);
            break;
        }
    }
    std::erase_if(found, [](const BeatMatch& match) { return match.announcement.total == 0; });
    return found;
}

}  // namespace desk
