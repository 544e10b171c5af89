#include "Tarnwick_Brell/Models/Panels/CoveragePanel.h"

#include "Tarnwick_Brell/Models/Panels/MentionText.h"
#include "Tarnwick_Brell/Text/ShownText.h"
#include "Tarnwick_Brell/Text/TimeText.h"

namespace desk {

CoveragePanel::CoveragePanel(const PanelStores& stores, const newsroom::PanelSpec& panel,
                             const newsroom::StoryQuery& query)
    : GatheredPanel(stores, panel, query) {
    gather(
        newsroom::kCoverageSpan,
        [](const auto& gathered) { return newsroom::coverage(gathered.news); },
        [this](const auto& outlets, const auto& extent) { show(outlets, extent); });
}

void CoveragePanel::show(const std::vector<newsroom::CoverageRow>& outlets, const Extent& extent) {
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
    becomeReady(rows_.rowCount(), spanFact(newsroom::kCoverageSpan, extent),
                tr("No outlet covers it."), extent);
}

}  // namespace desk
