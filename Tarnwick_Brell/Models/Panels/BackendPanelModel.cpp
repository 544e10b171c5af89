#include "Tarnwick_Brell/Models/Panels/BackendPanelModel.h"

#include "NewsroomKit/Panels/BackendContent.h"
#include "Tarnwick_Brell/Models/Panels/ChangeText.h"
#include "Tarnwick_Brell/Presentation/EmptyText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

QString titleOf(const kit::UpdateOffer& offer) {
    return buildText(offer.platform + " " + offer.version, offer.build);
}

ChangeRow rowOf(const kit::OfferChange& change, kit::Instant now) {
    ChangeRow row{.title = titleOf(change.offer),
                  .detail = change.isOffered ? BackendPanelModel::tr("Now offered")
                                             : BackendPanelModel::tr("No longer offered"),
                  .when = ageText(change.seenAt, now)};
    row.spokenText = BackendPanelModel::tr("%1, %2, seen %3")
                         .arg(row.title, row.detail, agoText(change.seenAt, now));
    return row;
}

ChangeRow rowOf(const kit::Signal& finding, kit::Instant now) {
    ChangeRow row{.title = titleText(finding.title, kTitleCharacters),
                  .detail = titleText(finding.detail),
                  .when = ageText(finding.seenAt, now)};
    row.spokenText = BackendPanelModel::tr("%1, %2, seen %3")
                         .arg(row.title, row.detail, agoText(finding.seenAt, now));
    return row;
}

ChangeRow rowOf(const kit::UpdateOffer& offer, kit::Instant now) {
    ChangeRow row{.title = titleOf(offer),
                  .detail = BackendPanelModel::tr("For %n models", nullptr,
                                                  static_cast<int>(offer.deviceCount)),
                  .when = namedDayText(offer.posted, now)};
    if (offer.expires) {
        row.detail = BackendPanelModel::tr("%1, until %2")
                         .arg(row.detail, namedDayText(*offer.expires, now));
    }
    row.spokenText =
        BackendPanelModel::tr("%1, %2, posted on %3").arg(row.title, row.detail, row.when);
    return row;
}

template <class Part>
void add(std::vector<ChangeRow>& rows, const QString& heading, const std::vector<Part>& parts,
         kit::Instant now) {
    for (const auto& part : parts) {
        rows.push_back(rowOf(part, now));
        if (&part == &parts.front()) rows.back().heading = heading;
    }
}

}  // namespace

BackendPanelModel::BackendPanelModel(const PanelStores& stores, const kit::PanelSpec& panel)
    : ChangesPanelModel(stores, panel) {
    connect(&trackers(), &TrackerStore::updatesChanged, this, &BackendPanelModel::update);
    connect(&trackers(), &TrackerStore::logChanged, this, &BackendPanelModel::update);
    update();
}

void BackendPanelModel::update() {
    const auto content = kit::backendContent(trackers().updates(), trackers().offerChanges(),
                                             trackers().log().findings);
    std::vector<ChangeRow> rows;
    add(rows, tr("Findings"), content.findings, now());
    add(rows, tr("Changes"), content.changes, now());
    add(rows, tr("Newest offers"), content.newest, now());
    rows_.setRows(std::move(rows));
    setCondition(conditionOf(content.condition, noRowText(kit::PanelKind::backend)));
}

}  // namespace app
