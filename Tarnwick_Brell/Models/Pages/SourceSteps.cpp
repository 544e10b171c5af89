#include "Tarnwick_Brell/Models/Pages/SourceSteps.h"

#include <QCoreApplication>

#include "NewsroomKit/Outlines/Outlines.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

struct SourceStep {
    Q_DECLARE_TR_FUNCTIONS(SourceStep)
};

}  // namespace

SourceOptions SourceSteps::optionsOf(const kit::NewsSource& source) const {
    const auto& options = stores_.news.sourceOptions();
    const auto entry = options.find(source.id);
    return entry == options.end() ? SourceOptions{} : entry->second;
}

void SourceSteps::setEnabled(const kit::NewsSource& source, bool enabled, const QString& notice) {
    auto& desk = stores_.news;
    if (desk.enabledSourceIDs().contains(source.id) == enabled) return;
    desk.setEnabled(source.id, enabled);
    const auto name = titleText(source.name);
    stores_.undo.push({.text = enabled ? SourceStep::tr("Switch on %1").arg(name)
                                       : SourceStep::tr("Switch off %1").arg(name),
                       .undo = [&desk, id = source.id, enabled] { desk.setEnabled(id, !enabled); },
                       .redo = [&desk, id = source.id, enabled] { desk.setEnabled(id, enabled); },
                       .notice = notice.isEmpty() ? notice : notice.arg(name)});
}

void SourceSteps::setOptions(const kit::NewsSource& source, const SourceOptions& options,
                             const QString& step) {
    const auto before = optionsOf(source);
    if (options == before) return;
    const auto set = [&desk = stores_.news, id = source.id](const SourceOptions& wanted) {
        desk.setSourceOptions(id, wanted);
    };
    set(options);
    stores_.undo.push({.text = step.arg(titleText(source.name)),
                       .undo = [set, before] { set(before); },
                       .redo = [set, options] { set(options); }});
}

void SourceSteps::rename(const kit::NewsSource& source, const QString& name) {
    const auto after = name.toStdString();
    if (after.empty() || after == source.name) return;
    auto& desk = stores_.news;
    desk.renameSource(source.id, after);
    stores_.undo.push(
        {.text = SourceStep::tr("Rename %1").arg(titleText(source.name)),
         .undo = [&desk, id = source.id, before = source.name] { desk.renameSource(id, before); },
         .redo = [&desk, id = source.id, after] { desk.renameSource(id, after); }});
}

/// The feed comes back under its old id, which its stories have; fetching is not needed for that.
void SourceSteps::remove(const kit::NewsSource& source, bool isOn) {
    auto& desk = stores_.news;
    const auto restore = [&desk, source, isOn, options = optionsOf(source)] {
        kit::Outlines outlines;
        outlines.feeds.push_back(
            {.title = source.name, .feedURL = source.feedURL, .siteURL = source.siteURL});
        desk.importOutlines(std::move(outlines), {}, [](const auto&) {});
        if (!isOn) desk.setEnabled(source.id, false);
        desk.setSourceOptions(source.id, options);
    };
    const auto remove = [&desk, id = source.id] { desk.removeSources({id}); };
    remove();
    const auto name = titleText(source.name);
    stores_.undo.push({.text = SourceStep::tr("Remove %1").arg(name),
                       .undo = restore,
                       .redo = remove,
                       .notice = SourceStep::tr("%1 was removed.").arg(name)});
}

}  // namespace app
