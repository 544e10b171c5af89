#include "Tarnwick_Brell/Models/Panels/PanelModel.h"

#include <utility>

#include "Tarnwick_Brell/Models/Rows/ViewFile.h"
#include "Tarnwick_Brell/Models/Stories/StoryCitation.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

PanelModel::State stateOf(kit::PanelState state) {
    switch (state) {
        case kit::PanelState::loading: return PanelModel::Loading;
        case kit::PanelState::empty: return PanelModel::Empty;
        case kit::PanelState::ready: return PanelModel::Ready;
        case kit::PanelState::stale: return PanelModel::Stale;
        case kit::PanelState::failed: return PanelModel::Failed;
    }
    return PanelModel::Loading;
}

}  // namespace

PanelModel::PanelModel(const PanelStores& stores, const kit::PanelSpec& panel)
    : stores_(stores), isList_(kindRow(panel.kind).isList) {}

PanelModel::PanelModel(const PanelStores& stores) : stores_(stores) {}

QVariantMap PanelModel::dragData(const QString& storyID) const {
    const auto* packed = news().stories().find(storyID.toStdString());
    return packed ? dragDataOf(packed->unpacked().story) : QVariantMap();
}

QString PanelModel::file() const { return viewFile(*this); }

void PanelModel::setCondition(Condition condition) {
    state_ = condition.state;
    fact_ = std::move(condition.fact);
    message_ = std::move(condition.message);
    hint_ = std::move(condition.hint);
    emit changed();
}

PanelModel::Condition PanelModel::conditionOf(const kit::PanelCondition& condition,
                                              const QString& nothing) const {
    Condition worded{.state = stateOf(condition.state)};
    if (worded.state == Empty) worded.message = nothing;
    if (condition.error) worded.message = bodyText(*condition.error);
    if (!condition.fetchedAt || worded.state == Loading || worded.state == Failed) return worded;
    const auto moment = momentText(*condition.fetchedAt, now());
    worded.fact = moment;
    if (worded.state == Stale) {
        worded.hint = tr("Last good data %1, %2").arg(moment, agoText(*condition.fetchedAt, now()));
    }
    return worded;
}

PanelModel::Condition PanelModel::conditionOf(bool hasValue, std::optional<kit::Instant> fetchedAt,
                                              const std::optional<std::string>& error) const {
    return conditionOf(kit::PanelCondition::of(hasValue, hasValue, fetchedAt, error));
}

}  // namespace app
