#include "Tarnwick_Brell/Models/Panels/SoftwarePanelModel.h"

#include "Tarnwick_Brell/Presentation/EmptyText.h"
#include "Tarnwick_Brell/Presentation/ReleaseText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

SoftwareRow rowOf(const kit::SoftwareContent::Row& content, kit::Instant now) {
    constexpr int longestBuild = 20;
    const auto& [platform, latest, isNew] = content;
    SoftwareRow row{.platform = titleText(platform.platform, longestBuild),
                    .version = SoftwarePanelModel::tr("None yet"),
                    .betaVersion = SoftwarePanelModel::tr("No beta"),
                    .hasBeta = platform.beta.has_value(),
                    .isNew = isNew};
    if (platform.current) {
        row.version = versionText(*platform.current);
        row.build = titleText(platform.current->build, longestBuild);
    }
    if (platform.beta) {
        row.betaVersion = versionText(*platform.beta);
        row.betaBuild = titleText(platform.beta->build, longestBuild);
    }
    if (latest) row.date = shortDayText(*latest, now);
    row.spokenText = (row.isNew ? SoftwarePanelModel::tr("%1 %2, beta: %3, new, %4")
                                : SoftwarePanelModel::tr("%1 %2, beta: %3, %4"))
                         .arg(row.platform, row.version, row.betaVersion, row.date);
    return row;
}

}  // namespace

SoftwarePanelModel::SoftwarePanelModel(const PanelStores& stores, const kit::PanelSpec& panel)
    : PanelModel(stores, panel), platforms_(panel.options.platforms) {
    connect(&trackers(), &TrackerStore::releasesChanged, this, &SoftwarePanelModel::update);
    update();
}

void SoftwarePanelModel::update() {
    const auto content = kit::softwareContent(trackers().releases(), platforms_, now());
    std::vector<SoftwareRow> rows;
    for (const auto& row : content.rows) rows.push_back(rowOf(row, now()));
    rows_.setRows(std::move(rows));
    setCondition(conditionOf(content.condition, noRowText(kit::PanelKind::software)));
}

}  // namespace app
