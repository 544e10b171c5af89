#include "Tarnwick_Brell/CommandLine/ProjectExport.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "Tarnwick_Brell/CommandLine/KeptConsole.h"
#include "Tarnwick_Brell/CommandLine/Subcommands.h"
#include "Tarnwick_Brell/CommandLine/TimeArgument.h"
#include "Tarnwick_Brell/Library/ProjectEvidence.h"

namespace cli {

namespace {

struct PackOptions {
    std::string name{};
    std::optional<std::filesystem::path> folder{};
    std::string madeAt{};
    bool zip = false;
    bool replace = false;
};

app::WrittenPack written(const kit::Evidence& evidence, const PackOptions& options) {
    try {
        return app::writePack(evidence, *options.folder,
                              options.zip ? app::PackShape::zip : app::PackShape::folder,
                              options.replace ? app::Existing::isReplaced : app::Existing::stays,
                              kit::TimeZone::here());
    } catch (const std::length_error&) {
        throw WorkFailed("The pack is more than a .zip holds. Without --zip it is a folder.");
    }
}

int exportProject(Session& session, const PackOptions& options) {
    auto& store = session.storeForReading();
    const auto project = keptNamedAs<kit::Project>(session, store, options.name);
    const auto madeAt =
        options.madeAt.empty() ? session.now() : parseTimeArgument(options.madeAt, session.now());
    const auto evidence = app::projectEvidence(store, project, madeAt, "brell " BRELL_VERSION);
    const auto pack = written(evidence, options);
    const auto texts = std::ranges::count_if(
        evidence.stories, [](const kit::EvidenceStory& story) { return story.text.has_value(); });
    if (session.options().json) {
        session.out().line(
            boost::json::serialize(boost::json::object{{"pack", pack.path.string()},
                                                       {"files", pack.files},
                                                       {"stories", evidence.stories.size()},
                                                       {"texts", texts},
                                                       {"clips", evidence.clips.size()},
                                                       {"notes", evidence.notes.size()},
                                                       {"corrections", evidence.corrections.size()},
                                                       {"signals", evidence.happenings.size()}}));
        return kDone;
    }
    session.out().line(
        fmt::format("Wrote {}. Files: {}, stories: {}, kept texts: {}, clips: {}, "
                    "notes: {}, signals: {}.",
                    printable(pack.path.string()), pack.files, evidence.stories.size(), texts,
                    evidence.clips.size(), evidence.notes.size(), evidence.happenings.size()));
    return kDone;
}

}  // namespace

void addProjectExport(arguments::Command& projects, Command& chosen) {
    auto options = std::make_shared<PackOptions>();
    auto command =
        addAction(projects, chosen, options, "export",
                  "Write all that is known of a project into a folder, as evidence", exportProject);
    command.option("NAME", options->name, "The project's name or id").required();
    command.option("--to", options->folder, "The folder in which the pack gets its own")
        .shownAs("DIR")
        .required();
    command.flag("--zip", options->zip, "Write one .zip instead of a folder");
    command.flag("--replace", options->replace, "Write over a pack that exists");
    command
        .option("--made-at", options->madeAt,
                "Say this time in it instead of now: then the same evidence gives the same bytes")
        .shownAs("WHEN");
}

}  // namespace cli
