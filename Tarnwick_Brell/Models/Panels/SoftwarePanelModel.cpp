#include "Tarnwick_Brell/Models/Panels/SoftwarePanelModel.h"

#include <algorithm>

#include "Tarnwick_Brell/Models/Panels/ReleaseText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

constexpr int kLongestBuild = 20;

}  // namespace

SoftwarePanelModel::SoftwarePanelModel(const PanelStores& stores, const kit::PanelSpec& panel)
    : PanelModel(stores, panel), platforms_(panel.options.platforms) {
    connect(&trackers(), &TrackerStore::releasesChanged, this, &SoftwarePanelModel::look);
    look();
}

void SoftwarePanelModel::look() {
    const auto& reading = trackers().releases();
    auto condition = conditionOf(reading);
    std::vector<SoftwareRow> rows;
    if (reading.value) {
        for (const auto& name : platforms_) {
            const auto platform =
                std::ranges::find(*reading.value, name, &kit::PlatformRelease::platform);
            if (platform != reading.value->end()) rows.push_back(rowOf(*platform));
        }
    }
    if (condition.state == Ready && rows.empty()) {
        condition.state = Empty;
        condition.message = tr("Nothing is known of these platforms.");
    }
    rows_.setRows(std::move(rows));
    become(std::move(condition));
}

SoftwareRow SoftwarePanelModel::rowOf(const kit::PlatformRelease& platform) const {
    SoftwareRow row{.platform = titleText(platform.platform, kLongestBuild),
                    .hasBeta = platform.beta.has_value()};
    kit::Instant latest{};
    for (const auto& release : {platform.current, platform.beta}) {
        if (!release) continue;
        latest = std::max(latest, release->published);
        row.isNew |= isNewBuild(*release, now());
    }
    row.version = tr("None yet");
    if (platform.current) {
        row.version = versionText(*platform.current);
        row.build = titleText(platform.current->build, kLongestBuild);
    }
    row.betaVersion = tr("No beta");
    if (platform.beta) {
        row.betaVersion = versionText(*platform.beta);
        row.betaBuild = titleText(platform.beta->build, kLongestBuild);
    }
    if (latest > kit::Instant()) row.date = shortDayText(latest, now());
    row.spokenText = (row.isNew ? tr("%1 %2, beta: %3, new, %4") : tr("%1 %2, beta: %3, %4"))
                         .arg(row.platform, row.version, row.betaVersion, row.date);
    return row;
}

}  // namespace app
