#include "Tarnwick_Brell/Models/Panels/TopStoriesPanelModel.h"

#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

TopStoriesPanelModel::TopStoriesPanelModel(const PanelStores& stores, const kit::PanelSpec& panel,
                                           const kit::StoryQuery& query)
    : QueryPanelModel(stores, panel, query) {
    gather([](const auto& gathered) { return kit::topStories(gathered.news); },
           [this](const auto& stories, const auto& extent) { show(stories, extent); });
}

void TopStoriesPanelModel::show(const std::vector<kit::TopStory>& stories, const Extent& extent) {
    std::vector<TopStoryRow> rows;
    for (const auto& story : stories) {
        TopStoryRow row{.storyID = plainText(story.first.storyID),
                        .outletCount = QString::number(story.outlets.size()),
                        .title = titleText(story.first.title, kTitleCharacters),
                        .isRead = story.unread == 0,
                        .sourcing = StorySourcing::of(story.sourcing),
                        .sourcingLabel = sourcingText(story.sourcing),
                        .outlet = leaderText(story.attribution, story.outlets),
                        .lead = leadText(story.attribution, story.outlets)};
        row.spokenText =
            spokenRow({row.isRead ? QString() : tr("Unread"), row.title,
                       tr("%n outlets", nullptr, static_cast<int>(story.outlets.size())),
                       row.sourcingLabel, row.outlet + u' ' + row.lead});
        rows.push_back(std::move(row));
    }
    rows_.setRows(std::move(rows));
    setReady(rows_.rowCount(), spanFact(extent), extent);
}

void TopStoriesPanelModel::open(int index) {
    if (const auto* row = rows_.row(index)) openStory(row->storyID);
}

}  // namespace app
