#include "Tarnwick_Brell/Models/Panels/PanelModel.h"

#include <utility>

#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

PanelModel::PanelModel(const PanelStores& stores, const kit::PanelSpec& panel)
    : stores_(stores), isList_(kindRow(panel.kind).isList) {}

PanelModel::PanelModel(const PanelStores& stores) : stores_(stores) {}

QString PanelModel::file() const {
    const auto type =
        QString::fromLatin1(metaObject()->className()).section(QStringLiteral("::"), -1);
    return type.chopped(QLatin1String("Model").size()) + QStringLiteral(".qml");
}

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
