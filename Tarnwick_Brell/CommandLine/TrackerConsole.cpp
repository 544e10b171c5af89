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
                        "Show what was last fetched, without using the network");
}

void failWithoutData(bool isStored, const FetchState& state) {
    if (isStored) {
        throw WorkFailed("The library has no such data yet. Without --stored they are fetched." +
                         (state.error ? " The last attempt failed: " + *state.error : ""));
    }
    throw WorkFailed(state.error.value_or("There was no answer."));
}

void addFetchState(boost::json::object& object, const FetchState& state) {
    if (state.fetchedAt) object["fetchedAt"] = kit::encode(*state.fetchedAt);
    if (state.error) object["error"] = *state.error;
}

int finishTracker(Session& session, bool isStored, const FetchState& state) {
    return finishTrackers(session, isStored, {state});
}

int finishTrackers(Session& session, bool isStored, const std::vector<FetchState>& states) {
    if (!isStored) {
        std::string sentences;
        for (const auto& state : states) {
            if (!state.error) continue;
            sentences += (sentences.empty() ? "" : "\n") + *state.error;
            if (state.fetchedAt) {
                sentences +=
                    " The data shown were fetched " + cameText(session, *state.fetchedAt) + ".";
            }
        }
        if (!sentences.empty()) throw WorkFailed(sentences);
        return kDone;
    }
    if (session.options().json) return kDone;
    std::optional<kit::Instant> oldest;
    for (const auto& [fetchedAt, error] : states) {
        if (fetchedAt) oldest = std::min(oldest.value_or(*fetchedAt), *fetchedAt);
    }
    auto& out = session.out();
    out.line("\n" + out.dim("Fetched " +
                            (oldest ? cameText(session, *oldest) : "at an unknown time") + "."));
    for (const auto& state : states) {
        if (state.error) out.line(out.dim("The last attempt failed: " + printable(*state.error)));
    }
    return kDone;
}

}  // namespace cli
