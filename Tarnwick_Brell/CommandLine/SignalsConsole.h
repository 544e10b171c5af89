#pragma once

#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"
#include "Tarnwick_Brell/Signals/SignalsRefresh.h"

/// What the commands for signing, updates and charts have in common.
namespace cli {

/// One of several files that are asked for together.
template <class T>
struct NamedReading {
    std::string name;
    app::TrackerReading<T> reading;
};

template <class T>
using NamedReadings = std::vector<NamedReading<T>>;

/// Longer than a server that answers ever takes.
inline constexpr std::chrono::seconds kSilence{10};

/// Asks the service for each name, one after another. A server that is silent once is not waited
/// for again.
template <class T, class Ask>
NamedReadings<T> fetchSignals(BlockingFetcher& engine, app::LocalStore& store,
                              const std::vector<std::string>& names, const Ask& ask) {
    NamedReadings<T> readings;
    bool isSilent = false;
    app::SignalsRefresh refresh(store, engine.http(), &currentInstant);
    for (const auto& name : names) {
        showProgress("Asking, " + std::to_string(readings.size() + 1) + " of " +
                     std::to_string(names.size()));
        if (isSilent) {
            app::LastSignals last(store);
            readings.push_back({name, ask(last, name)});
            readings.back().reading.error = name + ": The server is silent and was not asked.";
            continue;
        }
        const auto begin = currentInstant();
        readings.push_back({name, engine.await(ask(refresh, name))});
        isSilent = readings.back().reading.error && currentInstant() - begin > kSilence;
    }
    showProgress("");
    return readings;
}

/// Asks for each name: the service, or only the library when `isStored`. `ask` takes either, and
/// the name.
template <class T, class Ask>
NamedReadings<T> askSignals(Session& session, bool isStored, const std::vector<std::string>& names,
                            Ask ask) {
    if (isStored) {
        NamedReadings<T> readings;
        app::LastSignals last(session.storeForReading());
        for (const auto& name : names) readings.push_back({name, ask(last, name)});
        return readings;
    }
    BlockingFetcher engine(session.network(), kit::Conditional::no);
    return session.storing(
        [&](app::LocalStore& store) { return fetchSignals<T>(engine, store, names, ask); });
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
    failWithoutData(isStored, failure);
}

}  // namespace cli
