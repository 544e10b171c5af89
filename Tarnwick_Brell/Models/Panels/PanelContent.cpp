#include "Tarnwick_Brell/Models/Panels/PanelContent.h"

#include <utility>

#include "Tarnwick_Brell/Text/ShownText.h"
#include "Tarnwick_Brell/Text/TimeText.h"

namespace desk {

static_assert(PanelContent::kLastOfNewsrooms ==
              static_cast<int>(newsroom::PanelKind::releases));

PanelContent::PanelContent(const PanelStores& stores, const newsroom::PanelSpec& panel)
    : PanelContent(stores, static_cast<Kind>(panel.kind)) {}

PanelContent::PanelContent(const PanelStores& stores, Kind kind) : stores_(stores), kind_(kind) {}

void PanelContent::become(Condition condition) {
    state_ = condition.state;
    fact_ = std::move(condition.fact);
    message_ = std::move(condition.message);
    hint_ = std::move(condition.hint);
    emit changed();
}

PanelContent::Condition PanelContent::conditionOf(bool hasValue,
                                                  std::optional<newsroom::Instant> fetchedAt,
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

}  // namespace desk
