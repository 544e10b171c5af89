#include "Tarnwick_Brell/Models/Panels/ScoopsPanel.h"

#include <algorithm>

#include "Tarnwick_Brell/Desk/Backroom.h"
#include "Tarnwick_Brell/Models/Panels/MentionText.h"
#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Text/ShownText.h"
#include "Tarnwick_Brell/Text/TimeText.h"

namespace desk {

namespace {

/// Only where stories are clustered can be told who was first.
constexpr auto kSpan = std::min<std::chrono::hours>(newsroom::kScoopsSpan, Backroom::kClustered);

}  // namespace

ScoopsPanel::ScoopsPanel(const PanelStores& stores, const newsroom::PanelSpec& panel,
                         const newsroom::StoryQuery& query)
    : GatheredPanel(stores, panel, query) {
    gather(
        kSpan, [](const auto& gathered) { return newsroom::scoops(gathered.news); },
        [this](const auto& scoops, const auto& extent) { show(scoops, extent); });
}

void ScoopsPanel::show(const std::vector<newsroom::Scoop>& scoops, const Extent& extent) {
    std::vector<ScoopRow> rows;
    for (const auto& scoop : scoops) {
        ScoopRow row{.storyID = plainText(scoop.first.storyID),
                     .title = titleText(scoop.first.title, kTitleCharacters),
                     .isRead = scoop.first.isRead,
                     .outlet = titleText(scoop.first.outlet),
                     .lead = leadText(scoop.first, scoop.second),
                     .age = ageText(scoop.first.publishedAt, extent.now)};
        row.spokenText = spokenRow({row.isRead ? QString() : tr("Unread"), row.title,
                                    row.outlet + u' ' + row.lead, row.age});
        rows.push_back(std::move(row));
    }
    rows_.setRows(std::move(rows));
    becomeReady(rows_.rowCount(), spanFact(kSpan, extent),
                tr("No news that one outlet had before others."), extent);
}

void ScoopsPanel::open(int index) {
    if (const auto* row = rows_.row(index)) openStory(row->storyID);
}

}  // namespace desk
