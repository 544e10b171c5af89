#include "Tarnwick_Brell/Newsrooms/BeatAlerts.h"

#include <algorithm>

namespace app {

using kit::PanelAlert;
using kit::PanelKind;
using kit::PanelSpec;
using kit::SignalKind;
using kit::Story;

namespace {

std::string panelName(const kit::NewsroomSpec& spec, const PanelSpec& panel) {
    return spec.name + " – " + panel.title;
}

template <class Predicate>
std::optional<AlertingPanel> firstPanel(const NewsroomRecords& newsrooms, const Predicate& asks) {
    for (const auto& entry : newsrooms.entries()) {
        if (!entry.value) continue;
        for (const auto& panel : entry.value->panels) {
            if (panel.options.alerts && asks(panel))
                return AlertingPanel{panel.id.text(), panelName(*entry.value, panel)};
        }
    }
    return std::nullopt;
}

bool showsPage(const PanelSpec& panel, const kit::Signal& signal) {
    const auto& pages = panel.options.pages;
    return signal.kind == SignalKind::page &&
           (pages.empty() || std::ranges::find(pages, signal.link) != pages.end());
}

/// What a panel of that kind shows of the log. Changes of signing and of the update catalogue have
/// notifications of their own.
bool showsSignal(const PanelSpec& panel, const kit::Signal& signal) {
    switch (kindRow(panel.kind).alert) {
        case PanelAlert::records:
            return signal.kind == SignalKind::filing || signal.kind == SignalKind::insiderTrade ||
                   signal.kind == SignalKind::docket || signal.kind == SignalKind::pressRelease;
        case PanelAlert::backend:
            return signal.kind == SignalKind::backend || signal.kind == SignalKind::page;
        case PanelAlert::pages: return showsPage(panel, signal);
        default: return false;
    }
}

}  // namespace

std::optional<AlertingPanel> panelAskingFor(PanelAlert alert, const NewsroomRecords& newsrooms) {
    return firstPanel(newsrooms,
                      [&](const PanelSpec& panel) { return kindRow(panel.kind).alert == alert; });
}

std::optional<AlertingPanel> panelAskingForRelease(std::string_view platform,
                                                   const NewsroomRecords& newsrooms) {
    return firstPanel(newsrooms, [&](const PanelSpec& panel) {
        const auto& platforms = panel.options.platforms;
        return kindRow(panel.kind).alert == PanelAlert::releases &&
               std::ranges::find(platforms, platform) != platforms.end();
    });
}

std::optional<AlertingPanel> panelAskingForSignal(const kit::Signal& signal,
                                                  const NewsroomRecords& newsrooms) {
    // Panels show what is notable.
    if (signal.weight < kit::SignalWeight::notable) return std::nullopt;
    return firstPanel(newsrooms,
                      [&](const PanelSpec& panel) { return showsSignal(panel, signal); });
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
        watches_.push_back({panel.id.text(), panelName(spec, panel),
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
