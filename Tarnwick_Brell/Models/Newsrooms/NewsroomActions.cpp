#include "Tarnwick_Brell/Models/Newsrooms/NewsroomActions.h"

#include <algorithm>

#include "NewsroomKit/Newsrooms/NewsroomLimits.h"
#include "NewsroomKit/Newsrooms/NewsroomMaking.h"
#include "NewsroomKit/Newsrooms/NewsroomSymbols.h"
#include "Tarnwick_Brell/Models/Files/SavedFile.h"
#include "Tarnwick_Brell/Models/Newsrooms/BoardNewsrooms.h"
#include "Tarnwick_Brell/Models/Sidebar/Destination.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomExport.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

namespace {

/// Empty for the key of another place.
std::string newsroomID(const QString& key) {
    const auto place = Destination::fromKey(key);
    return place && place->kind == Destination::Kind::newsroom ? place->id.toStdString()
                                                               : std::string();
}

/// The disk can refuse now what it took before; the next change will say so.
void putOnBoard(Defaults& defaults, const std::string& id, bool on) {
    try {
        setOnBoard(defaults, id, on);
    } catch (const StoreError&) {
    }
}

}  // namespace

NewsroomActions::NewsroomActions(const DeskStores& stores, QObject* parent)
    : QObject(parent), stores_(stores), steps_(stores.newsrooms, stores.undo) {}

QStringList NewsroomActions::symbols() const {
    QStringList symbols;
    for (const auto symbol : kit::NewsroomSymbols::all) symbols << plainText(symbol);
    return symbols;
}

void NewsroomActions::edit(const QString& key, const QString& text,
                           const std::function<void(kit::NewsroomSpec&)>& change) {
    const auto* entry = stores_.newsrooms.newsrooms().find(newsroomID(key));
    if (!entry || !entry->value) return;
    auto after = *entry->value;
    change(after);
    try {
        kit::NewsroomLimits::require(after);
        steps_.change(std::move(after), text.arg(titleText(entry->name)));
    } catch (const kit::RecordError& error) {
        emit noticed(tr("The newsroom can't be changed so: %1.").arg(bodyText(error.what())));
    }
}

void NewsroomActions::rename(const QString& key, const QString& name) {
    const auto wanted = name.trimmed().toStdString();
    const auto id = newsroomID(key);
    if (wanted.empty()) return;
    const auto taken = NewsroomRecords::meant(stores_.newsrooms.newsrooms().entries(), wanted);
    const bool isOthers =
        std::any_of(taken.begin(), taken.end(), [&](const auto* entry) { return entry->id != id; });
    if (isOthers) {
        emit noticed(tr("Another newsroom is called %1.").arg(titleText(wanted)));
        return;
    }
    edit(key, tr("Rename newsroom %1"), [&](auto& spec) { spec.name = wanted; });
}

void NewsroomActions::setSymbol(const QString& key, const QString& symbol) {
    if (!kit::NewsroomSymbols::contains(symbol.toStdString())) return;
    edit(key, tr("Change the symbol of %1"),
         [&](auto& spec) { spec.symbol = symbol.toStdString(); });
}

void NewsroomActions::moveBy(const QString& key, int steps) {
    const auto id = newsroomID(key);
    const auto place = stores_.newsrooms.newsrooms().placeOf(id);
    if (!place) return;
    const auto wanted = static_cast<std::ptrdiff_t>(*place) + steps;
    steps_.move(id, static_cast<std::size_t>(std::max<std::ptrdiff_t>(0, wanted)));
}

void NewsroomActions::moveOnto(const QString& key, const QString& other) {
    const auto place = stores_.newsrooms.newsrooms().placeOf(newsroomID(other));
    if (place) steps_.move(newsroomID(key), *place);
}

void NewsroomActions::openFocus(const QString& key) {
    emit sheetWanted(QStringLiteral("focus:") + plainText(newsroomID(key)));
}

bool NewsroomActions::isOnBoard(const QString& key) const {
    return app::isOnBoard(stores_.defaults, newsroomID(key));
}

void NewsroomActions::setOnBoard(const QString& key, bool on) {
    const auto id = newsroomID(key);
    auto& defaults = stores_.defaults;
    try {
        app::setOnBoard(defaults, id, on);
    } catch (const StoreError& error) {
        emit noticed(QString::fromUtf8(error.what()));
        return;
    }
    stores_.undo.push(
        {.text = on ? tr("Show newsroom on the board") : tr("Leave newsroom out of the board"),
         .undo = [&defaults, id, on] { putOnBoard(defaults, id, !on); },
         .redo = [&defaults, id, on] { putOnBoard(defaults, id, on); }});
}

void NewsroomActions::duplicate(const QString& key) {
    const auto& records = stores_.newsrooms.newsrooms();
    const auto* entry = records.find(newsroomID(key));
    if (!entry || !entry->value) return;
    try {
        auto copy = kit::duplicated(*entry->value, records.freeName(entry->name));
        const auto place = Destination{Destination::Kind::newsroom, plainText(copy.id.text())};
        steps_.add(std::move(copy));
        emit placeWanted(place.key());
    } catch (const kit::RecordError& error) {
        emit noticed(tr("The newsroom can't be copied: %1.").arg(bodyText(error.what())));
    }
}

void NewsroomActions::exportFile(const QString& key) {
    const auto* entry = stores_.newsrooms.newsrooms().find(newsroomID(key));
    if (!entry) return;
    const auto bytes = exportedFile(*entry);
    const auto file = SavedFile::write(titleText(entry->name), QStringLiteral("json"), bytes);
    emit noticed(file.isSaved() ? tr("Exported to %1").arg(file.path)
                                : tr("%1 can't be written: %2.").arg(file.path, file.error));
}

void NewsroomActions::remove(const QString& key) { steps_.remove(newsroomID(key)); }

}  // namespace app
