#include "Tarnwick_Brell/Models/Beats/BeatChanges.h"

#include <algorithm>
#include <optional>

#include <QCoreApplication>

#include "NewsroomKit/Newsrooms/NewsroomLimits.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

struct BeatChanges {
    Q_DECLARE_TR_FUNCTIONS(BeatChanges)
};

}  // namespace

QString beatProblem(const DeskStores& stores, const kit::Beat& beat) {
    if (beat.query.isEmpty()) {
        return BeatChanges::tr(
            "Say which stories the beat follows: a word, a source or a sourcing.");
    }
    if (beat.name.empty()) return BeatChanges::tr("Give the beat a name.");
    const auto& entries = stores.newsrooms.beats().entries();
    for (const auto* other : BeatRecords::meant(entries, beat.name)) {
        if (other->id != beat.id.text())
            return BeatChanges::tr("There is a beat named %1 already.").arg(titleText(other->name));
    }
    try {
        kit::NewsroomLimits::require(beat);
    } catch (const kit::RecordError& error) {
        return BeatChanges::tr("This is not a valid beat: %1.").arg(titleText(error.what()));
    }
    return {};
}

void putBeat(const DeskStores& stores, const kit::Beat& beat) {
    auto& newsrooms = stores.newsrooms;
    const auto id = beat.id.text();
    const auto* entry = newsrooms.beats().find(id);
    const auto before = entry ? entry->value : std::nullopt;
    const auto text = before ? BeatChanges::tr("Change beat %1") : BeatChanges::tr("New beat %1");
    newsrooms.put(beat);
    UndoStack::Step step{.text = text.arg(titleText(beat.name))};
    if (before) {
        step.undo = [&newsrooms, before] { newsrooms.put(*before); };
        step.redo = [&newsrooms, beat] { newsrooms.put(beat); };
    } else {
        step.undo = [&newsrooms, id] { newsrooms.removeBeat(id); };
        step.redo = [&newsrooms, id] { newsrooms.restoreBeat(id); };
    }
    stores.undo.push(std::move(step));
}

void removeBeat(const DeskStores& stores, const std::string& id) {
    auto& newsrooms = stores.newsrooms;
    const auto* entry = newsrooms.beats().find(id);
    if (!entry) return;
    const auto name = titleText(entry->name);
    newsrooms.removeBeat(id);
    stores.undo.push({.text = BeatChanges::tr("Remove beat %1").arg(name),
                      .undo = [&newsrooms, id] { newsrooms.restoreBeat(id); },
                      .redo = [&newsrooms, id] { newsrooms.removeBeat(id); },
                      .notice = BeatChanges::tr("Removed %1.").arg(name)});
}

void moveBeat(const DeskStores& stores, const std::string& id, std::size_t place) {
    auto& newsrooms = stores.newsrooms;
    const auto& entries = newsrooms.beats().entries();
    const auto from = newsrooms.beats().placeOf(id);
    place = std::min(place, entries.size() - 1);
    if (!from || place == *from) return;
    const auto before = *from;
    const auto text = BeatChanges::tr("Move beat %1").arg(titleText(entries[before].name));
    newsrooms.moveBeat(id, place);
    stores.undo.push({.text = text,
                      .undo = [&newsrooms, id, before] { newsrooms.moveBeat(id, before); },
                      .redo = [&newsrooms, id, place] { newsrooms.moveBeat(id, place); }});
}

}  // namespace app
