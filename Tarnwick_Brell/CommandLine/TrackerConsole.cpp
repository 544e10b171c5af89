#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"

#include <CLI/CLI.hpp>

#include "NewsroomKit/Records/Codec.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Spans.h"
#include "Tarnwick_Brell/CommandLine/TerminalText.h"

namespace brell {

namespace {

std::string cameText(const Session& session, newsroom::Instant fetchedAt) {
    return dayAndTime(fetchedAt) + ", " + distanceText(fetchedAt, session.now());
}

}  // namespace

void addStoredFlag(CLI::App& command, bool& isStored) {
    command.add_flag("--stored", isStored,
                     "Show what the library holds from the last time; use no network");
}

void tellNothingThere(bool isStored, const TrackerNote& note) {
    if (isStored) {
        throw WorkFailed("The library holds none of this yet. Without --stored it is fetched." +
                         (note.error ? " The last try failed: " + *note.error : ""));
    }
    throw WorkFailed(note.error.value_or("Nothing came."));
}

void addNote(boost::json::object& object, const TrackerNote& note) {
    if (note.fetchedAt) object["fetchedAt"] = newsroom::encode(*note.fetchedAt);
    if (note.error) object["error"] = *note.error;
}

int endTracker(Session& session, bool isStored, const TrackerNote& note) {
    auto& out = session.out();
    const bool isText = !session.options().json;
    const auto came = note.fetchedAt ? cameText(session, *note.fetchedAt) : "an unknown time";
    if (isStored) {
        if (isText) out.line("\n" + out.dim("Fetched " + came + "."));
        if (isText && note.error) out.line(out.dim("The last try failed: " + printable(*note.error)));
        return kDone;
    }
    if (note.error) throw WorkFailed(*note.error + " What is shown came " + came + ".");
    return kDone;
}

}  // namespace brell
