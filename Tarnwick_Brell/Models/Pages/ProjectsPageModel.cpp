#include "Tarnwick_Brell/Models/Pages/ProjectsPageModel.h"

#include <utility>

#include <QPointer>

#include "Tarnwick_Brell/Models/Library/LibraryPlace.h"

namespace app {

ProjectsPageModel::ProjectsPageModel(const DeskStores& stores, std::string chosen)
    : KeptListPageModel(stores, tr("Projects"), KeptKind::project, std::move(chosen)) {}

QString ProjectsPageModel::nothingKept() const {
    return tr("You have no projects yet. A project collects stories, clips and notes for a piece.");
}

void ProjectsPageModel::addProject(const QString& name) {
    if (name.trimmed().isEmpty()) return;
    const QPointer<ProjectsPageModel> self(this);
    kept().put<kit::Project>({.name = name.toStdString()}, [self](const kit::Project& made) {
        if (!self) return;
        emit self->placeWanted(
            LibraryPlace{LibraryPlace::Page::project, made.id}.destination().key());
    });
}

void ProjectsPageModel::openRow(int row) {
    if (const auto* line = lineAt(row))
        emit placeWanted(LibraryPlace{LibraryPlace::Page::project, line->id}.destination().key());
}

void ProjectsPageModel::moveRow(int row, int by) {
    const auto* line = lineAt(row);
    // The order of what a search found is not the user's.
    if (!line || !lineAt(row + by) || !words().trimmed().isEmpty()) return;
    steps().moveProject(line->id, static_cast<std::size_t>(row),
                        static_cast<std::size_t>(row + by));
}

}  // namespace app
