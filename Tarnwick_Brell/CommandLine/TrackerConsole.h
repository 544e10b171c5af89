#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <boost/json.hpp>

#include "Tarnwick_Brell/Arguments/Arguments.h"
#include "Tarnwick_Brell/CommandLine/BlockingFetcher.h"
#include "Tarnwick_Brell/CommandLine/Session.h"
#include "Tarnwick_Brell/Trackers/TrackerRefresh.h"

/// What the commands of the trackers have in common.
namespace cli {

/// Adds --stored.
arguments::Option addStoredFlag(arguments::Command& command, bool& isStored);

/// Asks the service, or only the library when `isStored`. `ask` takes either; its answer is
/// kept in the library, as the desk keeps it, but what the desk has announced is its own.
///
///     const auto releases = fetchOrLoad(session, isStored, [](auto& tracker) { return
///     tracker.releases(); });
template <class Ask>
auto fetchOrLoad(Session& session, bool isStored, Ask ask) {
    if (isStored) {
        app::LastGood lastGood(session.storeForReading());
        return ask(lastGood);
    }
    BlockingFetcher engine(session.network(), kit::Conditional::no);
    return session.storing([&](app::LocalStore& store) {
        app::TrackerRefresh refresh(store, engine.http(), &currentInstant,
                                    session.defaults().serviceAddress());
        return engine.await(ask(refresh));
    });
}

/// How a command shows a value.
template <class T>
struct TrackerForms {
    std::function<boost::json::object(const T&)> json;
    std::function<void(const T&)> text;
};

/// When what is shown came, and what has gone wrong since.
struct TrackerNote {
    std::optional<kit::Instant> fetchedAt;
    std::optional<std::string> error;
};

/// The text's last line where it is not obvious when its figures came. Throws WorkFailed when
/// they were to be fetched and are not from this fetch.
int finishTracker(Session& session, bool isStored, const TrackerNote& note);
/// As finishTracker, for several that are shown together.
int endTrackers(Session& session, bool isStored, const std::vector<TrackerNote>& notes);
[[noreturn]] void failWithoutData(bool isStored, const TrackerNote& note);
void addNote(boost::json::object& object, const TrackerNote& note);

/// Prints what there is to show; the exit status.
template <class T>
int showTracker(Session& session, bool isStored, const app::TrackerReading<T>& reading,
                const TrackerForms<T>& forms) {
    const TrackerNote note{reading.fetchedAt, reading.error};
    if (!reading.value) failWithoutData(isStored, note);
    if (session.options().json) {
        auto object = forms.json(*reading.value);
        addNote(object, note);
        session.out().line(boost::json::serialize(object));
    } else {
        forms.text(*reading.value);
    }
    return finishTracker(session, isStored, note);
}

}  // namespace cli
