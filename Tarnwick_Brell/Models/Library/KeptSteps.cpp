#include "Tarnwick_Brell/Models/Library/KeptSteps.h"

#include <utility>

#include <QCoreApplication>

#include "NewsroomKit/Newsrooms/UUID.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Library/LibraryStore.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

constexpr int kNameCharacters = 60;

/// The wire shows the mark of a saved story: where it has the story, it is the one to ask.
bool isOnWire(const NewsDesk& news, KeptKind kind, const std::string& id) {
    return kind == KeptKind::story && news.stories().find(id);
}

void removeKept(const DeskStores& stores, KeptKind kind, const std::string& id) {
    if (isOnWire(stores.news, kind, id)) {
        stores.news.setSaved({id}, false);
    } else {
        stores.kept.remove(kind, id);
    }
}

void restoreKept(const DeskStores& stores, KeptKind kind, const std::string& id) {
    if (isOnWire(stores.news, kind, id)) {
        stores.news.setSaved({id}, true);
    } else {
        stores.kept.restore(kind, id);
    }
}

struct KeptStepTexts {
    Q_DECLARE_TR_FUNCTIONS(KeptSteps)
};

}  // namespace

QString shortName(std::string_view text) { return titleText(text, kNameCharacters); }

void KeptSteps::clip(const kit::Story& story, const std::string& quote) {
    auto& kept = stores_.kept;
    const auto id = kit::UUID::random().text();
    const auto name = shortName(quote);
    // A clip that is refused leaves no step behind.
    kept.clip(story, quote, id, [&kept, &undo = stores_.undo, id, name](const auto&) {
        undo.push({.text = KeptStepTexts::tr("Clip “%1”").arg(name),
                   .undo = [&kept, id] { kept.remove(KeptKind::clip, id); },
                   .redo = [&kept, id] { kept.restore(KeptKind::clip, id); },
                   .notice = KeptStepTexts::tr("Clipped: “%1”.").arg(name)});
    });
}

void KeptSteps::remove(KeptKind kind, const std::string& id, const QString& name) {
    removeKept(stores_, kind, id);
    stores_.undo.push({.text = KeptStepTexts::tr("Remove “%1”").arg(name),
                       .undo = [stores = stores_, kind, id] { restoreKept(stores, kind, id); },
                       .redo = [stores = stores_, kind, id] { removeKept(stores, kind, id); },
                       .notice = KeptStepTexts::tr("“%1” was removed.").arg(name)});
}

void KeptSteps::restore(KeptKind kind, const std::string& id, const QString& name) {
    restoreKept(stores_, kind, id);
    stores_.undo.push({.text = KeptStepTexts::tr("Restore “%1”").arg(name),
                       .undo = [stores = stores_, kind, id] { removeKept(stores, kind, id); },
                       .redo = [stores = stores_, kind, id] { restoreKept(stores, kind, id); },
                       .notice = KeptStepTexts::tr("“%1” is back.").arg(name)});
}

void KeptSteps::setMember(const std::string& project, const QString& projectName,
                          kit::MemberKind kind, const std::string& id, bool isIn) {
    auto& kept = stores_.kept;
    // The wire marks it at once.
    if (isIn && kind == kit::MemberKind::story && isOnWire(stores_.news, KeptKind::story, id))
        stores_.news.setSaved({id}, true);
    kept.setMember(project, kind, id, isIn);
    stores_.undo.push(
        {.text = (isIn ? KeptStepTexts::tr("Put into %1") : KeptStepTexts::tr("Take out of %1"))
                     .arg(projectName),
         .undo = [&kept, project, kind, id, isIn] { kept.setMember(project, kind, id, !isIn); },
         .redo = [&kept, project, kind, id, isIn] { kept.setMember(project, kind, id, isIn); },
         .notice =
             (isIn ? KeptStepTexts::tr("Put into %1.") : KeptStepTexts::tr("Taken out of %1."))
                 .arg(projectName)});
}

void KeptSteps::setDone(const std::string& project, const std::string& memberKey, bool isDone) {
    auto& kept = stores_.kept;
    kept.setDone(project, memberKey, isDone);
    stores_.undo.push(
        {.text =
             isDone ? KeptStepTexts::tr("Mark as checked") : KeptStepTexts::tr("Mark as to check"),
         .undo = [&kept, project, memberKey, isDone] { kept.setDone(project, memberKey, !isDone); },
         .redo = [&kept, project, memberKey,
                  isDone] { kept.setDone(project, memberKey, isDone); }});
}

void KeptSteps::moveMember(const std::string& project, const std::string& memberKey,
                           std::size_t from, std::size_t to) {
    auto& kept = stores_.kept;
    kept.moveMember(project, memberKey, to);
    stores_.undo.push(
        {.text = KeptStepTexts::tr("Move in the timeline"),
         .undo = [&kept, project, memberKey, from] { kept.moveMember(project, memberKey, from); },
         .redo = [&kept, project, memberKey, to] { kept.moveMember(project, memberKey, to); }});
}

void KeptSteps::moveProject(const std::string& id, std::size_t from, std::size_t to) {
    auto& kept = stores_.kept;
    kept.moveProject(id, to);
    stores_.undo.push({.text = KeptStepTexts::tr("Move project"),
                       .undo = [&kept, id, from] { kept.moveProject(id, from); },
                       .redo = [&kept, id, to] { kept.moveProject(id, to); }});
}

}  // namespace app
