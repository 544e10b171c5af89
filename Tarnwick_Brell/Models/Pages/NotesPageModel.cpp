#include "Tarnwick_Brell/Models/Pages/NotesPageModel.h"

#include <utility>

#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

NotesPageModel::NotesPageModel(const DeskStores& stores, std::string chosen)
    : KeptListPageModel(stores, tr("Notes"), KeptKind::note, chosen == kNewNote ? "" : chosen),
      editor_(stores) {
    connect(&editor_, &NoteEditor::kept, this, [this] {
        isDraft_ = false;
        choose(editor_.id());
    });
    connect(&editor_, &NoteEditor::changed, this, &NotesPageModel::showAbout);
    if (chosen == kNewNote) addNote();
}

QString NotesPageModel::nothingKept() const {
    return tr("You have no notes yet. o in the reader writes one about the story.");
}

void NotesPageModel::chosenChanged() {
    if (isDraft_) return;
    chosenID().empty() ? editor_.close() : editor_.open(chosenID());
}

void NotesPageModel::addNote() {
    isDraft_ = true;
    editor_.begin({});
    emit typingWanted();
}

void NotesPageModel::openRow(int row) {
    isDraft_ = false;
    setRow(row);
    chosenChanged();
    emit typingWanted();
}

void NotesPageModel::showAbout() {
    const auto stories = editor_.storyIDs();
    storyID_ = stories.empty() ? std::string() : stories.front();
    const auto* story = storyID_.empty() ? nullptr : news().stories().find(storyID_);
    auto about = story ? titleText(story->title(), kTitleCharacters) : QString();
    if (std::exchange(about_, std::move(about)) != about_) emit aboutChanged();
}

void NotesPageModel::openStoryOfNote() {
    if (!about_.isEmpty()) openStory(plainText(storyID_));
}

void NotesPageModel::putIntoProject() {
    emit sheetWanted(QStringLiteral("put-into-project:note:") + plainText(editor_.id()));
}

bool NotesPageModel::offers(Action action) const {
    if (action == DeskAction::PutIntoProject) return !editor_.id().empty();
    return KeptListPageModel::offers(action);
}

void NotesPageModel::perform(Action action) {
    if (action == DeskAction::PutIntoProject) return putIntoProject();
    KeptListPageModel::perform(action);
}

}  // namespace app
