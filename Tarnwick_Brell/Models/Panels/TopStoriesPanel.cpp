#include "Tarnwick_Brell/Models/Panels/TopStoriesPanel.h"

#include "Tarnwick_Brell/Desk/Backroom.h"
#include "Tarnwick_Brell/Models/Panels/MentionText.h"
#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Text/ShownText.h"

namespace desk {

TopStoriesPanel::TopStoriesPanel(const PanelStores& stores, const newsroom::PanelSpec& panel,
                                 const newsroom::StoryQuery& query)
    : GatheredPanel(stores, panel, query) {
    // Covered of late, but told first perhaps before that.
    gather(
        Backroom::kClustered,
        [](const auto& gathered) { return newsroom::topStories(gathered.news); },
        [this](const auto& stories, const auto& extent) { show(stories, extent); });
}

void TopStoriesPanel::show(const std::vector<newsroom::TopStory>& stories, const Extent& extent) {
    std::vector<TopStoryRow> rows;
    for (const auto& story : stories) {
        TopStoryRow row{.storyID = plainText(story.first.storyID),
                        .outletCount = QString::number(story.outlets.size()),
                        .title = titleText(story.first.title, kTitleCharacters),
                        .isRead = story.unread == 0,
                        .sourcing = StorySourcing::of(story.sourcing),
                        .sourcingLabel = sourcingText(story.sourcing),
                        .outlet = titleText(story.outlets.front().outlet),
                        .lead = leadText(story.outlets[0], story.outlets[1])};
        row.spokenText =
            spokenRow({row.isRead ? QString() : tr("Unread"), row.title,
                       tr("%n outlets", nullptr, static_cast<int>(story.outlets.size())),
                       row.sourcingLabel, row.outlet + u' ' + row.lead});
        rows.push_back(std::move(row));
    }
    rows_.setRows(std::move(rows));
    becomeReady(rows_.rowCount(), spanFact(newsroom::kTopStoriesSpan, extent),
                tr("No news that several outlets cover."), extent);
}

void TopStoriesPanel::open(int index) {
    if (const auto* row = rows_.row(index)) openStory(row->storyID);
}

}  // namespace desk
