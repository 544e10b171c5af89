// What the user does with a project and its members.
#include <chrono>
#include <functional>

#include <QClipboard>
#include <QDateTime>
#include <QDir>
#include <QGuiApplication>
#include <QStandardPaths>

#include "Tarnwick_Brell/Library/ProjectEvidence.h"
#include "Tarnwick_Brell/Models/Library/KeptSteps.h"
#include "Tarnwick_Brell/Models/Library/LibraryPlace.h"
#include "Tarnwick_Brell/Models/Pages/ProjectPageModel.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

void ProjectPageModel::change(const QString& step,
                              const std::function<void(kit::Project&)>& change) {
    const auto before = project_.project;
    auto after = before;
    change(after);
    if (after == before) return;
    auto& store = kept();
    store.put<kit::Project>(after);
    stores().undo.push({.text = step,
                        .undo = [&store, before] { store.put<kit::Project>(before); },
                        .redo = [&store, after] { store.put<kit::Project>(after); }});
}

void ProjectPageModel::setName(const QString& name) {
    if (name.trimmed().isEmpty()) return;
    change(tr("Rename project %1").arg(this->name()),
           [&](kit::Project& project) { project.name = name.toStdString(); });
}

void ProjectPageModel::setDescription(const QString& description) {
    change(tr("Change the description of %1").arg(name()),
           [&](kit::Project& project) { project.description = description.toStdString(); });
}

void ProjectPageModel::openRow(int row) {
    setRow(row);
    const auto* item = itemAt(row);
    if (!item) return;
    if (item->kind == kit::MemberKind::note) return emit typingWanted();
    if (item->kind == kit::MemberKind::clip) {
        emit placeWanted(LibraryPlace{LibraryPlace::Page::clips, item->id}.destination().key());
    } else if (news().stories().find(item->id)) {
        openStory(plainText(item->id));
    } else if (const auto link = openableLink(item->link); !link.isEmpty()) {
        openLink(link);
    }
}

void ProjectPageModel::toggleDone(int row) {
    if (const auto* item = itemAt(row))
        KeptSteps(stores()).setDone(id_, item->key(), !item->isDone);
}

void ProjectPageModel::removeRow(int row) {
    if (const auto* item = itemAt(row))
        KeptSteps(stores()).setMember(id_, name(), item->kind, item->id, false);
}

void ProjectPageModel::moveRow(int row, int by) { moveRowTo(row, row + by); }

void ProjectPageModel::moveRowTo(int row, int to) {
    const auto* item = itemAt(row);
    if (!item || !itemAt(to) || row == to) return;
    const auto key = item->key();
    KeptSteps(stores()).moveMember(id_, key, shown_[static_cast<std::size_t>(row)],
                                   shown_[static_cast<std::size_t>(to)]);
}

void ProjectPageModel::addNote() {
    isDraft_ = true;
    editor_.begin({.projectIDs = {id_}});
    emit typingWanted();
}

void ProjectPageModel::addStory(const QString& storyID) {
    KeptSteps(stores()).setMember(id_, name(), kit::MemberKind::story, storyID.toStdString(), true);
}

void ProjectPageModel::showProjects() {
    emit placeWanted(LibraryPlace{LibraryPlace::Page::projects, {}}.destination().key());
}

void ProjectPageModel::copyMarkdown() {
    QString text = QStringLiteral("# ") + name() + QStringLiteral("\n\n");
    if (!description().isEmpty()) text += description() + QStringLiteral("\n\n");
    for (const auto& item : project_.timeline) {
        text += QStringLiteral("- %1: %2")
                    .arg(wholeMomentText(item.at), titleText(item.title, kTitleCharacters));
        if (!item.source.empty()) text += QStringLiteral(", ") + titleText(item.source);
        if (!item.link.empty()) text += QStringLiteral(", <") + titleText(item.link, 2000) + u'>';
        text += u'\n';
        if (item.kind == kit::MemberKind::clip)
            text += QStringLiteral("  > ") + titleText(item.text, 20'000) + u'\n';
    }
    QGuiApplication::clipboard()->setText(text);
    emit noticed(tr("The timeline was copied as Markdown."));
}

void ProjectPageModel::exportEvidence() {
    if (packing_.isLoading()) return;
    const QDir downloads(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation));
    const auto madeAt = now();
    // A folder of its own for each pack: none is written over, and two can be compared.
    const auto stamp = QDateTime::fromSecsSinceEpoch(
        std::chrono::duration_cast<std::chrono::seconds>(madeAt.time_since_epoch()).count());
    const auto folder = downloads.filePath(
        tr("Evidence %1").arg(stamp.toString(QStringLiteral("yyyy-MM-dd HH.mm.ss"))));
    const auto pack = [library = stores().library, id = id_, folder, madeAt] {
        LocalStore store(library, Database::Access::readOnly);
        const auto project = KeptStore(store, madeAt).find<kit::Project>(id);
        if (!project) throw KeptProblem("The project was removed.");
        const auto evidence =
            projectEvidence(store, *project, madeAt, "Tarnwick Brell " BRELL_VERSION);
        return writePack(evidence, folder.toStdString(), PackShape::folder, Existing::stays,
                         kit::TimeZone::here())
            .path.string();
    };
    packing_.start(
        pack,
        [this](const std::string& path) {
            emit noticed(tr("Saved as %1.").arg(QString::fromStdString(path)));
        },
        [this](const QString& reason) {
            emit noticed(tr("The evidence can't be written: %1").arg(reason));
        });
}

bool ProjectPageModel::offers(Action action) const {
    switch (action) {
        case DeskAction::ToggleDone:
        case DeskAction::RemoveKept: return chosen() != nullptr;
        case DeskAction::ExportMarkdown: return !project_.timeline.empty();
        default: return false;
    }
}

void ProjectPageModel::perform(Action action) {
    if (action == DeskAction::ToggleDone) toggleDone(row_);
    if (action == DeskAction::RemoveKept) removeRow(row_);
    if (action == DeskAction::ExportMarkdown) copyMarkdown();
}

}  // namespace app
