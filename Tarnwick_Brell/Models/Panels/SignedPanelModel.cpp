#include "Tarnwick_Brell/Models/Panels/SignedPanelModel.h"

#include "Tarnwick_Brell/Models/Panels/ChangeText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

/// The rows of one model; the first carries its name as the heading.
std::vector<ChangeRow> rowsOf(const kit::SigningContent::Device& device, kit::Instant now) {
    std::vector<ChangeRow> rows;
    for (const auto& build : device.builds) {
        rows.push_back({.title = buildText(build.version, build.build),
                        .when = build.released ? namedDayText(*build.released, now) : QString()});
    }
    if (rows.empty()) {
        rows.push_back({.title = device.isKnown ? SignedPanelModel::tr("Nothing is signed")
                                                : SignedPanelModel::tr("Not known yet")});
    }
    rows[0].heading = titleText(device.name);
    if (device.error) {
        const auto error = titleText(*device.error);
        rows[0].detail = device.fetchedAt ? SignedPanelModel::tr("As of %1. %2")
                                                .arg(momentText(*device.fetchedAt, now), error)
                                          : error;
    }
    for (auto& row : rows) {
        row.spokenText =
            SignedPanelModel::tr("%1: %2 %3").arg(rows[0].heading, row.title, row.detail).trimmed();
    }
    return rows;
}

}  // namespace

SignedPanelModel::SignedPanelModel(const PanelStores& stores) : ChangesPanelModel(stores) {
    connect(&trackers(), &TrackerStore::signingChanged, this, &SignedPanelModel::update);
    update();
}

void SignedPanelModel::update() {
    const auto content = kit::signingContent(signingOf(trackers()));
    std::vector<ChangeRow> rows;
    for (const auto& device : content.devices) {
        for (auto& row : rowsOf(device, now())) rows.push_back(std::move(row));
    }
    rows_.setRows(std::move(rows));
    setCondition(conditionOf(content.condition));
}

}  // namespace app
