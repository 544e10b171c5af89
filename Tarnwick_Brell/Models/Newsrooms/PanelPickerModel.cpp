#include "Tarnwick_Brell/Models/Newsrooms/PanelPickerModel.h"

#include <algorithm>
#include <utility>

#include "NewsroomKit/Newsrooms/PanelSettings.h"
#include "Tarnwick_Brell/Models/Panels/PanelFactory.h"
#include "Tarnwick_Brell/Models/Rows/EndLater.h"
#include "Tarnwick_Brell/Presentation/EmptyText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

PanelPickerModel::PanelPickerModel(const PanelStores& stores, QObject* parent)
    : QObject(parent), stores_(stores) {}

PanelPickerModel::~PanelPickerModel() = default;

void PanelPickerModel::setNewsroom(const kit::NewsroomSpec* spec) {
    isOpen_ = spec != nullptr;
    if (!spec) return showPreview();
    std::vector<PanelKindChoice> choices;
    for (const auto kind : kit::offeredPanelKinds()) {
        const auto& row = kindRow(kind);
        choices.push_back(
            {.kind = kind,
             .title = labelText(row.label),
             .description = labelText(row.description, 120),
             .symbol = plainText(row.symbol),
             .reason = kit::isCollected(kind) ? QString() : noRowText(kind),
             .isAdded = std::any_of(spec->panels.begin(), spec->panels.end(),
                                    [kind](auto& each) { return each.kind == kind; })});
    }
    rows_.setRows(std::move(choices));
    const bool isOther = focus_ != spec->focus;
    focus_ = spec->focus;
    if (isOther || !preview_) showPreview();
}

void PanelPickerModel::setCurrent(int row) {
    if (row == current_ || !rows_.row(row)) return;
    current_ = row;
    showPreview();
}

/// The view lets go of the old preview when it hears of the new one; it ends after that.
void PanelPickerModel::showPreview() {
    auto old = std::move(preview_);
    const auto* choice = rows_.row(current_);
    if (isOpen_ && choice && choice->reason.isEmpty())
        preview_ = makePanelModel(stores_, {.kind = choice->kind}, focus_);
    emit currentChanged();
    endLater(std::move(old), *this);
}

void PanelPickerModel::add(int row) {
    setCurrent(row);
    if (const auto* choice = rows_.row(row)) emit addWanted(choice->kind);
}

void PanelPickerModel::lift(int row) {
    setCurrent(row);
    if (const auto* choice = rows_.row(row)) emit liftWanted(choice->kind);
}

}  // namespace app
