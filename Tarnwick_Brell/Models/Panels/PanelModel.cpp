#include "Tarnwick_Brell/Models/Panels/PanelModel.h"

#include <utility>

#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

static_assert(PanelModel::kLastOfNewsrooms == static_cast<int>(kit::PanelKind::releases));

PanelModel::PanelModel(const PanelStores& stores, const kit::PanelSpec& panel)
    : PanelModel(stores, static_cast<Kind>(panel.kind)) {}

PanelModel::PanelModel(const PanelStores& stores, Kind kind) : stores_(stores), kind_(kind) {}

void PanelModel::become(Condition condition) {
    state_ = condition.state;
    fact_ = std::move(condition.fact);
    message_ = std::move(condition.message);
    hint_ = std::move(condition.hint);
    emit changed();
}

PanelModel::Condition PanelModel::conditionOf(bool hasValue, std::optional<kit::Instant> fetchedAt,
                                              const std::optional<std::string>& error) const {
    Condition condition;
    if (error) condition.message = bodyText(*error);
    if (!hasValue) {
        condition.state = error ? Failed : Loading;
        return condition;
    }
    condition.state = error ? Stale : Ready;
    if (!fetchedAt) return condition;
    condition.fact = momentText(*fetchedAt, now());
    if (error) {
        condition.hint = tr("Last good data %1, %2")
                             .arg(momentText(*fetchedAt, now()), agoText(*fetchedAt, now()));
    }
    return condition;
}

}  // namespace app
