#include "Tarnwick_Brell/Models/Panels/BackendPanelModel.h"

#include <algorithm>
#include <set>

#include "Tarnwick_Brell/Models/Panels/SignalText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

// What is newest must stay in sight below them.
constexpr std::size_t kMostChanges = 30;

QString titleOf(const kit::UpdateOffer& offer) {
    return buildText(offer.platform + " " + offer.version, offer.build);
}

}  // namespace

BackendPanelModel::BackendPanelModel(const PanelStores& stores, const kit::PanelSpec& panel)
    : SignalsPanelModel(stores, panel) {
    connect(&signalsStore(), &SignalsStore::changed, this, &BackendPanelModel::look);
    look();
}

void BackendPanelModel::look() {
    std::vector<SignalRow> rows;
    addChanges(rows);
    addOffers(rows);
    const auto& reading = signalsStore().updates();
    auto condition = conditionOf(reading.value || !rows.empty(), reading.fetchedAt, reading.error);
    if (condition.state == Ready && rows.empty()) {
        condition.state = Empty;
        condition.message = tr("Apple's update catalogue is empty.");
    }
    rows_.setRows(std::move(rows));
    become(std::move(condition));
}

void BackendPanelModel::addChanges(std::vector<SignalRow>& rows) const {
    const auto& changes = signalsStore().offerChanges();
    const auto first = rows.size();
    for (std::size_t i = 0; i < std::min(changes.size(), kMostChanges); ++i) {
        const auto& change = changes[i];
        SignalRow row{.title = titleOf(change.offer),
                      .detail = change.isOffered ? tr("Now offered") : tr("No longer offered"),
                      .when = ageText(change.seenAt, now())};
        row.spokenText =
            tr("%1, %2, seen %3").arg(row.title, row.detail, agoText(change.seenAt, now()));
        rows.push_back(std::move(row));
    }
    if (rows.size() > first) rows[first].heading = tr("Changes");
}

void BackendPanelModel::addOffers(std::vector<SignalRow>& rows) const {
    const auto& offers = signalsStore().updates().value;
    if (!offers) return;
    const auto first = rows.size();
    std::set<std::string> platforms;
    // They come with the latest first.
    for (const auto& offer : *offers) {
        if (!platforms.insert(offer.platform).second) continue;
        SignalRow row{.title = titleOf(offer),
                      .detail = tr("For %n models", nullptr, static_cast<int>(offer.deviceCount)),
                      .when = appleDayText(offer.posted, now())};
        if (offer.expires) {
            row.detail = tr("%1, until %2").arg(row.detail, appleDayText(*offer.expires, now()));
        }
        row.spokenText = tr("%1, %2, posted on %3").arg(row.title, row.detail, row.when);
        rows.push_back(std::move(row));
    }
    if (rows.size() > first) rows[first].heading = tr("Newest offers");
}

}  // namespace app
