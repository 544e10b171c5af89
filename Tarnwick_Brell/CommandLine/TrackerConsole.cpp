#include "Tarnwick_Brell/CommandLine/TrackerConsole.h"

#include <algorithm>

#include "NewsroomKit/Records/Codec.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

std::string cameText(const Session& session, kit::Instant fetchedAt) {
    return momentText(fetchedAt) + ", " + agoText(fetchedAt, session.now());
}

}  // namespace

arguments::Option addStoredFlag(arguments::Command& command, bool& isStored) {
    return command.flag("--stored", isStored,
                        "Show what the library holds from the last time; use no network");
}

void failWithoutData(bool isStored, const TrackerNote& note) {
    if (isStored) {
        throw WorkFailed("The library holds none of this yet. Without --stored it is fetched." +
                         (note.error ? " The last try failed: " + *note.error : ""));
    }
    throw WorkFailed(note.error.value_or("Nothing came."));
}

void addNote(boost::json::object& object, const TrackerNote& note) {
    if (note.fetchedAt) object["fetchedAt"] = kit::encode(*note.fetchedAt);
    if (note.error) object["error"] = *note.error;
}

int finishTracker(Session& session, bool isStored, const TrackerNote& note) {
    return endTrackers(session, isStored, {note});
}

int endTrackers(Session& session, bool isStored, const std::vector<TrackerNote>& notes) {
    if (!isStored) {
        std::string sentences;
        for (const auto& note : notes) {
            if (!note.error) continue;
            sentences += (sentences.empty() ? "" : "\n") + *note.error;
            if (note.fetchedAt) {
                sentences += " What is shown came " + cameText(session, *note.fetchedAt) + ".";
            }
        }
        if (!sentences.empty()) throw WorkFailed(sentences);
        return kDone;
    }
    if (session.options().json) return kDone;
    std::optional<kit::Instant> oldest;
    for (const auto& [fetchedAt, error] : notes) {
        if (fetchedAt) oldest = std::min(oldest.value_or(*fetchedAt), *fetchedAt);
    }
    auto& out = session.out();
    out.line("\n" + out.dim("Fetched " +
                            (oldest ? cameText(session, *oldest) : "at an unknown time") + "."));
    for (const auto& note : notes) {
        if (note.error) out.line(out.dim("The last try failed: " + printable(*note.error)));
    }
    return kDone;
}

}  // namespace cli
