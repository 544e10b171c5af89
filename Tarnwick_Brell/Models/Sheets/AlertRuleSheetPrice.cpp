#include "Tarnwick_Brell/Models/Sheets/AlertRuleSheetModel.h"

#include <optional>

#include <QLocale>
#include <QPointer>

#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Trackers/TrackerStore.h"

// What the sheet of a rule has on prices.
namespace app {

namespace {

using Condition = kit::PriceCondition;

std::optional<double> positiveNumber(const QString& text) {
    bool isNumber = false;
    auto number = QLocale().toDouble(text, &isNumber);
    if (!isNumber) number = QLocale::c().toDouble(text, &isNumber);
    return isNumber && number > 0 ? std::optional(number) : std::nullopt;
}

bool needsPrice(Condition::Kind kind) {
    return kind == Condition::Kind::above || kind == Condition::Kind::below;
}

bool needsPercent(Condition::Kind kind) {
    return kind == Condition::Kind::dayMove || kind == Condition::Kind::move ||
           kind == Condition::Kind::gap;
}

}  // namespace

QString AlertRuleSheetModel::symbol() const {
    const auto* price = std::get_if<kit::PriceTrigger>(&rule_.trigger);
    return price ? plainText(price->symbol) : QString();
}

void AlertRuleSheetModel::setSymbol(const QString& symbol) {
    auto* price = std::get_if<kit::PriceTrigger>(&rule_.trigger);
    if (!price || symbol == this->symbol()) return;
    price->symbol = symbol.trimmed().toUpper().toStdString();
    symbolProblem_.clear();
    checkSymbol();
    update();
}

/// A symbol that the service does not know would never have a price. Without an answer the rule can
/// be saved all the same.
void AlertRuleSheetModel::checkSymbol() {
    const auto* price = std::get_if<kit::PriceTrigger>(&rule_.trigger);
    if (!price || price->symbol.empty()) return;
    const QPointer<AlertRuleSheetModel> self(this);
    stores_.trackers.checkSymbol(price->symbol,
                                 [self, symbol = symbol()](const SymbolAnswer& answer) {
                                     if (!self || self->symbol() != symbol) return;
                                     if (answer.kind == SymbolAnswer::Kind::unknown)
                                         self->symbolProblem_ = titleText(answer.error);
                                     self->update();
                                 });
}

QStringList AlertRuleSheetModel::conditions() const {
    QStringList labels;
    for (const auto& row : kit::enumTable<Condition::Kind>) labels << labelText(row.label);
    return labels;
}

int AlertRuleSheetModel::condition() const {
    const auto* price = std::get_if<kit::PriceTrigger>(&rule_.trigger);
    return price ? static_cast<int>(price->condition.kind) : 0;
}

void AlertRuleSheetModel::setCondition(int condition) {
    auto* price = std::get_if<kit::PriceTrigger>(&rule_.trigger);
    if (!price || condition < 0 || condition >= std::ssize(kit::enumTable<Condition::Kind>)) return;
    price->condition.kind = static_cast<Condition::Kind>(condition);
    readFigures();
    update();
}

QString AlertRuleSheetModel::figureLabel() const {
    const auto* price = std::get_if<kit::PriceTrigger>(&rule_.trigger);
    if (!price) return {};
    if (needsPrice(price->condition.kind)) return tr("Price");
    return needsPercent(price->condition.kind) ? tr("Per cent") : QString();
}

bool AlertRuleSheetModel::isWithin() const {
    const auto* price = std::get_if<kit::PriceTrigger>(&rule_.trigger);
    return price && price->condition.kind == Condition::Kind::move;
}

/// The numbers as typed, as far as the condition needs them.
void AlertRuleSheetModel::readFigures() {
    auto* price = std::get_if<kit::PriceTrigger>(&rule_.trigger);
    if (!price) return;
    auto& condition = price->condition;
    const auto number = positiveNumber(figure_);
    condition.price = needsPrice(condition.kind) ? number : std::nullopt;
    condition.percent = needsPercent(condition.kind) ? number : std::nullopt;
    condition.minutes.reset();
    if (const auto minutes = within_.toLongLong(); isWithin() && minutes > 0)
        condition.minutes = minutes;
}

void AlertRuleSheetModel::setFigure(const QString& figure) {
    if (figure == figure_) return;
    figure_ = figure;
    readFigures();
    update();
}

void AlertRuleSheetModel::setWithin(const QString& minutes) {
    if (minutes == within_) return;
    within_ = minutes;
    readFigures();
    update();
}

}  // namespace app
