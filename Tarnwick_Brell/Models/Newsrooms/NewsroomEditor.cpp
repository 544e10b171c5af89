#include "Tarnwick_Brell/Models/Newsrooms/NewsroomEditor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "NewsroomKit/Newsrooms/DraggedPanel.h"
#include "NewsroomKit/Newsrooms/PanelEditing.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

NewsroomEditor::NewsroomEditor(const DeskStores& stores, NewsroomModel& shown, QObject* parent)
    : QObject(parent),
      newsrooms_(stores.newsrooms),
      shown_(shown),
      steps_(stores.newsrooms, stores.undo),
      picker_({.news = stores.news,
               .trackers = stores.trackers,
               .kept = stores.kept,
               .clock = stores.clock}) {
    connect(&picker_, &PanelPickerModel::addWanted, this, &NewsroomEditor::add);
    connect(&picker_, &PanelPickerModel::liftWanted, this, &NewsroomEditor::beginInsert);
}

void NewsroomEditor::setNewsroom(const std::string& id) {
    // A layout that has changed under the pointer is no start of a drag.
    cancelDrag();
    if (std::exchange(id_, id) != id || !spec()) end();
    if (selected_ && !selectedIndex()) selected_.reset();
    if (isEditing() && !selected_) select(0);
    updatePicker();
    emit changed();
    emit selectedChanged();
}

void NewsroomEditor::updatePicker() { picker_.setNewsroom(isPicking_ ? spec() : nullptr); }

const kit::NewsroomSpec* NewsroomEditor::spec() const {
    const auto* entry = newsrooms_.newsrooms().find(id_);
    return entry && entry->value ? &*entry->value : nullptr;
}

kit::Placement NewsroomEditor::layout() const {
    return kit::PanelPlacement::tidied(kit::PanelPlacement::of(spec()->panels));
}

QString NewsroomEditor::titleAt(std::size_t panel) const {
    return titleText(spec()->panels[panel].title);
}

void NewsroomEditor::begin() {
    if (isEditing() || !canEdit()) return;
    before_ = *spec();
    const auto order = kit::readingOrder(layout());
    if (!order.empty()) selected_ = spec()->panels[order.front()].id;
    isPicking_ = spec()->panels.empty();
    updatePicker();
    emit changed();
    emit selectedChanged();
}

void NewsroomEditor::end() {
    if (!isEditing()) return;
    cancelDrag();
    before_.reset();
    selected_.reset();
    isPicking_ = false;
    updatePicker();
    emit changed();
    emit selectedChanged();
}

void NewsroomEditor::leave() {
    if (isDragging()) {
        cancelDrag();
    } else if (isPicking_) {
        setPicking(false);
    } else {
        end();
    }
}

void NewsroomEditor::giveBack() {
    cancelDrag();
    if (canGiveBack())
        steps_.change(*before_, tr("Give back the changes of %1").arg(titleText(before_->name)));
}

void NewsroomEditor::setPicking(bool picking) {
    if (picking == isPicking_ || (picking && !isEditing())) return;
    isPicking_ = picking;
    updatePicker();
    emit changed();
}

std::optional<std::size_t> NewsroomEditor::selectedIndex() const {
    if (!selected_ || !spec()) return std::nullopt;
    const auto& panels = spec()->panels;
    const auto found = std::find_if(panels.begin(), panels.end(),
                                    [&](const auto& panel) { return panel.id == *selected_; });
    if (found == panels.end()) return std::nullopt;
    return static_cast<std::size_t>(found - panels.begin());
}

int NewsroomEditor::selected() const {
    const auto index = selectedIndex();
    return index ? static_cast<int>(*index) : -1;
}

void NewsroomEditor::select(int panel) {
    if (!isEditing() || !spec() || panel < 0 || panel >= std::ssize(spec()->panels)) return;
    selected_ = spec()->panels[static_cast<std::size_t>(panel)].id;
    emit selectedChanged();
}

void NewsroomEditor::selectNext(bool backwards) {
    if (!isEditing() || spec()->panels.empty()) return;
    const auto order = kit::readingOrder(layout());
    const auto count = order.size();
    const auto here = std::find(order.begin(), order.end(), selectedIndex().value_or(0));
    const auto place = static_cast<std::size_t>(here - order.begin());
    select(static_cast<int>(order[(place + (backwards ? count - 1 : 1)) % count]));
}

void NewsroomEditor::apply(const std::function<kit::NewsroomSpec(const kit::NewsroomSpec&)>& edit,
                           const QString& text) {
    try {
        steps_.change(edit(*spec()), text);
    } catch (const kit::RecordError& error) {
        emit noticed(tr("The newsroom can't be changed so: %1.").arg(bodyText(error.what())));
    }
}

void NewsroomEditor::applyLayout(const kit::Placement& layout, const QString& text) {
    apply([&](const auto& spec) { return kit::PanelEditing::placed(spec, layout); }, text);
}

void NewsroomEditor::nudge(Direction direction) {
    using Way = kit::PanelPlacement::Direction;
    const auto panel = selectedIndex();
    if (!panel || isDragging()) return;
    constexpr std::array kWays{Way::left, Way::right, Way::up, Way::down};
    applyLayout(kit::PanelPlacement::nudged(layout(), *panel, kWays[direction]),
                tr("Move panel %1").arg(titleAt(*panel)));
}

void NewsroomEditor::resizeBy(Direction direction) {
    const auto panel = selectedIndex();
    if (!panel || isDragging()) return;
    auto wanted = layout()[*panel].frame;
    wanted.width += direction == Right ? 1 : direction == Left ? -1 : 0;
    wanted.height += direction == Down ? 1 : direction == Up ? -1 : 0;
    applyLayout(kit::PanelPlacement::resized(layout(), *panel, wanted),
                tr("Resize panel %1").arg(titleAt(*panel)));
}

/// The panel after it in reading order, or the one before the last, becomes the selected one.
void NewsroomEditor::duplicateSelected() {
    const auto panel = selectedIndex();
    if (!panel || isDragging()) return;
    apply([&](const auto& spec) { return kit::PanelEditing::duplicated(spec, *panel); },
          tr("Duplicate panel %1").arg(titleAt(*panel)));
}

void NewsroomEditor::removeSelected() {
    const auto panel = selectedIndex();
    if (!panel || isDragging()) return;
    const auto order = kit::readingOrder(layout());
    const auto here = std::find(order.begin(), order.end(), *panel);
    const auto next = std::next(here) != order.end() ? std::next(here)
                      : here != order.begin()        ? std::prev(here)
                                                     : here;
    selected_ = spec()->panels[*next].id;
    apply([&](const auto& spec) { return kit::PanelEditing::removed(spec, *panel); },
          tr("Remove panel %1").arg(titleAt(*panel)));
}

void NewsroomEditor::openOptions(int panel) {
    if (!spec() || isDragging() || panel < 0 || panel >= std::ssize(spec()->panels)) return;
    const auto& wanted = spec()->panels[static_cast<std::size_t>(panel)];
    emit sheetWanted(
        QStringLiteral("panel:%1/%2").arg(plainText(id_), plainText(wanted.id.text())));
}

void NewsroomEditor::add(kit::PanelKind kind) {
    if (!isEditing() || isDragging()) return;
    applyAdding([kind](const auto& spec) { return kit::PanelEditing::added(spec, kind); }, kind);
}

void NewsroomEditor::applyAdding(
    const std::function<kit::NewsroomSpec(const kit::NewsroomSpec&)>& edit, kit::PanelKind kind) {
    const auto before = spec()->panels.size();
    apply(edit, tr("Add panel %1").arg(labelText(label(kind))));
    if (spec()->panels.size() > before) select(static_cast<int>(before));
}

void NewsroomEditor::beginDrag(int panel, int edges) {
    select(panel);
    if (!isEditing() || isDragging() || selected() != panel) return;
    drag_ = Drag{.start = layout(), .panel = static_cast<std::size_t>(panel), .edges = edges};
    drag_->layout = drag_->start;
    emit dragChanged();
}

void NewsroomEditor::beginInsert(kit::PanelKind kind) {
    if (!isEditing() || isDragging()) return;
    drag_ = Drag{.start = layout(), .panel = spec()->panels.size(), .isNew = true};
    const auto& usual = kindRow(kind).usual;
    drag_->start.push_back({.kind = kind, .frame = {.width = usual.width, .height = usual.height}});
    drag_->layout = drag_->start;
    emit dragChanged();
}

void NewsroomEditor::drag(double columns, double rows) {
    if (!drag_) return;
    const auto right = std::llround(columns);
    const auto down = std::llround(rows);
    auto wanted = drag_->start[drag_->panel].frame;
    if (drag_->isNew) {
        auto others = drag_->start;
        others.pop_back();
        wanted.column = right;
        wanted.row = std::max(0LL, down);
        drag_->layout = kit::PanelPlacement::inserted(others, {drag_->start.back().kind, wanted});
    } else if (drag_->edges == NoEdge) {
        drag_->layout = kit::PanelPlacement::moved(drag_->start, drag_->panel,
                                                   wanted.column + right, wanted.row + down);
    } else {
        const auto isMoved = [&](Edge edge) { return (drag_->edges & edge) != 0; };
        if (isMoved(RightEdge)) wanted.width += right;
        if (isMoved(BottomEdge)) wanted.height += down;
        if (isMoved(LeftEdge)) {
            wanted.column += right;
            wanted.width -= right;
        }
        if (isMoved(TopEdge)) {
            wanted.row += down;
            wanted.height -= down;
        }
        drag_->layout = kit::PanelPlacement::resized(drag_->start, drag_->panel, wanted);
    }
    shown_.preview(drag_->layout, drag_->panel);
    emit dragChanged();
}

void NewsroomEditor::drop() {
    if (!drag_) return;
    const auto drag = *std::exchange(drag_, std::nullopt);
    emit dragChanged();
    if (drag.isNew) {
        const auto& added = drag.layout.back();
        shown_.endPreview();
        applyAdding([&](const auto& spec) { return kit::PanelEditing::inserted(spec, added); },
                    added.kind);
    } else if (drag.layout == drag.start) {
        shown_.endPreview();
    } else {
        const auto text = drag.edges == NoEdge ? tr("Move panel %1") : tr("Resize panel %1");
        applyLayout(drag.layout, text.arg(titleAt(drag.panel)));
    }
}

void NewsroomEditor::cancelDrag() {
    if (!drag_) return;
    drag_.reset();
    shown_.endPreview();
    emit dragChanged();
}

int NewsroomEditor::held() const {
    return drag_ && !drag_->isNew ? static_cast<int>(drag_->panel) : -1;
}

QRect NewsroomEditor::target() const {
    if (!drag_) return {};
    const auto& frame = drag_->layout[drag_->panel].frame;
    return {static_cast<int>(frame.column), static_cast<int>(frame.row),
            static_cast<int>(frame.width), static_cast<int>(frame.height)};
}

QString NewsroomEditor::dragText() const {
    return drag_ ? NewsroomModel::placeText(drag_->layout[drag_->panel].frame) : QString();
}

}  // namespace app
