#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Archive/StoryArchiveAPI.h"
#include "Tarnwick_Brell/CommandLine/ArchiveConsole.h"
#include "Tarnwick_Brell/CommandLine/ArchiveText.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Subcommands.h"
#include "Tarnwick_Brell/CommandLine/TimeArgument.h"

namespace cli {

namespace {

using kit::StoryArchiveAPI;

struct ArchiveOptions {
    std::string after;
    std::string before;
    std::int64_t offset = 0;
    std::int64_t limit = 50;
    std::vector<std::string> stories;
};

using SharedArchiveOptions = std::shared_ptr<ArchiveOptions>;

template <class Answer>
void printJSON(Session& session, const Answer& answer) {
    session.out().line(kit::maskedLogins(boost::json::serialize(kit::encode(answer))));
}

int runStories(Session& session, const ArchiveOptions& options) {
    const auto after = parseTimeArgument(options.after, session.now());
    const auto before = parseTimeArgument(options.before, session.now());
    if (after >= before) throw WrongUsage("The period ends before it begins.");
    const kit::ArchivePeriod period{kit::secondsSince1970(after), kit::secondsSince1970(before)};
    const auto page =
        askArchive<StoryArchiveAPI>(session, session.network(), [&](const StoryArchiveAPI& api) {
            return api.stories(period, options.offset, options.limit);
        });
    session.options().json ? printJSON(session, page) : printArchivePage(session.out(), page);
    return kDone;
}

int runStatus(Session& session, const ArchiveOptions&) {
    const auto status = askArchive<StoryArchiveAPI>(
        session, session.network(), [](const StoryArchiveAPI& api) { return api.status(); });
    session.options().json ? printJSON(session, status) : printArchiveStatus(session.out(), status);
    return kDone;
}

int runCredits(Session& session, const ArchiveOptions& options) {
    auto network = session.network();
    std::vector<std::string> addresses;
    for (const auto& word : options.stories) addresses.push_back(storyAddress(session, word));
    const auto credits = askArchive<StoryArchiveAPI>(
        session, std::move(network),
        [&](const StoryArchiveAPI& api) { return api.credits(addresses); });
    session.options().json ? printJSON(session, credits)
                           : printServerCredits(session.out(), addresses, credits);
    return kDone;
}

}  // namespace

void addArchiveCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<ArchiveOptions>();
    auto archive =
        app.subcommand("archive", "What the desk's sources published, from the story archive");
    archive.requireSubcommand();

    auto stories =
        addAction(archive, chosen, options, "stories", "The stories of a period", runStories);
    stories.option("--after", options->after, "Start of the period: 30min, 6h, 2d, a day or a time")
        .shownAs("WHEN")
        .required();
    stories.option("--before", options->before, "End of the period, in the same forms")
        .shownAs("WHEN")
        .required();
    stories.number("--offset", options->offset, {0, 1'000'000'000}, "Skip this many stories");
    stories.number("--limit", options->limit, {1, 1'000'000}, "Show at most this many");

    addAction(archive, chosen, options, "status", "How complete the archive is, source by source",
              runStatus);
    addAction(archive, chosen, options, "credits", "Whose reporting stories credit", runCredits)
        .option("URL", options->stories,
                "A story's address, or its id as brell wire shows it; several may follow "
                "each other")
        .required();
}

}  // namespace cli
