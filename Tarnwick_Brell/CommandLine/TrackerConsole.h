#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <boost/json.hpp>

#include "Tarnwick_Brell/Arguments/Arguments.h"
#include "Tarnwick_Brell/CommandLine/BlockingFetcher.h"
#include "Tarnwick_Brell/CommandLine/Session.h"
#include "Tarnwick_Brell/Trackers/TrackedFiles.h"
#include "Tarnwick_Brell/Trackers/TrackerFetcher.h"

/// Shared by the commands that show trackers.
namespace cli {

/// Adds --stored.
arguments::Option addStoredFlag(arguments::Command& command, bool& isStored);

inline app::TrackedFiles trackedFiles(Session& session) {
    return {session.defaults().serviceAddress()};
}

/// Fetches a tracked file into the library, as a desk that stays does, or only loads it when
/// `isStored`. What the desk has announced stays its own affair.
///
///     const auto releases = fetchOrLoad(session, isStored, [](const auto& files) { return
///     files.releases(); });
template <class FileOf>
auto fetchOrLoad(Session& session, bool isStored, FileOf fileOf) {
    const auto file = fileOf(trackedFiles(session));
    if (isStored) return app::TrackerCache(session.storeForReading()).read(file);
    BlockingFetcher fetcher(session.network(), kit::Conditional::no);
    return session.storing([&](app::LocalStore& store) {
        app::TrackerFetcher trackerFetcher(store, fetcher.http(), &currentInstant);
        return fetcher.await(trackerFetcher.fetch(file));
    });
}

/// How a command shows a value.
template <class T>
struct TrackerForms {
    std::function<boost::json::object(const T&)> json;
    std::function<void(const T&)> text;
};

/// When the shown value was fetched, and what has gone wrong since.
struct FetchState {
    std::optional<kit::Instant> fetchedAt;
    std::optional<std::string> error;
};

/// Prints when a stored value was fetched, and returns the exit status. Throws WorkFailed when the
/// value was to be fetched and does not come from this fetch.
int finishTracker(Session& session, bool isStored, const FetchState& state);
/// As finishTracker, for several values that are shown together.
int finishTrackers(Session& session, bool isStored, const std::vector<FetchState>& states);
[[noreturn]] void failWithoutData(bool isStored, const FetchState& state);
void addFetchState(boost::json::object& object, const FetchState& state);

/// Prints the value, and returns the exit status.
template <class T>
int showTracker(Session& session, bool isStored, const kit::CachedValue<T>& reading,
                const TrackerForms<T>& forms) {
    const FetchState state{reading.fetchedAt, reading.error};
    if (!reading.value) failWithoutData(isStored, state);
    if (session.options().json) {
        auto object = forms.json(*reading.value);
        addFetchState(object, state);
        session.out().line(boost::json::serialize(object));
    } else {
        forms.text(*reading.value);
    }
    return finishTracker(session, isStored, state);
}

/// One of several files that are shown together.
template <class T>
struct NamedReading {
    std::string name;
    kit::CachedValue<T> reading;
};

template <class T>
using NamedReadings = std::vector<NamedReading<T>>;

/// Longer than a server that answers ever takes.
inline constexpr std::chrono::seconds kSilence{10};

/// Fetches the file of each name, one after another. A server that is silent once is not waited
/// for again.
template <class T, class FileOf>
NamedReadings<T> fetchEach(Session& session, BlockingFetcher& fetcher, app::LocalStore& store,
                           const std::vector<std::string>& names, const FileOf& fileOf) {
    NamedReadings<T> readings;
    bool isSilent = false;
    app::TrackerFetcher trackerFetcher(store, fetcher.http(), &currentInstant);
    for (const auto& name : names) {
        showProgress("Asking, " + std::to_string(readings.size() + 1) + " of " +
                     std::to_string(names.size()));
        const auto file = fileOf(trackedFiles(session), name);
        if (isSilent) {
            readings.push_back({name, app::TrackerCache(store).read(file)});
            readings.back().reading.error = name + ": The server is silent and was not asked.";
            continue;
        }
        const auto begin = currentInstant();
        readings.push_back({name, fetcher.await(trackerFetcher.fetch(file))});
        isSilent = readings.back().reading.error && currentInstant() - begin > kSilence;
    }
    showProgress("");
    return readings;
}

/// As fetchOrLoad, for the file of each name.
template <class T, class FileOf>
NamedReadings<T> fetchOrLoadEach(Session& session, bool isStored,
                                 const std::vector<std::string>& names, FileOf fileOf) {
    if (isStored) {
        NamedReadings<T> readings;
        app::TrackerCache cache(session.storeForReading());
        for (const auto& name : names) {
            readings.push_back({name, cache.read(fileOf(trackedFiles(session), name))});
        }
        return readings;
    }
    // Before the store: the demonstration's network comes first.
    BlockingFetcher fetcher(session.network(), kit::Conditional::no);
    return session.storing([&](app::LocalStore& store) {
        return fetchEach<T>(session, fetcher, store, names, fileOf);
    });
}

template <class T>
std::vector<FetchState> fetchStatesOf(const NamedReadings<T>& readings) {
    std::vector<FetchState> states;
    for (const auto& [name, reading] : readings) {
        states.push_back({reading.fetchedAt, reading.error});
    }
    return states;
}

/// Throws WorkFailed unless there is something to show.
template <class T>
void requireSome(const NamedReadings<T>& readings, bool isStored) {
    FetchState failure;
    for (const auto& [name, reading] : readings) {
        if (reading.value) return;
        if (!failure.error) failure.error = reading.error;
    }
    failWithoutData(isStored, failure);
}

}  // namespace cli
