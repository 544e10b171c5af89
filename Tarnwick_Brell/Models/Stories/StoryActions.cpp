#include "Tarnwick_Brell/Models/Stories/StoryActions.h"

#include <utility>

#include <QClipboard>
#include <QGuiApplication>

namespace app {

namespace {

using IDs = std::vector<std::string>;

/// The step of a change that gave these stories the read mark, or took it away. `desk` outlives
/// the steps.
UndoStack::Step readStep(NewsDesk& desk, IDs ids, bool read) {
    return {.undo = [&desk, ids, read] { desk.setRead(ids, !read); },
            .redo = [&desk, ids, read] { desk.setRead(ids, read, Undoable::yes); }};
}

UndoStack::Step savedStep(NewsDesk& desk, IDs ids, bool saved) {
    return {.undo = [&desk, ids, saved] { desk.setSaved(ids, !saved); },
            .redo = [&desk, ids, saved] { desk.setSaved(ids, saved); }};
}

}  // namespace

StoryActions::StoryActions(NewsDesk& desk, UndoStack& undo, StoryListModel& list,
                           SelectedStory& selected, QObject* parent)
    : QObject(parent),
      desk_(desk),
      undo_(undo),
      list_(list),
      selected_(selected),
      reader_(*selected.reader()) {
    // The story in the reader would be marked as read again.
    connect(&undo_, &UndoStack::undone, &selected_, &SelectedStory::stopReading);
}

void StoryActions::openInBrowser() {
    if (!reader_.hasStory()) return;
    const auto link = reader_.link();
    if (link.isEmpty()) {
        emit noticed(tr("This story has no address that a browser can open."));
        return;
    }
    selected_.markRead();
    emit linkWanted(link);
}

void StoryActions::toggleSaved() {
    if (!reader_.hasStory()) return;
    const bool before = reader_.isSaved();
    desk_.setSaved({selected_.id()}, !before);
    auto step = savedStep(desk_, {selected_.id()}, !before);
    step.text = before ? tr("Remove story from saved") : tr("Save story");
    step.notice = before ? tr("No longer saved.") : tr("Saved.");
    undo_.push(std::move(step));
}

void StoryActions::toggleRead() {
    if (!reader_.hasStory()) return;
    selected_.stopReading();
    const bool before = reader_.isRead();
    desk_.setRead({selected_.id()}, !before, Undoable::yes);
    auto step = readStep(desk_, {selected_.id()}, !before);
    step.text = before ? tr("Mark story as unread") : tr("Mark story as read");
    step.notice = before ? tr("Marked as unread.") : tr("Marked as read.");
    undo_.push(std::move(step));
}

void StoryActions::copyLink() {
    if (!reader_.hasStory()) return;
    if (reader_.link().isEmpty()) {
        emit noticed(tr("This story has no address to copy."));
        return;
    }
    QGuiApplication::clipboard()->setText(reader_.shownLink());
    emit noticed(tr("Link copied."));
}

void StoryActions::copyCitation() {
    if (!reader_.hasStory()) return;
    QGuiApplication::clipboard()->setText(reader_.citation());
    emit noticed(tr("Citation copied."));
}

void StoryActions::traceStory() {
    if (!reader_.hasStory()) return;
    // The archive gets the link as it is shown: without secrets.
    const auto link = reader_.shownLink();
    if (link.isEmpty()) {
        emit noticed(tr("This story has no address to trace."));
        return;
    }
    reader_.trace()->ask(link);
}

IDs StoryActions::unreadIDs() const {
    IDs ids;
    const auto& wire = desk_.stories();
    for (const auto number : list_.numbers()) {
        const auto place = wire.placeOf(number);
        if (place && !wire[*place].isRead()) ids.emplace_back(wire[*place].id());
    }
    return ids;
}

void StoryActions::markAllRead() {
    auto ids = unreadIDs();
    if (desk_.markAllRead(list_.numbers()) == 0) {
        emit noticed(tr("You have read every story in this list."));
        return;
    }
    const auto count = static_cast<int>(ids.size());
    auto step = readStep(desk_, std::move(ids), true);
    step.text = tr("Mark %n stories as read", nullptr, count);
    step.notice = tr("%n stories marked as read.", nullptr, count);
    undo_.push(std::move(step));
}

}  // namespace app
