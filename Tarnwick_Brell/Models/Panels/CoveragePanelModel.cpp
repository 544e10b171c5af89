#include "Tarnwick_Brell/Models/Panels/CoveragePanelModel.h"

#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

CoveragePanelModel::CoveragePanelModel(const PanelStores& stores, const kit::PanelSpec& panel,
                                       const kit::StoryQuery& query)
    : QueryPanelModel(stores, panel, query) {
    gather([](const auto& gathered) { return kit::coverage(gathered.news); },
           [this](const auto& outlets, const auto& extent) { show(outlets, extent); });
}

void CoveragePanelModel::show(const std::vector<kit::CoverageRow>& outlets, const Extent& extent) {
    std::vector<CoverageBar> rows;
    for (const auto& outlet : outlets) {
        const auto firsts = static_cast<int>(outlet.timesFirst);
        const auto most = static_cast<double>(outlets.front().stories);
        CoverageBar row{.outlet = titleText(outlet.outlet),
                        .stories = QString::number(outlet.stories),
                        .fraction = static_cast<double>(outlet.stories) / most,
                        .firsts = firsts > 0 ? tr("first %n×", nullptr, firsts) : QString()};
        row.spokenText = spokenRow(
            {row.outlet,
             outlet.stories == 1 ? tr("1 story")
                                 : tr("%n stories", nullptr, static_cast<int>(outlet.stories)),
             row.firsts, tr("last %1").arg(agoText(outlet.last, extent.now))});
        rows.push_back(std::move(row));
    }
    rows_.setRows(std::move(rows));
    setReady(rows_.rowCount(), spanFact(extent), extent);
}

}  // namespace app
