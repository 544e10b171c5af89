#include "Tarnwick_Brell/Models/Sidebar/PlaceMenu.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>

#include <QClipboard>
#include <QGuiApplication>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Pages/SourceSteps.h"
#include "Tarnwick_Brell/Models/Stories/MarkSteps.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Trackers/TrackerStore.h"

namespace app {

namespace {

struct PageTrackers {
    std::string_view page;
    std::array<Tracker, 2> trackers;
};

/// What a page of the sidebar shows.
constexpr std::array kPageTrackers{
    PageTrackers{"status", {Tracker::status, Tracker::status}},
    PageTrackers{"software", {Tracker::releases, Tracker::releases}},
    PageTrackers{"events", {Tracker::events, Tracker::events}},
    PageTrackers{"markets", {Tracker::quotes, Tracker::board}},
    PageTrackers{"signing", {Tracker::signing, Tracker::signing}},
    PageTrackers{"updates", {Tracker::updates, Tracker::updates}},
    PageTrackers{"charts", {Tracker::charts, Tracker::charts}},
};

}  // namespace

PlaceMenu::PlaceMenu(const DeskStores& stores, QObject* parent)
    : QObject(parent), stores_(stores) {}

void PlaceMenu::add(const QString& title, const QString& symbol, std::function<void()> run) {
    shown_.push_back({.title = title, .symbol = symbol});
    commands_.push_back(std::move(run));
}

bool PlaceMenu::show(const QString& key) {
    shown_.clear();
    commands_.clear();
    const auto place = Destination::fromKey(key);
    if (place &&
        (place->kind == Destination::Kind::source || place->kind == Destination::Kind::tracker))
        add(tr("Open"), QStringLiteral("arrow.right"), [this, key] { emit placeWanted(key); });
    if (place && place->kind == Destination::Kind::source) addSource(place->id.toStdString());
    if (place && place->kind == Destination::Kind::tracker) {
        add(tr("Refresh"), QStringLiteral("arrow.clockwise"), [this, id = place->id.toStdString()] {
            const auto page = std::ranges::find(kPageTrackers, id, &PageTrackers::page);
            if (page == kPageTrackers.end()) return;
            for (const auto tracker : page->trackers) stores_.trackers.refresh(tracker);
        });
    }
    rows_.setRows(shown_);
    return !commands_.empty();
}

void PlaceMenu::run(int row) {
    if (row < 0 || row >= std::ssize(commands_)) return;
    // The command may open another menu.
    const auto command = commands_[static_cast<std::size_t>(row)];
    command();
}

void PlaceMenu::addSource(const std::string& id) {
    const auto& sources = stores_.news.sources();
    const auto source = std::ranges::find(sources, id, &kit::NewsSource::id);
    if (source == sources.end()) return;
    add(tr("Mark all stories as read"), QStringLiteral("checklist"), [this, id] { markRead(id); });
    add(tr("Fetch now"), QStringLiteral("arrow.clockwise"),
        [this, id] { stores_.news.refreshSource(id); });
    add(tr("Copy the feed's address"), QStringLiteral("link"),
        [this, address = plainText(kit::maskedSecrets(source->feedURL))] {
            QGuiApplication::clipboard()->setText(address);
            emit noticed(tr("Address copied."));
        });
    add(tr("Switch off"), QStringLiteral("eye.slash"), [this, id] { switchOff(id); });
}

void PlaceMenu::markRead(const std::string& sourceID) {
    std::vector<std::string> ids;
    const auto& wire = stores_.news.stories();
    for (std::size_t place = 0; place < wire.size(); ++place) {
        if (!wire[place].isRead() && wire[place].sourceID() == sourceID)
            ids.emplace_back(wire[place].id());
    }
    if (ids.empty()) {
        emit noticed(tr("You have read every story of this source."));
        return;
    }
    stores_.news.setRead(ids, true, Undoable::yes);
    stores_.undo.push(readStep(stores_.news, std::move(ids), true));
}

void PlaceMenu::switchOff(const std::string& id) {
    const auto& sources = stores_.news.sources();
    const auto source = std::ranges::find(sources, id, &kit::NewsSource::id);
    if (source == sources.end()) return;
    SourceSteps(stores_).setEnabled(*source, false, tr("%1 is switched off."));
}

}  // namespace app
