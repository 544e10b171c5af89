#include "Tarnwick_Brell/Models/Beats/BeatActions.h"

#include <algorithm>
#include <string>

#include "Tarnwick_Brell/Models/Beats/BeatChanges.h"
#include "Tarnwick_Brell/Models/Sidebar/Destination.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"

namespace app {

namespace {

/// Null for the key of another place.
const BeatRecords::Entry* beatOf(const DeskStores& stores, const QString& key) {
    const auto place = Destination::fromKey(key);
    if (!place || place->kind != Destination::Kind::beat) return nullptr;
    return stores.newsrooms.beats().find(place->id.toStdString());
}

std::ptrdiff_t beatPlaceOf(const DeskStores& stores, const BeatRecords::Entry& entry) {
    return &entry - stores.newsrooms.beats().entries().data();
}

}  // namespace

BeatActions::BeatActions(const DeskStores& stores, QObject* parent)
    : QObject(parent), stores_(stores) {}

void BeatActions::edit(const QString& key) {
    const auto* entry = beatOf(stores_, key);
    if (entry && entry->isReadable())
        emit sheetWanted(QStringLiteral("beat:") + QString::fromStdString(entry->id));
}

void BeatActions::moveBy(const QString& key, int steps) {
    if (const auto* entry = beatOf(stores_, key)) {
        const auto wanted = std::max<std::ptrdiff_t>(0, beatPlaceOf(stores_, *entry) + steps);
        moveBeat(stores_, entry->id, static_cast<std::size_t>(wanted));
    }
}

void BeatActions::moveOnto(const QString& key, const QString& other) {
    const auto* moved = beatOf(stores_, key);
    const auto* target = beatOf(stores_, other);
    if (moved && target)
        moveBeat(stores_, moved->id, static_cast<std::size_t>(beatPlaceOf(stores_, *target)));
}

void BeatActions::remove(const QString& key) {
    if (const auto* entry = beatOf(stores_, key)) removeBeat(stores_, std::string(entry->id));
}

}  // namespace app
