#include "Tarnwick_Brell/Alerts/BuiltInAlerts.h"

#include <array>
#include <string_view>

#include "NewsroomKit/Newsrooms/PanelKind.h"

namespace app {

namespace {

constexpr std::array kAlertSettings{SettingKey::kAlertServiceStatus, SettingKey::kAlertReleases,
                                    SettingKey::kAlertStories};

}  // namespace

std::vector<BuiltInAlert> builtInAlerts(const Defaults& defaults, const BeatRecords& beats,
                                        const NewsroomRecords& newsrooms) {
    using Kind = BuiltInAlert::Kind;
    std::vector<BuiltInAlert> alerts;
    for (const auto key : kAlertSettings) {
        alerts.push_back({.kind = Kind::setting,
                          .id = "setting|" + std::string(key),
                          .name = std::string(SettingKey::named(key)->title),
                          .target = std::string(key),
                          .isOn = defaults.isOn(key)});
    }
    for (const auto& entry : beats.entries()) {
        if (!entry.value) continue;
        alerts.push_back({.kind = Kind::beat,
                          .id = "beat|" + entry.id,
                          .name = entry.name,
                          .target = entry.id,
                          .isOn = entry.value->alerts});
    }
    for (const auto& entry : newsrooms.entries()) {
        if (!entry.value) continue;
        for (const auto& panel : entry.value->panels) {
            if (!panel.options.alerts || kindRow(panel.kind).alert == kit::PanelAlert::none)
                continue;
            alerts.push_back({.kind = Kind::panel,
                              .id = "panel|" + panel.id.text(),
                              .name = entry.name + " – " + panel.title,
                              .target = panel.id.text(),
                              .isOn = true});
        }
    }
    return alerts;
}

}  // namespace app
