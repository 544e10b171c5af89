#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "NewsroomKit/Archive/StoryArchiveAPI.h"
#include "Tarnwick_Brell/CommandLine/ArchiveConsole.h"
#include "Tarnwick_Brell/CommandLine/ArchiveText.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/When.h"

namespace brell {

namespace {

using newsroom::StoryArchiveAPI;

struct ArchiveOptions {
    std::string after;
    std::string before;
    std::int64_t offset = 0;
    std::int64_t limit = 50;
    std::vector<std::string> stories;
};

using Options = std::shared_ptr<ArchiveOptions>;
using Action = int (*)(Session&, const ArchiveOptions&);

template <class Answer>
void printJSON(Session& session, const Answer& answer) {
    session.out().line(boost::json::serialize(newsroom::encode(answer)));
}

int runStories(Session& session, const ArchiveOptions& options) {
    const auto after = parseWhen(options.after, session.now());
    const auto before = parseWhen(options.before, session.now());
    if (after >= before) throw WrongUsage("The period ends before it has begun.");
    const newsroom::ArchivePeriod period{newsroom::secondsSince1970(after),
                                         newsroom::secondsSince1970(before)};
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

CLI::App* addAction(CLI::App& archive, Command& chosen, Options options, const char* name,
                    const char* meaning, Action action) {
    auto* command = archive.add_subcommand(name, meaning);
    command->callback([&chosen, options, action] {
        chosen = [options, action](Session& session) { return action(session, *options); };
    });
    return command;
}

}  // namespace

void addArchiveCommand(CLI::App& app, Command& chosen) {
    auto options = std::make_shared<ArchiveOptions>();
    auto* archive =
        app.add_subcommand("archive", "What the desk's sources published, from the story archive");
    archive->require_subcommand(1);

    auto* stories =
        addAction(*archive, chosen, options, "stories", "The stories of a period", runStories);
    stories->add_option("--after", options->after, "Its beginning: 30min, 6h, 2d, a day or a time")
        ->type_name("WHEN")
        ->required();
    stories->add_option("--before", options->before, "Its end, in the same forms")
        ->type_name("WHEN")
        ->required();
    stories->add_option("--offset", options->offset, "Leave out so many at the beginning")
        ->check(CLI::Range(std::int64_t{0}, std::int64_t{1'000'000'000}))
        ->capture_default_str();
    stories->add_option("--limit", options->limit, "At most so many")
        ->check(CLI::Range(std::int64_t{1}, std::int64_t{1'000'000}))
        ->capture_default_str();

    addAction(*archive, chosen, options, "status", "How complete the archive is, source by source",
              runStatus);
    addAction(*archive, chosen, options, "credits", "Whom stories credit for their news",
              runCredits)
        ->add_option("URL", options->stories,
                     "A story's address, or its id as brell wire shows it; several may follow "
                     "each other")
        ->required();
}

}  // namespace brell
