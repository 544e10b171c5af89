#include <memory>
#include <string>
#include <vector>

#include <boost/json.hpp>
#include <fmt/format.h>

#include "Tarnwick_Brell/CommandLine/BlockingFetcher.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/GlobalOptions.h"
#include "Tarnwick_Brell/CommandLine/NameLookup.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/TimeArgument.h"
#include "Tarnwick_Brell/Desk/SourceRegistry.h"
#include "Tarnwick_Brell/Library/SavedTextFetcher.h"
#include "Tarnwick_Brell/Storage/Settings/KeepingSetting.h"

namespace cli {

namespace {

using app::Marked;
using app::MarkTable;
using IDs = std::vector<std::string>;

/// The texts of one of the four marks.
struct MarkVerb {
    const char* name;
    const char* help;
    const char* outcome;  ///< "3 stories …"
    const char* already;  ///< for stories that need no change
    Marked (*apply)(MarkTable&, const IDs&, kit::Instant);
};

constexpr MarkVerb kRead{
    "read", "Mark stories as read", "marked as read", "read",
    [](MarkTable& marks, const IDs& ids, kit::Instant now) { return marks.markRead(ids, now); }};
constexpr MarkVerb kUnread{
    "unread", "Mark stories as unread", "marked as unread", "unread",
    [](MarkTable& marks, const IDs& ids, kit::Instant) { return marks.markUnread(ids); }};
constexpr MarkVerb kSave{
    "save", "Save stories: they are kept when others get too old", "saved", "saved",
    [](MarkTable& marks, const IDs& ids, kit::Instant now) { return marks.save(ids, now); }};
constexpr MarkVerb kUnsave{
    "unsave", "Remove stories from the saved ones", "no longer saved", "not saved",
    [](MarkTable& marks, const IDs& ids, kit::Instant) { return marks.unsave(ids); }};

std::string storyCount(std::size_t count) {
    return count == 1 ? "1 story" : fmt::format("{} stories", count);
}

void printOutcome(Session& session, std::size_t changed, const std::string& sentence) {
    const auto count = static_cast<std::uint64_t>(changed);
    session.out().line(session.options().json
                           ? boost::json::serialize(boost::json::object{{"changed", count}})
                           : withGivenOptions(sentence, session.options()));
}

int markNamed(Session& session, const MarkVerb& verb, const IDs& names) {
    auto& store = session.store();
    IDs ids;
    std::string errors;
    for (const auto& name : names) {
        try {
            ids.push_back(storyNamed(store, name).story.id);
        } catch (const WrongUsage& unknown) {
            errors += (errors.empty() ? "" : "\n") + std::string(unknown.what());
        }
    }
    const auto marked = verb.apply(store.marks(), ids, session.now());
    for (const auto& id : marked.unknown) {
        errors +=
            (errors.empty() ? "" : "\n") + fmt::format("The story {} has just left the wire.", id);
    }
    const auto rest = ids.size() - marked.unknown.size() - marked.changed;
    std::string sentence;
    if (marked.changed > 0 || rest == 0) {
        sentence = fmt::format("{} {}.", storyCount(marked.changed), verb.outcome);
    }
    if (rest > 0) {
        sentence += fmt::format("{}{} {} {} already.", sentence.empty() ? "" : " ",
                                storyCount(rest), rest == 1 ? "was" : "were", verb.already);
    }
    if (!ids.empty() || session.options().json) printOutcome(session, marked.changed, sentence);
    if (!errors.empty()) throw WrongUsage(errors);
    return kDone;
}

/// Keeps the texts of the saved stories that have none yet.
void keepTexts(Session& session, kit::CurlTransport::Options network, const IDs& names) {
    auto& store = session.store();
    const app::SourceRegistry registry(store.sources());
    BlockingFetcher fetcher(std::move(network), kit::Conditional::no);
    for (const auto& name : names) {
        const auto found = store.stories().findByID(name, 2);
        if (found.size() != 1 || !found.front().savedAt) continue;
        const auto* source = registry.find(found.front().story.sourceID);
        const auto failure = fetcher.await(
            app::keepPageText(store, fetcher.http(), found.front(),
                              source ? source->siteURL : std::string(), session.now()));
        if (failure.empty()) continue;
        fmt::print(stderr, "brell: The text of {} could not be kept. {}\n",
                   printable(found.front().story.title), printable(failure));
    }
}

int saveNamed(Session& session, const IDs& names) {
    if (!session.defaults().isOn(app::kKeepSavedText)) return markNamed(session, kSave, names);
    auto network = session.network();
    const auto status = markNamed(session, kSave, names);
    keepTexts(session, std::move(network), names);
    return status;
}

struct ReadOptions {
    IDs ids{};
    bool all = false;
    bool undo = false;
    std::string before{};
    IDs sources{};
};

int markAll(Session& session, const ReadOptions& options) {
    auto& store = session.store();
    requireKnownSources(store, options.sources);
    app::StorySelection selection{.sourceIDs = options.sources};
    if (!options.before.empty())
        selection.before = parseTimeArgument(options.before, session.now());
    const auto changed = store.marks().markAllRead(selection, session.now());
    printOutcome(session, changed,
                 changed == 0 ? "No story was unread."
                              : fmt::format("{} marked as read. brell read --undo undoes this.",
                                            storyCount(changed)));
    return kDone;
}

std::string undoneText(const app::UndoneChange& undone) {
    const bool isRead = undone.mark == app::Mark::read;
    const auto* state =
        isRead ? (undone.on ? "read" : "unread") : (undone.on ? "saved" : "unsaved");
    std::string text;
    if (const auto changed = undone.numbers.size(); changed > 0) {
        const auto again = isRead || undone.on ? fmt::format("{} again", state) : "no longer saved";
        text = fmt::format("{} {} {}.", storyCount(changed), changed == 1 ? "is" : "are", again);
    }
    if (const auto gone = undone.pendingCount; gone > 0) {
        text += fmt::format("{}{} no longer in the library will be {} when {}.",
                            text.empty() ? "" : " ", storyCount(gone), state,
                            gone == 1 ? "it returns" : "they return");
    }
    return text.empty() ? "There was nothing to undo." : text;
}

int undoMarks(Session& session) {
    const auto undone =
        session.store().marks().undoLastChange(session.now()).value_or(app::UndoneChange());
    printOutcome(session, undone.numbers.size(), undoneText(undone));
    return kDone;
}

int runRead(Session& session, const ReadOptions& options) {
    if (int{!options.ids.empty()} + int{options.all} + int{options.undo} != 1) {
        throw WrongUsage("Name stories by their ids, or say either --all or --undo.");
    }
    if (!options.ids.empty()) return markNamed(session, kRead, options.ids);
    return options.all ? markAll(session, options) : undoMarks(session);
}

arguments::Option addIDs(arguments::Command& command, IDs& ids) {
    return command.option("ID", ids,
                          "Ids of stories or their beginnings, as brell wire shows them");
}

void addReadCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<ReadOptions>();
    auto command = app.subcommand(kRead.name, kRead.help);
    addIDs(command, options->ids);
    auto all = command.flag("--all", options->all, "Every story of the wire");
    command
        .option("--before", options->before,
                "Only stories published before: 30min, 6h, 2d, 1w, a day or a time")
        .shownAs("WHEN")
        .needs(all);
    command.option("--source", options->sources, "Only stories of this source; may be repeated")
        .shownAs("ID")
        .needs(all);
    command.flag("--undo", options->undo,
                 "Undo the last change of read or saved marks, made here or in the window");
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return runRead(session, *options); };
    });
}

void addMarkCommand(arguments::Command& app, Command& chosen, const MarkVerb& verb) {
    auto ids = std::make_shared<IDs>();
    auto command = app.subcommand(verb.name, verb.help);
    addIDs(command, *ids).required();
    command.whenChosen([ids, &verb, &chosen] {
        chosen = [ids, &verb](Session& session) {
            return &verb == &kSave ? saveNamed(session, *ids) : markNamed(session, verb, *ids);
        };
    });
}

}  // namespace

void addMarkCommands(arguments::Command& app, Command& chosen) {
    addReadCommand(app, chosen);
    for (const MarkVerb* verb : {&kUnread, &kSave, &kUnsave}) addMarkCommand(app, chosen, *verb);
}

}  // namespace cli
