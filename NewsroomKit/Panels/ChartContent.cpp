#include "NewsroomKit/Panels/ChartContent.h"

#include "NewsroomKit/Panels/AppHistory.h"

namespace kit {

namespace {

ChartContent::Row rowOf(const ChartEntry& entry, const std::optional<ChartDay>& dayBefore) {
    ChartContent::Row row{.entry = entry, .isApples = isApplesApp(entry)};
    if (!dayBefore) return row;
    const auto before = dayBefore->ranks.find(entry.id);
    row.isNew = before == dayBefore->ranks.end();
    if (!row.isNew) row.rankBefore = before->second;
    return row;
}

}  // namespace

ChartContent chartContent(const CachedValue<std::vector<ChartEntry>>& chart,
                          const std::optional<ChartDay>& dayBefore) {
    ChartContent content;
    if (chart.value) {
        for (const auto& entry : *chart.value) content.rows.push_back(rowOf(entry, dayBefore));
    }
    content.condition = PanelCondition::of(chart, !content.rows.empty());
    return content;
}

}  // namespace kit
