#include "Tarnwick_Brell/Models/Panels/PageWatchPanelModel.h"

#include <utility>

#include "NewsroomKit/Panels/PagesContent.h"
#include "Tarnwick_Brell/Presentation/EmptyText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

QString pageDetail(const kit::PageRow& page) {
    switch (page.state) {
        case kit::PageRow::State::failing: return titleText(page.problem);
        case kit::PageRow::State::checking:
            return PageWatchPanelModel::tr("Differs; the next look decides");
        case kit::PageRow::State::changed: return titleText(page.sentence, kTitleCharacters);
        case kit::PageRow::State::same: return PageWatchPanelModel::tr("Unchanged so far");
        case kit::PageRow::State::waiting: break;
    }
    return PageWatchPanelModel::tr("Not looked at yet");
}

ChangeRow watchedPageRow(const kit::PageRow& page, kit::Instant now) {
    ChangeRow row{.title = titleText(page.name, kTitleCharacters),
                  .detail = pageDetail(page),
                  .when = page.changedAt ? ageText(*page.changedAt, now) : QString()};
    row.spokenText = PageWatchPanelModel::tr("%1, %2").arg(row.title, row.detail);
    if (page.changedAt) {
        row.spokenText = PageWatchPanelModel::tr("%1, changed %2")
                             .arg(row.spokenText, agoText(*page.changedAt, now));
    }
    return row;
}

}  // namespace

PageWatchPanelModel::PageWatchPanelModel(const PanelStores& stores, const kit::PanelSpec& panel)
    : ChangesPanelModel(stores, panel), addresses_(panel.options.pages) {
    connect(&trackers(), &TrackerStore::pagesChanged, this, &PageWatchPanelModel::update);
    // The library has been read, and may hold no page.
    connect(&trackers(), &TrackerStore::refreshChanged, this, &PageWatchPanelModel::update);
    update();
}

void PageWatchPanelModel::update() {
    std::vector<ChangeRow> rows;
    for (const auto& page : kit::pageRows(trackers().pages(), addresses_, now()))
        rows.push_back(watchedPageRow(page, now()));
    const auto condition =
        kit::PanelCondition::of(trackers().isLoaded(), !rows.empty(), std::nullopt, std::nullopt);
    rows_.setRows(std::move(rows));
    setCondition(conditionOf(condition, noRowText(kit::PanelKind::pageWatch)));
}

}  // namespace app
