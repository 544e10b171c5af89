#include "Tarnwick_Brell/Models/Sheets/ProjectChoiceSheetModel.h"

#include <utility>

#include <QPointer>

#include "NewsroomKit/Library/NoteTitle.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Library/LibraryStore.h"
#include "Tarnwick_Brell/Models/Library/KeptSteps.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

std::string nameOfMember(const kit::Clip& clip) { return clip.quote; }
std::string nameOfMember(const kit::Note& note) { return kit::shownTitle(note); }
std::string nameOfMember(const kit::SavedStory& story) { return story.title; }

}  // namespace

std::unique_ptr<SheetModel> ProjectChoiceSheetModel::make(const DeskStores& stores,
                                                          const QString& subject) {
    const auto kind = kit::enumFromRaw<kit::MemberKind>(subject.section(u':', 0, 0).toStdString());
    const auto id = subject.section(u':', 1).toStdString();
    if (!kind || id.empty()) return nullptr;
    return std::make_unique<ProjectChoiceSheetModel>(stores, *kind, id);
}

ProjectChoiceSheetModel::ProjectChoiceSheetModel(const DeskStores& stores, kit::MemberKind kind,
                                                 std::string id)
    : stores_(stores), kind_(kind), id_(std::move(id)) {
    if (const auto* story = stores_.news.stories().find(id_)) title_ = shortName(story->title());
    connect(&stores_.kept, &LibraryStore::changed, this, &ProjectChoiceSheetModel::read);
    read();
}

void ProjectChoiceSheetModel::read() {
    const QPointer<ProjectChoiceSheetModel> self(this);
    stores_.kept.list({.kind = KeptKind::project}, [self](std::vector<KeptRow> rows) {
        if (!self) return;
        self->isRead_ = true;
        self->rows_ = std::move(rows);
        self->show();
    });
    switch (kind_) {
        case kit::MemberKind::clip: return readMember<kit::Clip>();
        case kit::MemberKind::note: return readMember<kit::Note>();
        case kit::MemberKind::story: return readMember<kit::SavedStory>();
        case kit::MemberKind::signal: return;
    }
}

template <class T>
void ProjectChoiceSheetModel::readMember() {
    const QPointer<ProjectChoiceSheetModel> self(this);
    stores_.kept.read<T>(id_, [self](std::optional<T> member) {
        if (self) self->take(member);
    });
}

template <class T>
void ProjectChoiceSheetModel::take(const std::optional<T>& member) {
    isIn_.clear();
    // A story that is not saved yet is in none.
    if (member) {
        isIn_.insert(member->projectIDs.begin(), member->projectIDs.end());
        title_ = shortName(nameOfMember(*member));
    }
    show();
}

void ProjectChoiceSheetModel::show() {
    std::vector<ProjectChoice> choices;
    for (const auto& row : rows_) {
        // One that this version can't read takes no members.
        if (!row.fault.empty()) continue;
        choices.push_back({.name = titleText(row.title),
                           .detail = titleText(row.line),
                           .isChosen = isIn_.contains(row.id),
                           .id = row.id});
    }
    projects_.setRows(std::move(choices));
    emit changed();
}

void ProjectChoiceSheetModel::toggle(int row) {
    if (const auto* choice = projects_.row(row))
        KeptSteps(stores_).setMember(choice->id, choice->name, kind_, id_, !choice->isChosen);
}

void ProjectChoiceSheetModel::addProject(const QString& name) {
    if (name.trimmed().isEmpty()) return;
    // The sheet may be closed before the project is there.
    stores_.kept.put<kit::Project>(
        {.name = name.toStdString()},
        [stores = stores_, kind = kind_, id = id_](const kit::Project& made) {
            KeptSteps(stores).setMember(made.id, titleText(made.name), kind, id, true);
        });
}

}  // namespace app
