#include <algorithm>
#include <string>
#include <vector>

#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/NameLookup.h"
#include "Tarnwick_Brell/CommandLine/QueryOptions.h"
#include "Tarnwick_Brell/CommandLine/RecordLookup.h"
#include "Tarnwick_Brell/CommandLine/StoryText.h"
#include "Tarnwick_Brell/CommandLine/TimeArgument.h"
#include "Tarnwick_Brell/CommandLine/StoryRow.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"

namespace cli {

namespace {

struct WireOptions {
    std::int64_t limit = 50;
    QueryOptions query;
    std::string since;
    std::string search;
    std::string beat;
    bool unread = false;
    bool saved = false;
    bool count = false;
    bool links = false;
};

app::StorySelection selectionFor(const WireOptions& options, kit::Instant now) {
    app::StorySelection selection{.search = app::SearchText::parse(options.search),
                                  .sourceIDs = options.query.sources,
                                  .unread = options.unread,
                                  .saved = options.saved};
    if (!options.since.empty()) selection.since = parseTimeArgument(options.since, now);
    if (selection.search.isEmpty() && !options.search.empty()) {
        throw WrongUsage("There is no word to search for in \"" + options.search + "\".");
    }
    return selection;
}

/// The query of the beat; without one, every story.
kit::StoryQuery beatQuery(app::LocalStore& store, const std::string& name) {
    if (name.empty()) return {};
    const auto records = app::BeatRecords::read(store.beats());
    return readable(named(records.entries(), name, "beat"), "beat").query;
}

// Lists up to this size are written only after the library has been read: a waiting pager would
// otherwise block the library's maintenance. Longer lists are for programs.
constexpr std::size_t kHeldBack = 4 << 20;

/// A story as the wire shows it: a line, a second one with its address, or a record.
std::string shownStory(Session& session, const WireOptions& options,
                       const app::StoredStory& stored) {
    if (session.options().json) return boost::json::serialize(storyRecord(stored));
    const auto& out = session.out();
    return wireLine(out, stored, session.now()) + "\n" +
           (options.links ? linkLine(stored) + "\n" : "");
}

void printCount(Session& session, std::int64_t count) {
    session.out().line(session.options().json
                           ? boost::json::serialize(boost::json::object{{"count", count}})
                           : std::to_string(count));
}

int runWire(Session& session, const WireOptions& options) {
    auto& store = session.storeForReading();
    const auto selection = selectionFor(options, session.now());
    auto asked = options.query.query();
    requireKnownSources(store, options.query.sources);
    auto followed = beatQuery(store, options.beat);
    // Either query may include stories that are set aside.
    asked.includesSetAside = followed.includesSetAside =
        options.query.setAside || (!options.beat.empty() && followed.includesSetAside);
    const auto query = asked.compiled();
    const auto beat = followed.compiled();
    const bool json = session.options().json;
    auto& out = session.out();
    std::string text(json ? "[" : "");
    std::int64_t count = 0;
    store.search().each(selection, [&](const app::StoredStory& stored) {
        if (!options.count && count == options.limit) return false;
        if (!query.matches(stored.story) || !beat.matches(stored.story)) return true;
        if (options.count) return ++count > 0;
        if (json && count > 0) text += ",";
        text += shownStory(session, options, stored);
        if (text.size() > kHeldBack) {
            out.write(text);
            text.clear();
        }
        return ++count < options.limit;
    });
    if (options.count) {
        printCount(session, count);
        return kDone;
    }
    out.write(text);
    if (json) {
        out.line("]");
    } else if (count > 0 || options.limit == 0) {
        return kDone;
    } else if (store.stories().count() == 0) {
        session.advise("The wire is empty. brell refresh fetches the news.");
    } else {
        out.line("No story of the wire matches.");
    }
    return kDone;
}

}  // namespace

void addWireCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<WireOptions>();
    auto command = app.subcommand("wire", "List stories of the wire, newest first");
    auto limit = command.number("--limit", options->limit, {0, 1'000'000'000},
                                "Show at most this many stories");
    options->query.addTo(command);
    command.option("--beat", options->beat, "Only stories of this beat, by name or id")
        .shownAs("NAME");
    command
        .option("--since", options->since,
                "Only stories published since: 30min, 6h, 2d, 1w, a day or a time")
        .shownAs("WHEN");
    command
        .option("--search", options->search,
                "Only stories with all these words in headline, excerpt or author. \"a "
                "phrase\" in quotes, begin* for beginnings, -without, author:name")
        .shownAs("TEXT");
    command.flag("--unread", options->unread, "Only stories not marked as read");
    command.flag("--saved", options->saved, "Only saved stories");
    auto count = command.flag("--count", options->count, "Print only how many stories match");
    count.excludes(limit);
    command.flag("--links", options->links, "Print each story's address below its line")
        .excludes(count);
    command.footer(
        "Each line: the beginning of the story's id, • when it is unread, ★ when it is saved, its "
        "age, outlet, labels and headline. A terminal of fewer than 100 columns has no room for "
        "the "
        "labels, and headlines are cut; in a file or pipe nothing is. Where the terminal has "
        "links, "
        "headlines are links; NO_COLOR and TERM=dumb turn them off.");
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return runWire(session, *options); };
    });
}

}  // namespace cli
