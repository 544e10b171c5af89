#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <fmt/format.h>

#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/BlockingFetcher.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/NameLookup.h"
#include "Tarnwick_Brell/CommandLine/RefreshText.h"
#include "Tarnwick_Brell/Desk/RefreshPass.h"
#include "Tarnwick_Brell/Desk/SourceRegistry.h"

namespace cli {

namespace {

using app::SourceOutcome;

struct RefreshOptions {
    std::vector<std::string> sources;
    bool conditional = false;
    bool unconditional = false;
};

std::vector<kit::NewsSource> sourcesFor(const app::SourceRegistry& registry,
                                        const RefreshOptions& options) {
    if (options.sources.empty()) return registry.enabledSources();
    std::vector<kit::NewsSource> named;
    for (const auto& id : options.sources) {
        const auto& source = sourceNamed(registry, id);
        const bool twice = std::any_of(named.begin(), named.end(),
                                       [&](const auto& other) { return other.id == id; });
        if (!twice) named.push_back(source);
    }
    return named;
}

/// Restores the order of the sources: answers arrive in any order.
void sortLike(const std::vector<kit::NewsSource>& asked, std::vector<SourceOutcome>& outcomes) {
    std::unordered_map<std::string_view, std::size_t> places;
    for (const auto& source : asked) places.emplace(source.id, places.size());
    std::sort(outcomes.begin(), outcomes.end(), [&](const auto& a, const auto& b) {
        return places.at(a.source.id) < places.at(b.source.id);
    });
}

int runRefresh(Session& session, const RefreshOptions& options) {
    auto network = session.network();
    auto& store = session.store();
    const app::SourceRegistry registry(store.sources());
    const auto asked = sourcesFor(registry, options);

    BlockingFetcher fetcher(std::move(network),
                            options.unconditional ? kit::Conditional::no : kit::Conditional::yes);
    const app::PassSettings settings{
        .scope = options.sources.empty() ? app::PassScope::all : app::PassScope::named,
        .retention = std::chrono::duration<double>(session.defaults().storyRetention())};
    const auto progress = [](std::size_t done, std::size_t total) {
        showProgress(fmt::format("{} of {}", done, total));
    };
    app::RefreshPass pass(store, fetcher.fetching(), &currentInstant, settings,
                          {.progress = progress});
    auto report = fetcher.await(pass.run(asked));
    showProgress("");
    auto& outcomes = report.outcomes;

    sortLike(asked, outcomes);
    session.options().json ? printReportJSON(session, report) : printReport(session, report);
    const auto failed = std::count_if(outcomes.begin(), outcomes.end(), [](const auto& outcome) {
        return outcome.kind == SourceOutcome::Kind::failed;
    });
    if (failed > 0 && static_cast<std::size_t>(failed) == outcomes.size()) {
        session.out().flush();
        throw WorkFailed(report.offline ? "No server can be reached: this computer seems to be "
                                          "offline. No source is marked as failing."
                         : failed == 1  ? "The source could not be refreshed."
                                        : "No source could be refreshed.");
    }
    return kDone;
}

}  // namespace

void addRefreshCommand(arguments::Command& app, Command& chosen) {
    auto options = std::make_shared<RefreshOptions>();
    auto command =
        app.subcommand("refresh", "Fetch the enabled sources once and store their stories");
    command
        .option("--source", options->sources,
                "Only this source, even if it is disabled; may be repeated")
        .shownAs("ID");
    auto conditional = command.flag("--conditional", options->conditional,
                                    "Ask only for what is new (the default)");
    command.flag("--unconditional", options->unconditional, "Fetch everything again")
        .excludes(conditional);
    command.whenChosen([options, &chosen] {
        chosen = [options](Session& session) { return runRefresh(session, *options); };
    });
}

}  // namespace cli
