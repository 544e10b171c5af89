#include "Tarnwick_Brell/Models/Stories/StoryActions.h"

#include <QClipboard>
#include <QGuiApplication>

namespace app {

StoryActions::StoryActions(NewsDesk& desk, StoryListModel& list, SelectedStory& selected,
                           QObject* parent)
    : QObject(parent), desk_(desk), list_(list), selected_(selected), reader_(*selected.reader()) {}

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
    emit marked(before ? tr("No longer saved.") : tr("Saved."));
}

void StoryActions::toggleRead() {
    if (!reader_.hasStory()) return;
    selected_.stopReading();
    const bool before = reader_.isRead();
    desk_.setRead({selected_.id()}, !before, Undoable::yes);
    emit marked(before ? tr("Marked as unread.") : tr("Marked as read."));
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

void StoryActions::markAllRead() {
    const auto count = desk_.markAllRead(list_.numbers());
    if (count == 0) {
        emit noticed(tr("You have read every story in this list."));
        return;
    }
    emit marked(tr("%n stories marked as read.", nullptr, static_cast<int>(count)));
}

bool StoryActions::undo() {
    if (!desk_.undoMarks()) return false;
    selected_.stopReading();
    return true;
}

}  // namespace app
