#include "Tarnwick_Brell/Models/Panels/SignedPanelModel.h"

#include "Tarnwick_Brell/Models/Panels/SignalText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

SignedPanelModel::SignedPanelModel(const PanelStores& stores) : SignalsPanelModel(stores) {
    connect(&signalsStore(), &SignalsStore::changed, this, &SignedPanelModel::look);
    look();
}

void SignedPanelModel::look() {
    std::vector<SignalRow> rows;
    for (const auto& device : signalsStore().devices()) add(device, rows);
    rows_.setRows(std::move(rows));
    become(conditionOf(signingOfAll(signalsStore())));
}

void SignedPanelModel::add(const std::string& device, std::vector<SignalRow>& rows) const {
    const auto& [status, fetchedAt, error] = signalsStore().signing(device);
    const auto first = rows.size();
    if (status) {
        for (const auto& build : status->builds) {
            if (!build.isSigned) continue;
            rows.push_back(
                {.title = buildText(build.version, build.build),
                 .when = build.released ? appleDayText(*build.released, now()) : QString()});
        }
    }
    if (rows.size() == first) {
        rows.push_back({.title = status ? tr("Nothing is signed") : tr("Not known yet")});
    }
    auto& top = rows[first];
    top.heading = titleText(status ? status->name : device);
    if (error) {
        top.detail = fetchedAt
                         ? tr("As of %1. %2").arg(momentText(*fetchedAt, now()), titleText(*error))
                         : titleText(*error);
    }
    for (auto row = first; row < rows.size(); ++row) {
        rows[row].spokenText =
            tr("%1: %2 %3").arg(top.heading, rows[row].title, rows[row].detail).trimmed();
    }
}

}  // namespace app
