#include <string>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Outlines/OutlineParser.h"
#include "NewsroomKit/Outlines/OutlineWriter.h"
#include "NewsroomKit/Sources/SourceJSON.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/InputFile.h"
#include "Tarnwick_Brell/CommandLine/SourcesActions.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/Desk/SourceRegistry.h"

namespace cli {

namespace {

constexpr std::size_t kWidestName = 40;

boost::json::object recordOf(const kit::OutlineFeed& feed) {
    return {{"name", feed.title}, {"feedURL", feed.feedURL}, {"siteURL", feed.siteURL}};
}

void printJSON(Session& session, const app::ImportPreview& preview, boost::json::array added) {
    boost::json::array known, refused;
    for (const auto& entry : preview.known) {
        auto record = recordOf(entry.feed);
        record["id"] = entry.source.id;
        known.push_back(std::move(record));
    }
    for (const auto& entry : preview.refused) {
        refused.push_back({{"text", entry.text}, {"reason", label(entry.reason)}});
    }
    session.out().line(
        boost::json::serialize(boost::json::object{{"title", preview.title},
                                                   {"added", std::move(added)},
                                                   {"known", std::move(known)},
                                                   {"refused", std::move(refused)}}));
}

std::string counted(std::size_t count) {
    return fmt::format("{} {}", count, count == 1 ? "source" : "sources");
}

/// Prints the entries that are not imported, and why.
void printLeftOut(Session& session, const app::ImportPreview& preview) {
    const auto row = [&](std::string_view name, std::string_view remark) {
        session.out().line(fmt::format(
            "  {}  {}", padTo(printable(kit::maskedSecrets(name)), kWidestName), remark));
    };
    if (!preview.known.empty()) {
        session.out().line(fmt::format("Known already: {}.", counted(preview.known.size())));
        for (const auto& entry : preview.known) {
            row(entry.feed.title.empty() ? entry.source.name : entry.feed.title, entry.source.id);
        }
    }
    if (preview.refused.empty()) return;
    session.out().line(fmt::format("Refused: {}.", preview.refused.size()));
    for (const auto& entry : preview.refused) row(entry.text, label(entry.reason));
}

int showImport(Session& session, const app::ImportPreview& preview) {
    if (session.options().json) {
        boost::json::array fresh;
        for (const auto& feed : preview.fresh) fresh.push_back(recordOf(feed));
        printJSON(session, preview, std::move(fresh));
        return kDone;
    }
    session.out().line(fmt::format("Would be added: {}.", counted(preview.fresh.size())));
    for (const auto& feed : preview.fresh) {
        session.out().line(fmt::format("  {}  {}", padTo(printable(feed.title), kWidestName),
                                       printable(kit::maskedSecrets(feed.feedURL))));
    }
    printLeftOut(session, preview);
    return kDone;
}

}  // namespace

int importSources(Session& session, const std::string& file, bool preview) {
    auto parsed = kit::parseOutlines(readInput(file, kit::outlineByteLimit));
    if (!parsed) throw WorkFailed(std::string(description(parsed.error())));
    auto& store = preview ? session.storeForReading() : session.store();
    app::SourceRegistry registry(store.sources());
    const auto plan = app::previewImport(std::move(parsed.value()), registry);
    if (preview) return showImport(session, plan);

    const auto added = app::applyImport(plan, store, registry);
    if (session.options().json) {
        printJSON(session, plan, kit::encode(added).get_array());
        return kDone;
    }
    session.out().line(fmt::format("Added: {}.", counted(added.size())));
    for (const auto& source : added) {
        session.out().line(
            fmt::format("  {}  {}", padTo(printable(source.name), kWidestName), source.id));
    }
    printLeftOut(session, plan);
    return kDone;
}

int exportSources(Session& session, app::ExportScope scope, bool withSecrets) {
    const app::SourceRegistry registry(session.storeForReading().sources());
    auto sources = registry.sources();
    std::erase_if(sources, [&](const auto& source) {
        return !isInScope(scope, source, registry.isEnabled(source));
    });
    const auto [outlines, withheld] =
        app::exportedSources(sources, withSecrets ? app::Secrets::kept : app::Secrets::withheld);
    for (const auto& name : withheld) {
        fmt::print(stderr,
                   "brell: Left out the address of {}: it carries a password or key. "
                   "--with-secrets keeps it.\n",
                   printable(name));
    }
    const auto list = kit::writeOutlines(outlines);
    if (session.options().json) {
        session.out().line(
            boost::json::serialize(boost::json::object{{"count", outlines.feeds.size()},
                                                       {"withheld", kit::encode(withheld)},
                                                       {"opml", list}}));
    } else {
        session.out().write(list);
    }
    return kDone;
}

}  // namespace cli
