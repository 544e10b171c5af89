#include <algorithm>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <boost/asio/co_spawn.hpp>
#include <fmt/format.h>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Sources/SourceAddress.h"
#include "NewsroomKit/Sources/SourceShape.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Engine.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/TerminalText.h"
#include "Tarnwick_Brell/Desk/SourceRoster.h"

namespace brell {

namespace {

using newsroom::NewsSource;
using newsroom::SourceFetch;

struct SourcesOptions {
    std::string id;
    std::vector<std::string> addresses;
    bool unchecked = false;
};

std::string statusText(const desk::SourceStatus& status, newsroom::Instant now) {
    if (status.lastError) return "failing: " + printable(*status.lastError);
    if (!status.lastSuccess) return "never fetched";
    return fmt::format("{} stories, {}", status.storyCount,
                       *status.lastSuccess + std::chrono::minutes(1) > now
                           ? "just now"
                           : age(*status.lastSuccess, now) + " ago");
}

int listSources(Session& session) {
    auto& store = session.storeForReading();
    const desk::SourceRoster roster(store.sources());
    const auto statuses = store.sources().statuses();
    const auto statusOf = [&](const NewsSource& source) {
        const auto entry = statuses.find(source.id);
        return entry == statuses.end() ? desk::SourceStatus() : entry->second;
    };
    if (session.options().json) {
        boost::json::array list;
        for (const auto& source : roster.sources()) {
            auto record = newsroom::encode(source).get_object();
            record["enabled"] = roster.isEnabled(source);
            record["status"] = newsroom::encode(statusOf(source));
            list.push_back(std::move(record));
        }
        session.out().line(boost::json::serialize(list));
        return kDone;
    }
    std::size_t idColumns = 0, nameColumns = 0;
    for (const auto& source : roster.sources()) {
        idColumns = std::max(idColumns, columnsOf(source.id));
        nameColumns =
            std::max(nameColumns, std::min<std::size_t>(columnsOf(printable(source.name)), 40));
    }
    for (const auto& source : roster.sources()) {
        session.out().line(fmt::format(
            "{:<4}{}  {}  {:<14}  {}", roster.isEnabled(source) ? "on" : "off",
            padTo(source.id, idColumns), padTo(printable(source.name), nameColumns),
            newsroom::label(source.category), statusText(statusOf(source), session.now())));
    }
    return kDone;
}

int switchSource(Session& session, const std::string& id, bool enabled) {
    desk::SourceRoster roster(session.store().sources());
    const auto* source = roster.find(id);
    if (!source) throw WrongUsage("There is no source with the id " + id + ". See brell sources.");
    roster.setEnabled(id, enabled);
    session.out().line(fmt::format("{} is {}.", printable(source->name), enabled ? "on" : "off"));
    return kDone;
}

/// A source as it would be fetched before the desk knows it.
NewsSource trial(const std::string& address) {
    return {.id = "trial",
            .name = address,
            .feedURL = address,
            .siteURL = address,
            .kind = NewsSource::Kind::custom,
            .category = NewsSource::Category::custom};
}

SourceFetch fetchOnce(Engine& engine, NewsSource source) {
    SourceFetch fetched;
    std::exception_ptr failure;
    boost::asio::co_spawn(engine.io(), engine.feeds().fetch(std::move(source)),
                          [&](std::exception_ptr error, SourceFetch result) {
                              failure = error;
                              fetched = std::move(result);
                              engine.io().stop();
                          });
    engine.io().restart();
    engine.io().run();
    if (failure) std::rethrow_exception(failure);
    return fetched;
}

void requireNew(const desk::SourceRoster& roster, const std::string& feedURL) {
    if (const auto* known = roster.findByFeed(feedURL)) {
        throw WorkFailed(known->name + " is already one of your sources.");
    }
}

std::string hostOf(const std::string& address) {
    const auto parsed = newsroom::WebAddress::parse(address);
    return parsed ? parsed->host : address;
}

/// Fetches the candidates in turn and adds the first that is a feed with stories.
NewsSource addChecked(Engine& engine, desk::SourceRoster& roster,
                      const std::vector<std::string>& candidates) {
    std::string reason;
    for (const auto& candidate : candidates) {
        requireNew(roster, candidate);
        auto fetched = fetchOnce(engine, trial(candidate));
        if (auto* stories = std::get_if<SourceFetch::Stories>(&fetched.outcome)) {
            requireNew(roster, stories->feedURL);
            return roster.add(
                stories->feedTitle.empty() ? hostOf(stories->feedURL) : stories->feedTitle,
                stories->feedURL);
        }
        if (const auto* failed = std::get_if<SourceFetch::Failed>(&fetched.outcome))
            reason = failed->text;
    }
    throw WorkFailed(reason);
}

/// "@name" alone reads as an address, but of a host that cannot be.
bool isPlausible(const std::string& address) {
    const auto host = hostOf(address);
    return host.find_first_of(".:") != std::string::npos || host == "localhost";
}

NewsSource addSource(Engine& engine, desk::SourceRoster& roster, const std::string& address,
                     bool unchecked) {
    const auto candidates = newsroom::SourceAddress::candidates(address);
    if (candidates.empty() || !isPlausible(candidates.front())) {
        throw WorkFailed("That doesn't look like a web address or a handle.");
    }
    if (!unchecked) return addChecked(engine, roster, candidates);
    requireNew(roster, candidates.front());
    const auto parsed = newsroom::WebAddress::parse(candidates.front());
    return roster.add(parsed->host + newsroom::percentDecoded(parsed->path), candidates.front());
}

/// What was added before a failure stays added, and is told.
int addSources(Session& session, const SourcesOptions& options) {
    Engine engine(session.network(), newsroom::Conditional::no);
    desk::SourceRoster roster(session.store().sources());
    boost::json::array added;
    std::exception_ptr failure;
    for (const auto& address : options.addresses) {
        try {
            const auto source = addSource(engine, roster, address, options.unchecked);
            added.push_back(newsroom::encode(source));
            if (session.options().json) continue;
            session.out().line(fmt::format("Added {} ({}).", printable(source.name), source.id));
        } catch (const WorkFailed&) {
            failure = std::current_exception();
            break;
        }
    }
    if (session.options().json && !added.empty()) {
        session.out().line(boost::json::serialize(added));
    }
    if (failure) std::rethrow_exception(failure);
    return kDone;
}

}  // namespace

void addSourcesCommand(CLI::App& app, Command& chosen) {
    auto options = std::make_shared<SourcesOptions>();
    auto* command = app.add_subcommand("sources", "List the sources, or change them");
    command->require_subcommand(0, 1);
    command->callback([&chosen, command] {
        if (command->get_subcommands().empty()) chosen = listSources;
    });

    auto* add = command->add_subcommand(
        "add", "Add sources by address: a feed, a website, a handle or a channel");
    add->add_option("ADDRESS", options->addresses, "Feed, website, @handle or YouTube channel")
        ->required();
    add->add_flag("--unchecked", options->unchecked, "Add without fetching it first");
    add->callback([options, &chosen] {
        chosen = [options](Session& session) { return addSources(session, *options); };
    });

    for (const bool enabled : {true, false}) {
        auto* change = command->add_subcommand(
            enabled ? "enable" : "disable",
            enabled ? "Fetch this source from now on" : "Leave this source out");
        change->add_option("ID", options->id, "The source's id, as brell sources lists it")
            ->required();
        change->callback([options, enabled, &chosen] {
            chosen = [options, enabled](Session& session) {
                return switchSource(session, options->id, enabled);
            };
        });
    }
}

}  // namespace brell
