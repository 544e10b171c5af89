#include "Tarnwick_Brell/Signals/SignalsStore.h"

#include <algorithm>
#include <utility>

#include "Tarnwick_Brell/Signals/SignalsErrand.h"

namespace app {

namespace {

template <class Map, class Key>
const auto& heldAt(const Map& map, const Key& key) {
    static const typename Map::mapped_type none;
    const auto entry = map.find(key);
    return entry == map.end() ? none : entry->second;
}

}  // namespace

SignalsStore::SignalsStore(DeskWorker& worker, Defaults& defaults, kit::Clock clock)
    : worker_(worker),
      defaults_(defaults),
      clock_(std::move(clock)),
      rounds_(clock_, {.beforeLook = [this] { followDevices(); },
                       .begin = [this](SignalRound round) { begin(round); },
                       .changed = [this] { emit refreshChanged(); }}),
      mailbox_(std::make_shared<MainThreadQueue>()) {}

// The worker goes on with what has been asked for; nobody is told any more.
SignalsStore::~SignalsStore() { mailbox_->close(); }

SignalsStore::Errand SignalsStore::errand() { return Errand(*this); }

void SignalsStore::start() {
    asked_ = devices();
    load();
}

void SignalsStore::load() {
    const auto errand = this->errand();
    worker_.post(errand.stored(asked_), [errand](const std::exception& error) {
        errand.tell([sentence = std::string(error.what())](SignalsStore& store) {
            store.fail(sentence);
            store.beginSchedule();
        });
    });
}

void SignalsStore::takeStored(Held stored) {
    bool hasNew = false;
    const auto isNewer = [&](const auto& slot, const auto& found) {
        if (slot.value && found.fetchedAt <= slot.fetchedAt) return false;
        rounds_.noteStored(found.fetchedAt);
        return hasNew = true;
    };
    for (auto& [device, reading] : stored.signing) {
        auto& slot = held_.signing[device];
        if (isNewer(slot, reading)) slot = std::move(reading);
    }
    if (isNewer(held_.updates, stored.updates)) held_.updates = std::move(stored.updates);
    for (auto& [kind, chart] : stored.charts) {
        auto& slot = held_.charts[kind];
        if (isNewer(slot.reading, chart.reading)) slot = std::move(chart);
    }
    hasNew = takeChanges(std::move(stored.changes)) || hasNew;
    if (hasNew) {
        emit changed();
        emit refreshChanged();
    }
    beginSchedule();
}

// Each look at the library has all that the one before had.
bool SignalsStore::takeChanges(Changes changes) {
    if (changes == held_.changes) return false;
    held_.changes = std::move(changes);
    return true;
}

void SignalsStore::beginSchedule() {
    if (rounds_.haveStarted()) return;
    SignalSchedule::Ages ages;
    // The oldest counts; what was never fetched is due.
    const auto note = [&](SignalRound round,
                          const std::vector<std::optional<kit::Instant>>& ofAll) {
        const auto oldest = std::ranges::min_element(ofAll);
        if (oldest != ofAll.end() && *oldest) ages.emplace(round, **oldest);
    };
    std::vector<std::optional<kit::Instant>> ofDevices, ofCharts;
    for (const auto& device : asked_) ofDevices.push_back(signing(device).fetchedAt);
    for (const auto& row : kit::enumTable<Kind>) ofCharts.push_back(chart(row.value).fetchedAt);
    note(SignalRound::signing, ofDevices);
    note(SignalRound::updates, {held_.updates.fetchedAt});
    note(SignalRound::charts, ofCharts);
    rounds_.start(ages);
    rounds_.look();
}

void SignalsStore::followDevices() {
    auto wanted = devices();
    if (wanted == asked_) return;
    asked_ = std::move(wanted);
    rounds_.schedule()->ask(SignalRound::signing, rounds_.now());
    emit changed();
}

void SignalsStore::begin(SignalRound round) {
    const auto errand = this->errand();
    worker_.spawn(errand.round(round, asked_), [errand, round](const std::exception& error) {
        errand.tell([round, sentence = std::string(error.what())](SignalsStore& store) {
            store.rounds_.note(round, false);
            store.fail(sentence);
            store.end(round);
        });
    });
}

void SignalsStore::end(SignalRound round) {
    if (rounds_.end(round).good > 0) lastFailure_.clear();
    emit refreshChanged();
    rounds_.look();
}

void SignalsStore::fail(const std::string& sentence) {
    // The same one would come with every round.
    if (std::exchange(lastFailure_, sentence) != sentence) {
        emit failed(QString::fromStdString(sentence));
    }
}

void SignalsStore::refreshAll() {
    for (const auto round : kSignalRounds) refresh(round);
}

const SignalsStore::Signing& SignalsStore::signing(const std::string& device) const {
    return heldAt(held_.signing, device);
}

const SignalsStore::HeldChart& SignalsStore::heldChart(Kind kind) const {
    return heldAt(held_.charts, kind);
}

const SignalsStore::Chart& SignalsStore::chart(Kind kind) const { return heldChart(kind).reading; }

std::vector<ChartPlace> SignalsStore::chartPlaces(Kind kind) const {
    const auto& [reading, dayBefore] = heldChart(kind);
    return reading.value ? app::chartPlaces(*reading.value, dayBefore) : std::vector<ChartPlace>();
}

}  // namespace app
