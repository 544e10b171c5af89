#include <algorithm>
#include <memory>
#include <string>

#include "NewsroomKit/Library/NoteTitle.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/KeptConsole.h"
#include "Tarnwick_Brell/CommandLine/NameLookup.h"
#include "Tarnwick_Brell/CommandLine/ProjectExport.h"
#include "Tarnwick_Brell/CommandLine/Subcommands.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using app::KeptKind;
using kit::MemberKind;

constexpr std::size_t kTextCharacters = 120;

struct ProjectOptions {
    std::string name{};
    std::string member{};
    std::string description{};
    bool undo = false;
};

int listProjects(Session& session) {
    printKept(session, session.storeForReading().kept().list({.kind = KeptKind::project}),
              "There is no project yet. brell projects new NAME makes one.");
    return kDone;
}

void confirmProject(Session& session, const kit::Project& project, const std::string& sentence) {
    session.out().line(session.options().json ? boost::json::serialize(kit::encode(project))
                                              : sentence);
}

int newProject(Session& session, const ProjectOptions& options) {
    auto& store = session.store();
    const auto rows = store.kept().list({.kind = KeptKind::project});
    const auto name = std::ranges::find(rows, options.name, &app::KeptRow::title);
    if (name != rows.end())
        throw WrongUsage(
            fmt::format("There is a project named {} already.", printable(options.name)));
    const auto project =
        app::KeptStore(store, session.now())
            .put(kit::Project{.name = options.name, .description = options.description});
    confirmProject(session, project, "Added " + printable(project.name) + ".");
    return kDone;
}

boost::json::object timelineRecord(const kit::TimelineItem& item) {
    boost::json::object object{{"kind", kit::rawValue(item.kind)},
                               {"id", item.id},
                               {"at", kit::encode(item.at)},
                               {"title", item.title},
                               {"text", item.text},
                               {"done", item.isDone}};
    if (!item.source.empty()) object["source"] = item.source;
    if (!item.link.empty()) object["link"] = item.link;
    return object;
}

int showProject(Session& session, const ProjectOptions& options) {
    auto& store = session.storeForReading();
    const auto project = keptNamedAs<kit::Project>(session, store, options.name);
    const auto items = app::KeptStore(store, session.now()).timeline(project);
    auto& out = session.out();
    if (session.options().json) {
        auto object = kit::encode(project).get_object();
        auto& list = object["timeline"].emplace_array();
        for (const auto& item : items) list.push_back(timelineRecord(item));
        out.line(boost::json::serialize(object));
        return kDone;
    }
    out.line(out.bold(printable(project.name)) + (project.isArchived ? "  archived" : ""));
    if (!project.description.empty())
        out.line(wrapped(printable(project.description), out.width(), ""));
    TextTable table({Column::whole("done"), Column::whole("when"), Column::whole("what"),
                     Column::whole("id"), Column::cut("title", 16),
                     Column::cut("text", 20).dropped(1)});
    for (const auto& item : items) {
        table.add(
            {item.isDone ? "yes" : "", momentText(item.at), std::string(kit::rawValue(item.kind)),
             item.kind == MemberKind::clip || item.kind == MemberKind::note ? shortID(item.id)
                                                                            : item.id,
             printable(item.title), printable(kit::textBeginning(item.text, kTextCharacters))});
    }
    if (items.empty()) {
        session.advise("Nothing is in it yet. brell projects add puts something into it.");
    } else {
        table.print(out);
    }
    return kDone;
}

struct Member {
    MemberKind kind{};
    std::string id{};
};

/// "clip:ID", "note:ID", "story:ID" or "signal:ID"; without a kind it is a story's id.
Member memberNamed(Session& session, const std::string& words) {
    auto& store = session.store();
    const auto colon = words.find(':');
    const auto kind = colon == std::string::npos
                          ? std::nullopt
                          : kit::enumFromRaw<MemberKind>(std::string_view(words).substr(0, colon));
    const auto rest = kind ? words.substr(colon + 1) : words;
    switch (kind.value_or(MemberKind::story)) {
        case MemberKind::clip: return {MemberKind::clip, keptNamed(store, KeptKind::clip, rest).id};
        case MemberKind::note: return {MemberKind::note, keptNamed(store, KeptKind::note, rest).id};
        case MemberKind::signal: return {MemberKind::signal, rest};
        case MemberKind::story: break;
    }
    // One that is kept need not be on the wire any more.
    if (store.kept().record(KeptKind::story, rest)) return {MemberKind::story, rest};
    return {MemberKind::story, storyNamed(store, rest).story.id};
}

int setMember(Session& session, const ProjectOptions& options, bool isIn) {
    auto& store = session.store();
    const auto project = keptNamedAs<kit::Project>(session, store, options.name);
    const auto member = memberNamed(session, options.member);
    app::KeptStore kept(store, session.now());
    if (!kept.setMember(project.id, member.kind, member.id, isIn)) {
        throw WrongUsage(fmt::format("{} is not {}.", printable(options.member),
                                     isIn ? "in the library" : "in the project"));
    }
    confirmProject(
        session, *kept.find<kit::Project>(project.id),
        fmt::format("{} {}.", isIn ? "Put into" : "Taken out of", printable(project.name)));
    return kDone;
}

int addMember(Session& session, const ProjectOptions& options) {
    return setMember(session, options, true);
}

int takeMember(Session& session, const ProjectOptions& options) {
    return setMember(session, options, false);
}

int tickMember(Session& session, const ProjectOptions& options) {
    auto& store = session.store();
    const auto project = keptNamedAs<kit::Project>(session, store, options.name);
    const auto member = memberNamed(session, options.member);
    app::KeptStore kept(store, session.now());
    if (!kept.setDone(project.id, kit::memberKey(member.kind, member.id), !options.undo))
        throw WrongUsage(fmt::format("{} is not in the project.", printable(options.member)));
    confirmProject(session, *kept.find<kit::Project>(project.id),
                   options.undo ? "It is to be done again." : "Done.");
    return kDone;
}

int archiveProject(Session& session, const ProjectOptions& options) {
    auto& store = session.store();
    const auto project = keptNamedAs<kit::Project>(session, store, options.name);
    app::KeptStore kept(store, session.now());
    kept.edit<kit::Project>(project.id, [&](kit::Project& its) { its.isArchived = !options.undo; });
    confirmProject(session, *kept.find<kit::Project>(project.id),
                   fmt::format("{} is {}.", printable(project.name),
                               options.undo ? "active again" : "archived"));
    return kDone;
}

int removeProject(Session& session, const ProjectOptions& options) {
    return removeKept(session, KeptKind::project, options.name);
}

int restoreProject(Session& session, const ProjectOptions& options) {
    return restoreKept(session, KeptKind::project, options.name);
}

}  // namespace

void addProjectsCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<ProjectOptions>();
    auto projects = app.subcommand("projects", "List your projects, or change them");
    projects.whenChosen([&chosen] { chosen = listProjects; });
    const auto named = [&](const char* name, const char* meaning, auto action) {
        auto command = addAction(projects, chosen, options, name, meaning, action);
        command.option("NAME", options->name, "The project's name or id").required();
        return command;
    };
    const auto withMember = [&](const char* name, const char* meaning, auto action) {
        auto command = named(name, meaning, action);
        command
            .option("MEMBER", options->member,
                    "A story's id, or clip:ID, note:ID, signal:ID; brell projects show lists them")
            .required();
        return command;
    };
    named("new", "Make a project", newProject)
        .option("--description", options->description, "What it is about")
        .shownAs("TEXT");
    named("show", "Show what is in a project, in its order", showProject);
    withMember("add", "Put a story, clip, note or signal into a project", addMember);
    withMember("take", "Take something out of a project", takeMember);
    withMember("done", "Tick something of a project off", tickMember)
        .flag("--undo", options->undo, "It is to be done again");
    named("archive", "Put a project aside", archiveProject)
        .flag("--undo", options->undo, "It is active again");
    named("remove", "Remove a project; what is in it stays", removeProject);
    addProjectExport(projects, chosen);
    auto restore = addAction(projects, chosen, options, "restore", "Restore a removed project",
                             restoreProject);
    restore.option("NAME", options->name, "The project; without it, the one removed last");
}

}  // namespace cli
