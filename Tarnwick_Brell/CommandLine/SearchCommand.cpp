#include <memory>
#include <string>
#include <vector>

#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/KeptConsole.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using app::MarkedText;

struct SearchOptions {
    std::string text{};
    std::string scope = "all";
    std::string project{};
    std::int64_t limit = 20;
};

boost::json::object markedRecord(const MarkedText& marked) {
    boost::json::array hits;
    for (const auto& hit : marked.hits) hits.push_back({{"begin", hit.begin}, {"size", hit.size}});
    return {{"text", marked.text}, {"hits", std::move(hits)}};
}

/// A part of a line, with the spaces at its ends.
std::string printablePart(const std::string& part) {
    auto shown = printable(part);
    if (part.starts_with(' ') && !shown.starts_with(' ')) shown.insert(0, 1, ' ');
    if (part.ends_with(' ') && !shown.ends_with(' ')) shown += ' ';
    return shown;
}

/// The text with its hits in bold letters.
std::string markedLine(Output& out, const MarkedText& marked) {
    std::string line;
    std::size_t at = 0;
    for (const auto& hit : marked.hits) {
        line += printablePart(marked.text.substr(at, hit.begin - at));
        line += out.bold(printable(marked.text.substr(hit.begin, hit.size)));
        at = hit.begin + hit.size;
    }
    return line + printablePart(marked.text.substr(at));
}

int runSearch(Session& session, const SearchOptions& options) {
    auto& store = session.storeForReading();
    const auto hits =
        store.keptSearch().find({.text = options.text,
                                 .scope = *kit::enumFromRaw<app::SearchScope>(options.scope),
                                 .project = projectID(store, options.project),
                                 .most = static_cast<std::size_t>(options.limit)});
    auto& out = session.out();
    if (session.options().json) {
        boost::json::array list;
        for (const auto& hit : hits) {
            list.push_back({{"in", kit::rawValue(hit.scope)},
                            {"id", hit.id},
                            {"at", kit::encode(hit.at)},
                            {"title", markedRecord(hit.title)},
                            {"snippet", markedRecord(hit.snippet)}});
        }
        out.line(boost::json::serialize(list));
        return kDone;
    }
    if (hits.empty()) session.advise("Nothing has these words.");
    auto scope = app::SearchScope::all;
    for (const auto& hit : hits) {
        if (hit.scope != scope) out.line(out.bold(kit::label(hit.scope)));
        scope = hit.scope;
        out.line(fmt::format("  {}  {}  {}", out.dim(printable(hit.id)),
                             ageText(hit.at, session.now()), markedLine(out, hit.title)));
        if (!hit.snippet.text.empty()) out.line("    " + markedLine(out, hit.snippet));
    }
    return kDone;
}

}  // namespace

void addSearchCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<SearchOptions>();
    auto command =
        app.subcommand("search", "Search stories, notes, clips, projects and signals at once");
    command.option("TEXT", options->text, "Words; \"a phrase\", begin* and -without work too")
        .required();
    std::vector<std::string> scopes;
    for (const auto& row : kit::enumTable<app::SearchScope>) scopes.emplace_back(row.raw);
    command
        .option("--in", options->scope,
                fmt::format("Search only here: {}", fmt::join(scopes, ", ")))
        .oneOf(scopes);
    command.option("--project", options->project, "Search only in this project").shownAs("NAME");
    command.number("--limit", options->limit, {1, 1'000}, "Show at most this many of each");
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return runSearch(session, *options); };
    });
}

}  // namespace cli
