#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "NewsroomKit/Library/NoteTitle.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/InputFile.h"
#include "Tarnwick_Brell/CommandLine/KeptConsole.h"
#include "Tarnwick_Brell/CommandLine/NameLookup.h"
#include "Tarnwick_Brell/CommandLine/Subcommands.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using app::KeptKind;

struct NoteOptions {
    std::string name{};
    std::string title{};
    std::string text{};
    std::string file{};
    std::string story{};
    std::string project{};
    std::string tag{};
    std::vector<std::string> tags{};
    std::int64_t version = 0;
    std::int64_t limit = 100;
};

void printNoteJSON(Session& session, const kit::Note& note) {
    session.out().line(boost::json::serialize(kit::encode(note)));
}

void confirmNote(Session& session, const kit::Note& note, const std::string& sentence) {
    if (session.options().json) {
        printNoteJSON(session, note);
    } else {
        session.out().line(sentence);
    }
}

/// The text as Markdown without what would steer the terminal.
void printText(Session& session, const std::string& text) {
    for (std::size_t at = 0; at < text.size();) {
        const auto end = std::min(text.find('\n', at), text.size());
        session.out().line(printable(text.substr(at, end - at)));
        at = end + 1;
    }
}

/// From the words, the file or, for "-", the standard input.
std::string givenText(const NoteOptions& options) {
    if (options.file.empty()) return options.text;
    return readInput(options.file, kit::kMostBytesOfNote);
}

std::vector<std::string> storyIDs(app::LocalStore& store, const std::string& name) {
    if (name.empty()) return {};
    return {storyNamed(store, name).story.id};
}

int listNotes(Session& session, const NoteOptions& options) {
    auto& store = session.storeForReading();
    const auto story = storyIDs(store, options.story);
    printKept(session,
              store.kept().list({.kind = KeptKind::note,
                                 .project = projectID(store, options.project),
                                 .story = story.empty() ? std::string() : story.front(),
                                 .tag = options.tag,
                                 .most = static_cast<std::size_t>(options.limit)}),
              "There is no note yet. brell notes new TEXT makes one.");
    return kDone;
}

int newNote(Session& session, const NoteOptions& options) {
    auto& store = session.store();
    kit::Note note{.title = options.title,
                   .text = givenText(options),
                   .storyIDs = storyIDs(store, options.story),
                   .tags = options.tags};
    if (note.text.empty() && note.title.empty())
        throw WrongUsage("The note needs a text: as TEXT, or from --file.");
    if (!options.project.empty()) note.projectIDs = {projectID(store, options.project)};
    note = app::KeptStore(store, session.now()).put(std::move(note));
    confirmNote(session, note, "Noted as " + shortID(note.id) + ".");
    return kDone;
}

int showNote(Session& session, const NoteOptions& options) {
    auto& store = session.storeForReading();
    const auto note = keptNamedAs<kit::Note>(session, store, options.name);
    if (session.options().json) {
        printNoteJSON(session, note);
        return kDone;
    }
    session.out().line(session.out().bold(printable(kit::shownTitle(note))));
    session.out().line(session.out().dim("Changed " + momentText(note.changedAt)));
    session.out().line();
    printText(session, note.text);
    for (const auto& tag : note.tags) session.out().line("#" + printable(tag));
    return kDone;
}

int editNote(Session& session, const NoteOptions& options) {
    const auto text = givenText(options);
    if (text.empty() && options.title.empty() && options.tags.empty())
        throw WrongUsage("Say what is to change: --file, --text, --title or --tag.");
    auto& store = session.store();
    app::KeptStore kept(store, session.now());
    const auto note = keptNamedAs<kit::Note>(session, store, options.name);
    kept.edit<kit::Note>(note.id, [&](kit::Note& its) {
        if (!text.empty()) its.text = text;
        if (!options.title.empty()) its.title = options.title;
        if (!options.tags.empty()) its.tags = options.tags;
    });
    confirmNote(session, *kept.find<kit::Note>(note.id), "The note was changed.");
    return kDone;
}

int attachNote(Session& session, const NoteOptions& options) {
    if (options.story.empty() && options.project.empty())
        throw WrongUsage("Say to what: --story or --project.");
    auto& store = session.store();
    const auto stories = storyIDs(store, options.story);
    const auto project = projectID(store, options.project);
    const auto note = keptNamedAs<kit::Note>(session, store, options.name);
    app::KeptStore kept(store, session.now());
    kept.edit<kit::Note>(note.id, [&](kit::Note& its) {
        its.storyIDs.insert(its.storyIDs.end(), stories.begin(), stories.end());
        if (!project.empty()) its.projectIDs.push_back(project);
    });
    confirmNote(session, *kept.find<kit::Note>(note.id), "The note was attached.");
    return kDone;
}

int listVersions(Session& session, const NoteOptions& options) {
    auto& store = session.storeForReading();
    const auto row = keptNamed(store, KeptKind::note, options.name);
    const auto versions = store.noteVersions().of(row.id);
    const auto number = static_cast<std::size_t>(options.version);
    if (number > versions.size()) throw WrongUsage("The note has no version of that number.");
    if (number > 0 && !session.options().json) {
        printText(session, versions[number - 1].text);
        return kDone;
    }
    boost::json::array list;
    for (std::size_t at = 0; at < versions.size(); ++at) {
        const auto& version = versions[at];
        if (!session.options().json) {
            session.out().line(fmt::format("{:>3}  {}  {}", at + 1, momentText(version.replacedAt),
                                           printable(kit::textBeginning(version.text, 60))));
        } else if (number == 0 || number == at + 1) {
            list.push_back({{"number", at + 1},
                            {"replacedAt", kit::encode(version.replacedAt)},
                            {"text", version.text}});
        }
    }
    if (session.options().json) {
        session.out().line(boost::json::serialize(list));
    } else if (versions.empty()) {
        session.advise("The note has had no other text.");
    }
    return kDone;
}

int removeNote(Session& session, const NoteOptions& options) {
    return removeKept(session, KeptKind::note, options.name);
}

int restoreNote(Session& session, const NoteOptions& options) {
    return restoreKept(session, KeptKind::note, options.name);
}

void addTexts(arguments::Command& command, const std::shared_ptr<NoteOptions>& options,
              const char* textName) {
    auto text = command.option(textName, options->text, "The text, in Markdown");
    command.option("--file", options->file, "Take the text from this file, - for standard input")
        .excludes(text);
    command.option("--title", options->title, "Its title");
    command.option("--tag", options->tags, "A tag; may be repeated");
}

}  // namespace

void addNotesCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<NoteOptions>();
    auto notes = app.subcommand("notes", "List your notes, or change them");
    notes.option("--project", options->project, "Only those of this project").shownAs("NAME");
    notes.option("--story", options->story, "Only those of this story").shownAs("ID");
    notes.option("--tag", options->tag, "Only those with this tag");
    notes.number("--limit", options->limit, {1, 100'000}, "Show at most this many");
    notes.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return listNotes(session, *options); };
    });

    const auto addPlaces = [&](arguments::Command& command) {
        command.option("--story", options->story, "Attach it to this story").shownAs("ID");
        command.option("--project", options->project, "Put it into this project").shownAs("NAME");
    };
    const auto named = [&](const char* name, const char* meaning, auto action) {
        auto command = addAction(notes, chosen, options, name, meaning, action);
        command.option("NOTE", options->name, "The note's id, its beginning, or its title")
            .required();
        return command;
    };
    auto make = addAction(notes, chosen, options, "new", "Make a note", newNote);
    addTexts(make, options, "TEXT");
    addPlaces(make);
    named("show", "Show a note", showNote);
    auto edit = named("edit", "Replace the text, the title or the tags of a note", editNote);
    addTexts(edit, options, "--text");
    auto attach = named("attach", "Attach a note to a story or a project", attachNote);
    addPlaces(attach);
    named("versions", "List the texts that a note had before", listVersions)
        .number("--number", options->version, {0, 50}, "Show this one");
    named("remove", "Remove a note", removeNote);
    auto restore =
        addAction(notes, chosen, options, "restore", "Restore a removed note", restoreNote);
    restore.option("NOTE", options->name, "The note; without it, the one removed last");
}

}  // namespace cli
