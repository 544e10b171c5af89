#include <memory>
#include <string>
#include <vector>

#include "NewsroomKit/Library/Citation.h"
#include "NewsroomKit/Library/ClipMaking.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/KeptConsole.h"
#include "Tarnwick_Brell/CommandLine/NameLookup.h"
#include "Tarnwick_Brell/CommandLine/Subcommands.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using app::KeptKind;

struct ClipOptions {
    std::string name{};
    std::string quote{};
    std::string note{};
    std::string project{};
    std::string tag{};
    std::string style = "plain";
    std::vector<std::string> tags{};
    std::int64_t limit = 100;
};

void printClip(Session& session, const kit::Clip& clip) {
    auto& out = session.out();
    if (session.options().json) {
        out.line(boost::json::serialize(kit::encode(clip)));
        return;
    }
    const auto shown =
        kit::quoteWithCitation(clip, kit::CitationStyle::plain, kit::TimeZone::here());
    out.line(shown);
    if (!clip.note.empty()) out.line(wrapped(printable(clip.note), out.width(), "  "));
    for (const auto& tag : clip.tags) out.line("#" + printable(tag));
}

int listClips(Session& session, const ClipOptions& options) {
    auto& store = session.storeForReading();
    printKept(session,
              store.kept().list({.kind = KeptKind::clip,
                                 .project = projectID(store, options.project),
                                 .tag = options.tag,
                                 .most = static_cast<std::size_t>(options.limit)}),
              "There is no clip yet. brell clips add STORY --quote TEXT makes one.");
    return kDone;
}

int addClip(Session& session, const ClipOptions& options) {
    auto& store = session.store();
    const auto story = storyNamed(store, options.name).story;
    const auto stored = store.articles().find(story.id);
    auto clip = kit::madeClip(story, stored ? &stored->article : nullptr, options.quote);
    clip.accessedAt = session.now();
    clip.note = options.note;
    clip.tags = options.tags;
    if (!options.project.empty()) clip.projectIDs = {projectID(store, options.project)};
    clip = app::KeptStore(store, session.now()).put(std::move(clip));
    if (session.options().json) {
        printClip(session, clip);
    } else {
        session.out().line("Clipped as " + shortID(clip.id) + ".");
    }
    return kDone;
}

int showClip(Session& session, const ClipOptions& options) {
    printClip(session, keptNamedAs<kit::Clip>(session, session.storeForReading(), options.name));
    return kDone;
}

int editClip(Session& session, const ClipOptions& options, bool isNote) {
    auto& store = session.store();
    const auto clip = keptNamedAs<kit::Clip>(session, store, options.name);
    app::KeptStore kept(store, session.now());
    kept.edit<kit::Clip>(clip.id, [&](kit::Clip& its) {
        isNote ? void(its.note = options.note) : void(its.tags = options.tags);
    });
    if (session.options().json) {
        printClip(session, *kept.find<kit::Clip>(clip.id));
    } else {
        session.out().line("The clip was changed.");
    }
    return kDone;
}

int noteClip(Session& session, const ClipOptions& options) {
    return editClip(session, options, true);
}

int tagClip(Session& session, const ClipOptions& options) {
    return editClip(session, options, false);
}

int citeClip(Session& session, const ClipOptions& options) {
    const auto clip = keptNamedAs<kit::Clip>(session, session.storeForReading(), options.name);
    const auto style = *kit::enumFromRaw<kit::CitationStyle>(options.style);
    const auto text = kit::citation(kit::citedWork(clip), style, kit::TimeZone::here());
    session.out().line(session.options().json
                           ? boost::json::serialize(boost::json::object{
                                 {"id", clip.id}, {"style", options.style}, {"citation", text}})
                           : text);
    return kDone;
}

int removeClip(Session& session, const ClipOptions& options) {
    return removeKept(session, KeptKind::clip, options.name);
}

int restoreClip(Session& session, const ClipOptions& options) {
    return restoreKept(session, KeptKind::clip, options.name);
}

}  // namespace

void addClipsCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<ClipOptions>();
    auto clips = app.subcommand("clips", "List the passages that you clipped, or change them");
    clips.option("--project", options->project, "Only those of this project").shownAs("NAME");
    clips.option("--tag", options->tag, "Only those with this tag");
    clips.number("--limit", options->limit, {1, 100'000}, "Show at most this many");
    clips.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return listClips(session, *options); };
    });

    auto add = addAction(clips, chosen, options, "add", "Clip a passage of a story", addClip);
    add.option("STORY", options->name, "The story's id or its beginning").required();
    add.option("--quote", options->quote, "The passage, word for word").shownAs("TEXT").required();
    add.option("--note", options->note, "What you say of it").shownAs("TEXT");
    add.option("--project", options->project, "Put it into this project").shownAs("NAME");
    add.option("--tag", options->tags, "Give it this tag; may be repeated");

    const auto named = [&](const char* name, const char* meaning, auto action) {
        auto command = addAction(clips, chosen, options, name, meaning, action);
        command.option("CLIP", options->name, "The clip's id or its beginning").required();
        return command;
    };
    named("show", "Show a clip with its citation", showClip);
    named("note", "Say something of a clip", noteClip)
        .option("TEXT", options->note, "The note; an empty one removes it")
        .required()
        .mayBeEmpty();
    named("tag", "Set the tags of a clip", tagClip)
        .option("TAG", options->tags, "All of its tags; none removes them");
    std::vector<std::string> styles;
    for (const auto& row : kit::enumTable<kit::CitationStyle>) styles.emplace_back(row.raw);
    named("cite", "Cite what a clip was taken from", citeClip)
        .option("--style", options->style,
                fmt::format("How it is cited: {}", fmt::join(styles, ", ")))
        .oneOf(styles);
    named("remove", "Remove a clip", removeClip);
    auto restore =
        addAction(clips, chosen, options, "restore", "Restore a removed clip", restoreClip);
    restore.option("CLIP", options->name, "The clip; without it, the one removed last");
}

}  // namespace cli
