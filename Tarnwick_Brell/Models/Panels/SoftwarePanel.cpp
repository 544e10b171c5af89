#include "Tarnwick_Brell/Models/Panels/SoftwarePanel.h"

#include <algorithm>

#include "Tarnwick_Brell/Models/Panels/ReleaseText.h"
#include "Tarnwick_Brell/Text/ShownText.h"
#include "Tarnwick_Brell/Text/TimeText.h"

namespace desk {

namespace {

constexpr int kLongestBuild = 20;

}  // namespace

SoftwarePanel::SoftwarePanel(const PanelStores& stores, const newsroom::PanelSpec& panel)
    : PanelContent(stores, panel), platforms_(panel.options.platforms) {
    connect(&trackers(), &TrackerStore::releasesChanged, this, &SoftwarePanel::look);
    look();
}

void SoftwarePanel::look() {
    const auto& reading = trackers().releases();
    auto condition = conditionOf(reading);
    std::vector<SoftwareRow> rows;
    if (reading.value) {
        for (const auto& name : platforms_) {
            const auto platform =
                std::ranges::find(*reading.value, name, &newsroom::PlatformRelease::platform);
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

SoftwareRow SoftwarePanel::rowOf(const newsroom::PlatformRelease& platform) const {
    SoftwareRow row{.platform = titleText(platform.platform, kLongestBuild),
                    .hasBeta = platform.beta.has_value()};
    newsroom::Instant latest{};
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
    if (latest > newsroom::Instant()) row.date = shortDayText(latest, now());
    row.spokenText = (row.isNew ? tr("%1 %2, beta: %3, new, %4") : tr("%1 %2, beta: %3, %4"))
                         .arg(row.platform, row.version, row.betaVersion, row.date);
    return row;
}

}  // namespace desk
