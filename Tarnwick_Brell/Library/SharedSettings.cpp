#include "Tarnwick_Brell/Library/SharedSettings.h"

#include <boost/json.hpp>

#include "NewsroomKit/Records/Codec.h"

namespace app {

namespace {

using Settings = std::map<std::string, std::string>;

/// What was recorded last, as JSON: one that is no longer in the settings has been removed.
constexpr std::string_view kRecordedSettings = "recordedSettings";

Settings recordedSettings(LocalStore& store) {
    const auto text = store.state().text(kRecordedSettings);
    if (!text) return {};
    try {
        return kit::decode<Settings>(kit::parseJSON(*text));
    } catch (const kit::RecordError&) {
        return {};
    }
}

}  // namespace

Settings travellingSettings(const Defaults& defaults) {
    Settings settings;
    for (const auto key : kTravellingSettings) {
        if (auto value = defaults.text(key)) settings.emplace(key, std::move(*value));
    }
    return settings;
}

void recordSettings(LocalStore& store, const Settings& settings) {
    const auto recorded = recordedSettings(store);
    if (recorded == settings) return;
    auto transaction = store.transaction();
    for (const auto& [key, value] : settings) {
        const auto former = recorded.find(key);
        if (former == recorded.end() || former->second != value)
            store.sync().changed("t:" + key, {{"value", value}});
    }
    for (const auto& [key, value] : recorded) {
        if (!settings.contains(key)) store.sync().removed("t:" + key);
    }
    store.state().setText(kRecordedSettings, boost::json::serialize(kit::encode(settings)));
    transaction.commit();
}

}  // namespace app
