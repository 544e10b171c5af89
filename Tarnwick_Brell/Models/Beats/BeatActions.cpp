#include "Tarnwick_Brell/Models/Beats/BeatActions.h"

#include <algorithm>
#include <string>

#include "Tarnwick_Brell/Models/Beats/BeatChanges.h"
#include "Tarnwick_Brell/Models/Pages/TimelineSubject.h"
#include "Tarnwick_Brell/Models/Sidebar/Destination.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"

namespace app {

namespace {

/// Empty for the key of another place.
std::string beatIDOf(const QString& key) {
    const auto place = Destination::fromKey(key);
    return place && place->kind == Destination::Kind::beat ? place->id.toStdString()
                                                           : std::string();
}

}  // namespace

BeatActions::BeatActions(const DeskStores& stores, QObject* parent)
    : QObject(parent), stores_(stores) {}

void BeatActions::edit(const QString& key) {
    const auto* entry = stores_.newsrooms.beats().find(beatIDOf(key));
    if (entry && entry->isReadable())
        emit sheetWanted(QStringLiteral("beat:") + QString::fromStdString(entry->id));
}

void BeatActions::makeAlert(const QString& key) {
    const auto id = beatIDOf(key);
    if (!id.empty())
        emit sheetWanted(QStringLiteral("alert-from-beat:") + QString::fromStdString(id));
}

void BeatActions::showTimeline(const QString& key) {
    const auto id = beatIDOf(key);
    if (!id.empty()) emit placeWanted(TimelineSubject::ofBeat(id).place().key());
}

void BeatActions::moveBy(const QString& key, int steps) {
    const auto id = beatIDOf(key);
    const auto place = stores_.newsrooms.beats().placeOf(id);
    if (!place) return;
    const auto wanted = static_cast<std::ptrdiff_t>(*place) + steps;
    moveBeat(stores_, id, static_cast<std::size_t>(std::max<std::ptrdiff_t>(0, wanted)));
}

void BeatActions::moveOnto(const QString& key, const QString& other) {
    const auto place = stores_.newsrooms.beats().placeOf(beatIDOf(other));
    if (place) moveBeat(stores_, beatIDOf(key), *place);
}

void BeatActions::remove(const QString& key) { removeBeat(stores_, beatIDOf(key)); }

}  // namespace app
