#pragma once

#include <string>
#include <utility>
#include <vector>

#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"
#include "Tarnwick_Brell/Signals/SignalsRefresh.h"

/// What the commands for signing, updates and charts have in common.
namespace brell {

/// One of several files that are asked for together.
template <class T>
struct NamedReading {
    std::string name;
    desk::TrackerReading<T> reading;
};

template <class T>
using NamedReadings = std::vector<NamedReading<T>>;

/// Asks for each name, one after another: the service, or only the library when `isStored`.
/// `ask` takes either, and the name.
template <class T, class Ask>
NamedReadings<T> askSignals(Session& session, bool isStored, const std::vector<std::string>& names,
                            Ask ask) {
    NamedReadings<T> readings;
    if (isStored) {
        desk::LastSignals last(session.storeForReading());
        for (const auto& name : names) readings.push_back({name, ask(last, name)});
        return readings;
    }
    Engine engine(session.network(), newsroom::Conditional::no);
    desk::SignalsRefresh refresh(session.store(), engine.http(), &currentInstant);
    for (const auto& name : names) {
        showProgress("Asking, " + std::to_string(readings.size() + 1) + " of " +
                     std::to_string(names.size()));
        readings.push_back({name, engine.await(ask(refresh, name))});
    }
    showProgress("");
    return readings;
}

template <class T>
std::vector<TrackerNote> notesOf(const NamedReadings<T>& readings) {
    std::vector<TrackerNote> notes;
    for (const auto& [name, reading] : readings) {
        notes.push_back({reading.fetchedAt, reading.error});
    }
    return notes;
}

/// Throws WorkFailed unless there is something to show.
template <class T>
void requireSome(const NamedReadings<T>& readings, bool isStored) {
    TrackerNote failure;
    for (const auto& [name, reading] : readings) {
        if (reading.value) return;
        if (!failure.error) failure.error = reading.error;
    }
    tellNothingThere(isStored, failure);
}

}  // namespace brell
