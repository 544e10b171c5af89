#include "Tarnwick_Brell/Models/Panels/ScoopsPanelModel.h"

#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

ScoopsPanelModel::ScoopsPanelModel(const PanelStores& stores, const kit::PanelSpec& panel,
                                   const kit::StoryQuery& query)
    : QueryPanelModel(stores, panel, query) {
    gather([](const auto& gathered) { return kit::scoops(gathered.news); },
           [this](const auto& scoops, const auto& extent) { show(scoops, extent); });
}

void ScoopsPanelModel::show(const std::vector<kit::Scoop>& scoops, const Extent& extent) {
    std::vector<ScoopRow> rows;
    for (const auto& scoop : scoops) {
        ScoopRow row{.storyID = plainText(scoop.story.storyID),
                     .title = titleText(scoop.story.title, kTitleCharacters),
                     .isRead = scoop.story.isRead,
                     .outlet = leaderText(scoop.attribution, {}),
                     .lead = leadText(scoop.attribution, {}),
                     .age = ageText(scoop.at(), extent.now)};
        row.spokenText = spokenRow({row.isRead ? QString() : tr("Unread"), row.title,
                                    row.outlet + u' ' + row.lead, row.age});
        rows.push_back(std::move(row));
    }
    rows_.setRows(std::move(rows));
    setReady(rows_.rowCount(), spanFact(extent), extent);
}

void ScoopsPanelModel::open(int index) {
    if (const auto* row = rows_.row(index)) openStory(row->storyID);
}

}  // namespace app
