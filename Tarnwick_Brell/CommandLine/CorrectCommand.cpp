#include <memory>
#include <string>
#include <vector>

#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/CorrectActions.h"

namespace cli {

namespace {

using CorrectionKind = kit::Correction::Kind;
using SharedCorrectOptions = std::shared_ptr<CorrectOptions>;

template <class E>
std::vector<std::string> rawValues() {
    std::vector<std::string> values;
    for (const auto& row : kit::enumTable<E>) values.emplace_back(row.raw);
    return values;
}

/// A subcommand that makes a correction of some stories.
arguments::Command addMaking(arguments::Command& correct, Command& chosen,
                             SharedCorrectOptions options, CorrectionKind kind, const char* name,
                             const char* meaning, const char* stories) {
    auto command = correct.subcommand(name, meaning);
    command.option("ID", options->stories, stories).required();
    command.option("--note", options->note, "Why, for yourself").shownAs("TEXT");
    command.whenChosen([&chosen, options, kind] {
        chosen = [options, kind](Session& session) {
            return makeCorrection(session, kind, *options);
        };
    });
    return command;
}

void addMakings(arguments::Command& correct, Command& chosen, SharedCorrectOptions options) {
    constexpr auto several = "The story's id, or the ids of several";
    addMaking(correct, chosen, options, CorrectionKind::notSame, "not-same",
              "A story tells other news than the others",
              "The story, then those whose news it is not; alone it tells news of its own");
    addMaking(correct, chosen, options, CorrectionKind::same, "same", "Stories tell the same news",
              "The stories' ids, two at least");

    auto first = addMaking(correct, chosen, options, CorrectionKind::first, "first",
                           "An outlet had the news of a story first", several);
    first.option("--outlet", options->outlet, "The outlet's name").shownAs("NAME").required();
    first.option("--link", options->link, "The address of its article, as the proof")
        .shownAs("URL")
        .required();
    first.option("--at", options->at, "When it was published: 30min, 6h, 2d, a day or a time")
        .shownAs("WHEN");

    auto credit = addMaking(correct, chosen, options, CorrectionKind::credit, "credit",
                            "A story does not credit that outlet", several);
    credit.option("--name", options->name, "The credited outlet").shownAs("NAME").required();
    credit.option("--by", options->by, "Who is credited instead").shownAs("NAME");

    auto label = addMaking(correct, chosen, options, CorrectionKind::label, "label",
                           "A story is of another kind, or sourced otherwise", several);
    label.option("--kind", options->kind, "What sort of item it is")
        .shownAs("KIND")
        .oneOf(rawValues<kit::StoryKind>());
    label.option("--sourcing", options->sourcing, "How firmly it is sourced")
        .shownAs("S")
        .oneOf(rawValues<kit::Sourcing>());
}

void addUndoing(arguments::Command& correct, Command& chosen, SharedCorrectOptions options,
                const char* name, const char* meaning,
                int (*action)(Session&, const CorrectOptions&)) {
    auto command = correct.subcommand(name, meaning);
    command.option("CORRECTION", options->correction, "Its id or the beginning of it").required();
    command.whenChosen([&chosen, options, action] {
        chosen = [options, action](Session& session) { return action(session, *options); };
    });
}

}  // namespace

void addCorrectCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<CorrectOptions>();
    auto correct =
        app.subcommand("correct", "List your corrections of the desk's rules, or make one");
    correct.whenChosen([&chosen] { chosen = listCorrections; });
    addMakings(correct, chosen, options);
    addUndoing(correct, chosen, options, "undo", "Undo a correction", undoCorrection);
    addUndoing(correct, chosen, options, "redo", "Make a correction again that was undone",
               redoCorrection);
    auto exported = correct.subcommand("export", "Print all corrections as JSON");
    exported.whenChosen([&chosen] { chosen = exportCorrections; });
}

}  // namespace cli
