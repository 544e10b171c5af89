#include "Tarnwick_Brell/Models/Actions/ActionModel.h"

#include <stdexcept>

namespace app {

namespace {

bool isLaterSidebarItem(Action action) {
    return action > DeskAction::SidebarItem1 && action <= DeskAction::SidebarItem9;
}

bool isStep(Action action) {
    return action == DeskAction::NextStory || action == DeskAction::PreviousStory ||
           action == DeskAction::FindNext || action == DeskAction::FindPrevious ||
           action == DeskAction::NextUnread || action == DeskAction::PreviousUnread;
}

}  // namespace

ActionModel::ActionModel(QObject* parent) : QObject(parent) {
    std::vector<ActionGroupRow> groups;
    for (const auto group : kActionGroups) {
        groupRows_.push_back(std::make_unique<GadgetListModel<ActionRow>>());
        groups.push_back({.title = titleOf(group), .actions = groupRows_.back().get()});
    }
    groups_.setRows(std::move(groups));
    connect(this, &ActionModel::contextChanged, this, &ActionModel::refresh);
    refresh();
}

void ActionModel::refresh() {
    std::vector<ActionRow> rows;
    std::vector<std::vector<ActionRow>> byGroup(kActionGroups.size());
    for (const auto& entry : actionTable()) {
        auto row = rowFor(entry);
        rows.push_back(row);
        if (isLaterSidebarItem(entry.action)) continue;
        if (entry.action == DeskAction::SidebarItem1) {
            row.title = tr("Sidebar items 1 to 9");
            row.keyCaps.last() = QStringLiteral("1…9");
            row.spokenKeys = tr("Control and a digit");
        }
        byGroup[static_cast<std::size_t>(entry.group)].push_back(std::move(row));
    }
    rows_.setRows(std::move(rows));
    for (std::size_t i = 0; i < byGroup.size(); ++i) groupRows_[i]->setRows(std::move(byGroup[i]));
}

ActionRow ActionModel::rowFor(const ActionEntry& entry) const {
    ActionRow row{.action = entry.action,
                  .title = titleFor(entry),
                  .symbol = QString::fromLatin1(entry.symbol.data(),
                                                static_cast<qsizetype>(entry.symbol.size())),
                  .groupTitle = titleOf(entry.group),
                  .isEnabled = isEnabled(entry),
                  .repeats = isStep(entry.action)};
    const auto& [first, second] = entry.keys;
    row.keyCaps = app::keyCaps(first);
    row.otherKeyCaps = app::keyCaps(second);
    row.spokenKeys = row.keyCaps.join(u' ');
    if (!second.isEmpty())
        row.spokenKeys = tr("%1 or %2").arg(row.spokenKeys, row.otherKeyCaps.join(u' '));
    for (const auto& key : entry.keys) {
        if (key.isEmpty() || key.isListKey) continue;
        row.shortcuts << QString::fromLatin1(key.text);
        if (worksInText(key)) row.shortcutsInText << QString::fromLatin1(key.text);
    }
    return row;
}

bool ActionModel::isEnabled(const ActionEntry& entry) const {
    switch (entry.need) {
        case ActionNeed::nothing: return true;
        case ActionNeed::story: return hasStory_ || ofPage_.contains(entry.action);
        case ActionNeed::storyList: return isStoryList_;
        case ActionNeed::clusters: return hasClusters_;
        case ActionNeed::refreshing: return isRefreshing_;
        case ActionNeed::arrivals: return hasArrivals_;
        case ActionNeed::newsroom: return hasNewsroom_;
        case ActionNeed::editing: return isEditing_;
        case ActionNeed::undoable: return canUndo_;
        case ActionNeed::page: return ofPage_.contains(entry.action);
        case ActionNeed::live: return isLive_;
        case ActionNeed::redoable: return canRedo_;
    }
    throw std::logic_error("a need of an action that nothing tells of");
}

bool ActionModel::isDone(Action action) const {
    return (action == DeskAction::ToggleSaved && storyIsSaved_) ||
           (action == DeskAction::ToggleRead && storyIsRead_) ||
           (action == DeskAction::EditNewsroom && isEditing_) ||
           (action == DeskAction::ToggleClusters && showsClusters_) ||
           (action == DeskAction::ToggleSetAside && showsSetAside_) ||
           (action == DeskAction::TogglePictures && showsPictures_);
}

/// Undo and redo name the step.
QString ActionModel::titleFor(const ActionEntry& entry) const {
    if (entry.action == DeskAction::Undo && !undoText_.isEmpty())
        return tr("Undo %1").arg(undoText_);
    if (entry.action == DeskAction::Redo && !redoText_.isEmpty())
        return tr("Redo %1").arg(redoText_);
    return titleOf(entry, isDone(entry.action));
}

const ActionRow& ActionModel::row(Action action) const {
    for (const auto& row : list()) {
        if (row.action == action) return row;
    }
    throw std::logic_error("an action without a row");
}

void ActionModel::setOfPage(const QSet<int>& actions) {
    if (ofPage_ == actions) return;
    ofPage_ = actions;
    emit contextChanged();
}

void ActionModel::trigger(app::DeskAction::Value action) {
    if (row(action).isEnabled) emit triggered(action);
}

void ActionModel::triggerStoryRow(int row) {
    if (const auto* wanted = groupRows_.front()->row(row)) trigger(wanted->action);
}

}  // namespace app
