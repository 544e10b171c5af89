#include "Tarnwick_Brell/Models/Panels/ReleasesPanelModel.h"

#include "NewsroomKit/Trackers/Releases/ReleaseTitle.h"
#include "Tarnwick_Brell/Presentation/EmptyText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

ReleaseRow rowOf(const kit::ReleasesContent::Row& content, kit::Instant now) {
    constexpr int longestBuild = 20;
    const auto& release = content.build.release;
    ReleaseRow row{.age = ageText(release.published, now),
                   .title = titleText(kit::titleOf(content.build.platform, release)),
                   .build = titleText(release.build, longestBuild),
                   .isBeta = content.build.channel == kit::ReleaseChannel::beta,
                   .isNew = content.isNew,
                   .link = openableLink(release.url)};
    row.spokenText = (row.isNew ? ReleasesPanelModel::tr("%1, build %2, %3, new")
                                : ReleasesPanelModel::tr("%1, build %2, %3"))
                         .arg(row.title, row.build, agoText(release.published, now));
    return row;
}

}  // namespace

ReleasesPanelModel::ReleasesPanelModel(const PanelStores& stores, const kit::PanelSpec& panel)
    : PanelModel(stores, panel), platforms_(panel.options.platforms) {
    connect(&trackers(), &TrackerStore::releasesChanged, this, &ReleasesPanelModel::update);
    update();
}

void ReleasesPanelModel::update() {
    const auto content =
        kit::releasesContent(trackers().releases(), trackers().builds(), platforms_, now());
    std::vector<ReleaseRow> rows;
    for (const auto& row : content.rows) rows.push_back(rowOf(row, now()));
    rows_.setRows(std::move(rows));
    setCondition(conditionOf(content.condition, noRowText(kit::PanelKind::releases)));
}

}  // namespace app
