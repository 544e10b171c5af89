#include "Tarnwick_Brell/Models/Panels/ReleasesPanelModel.h"

#include <algorithm>

#include "Tarnwick_Brell/Models/Panels/PanelLinks.h"
#include "Tarnwick_Brell/Models/Panels/ReleaseText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

ReleasesPanelModel::ReleasesPanelModel(const PanelStores& stores, const kit::PanelSpec& panel)
    : PanelModel(stores, panel),
      platforms_(panel.options.platforms.begin(), panel.options.platforms.end()) {
    connect(&trackers(), &TrackerStore::releasesChanged, this, &ReleasesPanelModel::look);
    look();
}

void ReleasesPanelModel::look() {
    auto builds = trackers().builds();
    std::erase_if(builds,
                  [&](const SeenBuild& build) { return !platforms_.contains(build.platform); });
    std::ranges::stable_sort(builds, std::ranges::greater{},
                             [](const SeenBuild& build) { return build.release.published; });
    std::vector<ReleaseRow> rows;
    for (const auto& build : builds) rows.push_back(rowOf(build));
    const auto& reading = trackers().releases();
    auto condition = conditionOf(reading.value || !rows.empty(), reading.fetchedAt, reading.error);
    if (condition.state == Ready && rows.empty()) {
        condition.state = Empty;
        condition.message = tr("Nothing is known of these platforms.");
    }
    rows_.setRows(std::move(rows));
    become(std::move(condition));
}

ReleaseRow ReleasesPanelModel::rowOf(const SeenBuild& build) const {
    const auto& release = build.release;
    constexpr int longestBuild = 20;
    ReleaseRow row{.age = ageText(release.published, now()),
                   .title = titleText(release.title),
                   .build = titleText(release.build, longestBuild),
                   .isBeta = build.channel == kit::ReleaseChannel::beta,
                   .isNew = isNewBuild(release, now()),
                   .link = webLink(release.url)};
    row.spokenText = (row.isNew ? tr("%1, build %2, %3, new") : tr("%1, build %2, %3"))
                         .arg(row.title, row.build, agoText(release.published, now()));
    return row;
}

}  // namespace app
