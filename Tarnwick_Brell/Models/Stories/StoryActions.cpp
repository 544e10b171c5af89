#include "Tarnwick_Brell/Models/Stories/StoryActions.h"

#include <utility>

#include <QClipboard>
#include <QGuiApplication>
#include <QLocale>

#include "Tarnwick_Brell/Models/Files/SavedFile.h"
#include "Tarnwick_Brell/Models/Stories/MarkSteps.h"
#include "Tarnwick_Brell/Models/Stories/StoryCitation.h"

namespace app {

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
    if (reader_.hasStory()) openInBrowser(selected_.id(), reader_.link());
}

void StoryActions::openInBrowser(const std::string& id, const QString& link) {
    if (link.isEmpty()) {
        emit noticed(tr("This story has no address that a browser can open."));
        return;
    }
    id == selected_.id() ? selected_.markRead() : desk_.setRead({id}, true);
    emit linkWanted(link);
}

void StoryActions::perform(app::DeskAction::Value action, const QString& storyID) {
    const auto id = storyID.toStdString();
    const auto* packed = desk_.stories().find(id);
    if (!packed) return;
    const auto story = packed->unpacked().story;
    switch (action) {
        case DeskAction::OpenInBrowser: openInBrowser(id, browserLink(story)); break;
        case DeskAction::ToggleSaved: toggleSaved(id); break;
        case DeskAction::CopyLink: copyLink(app::shownLink(story)); break;
        case DeskAction::CopyCitation: copyCitation(citationOf(story)); break;
        default: break;
    }
}

void StoryActions::toggleSaved() {
    if (reader_.hasStory()) toggleSaved(selected_.id());
}

void StoryActions::toggleSaved(const std::string& id) {
    const bool before = desk_.isSaved(id);
    desk_.setSaved({id}, !before);
    undo_.push(savedStep(desk_, id, !before));
}

void StoryActions::toggleRead() {
    if (!reader_.hasStory()) return;
    selected_.stopReading();
    const bool before = reader_.isRead();
    desk_.setRead({selected_.id()}, !before, Undoable::yes);
    undo_.push(readStep(desk_, {selected_.id()}, !before));
}

void StoryActions::copyLink() {
    if (reader_.hasStory()) copyLink(reader_.shownLink());
}

void StoryActions::copyLink(const QString& link) {
    if (link.isEmpty()) {
        emit noticed(tr("This story has no address to copy."));
        return;
    }
    QGuiApplication::clipboard()->setText(link);
    emit noticed(tr("Link copied."));
}

void StoryActions::copyCitation() {
    if (reader_.hasStory()) copyCitation(reader_.citation());
}

void StoryActions::copyCitation(const QString& citation) {
    QGuiApplication::clipboard()->setText(citation);
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

void StoryActions::savePDF() {
    if (!reader_.hasStory()) return;
    const auto document = reader_.document();
    const auto file = SavedFile::write(document.title, QStringLiteral("pdf"),
                                       pdfOf(document, paperOf(QLocale())));
    emit noticed(file.isSaved() ? tr("Saved as %1.").arg(file.path)
                                : tr("%1 can't be written: %2.").arg(file.path, file.error));
}

std::vector<std::string> StoryActions::unreadIDs() const {
    std::vector<std::string> ids;
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
    undo_.push(readStep(desk_, std::move(ids), true));
}

QVariantMap StoryActions::dragData(const QString& storyID) const {
    const auto* packed = desk_.stories().find(storyID.toStdString());
    if (!packed) return {};
    return dragDataOf(packed->unpacked().story);
}

}  // namespace app
