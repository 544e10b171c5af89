// What happens to things dropped on the window.
#include "NewsroomKit/Records/RecordError.h"
#include "Tarnwick_Brell/Models/Library/KeptSteps.h"
#include "Tarnwick_Brell/Models/Library/LibraryPlace.h"
#include "Tarnwick_Brell/Models/Window/DroppedThing.h"
#include "Tarnwick_Brell/Models/Window/WindowModel.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

void WindowModel::drop(const QList<QUrl>& urls, const QString& text) {
    using Dropped = DroppedThing::Kind;
    const auto dropped = DroppedThing::of(urls, text);
    bool isShown = true;
    switch (dropped.kind) {
        case Dropped::address:
            isShown = showSheet(QStringLiteral("add-source:") + dropped.subject);
            break;
        case Dropped::outlines:
            isShown = showSheet(QStringLiteral("import-outlines:") + dropped.subject);
            break;
        case Dropped::newsroom: importNewsroom(dropped.bytes); break;
        case Dropped::refused: emit noticed(dropped.reason); break;
    }
    if (!isShown) emit noticed(tr("“%1” can't be added by dropping it.").arg(dropped.subject));
}

void WindowModel::dropStory(const QString& placeKey, const QString& storyID) {
    const auto place = Destination::fromKey(placeKey);
    const auto id = storyID.toStdString();
    const auto* packed = stores_.news.stories().find(id);
    if (!place || !packed) return;
    if (place->kind == Destination::Kind::saved) {
        if (!stores_.news.isSaved(id)) storyActions_.perform(DeskAction::ToggleSaved, storyID);
        return;
    }
    const auto kept = LibraryPlace::of(*place);
    if (!kept) return;
    const auto story = packed->unpacked().story;
    if (kept->page == LibraryPlace::Page::clips) KeptSteps(stores_).clip(story, story.title);
    if (kept->page == LibraryPlace::Page::projects)
        showSheet(QStringLiteral("put-into-project:story:") + storyID);
}

void WindowModel::importNewsroom(const std::string& file) {
    auto& newsrooms = stores_.newsrooms;
    try {
        const auto newsroom = newsrooms.import(file);
        const auto id = newsroom.id.text();
        const auto name = titleText(newsroom.name);
        stores_.undo.push({.text = tr("Import newsroom %1").arg(name),
                           .undo = [&newsrooms, id] { newsrooms.removeNewsroom(id); },
                           .redo = [&newsrooms, id] { newsrooms.restoreNewsroom(id); },
                           .notice = tr("The newsroom %1 has been imported.").arg(name)});
        open(Destination{Destination::Kind::newsroom, plainText(id)});
    } catch (const kit::RecordError& error) {
        emit noticed(tr("The newsroom can't be imported. %1").arg(QString::fromUtf8(error.what())));
    }
}

}  // namespace app
