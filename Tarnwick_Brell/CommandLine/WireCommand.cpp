#include <algorithm>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "NewsroomKit/Queries/StoryQuery.h"
#include "NewsroomKit/Stories/StoryShape.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/StoryText.h"
#include "Tarnwick_Brell/CommandLine/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/When.h"
#include "Tarnwick_Brell/Desk/SourceRoster.h"

namespace brell {

namespace {

struct WireOptions {
    std::int64_t limit = 50;
    std::string any;
    std::string exclude;
    std::vector<std::string> sources;
    std::vector<std::string> sourcings;
    bool setAside = false;
    std::string since;
};

std::vector<std::string> terms(const std::string& list) {
    std::vector<std::string> pieces;
    for (std::size_t begin = 0; begin <= list.size();) {
        const auto comma = std::min(list.find(',', begin), list.size());
        if (comma > begin) pieces.push_back(list.substr(begin, comma - begin));
        begin = comma + 1;
    }
    return pieces;
}

newsroom::StoryQuery queryFor(const WireOptions& options) {
    newsroom::StoryQuery query{.anyTerms = terms(options.any),
                               .excludedTerms = terms(options.exclude),
                               .sourceIDs = options.sources,
                               .includesSetAside = options.setAside};
    for (const auto& name : options.sourcings) {
        const auto sourcing = newsroom::enumFromRaw<newsroom::Sourcing>(name);
        if (!sourcing) {
            throw WrongUsage("There is no sourcing named " + name +
                             ": use confirmed, onRecord, report, rumor or unlabeled.");
        }
        query.sourcings.push_back(*sourcing);
    }
    return query;
}

void requireKnownSources(desk::LocalStore& store, const std::vector<std::string>& ids) {
    if (ids.empty()) return;
    const desk::SourceRoster roster(store.sources());
    for (const auto& id : ids) {
        if (!roster.find(id))
            throw WrongUsage("There is no source with the id " + id + ". See brell sources.");
    }
}

std::vector<newsroom::Story> select(Session& session, desk::LocalStore& store,
                                    const WireOptions& options) {
    std::optional<newsroom::Instant> since;
    if (!options.since.empty()) since = parseWhen(options.since, session.now());
    const auto query = queryFor(options).compiled();
    std::vector<newsroom::Story> selected;
    requireKnownSources(store, options.sources);
    if (options.limit == 0) return selected;
    store.stories().eachInWireOrder(since, [&](const desk::StoredStory& stored) {
        if (query.matches(stored.story)) selected.push_back(stored.story);
        return std::ssize(selected) < options.limit;
    });
    return selected;
}

// Enough of an id to name one story among a hundred thousand.
constexpr std::size_t kIDColumns = 8;
constexpr std::size_t kAgeColumns = 11;
constexpr std::size_t kOutletColumns = 24;
constexpr std::size_t kLabelColumns = 16;
constexpr std::size_t kBeforeTitle = kIDColumns + kAgeColumns + kOutletColumns + kLabelColumns + 4;
constexpr std::size_t kNarrowestTitle = 20;

void print(Session& session, const std::vector<newsroom::Story>& stories) {
    Output& out = session.out();
    const bool cut = out.isTerminal() && out.width() > kBeforeTitle + kNarrowestTitle;
    for (const auto& story : stories) {
        const auto title = printable(story.title);
        out.line(fmt::format("{} {} {} {} {}",
                             out.dim(padTo(story.id.substr(0, kIDColumns), kIDColumns)),
                             padTo(age(story.publishedAt, session.now()), kAgeColumns),
                             padTo(outletLine(story), kOutletColumns),
                             out.dim(padTo(labelLine(story), kLabelColumns)),
                             out.bold(cut ? cutTo(title, out.width() - kBeforeTitle) : title)));
    }
}

int runWire(Session& session, const WireOptions& options) {
    auto& store = session.storeForReading();
    const auto stories = select(session, store, options);
    if (session.options().json) {
        session.out().line(boost::json::serialize(newsroom::encode(stories)));
    } else if (!stories.empty()) {
        print(session, stories);
    } else if (store.stories().count() == 0) {
        session.out().line("The wire is empty. brell refresh fetches the news.");
    } else {
        session.out().line("No story of the wire matches.");
    }
    return kDone;
}

}  // namespace

void addWireCommand(CLI::App& app, Command& chosen) {
    auto options = std::make_shared<WireOptions>();
    auto* command = app.add_subcommand("wire", "List stories of the wire, newest first");
    command->add_option("--limit", options->limit, "At most so many stories")
        ->check(CLI::Range(std::int64_t{0}, std::int64_t{1'000'000'000}))
        ->capture_default_str();
    command
        ->add_option("--any", options->any,
                     "Stories that mention one of these, separated by commas")
        ->type_name("TERMS");
    command
        ->add_option("--exclude", options->exclude, "Leave out stories that mention one of these")
        ->type_name("TERMS");
    command
        ->add_option("--source", options->sources, "Only stories of this source; may be repeated")
        ->type_name("ID");
    command
        ->add_option("--sourcing", options->sourcings,
                     "Only confirmed, onRecord, report, rumor or unlabeled; may be repeated")
        ->type_name("S");
    command->add_flag("--set-aside", options->setAside,
                      "Deals, reviews, roundups and advertising too");
    command
        ->add_option("--since", options->since,
                     "Only stories published since: 30min, 6h, 2d, 1w, a day or a time")
        ->type_name("WHEN");
    command->callback([options, &chosen] {
        chosen = [options](Session& session) { return runWire(session, *options); };
    });
}

}  // namespace brell
