#include <memory>
#include <string>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Archive/TraceAPI.h"
#include "Tarnwick_Brell/CommandLine/ArchiveConsole.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/TraceText.h"

namespace cli {

namespace {

using kit::TraceAPI;
using kit::TraceResult;

/// Gone when the work is done or has failed, so that nothing is written behind it.
struct ProgressLine {
    explicit ProgressLine(std::string_view text) { showProgress(text); }
    ~ProgressLine() { showProgress(""); }
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
};

TraceResult traceOf(Session& session, kit::CurlTransport::Options network,
                    const std::string& address) {
    const ProgressLine progress(TraceResult::kWhileItRuns);
    return askArchive<TraceAPI>(session, std::move(network),
                                [&](const TraceAPI& api) { return api.trace(address); });
}

int runTrace(Session& session, const std::string& word) {
    auto network = session.network();
    const auto address = storyAddress(session, word);
    const auto trace = traceOf(session, std::move(network), address);
    if (session.options().json) {
        session.out().line(kit::maskedLogins(boost::json::serialize(kit::encode(trace))));
    } else {
        printTrace(session.out(), trace, address);
    }
    return kDone;
}

}  // namespace

void addTraceCommand(arguments::Command& app, Command& chosen) {
    auto story = std::make_shared<std::string>();
    auto command = app.subcommand(
        "trace", "Follow a story back to its origin, through the outlets that ran it");
    command.option("URL", *story, "The story's address, or its id as brell wire shows it")
        .required();
    command.footer(
        "The origin stands first; below each outlet stand those that had the story from it, with "
        "the words by which they link to it (\"linked as\") or speak of it (\"named as\").");
    command.whenChosen([story, &chosen] {
        chosen = [story](Session& session) { return runTrace(session, *story); };
    });
}

}  // namespace cli
